// Iris: a chain of wipes between flat colours, from the background through the
// fill colours and back to the background. Each wipe is a pattern of squares,
// circles, blinds and the like that shrinks away inside every cell. The frames
// hold one cell, the sample eight by eight.
//
// The loop closes because the chain ends where it began: the last wipe stops just
// before its end, and frame 0 is the flat background.
#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <numbers>

#include "controls/spinner.h"
#include "pipeline/image_buffers.h"
#include "platform/block_guards.h"
#include "platform/dialog.h"
#include "raster/lines.h"
#include "raster/shapes.h"
#include "runtime/mathematics.h"
#include "styles/style_run.h"
#include "styles/styles.h"
#include "styles/supersampled_drawing.h"
#include "toolkit/wrap_compositing.h"

namespace tess {

namespace {

enum Control : int {
    kBackground = 228,
    kFrames = 230,
    kColor1 = 232,
    kColor2 = 234,
    kColor3 = 236,
    kColor4 = 238,
    kColor5 = 240,
    kEnable2 = 242,
    kEnable3 = 243,
    kEnable4 = 244,
    kEnable5 = 245,
    kStyle1 = 246,
    kStyle2 = 247,
    kStyle3 = 248,
    kStyle4 = 249,
    kStyle5 = 250,
    kStyle6 = 251,
    kSize = 252,
};

using enum ParameterKind;

constexpr char kChoices[] =
    "Square;Diamond;Circle;Horiz. blind;Vert. blind;Diag. left;Diag. right;Chev. left;Chev. right";

// clang-format off
StyleParameter parameters[] = {
    {"Style003Background",  kBackground, ColorButton, 0xFFFFFF},
    {"Style003FillColor1",  kColor1,     ColorButton, 0x7E5429},
    {"Style003FillColor2",  kColor2,     ColorButton, 0x95632C},
    {"Style003FillColor3",  kColor3,     ColorButton, 0xC08243},
    {"Style003FillColor4",  kColor4,     ColorButton, 0xDDBC9B},
    {"Style003FillColor5",  kColor5,     ColorButton, 0xEAE3DB},
    {"Style003FillEnable2", kEnable2,    CheckBox,    1},
    {"Style003FillEnable3", kEnable3,    CheckBox,    1},
    {"Style003FillEnable4", kEnable4,    CheckBox,    1},
    {"Style003FillEnable5", kEnable5,    CheckBox,    1},
    {"Style003Frames",      kFrames,     Spinner,     96},
    {"Style003Size",        kSize,       Spinner,     24},
    {"Style003Style1",      kStyle1,     ChoiceList,  1, kChoices},
    {"Style003Style2",      kStyle2,     ChoiceList,  0, kChoices},
    {"Style003Style3",      kStyle3,     ChoiceList,  2, kChoices},
    {"Style003Style4",      kStyle4,     ChoiceList,  3, kChoices},
    {"Style003Style5",      kStyle5,     ChoiceList,  7, kChoices},
    {"Style003Style6",      kStyle6,     ChoiceList,  6, kChoices},
};
// clang-format on

/// In the order of the lists. An index of 9 is let through and draws nothing.
enum WipeShape : std::int32_t {
    kSquare,
    kDiamond,
    kCircle,
    kHorizontalBlind,
    kVerticalBlind,
    kDiagonalLeft,
    kDiagonalRight,
    kChevronLeft,
    kChevronRight,
    kLastShape,
};

struct IrisState {
    std::int32_t CellSize;
    std::array<std::int32_t, 6> Shapes;
    std::array<ColorWord, 7> Colors;
    std::int32_t ShapeCount, ColorCount;
    std::int32_t Segment;  // the wipe now playing
    std::int32_t TileWidth, TileDepth;
    std::int32_t TotalFrames;
    std::int32_t FramesPerSegment;
    std::int32_t Step;  // frame within the wipe
};

/// The mask of a wipe, drawn at four times the size in white on black.
struct MaskDrawing {
    raster::DrawingContext& context;
    int cell;           // side of a cell
    int width, height;  // of the canvas, whole cells
    double part;        // of the wipe that is over, above 0 and below 1
    double rest;        // what is left of a cell's side
};

void AddWipe(IrisState& state, platform::WindowHandle dialog, int color, int list) {
    state.Colors[static_cast<std::size_t>(state.ColorCount++)] =
        platform::ControlNumber(dialog, color, false);
    state.Shapes[static_cast<std::size_t>(state.ShapeCount++)] =
        std::clamp<std::int32_t>(platform::Selection(dialog, list), kSquare, kLastShape);
}

bool SetUp(StyleContext& context, IrisState& state, int cells) {
    constexpr int kColors[] = {kColor1, kColor2, kColor3, kColor4, kColor5};
    constexpr int kEnables[] = {0, kEnable2, kEnable3, kEnable4, kEnable5};
    constexpr int kStyles[] = {kStyle1, kStyle2, kStyle3, kStyle4, kStyle5};
    const platform::WindowHandle dialog = context.Dialog;
    state.CellSize = GetSpinnerValue(dialog, kSize);
    const int side = cells * state.CellSize;
    state.TileWidth = side - side % state.CellSize;
    state.TileDepth = state.TileWidth;
    state.Colors[0] = platform::ControlNumber(dialog, kBackground, false);
    state.ColorCount = 1;
    for (std::size_t i = 0; i < std::size(kColors); ++i) {
        if (i > 0 && !platform::IsChecked(dialog, kEnables[i])) continue;
        AddWipe(state, dialog, kColors[i], kStyles[i]);
    }
    AddWipe(state, dialog, kBackground, kStyle6);
    state.FramesPerSegment = GetSpinnerValue(dialog, kFrames) / state.ShapeCount;
    state.TotalFrames = state.FramesPerSegment * state.ShapeCount;
    return true;
}

bool StyleSetup(StyleContext& context, IrisState& state) {
    return SetUp(context, state, 1);
}

/// The sample: eight by eight cells, two thirds through the first wipe.
bool SampleSetup(StyleContext& context, IrisState& state) {
    if (!SetUp(context, state, 8)) return false;
    state.Step = state.FramesPerSegment * 2 / 3;
    return true;
}

template <class DrawCell>
void ForEachCell(const MaskDrawing& mask, DrawCell draw) {
    for (int y = 0; y < mask.height; y += mask.cell) {
        for (int x = 0; x < mask.width; x += mask.cell)
            draw(x, y);
    }
}

void DrawSquares(const MaskDrawing& mask) {
    const int gap = static_cast<int>(mask.cell * mask.part) / 2;
    const int side = mask.cell - 2 * gap;
    ForEachCell(mask, [&](int x, int y) {
        raster::FillRect(mask.context, {x + gap, y + gap, x + gap + side, y + gap + side},
                         raster::kWhiteBrush);
    });
}

void DrawDiamonds(const MaskDrawing& mask) {
    const double half = mask.rest * 0.5;
    const int radius = static_cast<int>(std::sqrt(2 * (half * half)));
    mask.context.pen = raster::kNullPen;
    ForEachCell(mask, [&](int x, int y) {
        const int middle_x = x + mask.cell / 2;
        const int middle_y = y + mask.cell / 2;
        const raster::Point points[] = {{middle_x - radius, middle_y},
                                        {middle_x, middle_y - radius},
                                        {middle_x + radius, middle_y},
                                        {middle_x, middle_y + radius},
                                        {middle_x - radius, middle_y}};
        raster::Polygon(mask.context, points);
    });
}

void DrawCircles(const MaskDrawing& mask) {
    const double k = runtime::Cosine(mask.part * 90.0 * std::numbers::pi / 180.0) * mask.cell * 0.5;
    const int radius = static_cast<int>(std::sqrt(2 * k * k));
    mask.context.pen = raster::kNullPen;
    ForEachCell(mask, [&](int x, int y) {
        const int middle_x = x + mask.cell / 2;
        const int middle_y = y + mask.cell / 2;
        raster::Ellipse(mask.context, middle_x - radius, middle_y - radius, middle_x + radius,
                        middle_y + radius);
    });
}

void DrawLine(const MaskDrawing& mask, raster::Point from, raster::Point to) {
    raster::MoveToEx(mask.context, from.x, from.y);
    raster::LineTo(mask.context, to.x, to.y);
}

/// A pen of width 0 draws lines of one pixel.
void DrawHorizontalBlinds(const MaskDrawing& mask) {
    const int width = static_cast<int>(mask.rest);
    mask.context.pen = raster::SolidPen(width, 0xFFFFFF);
    for (int y = width / 2; y - width / 2 < mask.height; y += mask.cell)
        DrawLine(mask, {0, y}, {mask.width, y});
}

void DrawVerticalBlinds(const MaskDrawing& mask) {
    const int width = static_cast<int>(mask.rest);
    mask.context.pen = raster::SolidPen(width, 0xFFFFFF);
    for (int x = width / 2; x - width / 2 < mask.width; x += mask.cell)
        DrawLine(mask, {x, 0}, {x, mask.height});
}

/// Calls `draw(x)` with the pen of slanted lines, for the starts of a series that
/// covers the canvas.
template <class Draw>
void DrawSlanted(const MaskDrawing& mask, Draw draw) {
    constexpr double kHalfDiagonal = 0.7071067811865476;
    mask.context.pen = raster::SolidPen(static_cast<int>(kHalfDiagonal * mask.rest), 0xFFFFFF);
    for (int x = -mask.height; x < mask.height + mask.width; x += mask.cell)
        draw(x);
}

void DrawDiagonals(const MaskDrawing& mask, WipeShape shape) {
    const int cell = mask.cell;
    const int height = mask.height;
    DrawSlanted(mask, [&](int x) {
        const int left = x - cell;
        const int right = x + height + cell;
        if (shape == kDiagonalLeft) {
            DrawLine(mask, {left, -cell}, {right, height + cell});
        } else {
            DrawLine(mask, {right, -cell}, {left, height + cell});
        }
    });
}

/// Both kinds have their points to the right, whatever their names: they differ in
/// where the series starts alone.
void DrawChevrons(const MaskDrawing& mask, WipeShape shape) {
    const int height = mask.height;
    const int half = height / 2;
    DrawSlanted(mask, [&](int x) {
        if (shape == kChevronLeft) {
            const int tip = x + height;
            DrawLine(mask, {half - height + tip, 0}, {tip, half});
            raster::LineTo(mask.context, x, half + height);
        } else {
            DrawLine(mask, {x, 0}, {x + half, half});
            raster::LineTo(mask.context, x, height);
        }
    });
}

void DrawShape(const MaskDrawing& mask, std::int32_t shape) {
    switch (shape) {
        case kSquare:
            return DrawSquares(mask);
        case kDiamond:
            return DrawDiamonds(mask);
        case kCircle:
            return DrawCircles(mask);
        case kHorizontalBlind:
            return DrawHorizontalBlinds(mask);
        case kVerticalBlind:
            return DrawVerticalBlinds(mask);
        case kDiagonalLeft:
        case kDiagonalRight:
            return DrawDiagonals(mask, static_cast<WipeShape>(shape));
        case kChevronLeft:
        case kChevronRight:
            return DrawChevrons(mask, static_cast<WipeShape>(shape));
        default:
            return;
    }
}

/// White where the old colour still shows. The caller owns it; null on failure.
ImageHandle IrisMask(const IrisState& state, std::int32_t shape, double part) {
    constexpr int kScale = 4;
    const int width = kScale * state.TileWidth;
    const int height = kScale * state.TileDepth;
    SupersampledDrawing drawing(width, height);
    if (!drawing) return nullptr;
    drawing.Fill(raster::kBlackBrush);
    if (part == 0.0) {
        drawing.Fill(raster::kWhiteBrush);
    } else {
        const int cell = kScale * state.CellSize;
        drawing.Context().brush = raster::kWhiteBrush;
        DrawShape({drawing.Context(), cell, width, height, part, (1 - part) * cell}, shape);
    }
    return drawing.TakeScaled(100 / kScale);
}

/// A new picture of the mask's size: `white` where the mask is white, `black`
/// where it is black. Requires: pictures of the mask's size.
ImageHandle BlendImagesByMask(ImageHandle white, ImageHandle black, ImageHandle by) {
    const LockedImage on_white(white);
    const LockedImage on_black(black);
    const LockedImage mask(by);
    if (!on_white || !on_black || !mask) return nullptr;
    platform::OwnedBlock result(NewPackedDib(mask->Width, mask->Height, nullptr, 24));
    const LockedImage image(result.Get());
    if (!image) return nullptr;
    for (int y = 0; y < image->Height; ++y) {
        const std::uint8_t* level = DibRow(mask.Get(), y);
        const std::uint8_t* bright = DibRow(on_white.Get(), y);
        const std::uint8_t* dark = DibRow(on_black.Get(), y);
        std::uint8_t* target = DibRow(image.Get(), y);
        for (int i = 0; i < 3 * image->Width; ++i) {
            target[i] = static_cast<std::uint8_t>(dark[i] * (255 - level[i]) / 255 +
                                                  bright[i] * level[i] / 255);
        }
    }
    return result.Release();
}

/// Frames must be rendered in order and each once: the wipes walk on.
ImageHandle RenderFrame(StyleContext&, IrisState& state, int) {
    const auto segment = static_cast<std::size_t>(state.Segment);
    const double part = static_cast<double>(state.Step) / state.FramesPerSegment;
    const raster::Rect tile{0, 0, state.TileWidth, state.TileDepth};
    const platform::OwnedBlock old_color(NewSolidImage(tile, state.Colors[segment]));
    const platform::OwnedBlock new_color(NewSolidImage(tile, state.Colors[segment + 1]));
    const platform::OwnedBlock mask(IrisMask(state, state.Shapes[segment], part));
    const ImageHandle frame = BlendImagesByMask(old_color.Get(), new_color.Get(), mask.Get());
    if (++state.Step == state.FramesPerSegment) {
        state.Step = 0;
        ++state.Segment;
    }
    return frame;
}

int FrameCount(const StyleContext&, const IrisState& state) {
    return state.TotalFrames;
}

/// What the panel asks for, which can be a few frames more.
int ProgressCount(const StyleContext& context, const IrisState&) {
    return GetSpinnerValue(context.Dialog, kFrames);
}

}  // namespace

const StyleEntry IrisStyle = {
    .Name = "Iris",
    .ConfigurationName = "Style003",
    .PanelTemplate = 7403,
    .Parameters = parameters,
    .Test = TestStyle<IrisState, SampleSetup, RenderFrame>,
    .Build = BuildStyle<IrisState, StyleSetup, RenderFrame, FrameCount, ProgressCount>,
    .BackgroundControl = kBackground,
};

}  // namespace tess
