// platform/vector_drawing.h through the flat calls of GDI+. What a call answers does
// not count: whatever could not be drawn is missing from the picture.
#include "platform/vector_drawing.h"

#include <algorithm>
#include <array>

#include "platform/win32/gdiplus_objects.h"

namespace platform {
namespace {

static_assert(sizeof(VectorPoint) == sizeof(Gdiplus::GpPoint));

constexpr Argb kOpaqueBlack = 0xFF000000;

class Pen {
public:
    explicit Pen(const VectorPen& pen) {
        flat::GdipCreatePen1(pen.Color, static_cast<float>(pen.Width), Gdiplus::UnitPixel,
                             pen_.Out());
        flat::GdipSetPenLineJoin(pen_.Get(), static_cast<Gdiplus::LineJoin>(pen.Join));
        flat::GdipSetPenStartCap(pen_.Get(), static_cast<Gdiplus::LineCap>(pen.StartCap));
        flat::GdipSetPenEndCap(pen_.Get(), static_cast<Gdiplus::LineCap>(pen.EndCap));
    }
    operator Gdiplus::GpPen*() const { return pen_.Get(); }

private:
    GdiplusPen pen_;
};

class SolidBrush {
public:
    explicit SolidBrush(Argb color) { flat::GdipCreateSolidFill(color, brush_.Out()); }
    operator Gdiplus::GpBrush*() const { return brush_.Get(); }

private:
    GdiplusBrush<Gdiplus::GpSolidFill> brush_;
};

/// A bitmap of GDI, deleted at the end.
class OwnedBitmap {
public:
    OwnedBitmap() = default;
    OwnedBitmap(const OwnedBitmap&) = delete;
    OwnedBitmap& operator=(const OwnedBitmap&) = delete;
    ~OwnedBitmap() {
        if (Handle != nullptr) DeleteObject(Handle);
    }
    HBITMAP Handle = nullptr;
};

class ScreenContext {
public:
    ScreenContext() : context_(GetDC(nullptr)) {}
    ScreenContext(const ScreenContext&) = delete;
    ScreenContext& operator=(const ScreenContext&) = delete;
    ~ScreenContext() { ReleaseDC(nullptr, context_); }
    operator HDC() const { return context_; }

private:
    HDC context_;
};

}  // namespace

struct VectorDrawing::State {
    GdiplusBitmap bitmap;
    GdiplusGraphics graphics;
    GdiplusPath path;
    OwnedBitmap finished;
};

VectorDrawing::VectorDrawing(int width, int height) : state_(std::make_unique<State>()) {
    flat::GdipCreateBitmapFromScan0(width, height, 0, PixelFormat24bppRGB, nullptr,
                                    state_->bitmap.Out());
    if (state_->bitmap) {
        flat::GdipGetImageGraphicsContext(state_->bitmap.Get(), state_->graphics.Out());
        flat::GdipCreatePath(Gdiplus::FillModeAlternate, state_->path.Out());
    }
    if (!state_->graphics || !state_->path) state_.reset();
}

VectorDrawing::~VectorDrawing() = default;

void VectorDrawing::SetSmoothing(Smoothing smoothing) {
    flat::GdipSetSmoothingMode(state_->graphics.Get(),
                               static_cast<Gdiplus::SmoothingMode>(smoothing));
}

void VectorDrawing::SetInterpolation(Interpolation interpolation) {
    flat::GdipSetInterpolationMode(state_->graphics.Get(),
                                   static_cast<Gdiplus::InterpolationMode>(interpolation));
}

void VectorDrawing::Clear(Argb color) {
    flat::GdipGraphicsClear(state_->graphics.Get(), color);
}

void VectorDrawing::DrawLine(const VectorPen& pen, VectorPoint from, VectorPoint to) {
    flat::GdipDrawLineI(state_->graphics.Get(), Pen(pen), from.X, from.Y, to.X, to.Y);
}

void VectorDrawing::DrawEllipse(const VectorPen& pen, const VectorBox& box) {
    flat::GdipDrawEllipseI(state_->graphics.Get(), Pen(pen), box.X, box.Y, box.Width, box.Height);
}

void VectorDrawing::FillEllipse(Argb color, const VectorBox& box) {
    flat::GdipFillEllipseI(state_->graphics.Get(), SolidBrush(color), box.X, box.Y, box.Width,
                           box.Height);
}

void VectorDrawing::DrawRectangle(const VectorPen& pen, const VectorBox& box) {
    flat::GdipDrawRectangleI(state_->graphics.Get(), Pen(pen), box.X, box.Y, box.Width, box.Height);
}

void VectorDrawing::FillRectangle(Argb color, const VectorBox& box) {
    flat::GdipFillRectangleI(state_->graphics.Get(), SolidBrush(color), box.X, box.Y, box.Width,
                             box.Height);
}

void VectorDrawing::DrawPolygon(const VectorPen& pen, const VectorPoint* points, int count) {
    flat::GdipDrawPolygonI(state_->graphics.Get(), Pen(pen),
                           reinterpret_cast<const Gdiplus::GpPoint*>(points), count);
}

void VectorDrawing::FillPolygon(Argb color, const VectorPoint* points, int count) {
    flat::GdipFillPolygonI(state_->graphics.Get(), SolidBrush(color),
                           reinterpret_cast<const Gdiplus::GpPoint*>(points), count,
                           Gdiplus::FillModeAlternate);
}

void VectorDrawing::DrawString(const TextFont& font, std::string_view text, Argb color,
                               TextHint hint) {
    DrawWithFont(state_->graphics.Get(), *font.state_, text, 0, 0, color, hint);
}

void VectorDrawing::AddQuarterArc(const VectorBox& box, int start) {
    flat::GdipAddPathArcI(state_->path.Get(), box.X, box.Y, box.Width, box.Height,
                          static_cast<float>(start), 90.0F);
}

void VectorDrawing::AddEllipse(const VectorBox& box) {
    flat::GdipAddPathEllipseI(state_->path.Get(), box.X, box.Y, box.Width, box.Height);
}

void VectorDrawing::AddRectangle(const VectorBox& box) {
    flat::GdipAddPathRectangleI(state_->path.Get(), box.X, box.Y, box.Width, box.Height);
}

void VectorDrawing::CloseFigure() {
    flat::GdipClosePathFigure(state_->path.Get());
}

int VectorDrawing::AddString(const char* family, int style, float em, std::string_view text) {
    GdiplusFamily found;
    flat::GdipCreateFontFamilyFromName(WideText(std::string_view(family).substr(0, 260)).Get(),
                                       nullptr, found.Out());
    GdiplusFormat format;
    flat::GdipCreateStringFormat(0, LANG_NEUTRAL, format.Out());
    if (!found || !format) return 0;
    const WideText wide(text);
    const Gdiplus::RectF unlimited(0, 0, 0, 0);
    flat::GdipAddPathString(state_->path.Get(), wide.Get(), wide.Length(), found.Get(), style, em,
                            &unlimited, format.Get());
    return 1;
}

void VectorDrawing::DrawPath(const VectorPen& pen) {
    flat::GdipDrawPath(state_->graphics.Get(), Pen(pen), state_->path.Get());
}

void VectorDrawing::FillPath(Argb color) {
    flat::GdipFillPath(state_->graphics.Get(), SolidBrush(color), state_->path.Get());
}

void VectorDrawing::FillPathGradient(Argb center_color, Argb edge_color, VectorPoint center) {
    GdiplusBrush<Gdiplus::GpPathGradient> brush;
    flat::GdipCreatePathGradientFromPath(state_->path.Get(), brush.Out());
    if (!brush) return;
    flat::GdipSetPathGradientCenterColor(brush.Get(), center_color);
    // An ellipse has 13 points, a rectangle 4.
    std::array<Gdiplus::ARGB, 16> edge;
    edge.fill(edge_color);
    int count = 0;
    flat::GdipGetPathGradientPointCount(brush.Get(), &count);
    count = std::min(count, static_cast<int>(edge.size()));
    flat::GdipSetPathGradientSurroundColorsWithCount(brush.Get(), edge.data(), &count);
    const Gdiplus::GpPoint point(center.X, center.Y);
    flat::GdipSetPathGradientCenterPointI(brush.Get(), &point);
    flat::GdipFillPath(state_->graphics.Get(), brush.Get(), state_->path.Get());
}

void VectorDrawing::FillRectangleGradient(Argb first, Argb second, int degrees,
                                          const VectorBox& box) {
    GdiplusBrush<Gdiplus::GpLineGradient> brush;
    const Gdiplus::GpRect rectangle(box.X, box.Y, box.Width, box.Height);
    flat::GdipCreateLineBrushFromRectWithAngleI(&rectangle, first, second,
                                                static_cast<float>(degrees), TRUE,
                                                Gdiplus::WrapModeTile, brush.Out());
    flat::GdipFillRectangleI(state_->graphics.Get(), brush.Get(), box.X, box.Y, box.Width,
                             box.Height);
}

int VectorDrawing::Finish() {
    flat::GdipFlush(state_->graphics.Get(), Gdiplus::FlushIntentionSync);
    return flat::GdipCreateHBITMAPFromBitmap(state_->bitmap.Get(), &state_->finished.Handle,
                                             kOpaqueBlack) == Gdiplus::Ok;
}

int VectorDrawing::CopyRows(std::uint8_t* rows) const {
    BITMAP bitmap{};
    if (GetObjectA(state_->finished.Handle, sizeof bitmap, &bitmap) == 0) return 0;
    // The system's bitmap has 32 bits; a picture above 8 has 24.
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = bitmap.bmWidth;
    info.bmiHeader.biHeight = bitmap.bmHeight;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 24;
    const ScreenContext screen;
    return GetDIBits(screen, state_->finished.Handle, 0, static_cast<UINT>(bitmap.bmHeight), rows,
                     &info, DIB_RGB_COLORS) == bitmap.bmHeight;
}

}  // namespace platform
