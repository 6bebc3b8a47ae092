// A curve is drawn as a cubic Bezier curve that passes the inner two handles at a third
// and at two thirds of its way, four times as large, and shrunk, so that its edge is
// soft. That is the look of the graph alone: the colours of a texture follow a spline.
#include "fills/curve_graph.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdlib>
#include <string_view>

#include "controls/color_button.h"
#include "fills/texture_picture.h"
#include "raster/lines.h"
#include "raster/shapes.h"

namespace tess {

namespace {

using platform::WindowHandle;

constexpr int kScale = 4;
constexpr CurveChannel kChannels[] = {CurveChannel::Red, CurveChannel::Green, CurveChannel::Blue};

/// The tags of the controls, by channel.
constexpr char kTags[][7] = {"CURVER", "CURVEG", "CURVEB"};

/// The point that is dragged, in the control that has the mouse.
int held_handle = -1;

/// What a handle can reach: a file may hold any value.
float Reachable(float value) {
    return static_cast<float>(HoldToUnit(double{value}));
}

ColorWord ColorOf(CurveChannel channel) {
    constexpr ColorWord kColors[] = {0x404080, 0x408040, 0x804040};
    return kColors[static_cast<int>(channel)];
}

/// Repaints the three curves of the control's texture.
void RepaintCurves(WindowHandle control) {
    const WindowHandle dialog = platform::ParentDialog(control);
    const CurveGraph graph = CurveGraphOf(control);
    for (const WindowHandle other : platform::Children(dialog)) {
        if (CurveGraphOf(other).Item == graph.Item)
            platform::RepaintControl(dialog, platform::ControlId(other));
    }
}

void MoveHandle(WindowHandle control, int point, float value) {
    const CurveGraph graph = CurveGraphOf(control);
    SetCurvePoint(graph.Item, graph.Channel, point, value);
    RepaintCurves(control);
}

struct MouseAt {
    CurveBox area;
    int x, y;
};

MouseAt PlaceOfMouse(WindowHandle control, std::intptr_t l) {
    return {CurveArea(platform::ClientSize(control)), platform::MouseX(l), platform::MouseY(l)};
}

void PressHandle(WindowHandle control, const MouseAt& mouse) {
    const int point = HandleAt(mouse.area, CurveGraphOf(control), mouse.x, mouse.y);
    if (point < 0) return;
    held_handle = point;
    platform::CaptureMouse(control);
    RepaintCurves(control);
}

void DragHandle(WindowHandle control, const MouseAt& mouse) {
    if (HeldHandle(control) >= 0) MoveHandle(control, held_handle, ValueAtRow(mouse.area, mouse.y));
}

void ReleaseHandle(WindowHandle control) {
    if (HeldHandle(control) < 0) return;
    held_handle = -1;
    platform::ReleaseMouse();
    RepaintCurves(control);
}

/// Lets the user choose the colour that the three curves have at a handle.
void ChooseHandleColor(WindowHandle control, const MouseAt& mouse) {
    const CurveGraph graph = CurveGraphOf(control);
    const int point = HandleAt(mouse.area, graph, mouse.x, mouse.y);
    if (point < 0) return;
    ReleaseHandle(control);
    const auto level = [&](CurveChannel channel) {
        return static_cast<int>(Reachable(CurvePoint(*graph.Item, channel, point)) * 255);
    };
    ColorWord color =
        MakeColor(level(CurveChannel::Red), level(CurveChannel::Green), level(CurveChannel::Blue));
    if (ChooseColor(platform::ParentDialog(control), &color) == 0) return;
    const int chosen[] = {RedOf(color), GreenOf(color), BlueOf(color)};
    for (const CurveChannel channel : kChannels) {
        SetCurvePoint(graph.Item, channel, point,
                      static_cast<float>(chosen[static_cast<int>(channel)] / 255.0));
    }
    RepaintCurves(control);
}

/// A point of a curve, in the pixels of the large picture.
struct Place {
    double X, Y;
};

/// A point's coordinates are reckoned alike.
template <class Reckon>
raster::Point Both(Reckon reckon) {
    return {static_cast<int>(reckon(&Place::X)), static_cast<int>(reckon(&Place::Y))};
}

/// The curve through four points: its ends and the two controls between them.
std::array<raster::Point, 4> CurveThrough(const std::array<Place, 4>& p) {
    const auto first = [&p](double Place::*c) {
        return p[1].*c - (0.03703704 * p[3].*c + 0.29629624 * p[0].*c);
    };
    const auto second = [&p](double Place::*c) {
        return p[2].*c - (0.29629633 * p[3].*c + 0.03703703 * p[0].*c);
    };
    return {
        Both([&](auto c) { return p[0].*c; }),
        Both([&](auto c) { return (0.44444442 * first(c) - 0.22222221 * second(c)) / 0.14814812; }),
        Both([&](auto c) { return (0.4444444 * second(c) - 0.2222222 * first(c)) / 0.14814812; }),
        Both([&](auto c) { return p[3].*c; })};
}

/// The curve in white at `kScale` times the size, or null.
ImageHandle DrawLargeCurve(platform::PixelSize client, const CurveGraph& graph) {
    constexpr int kPenWidth = 8;
    DibCanvas canvas;
    if (DibCanvasOpen(client.Width * kScale, client.Height * kScale, &canvas) == 0) return nullptr;
    const CurveBox area = CurveArea(client);
    std::array<Place, 4> places;
    for (int point = 0; point < kCurvePoints; ++point) {
        const CurveHandle handle =
            PlaceHandle(area, point, CurvePoint(*graph.Item, graph.Channel, point));
        places[static_cast<std::size_t>(point)] = {static_cast<double>(handle.X) * kScale,
                                                   static_cast<double>(handle.Y) * kScale};
    }
    raster::FillRect(canvas.MemoryDC, canvas.Bounds, raster::SolidBrush(0xFFFFFF));
    canvas.MemoryDC.pen = raster::SolidPen(kPenWidth, ColorOf(graph.Channel));
    raster::PolyBezier(canvas.MemoryDC, CurveThrough(places));
    return DibCanvasClose(&canvas, CanvasClose::Keep);
}

struct Step {
    int x, y;
};
/// Returns a picture whose pixels are the means of four neighbours along the axis of
/// `step`, as far as there are any.
ImageHandle Shrink(ImageHandle handle, int width, int height, const Step& step) {
    const LockedImage source(handle);
    platform::OwnedBlock picture(NewPackedDib(width, height, nullptr, 24));
    const LockedImage target(picture.Get());
    if (!source || !target) return nullptr;
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            int red = 0, green = 0, blue = 0, count = 0;
            for (int i = 0; i < kScale; ++i) {
                const int from_x = step.x != 0 ? x * kScale + i : x;
                const int from_y = step.y != 0 ? y * kScale + i : y;
                const std::uint32_t pixel = GetDibPixel(source, from_x, from_y);
                if (pixel == kNoPixel) continue;
                red += RedOf(pixel);
                green += GreenOf(pixel);
                blue += BlueOf(pixel);
                ++count;
            }
            SetDibPixel(target, x, y, MakeColor(red / count, green / count, blue / count));
        }
    }
    return picture.Release();
}

platform::PixelSize SizeOf(ImageHandle handle) {
    const LockedImage image(handle);
    return image ? platform::PixelSize{image->Width, image->Height} : platform::PixelSize{0, 0};
}

}  // namespace

float CurvePoint(const TextureItem& item, CurveChannel channel, int point) {
    switch (channel) {
        case CurveChannel::Red:
            return item.ColorRed[point];
        case CurveChannel::Green:
            return item.ColorGreen[point];
        case CurveChannel::Blue:
        default:
            return item.ColorBlue[point];
    }
}

void SetCurvePoint(TextureItem* item, CurveChannel channel, int point, float value) {
    switch (channel) {
        case CurveChannel::Red:
            item->ColorRed[point] = value;
            return;
        case CurveChannel::Green:
            item->ColorGreen[point] = value;
            return;
        case CurveChannel::Blue:
        default:
            item->ColorBlue[point] = value;
    }
}

void ResetCurve(TextureItem* item, CurveChannel channel) {
    for (int point = 0; point < kCurvePoints; ++point)
        SetCurvePoint(item, channel, point, kStartCurve[point]);
}

void InstallCurveGraphs(WindowHandle dialog, std::span<const int, 3> ids, TextureItem* item) {
    held_handle = -1;
    for (std::size_t i = 0; i < ids.size(); ++i) {
        platform::InstallControl(dialog, ids[i], kTags[i], CurveGraphProcedure);
        if (const WindowHandle control = platform::Control(dialog, ids[i]); control != nullptr)
            platform::SetUserData(control, item);
    }
}

CurveGraph CurveGraphOf(WindowHandle control) {
    const std::string_view tag = platform::ControlTag(control);
    for (const CurveChannel channel : kChannels) {
        if (tag == kTags[static_cast<int>(channel)])
            return {static_cast<TextureItem*>(platform::UserData(control)), channel};
    }
    return {nullptr, CurveChannel::Red};
}

std::intptr_t CurveGraphProcedure(WindowHandle control, std::uint32_t message, std::uintptr_t w,
                                  std::intptr_t l) {
    const CurveGraph graph = CurveGraphOf(control);
    if (!graph) return platform::CallOriginal(control, message, w, l);
    switch (message) {
        case platform::kMessageLeftButtonDown:
            PressHandle(control, PlaceOfMouse(control, l));
            return 0;
        case platform::kMessageMouseMove:
            DragHandle(control, PlaceOfMouse(control, l));
            return 0;
        case platform::kMessageLeftButtonUp:
            ReleaseHandle(control);
            return 0;
        case platform::kMessageLeftDoubleClick:
            ChooseHandleColor(control, PlaceOfMouse(control, l));
            return 0;
        case platform::kMessageRightDoubleClick:
            ResetCurve(graph.Item, graph.Channel);
            RepaintCurves(control);
            return 0;
        default:
            return platform::CallOriginal(control, message, w, l);
    }
}

CurveBox CurveArea(platform::PixelSize client) {
    constexpr int kAcross = 4, kDown = 12;
    return {kAcross, kDown, client.Width - kAcross, client.Height - kDown};
}

CurveHandle PlaceHandle(const CurveBox& area, int point, float value) {
    const int third = (area.Right - area.Left) / 3;
    return {area.Left + point * third,
            area.Bottom - static_cast<int>((area.Bottom - area.Top) * double{Reachable(value)})};
}

int HandleAt(const CurveBox& area, const CurveGraph& graph, int x, int y) {
    constexpr int kReach = 5;
    for (int point = 0; point < kCurvePoints; ++point) {
        const CurveHandle handle =
            PlaceHandle(area, point, CurvePoint(*graph.Item, graph.Channel, point));
        if (std::abs(x - handle.X) <= kReach && std::abs(y - handle.Y) <= kReach) return point;
    }
    return -1;
}

float ValueAtRow(const CurveBox& area, int y) {
    // An area without height has one value; the division would be by zero.
    if (area.Bottom <= area.Top) return 0.0F;
    const int held = std::clamp(y, area.Top, area.Bottom);
    return static_cast<float>(area.Bottom - held) / static_cast<float>(area.Bottom - area.Top);
}

int HeldHandle(WindowHandle control) {
    return platform::HasMouse(control) ? held_handle : -1;
}

int HandleNumber(float value) {
    return 255 - static_cast<int>((1 - Reachable(value)) * 255);
}

CurveBox PlaceNumber(const CurveBox& area, int point, const CurveHandle& handle,
                     platform::PixelSize size) {
    constexpr int kGap = 6;  // from the handle's middle
    const bool is_right = point < 2;
    const bool is_below = handle.Y < (area.Top + area.Bottom) / 2;
    const int left = is_right ? handle.X + kGap : handle.X - kGap - size.Width;
    const int top = is_below ? handle.Y + kGap : handle.Y - kGap - size.Height;
    return {left, top, left + size.Width, top + size.Height};
}

ImageHandle DrawCurveGraph(platform::PixelSize client, const CurveGraph& graph) {
    platform::OwnedBlock picture(DrawLargeCurve(client, graph));
    if (!picture) return nullptr;
    // Where it cannot be shrunk the picture before stands, and its left top shows.
    platform::OwnedBlock narrow(ShrinkImageWidth(picture.Get()));
    if (narrow) picture.Reset(narrow.Release());
    platform::OwnedBlock small(ShrinkImageHeight(picture.Get()));
    if (small) picture.Reset(small.Release());
    return picture.Release();
}

ImageHandle ShrinkImageWidth(ImageHandle handle) {
    const platform::PixelSize size = SizeOf(handle);
    return Shrink(handle, size.Width * 25 / 100, size.Height, {1, 0});
}

ImageHandle ShrinkImageHeight(ImageHandle handle) {
    const platform::PixelSize size = SizeOf(handle);
    return Shrink(handle, size.Width, size.Height * 25 / 100, {0, 1});
}

}  // namespace tess
