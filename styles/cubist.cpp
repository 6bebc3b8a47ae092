// Cubist: rounded squares, filled or hollow, each in its place, grow from nothing
// to their full size and shrink back, every one with its own start in the cycle,
// so that the tile seems to pulse.
//
// The loop closes by a timetable: a square's stage has the frame count as period.
#include <algorithm>
#include <cstdint>

#include "controls/spinner.h"
#include "pipeline/image_buffers.h"
#include "platform/block_guards.h"
#include "platform/dialog.h"
#include "raster/shapes.h"
#include "runtime/random.h"
#include "styles/fill_colors.h"
#include "styles/sprite_store.h"
#include "styles/style_run.h"
#include "styles/styles.h"
#include "styles/supersampled_drawing.h"
#include "toolkit/wrap_compositing.h"

namespace tess {

namespace {

enum Control : int {
    kBackground = 183,
    kOpacity = 185,
    kFrames = 187,
    kSeed = 189,
    kDensity = 191,
    kWidth = 193,
    kDepth = 195,
    kColor1 = 197,
    kColor2 = 199,
    kColor3 = 201,
    kColor4 = 203,
    kColor5 = 205,
    kEnable2 = 207,
    kEnable3 = 208,
    kEnable4 = 209,
    kEnable5 = 210,
    kVariAlpha = 211,
    kVariWidth = 212,
    kThickness = 213,
    kRound = 215,
    kSolid = 217,
};

using enum ParameterKind;

// clang-format off
StyleParameter parameters[] = {
    {"Style002Background",  kBackground, ColorButton, 0x000000},
    {"Style002Density",     kDensity,    Spinner,     36},
    {"Style002Depth",       kDepth,      Spinner,     128},
    {"Style002FillColor1",  kColor1,     ColorButton, 0x996633},
    {"Style002FillColor2",  kColor2,     ColorButton, 0x14CCFF},
    {"Style002FillColor3",  kColor3,     ColorButton, 0x339900},
    {"Style002FillColor4",  kColor4,     ColorButton, 0x990099},
    {"Style002FillColor5",  kColor5,     ColorButton, 0x000099},
    {"Style002FillEnable2", kEnable2,    CheckBox,    1},
    {"Style002FillEnable3", kEnable3,    CheckBox,    1},
    {"Style002FillEnable4", kEnable4,    CheckBox,    1},
    {"Style002FillEnable5", kEnable5,    CheckBox,    1},
    {"Style002FillOpacity", kOpacity,    Spinner,     255},
    {"Style002Frames",      kFrames,     Spinner,     48},
    {"Style002Roundness",   kRound,      Spinner,     25},
    {"Style002Seed",        kSeed,       Spinner,     9874},
    {"Style002Solid",       kSolid,      CheckBox,    0},
    {"Style002Thickness",   kThickness,  Spinner,     6},
    {"Style002VariAlpha",   kVariAlpha,  CheckBox,    1},
    {"Style002VariWidth",   kVariWidth,  CheckBox,    1},
    {"Style002Width",       kWidth,      Spinner,     256},
};
// clang-format on

struct CubistSquare {
    std::int32_t Thickness, Opacity;
    std::int32_t X, Y;   // centre on the tile
    std::int32_t Stage;  // place in the cycle, 0 to FrameCount - 1
    ColorWord Color;
    std::int32_t VariAlpha, VariWidth;
    std::int32_t Roundness;  // 0 to 100
    std::int32_t Solid;
};

struct CubistState {
    platform::WorkArray<CubistSquare> Squares;
    std::int32_t SquareCount;
    std::int32_t FrameCount;
    FillColorList FillColors;
    std::int32_t MaxSize;  // half the side of a square at its largest
    std::int32_t Width, Depth;
    SpriteStore Masks;
};

/// What tells the masks of a run apart. The rest is the same for all squares.
struct MaskShape {
    int size;   // half the side of the mask
    int grey;   // its level
    int width;  // of the pen, before supersampling
};

bool StyleSetup(StyleContext& context, CubistState& state) {
    const platform::WindowHandle dialog = context.Dialog;
    runtime::srand(static_cast<unsigned>(GetSpinnerValue(dialog, kSeed)));
    state.Width = GetSpinnerValue(dialog, kWidth);
    state.Depth = GetSpinnerValue(dialog, kDepth);
    state.FrameCount = GetSpinnerValue(dialog, kFrames);
    state.FillColors = ReadFillColors(dialog, {kColor1, kColor2, kColor3, kColor4, kColor5},
                                      {kEnable2, kEnable3, kEnable4, kEnable5});
    state.SquareCount = GetSpinnerValue(dialog, kDensity);
    state.MaxSize = std::min(state.Width, state.Depth) / 4;
    state.Squares = platform::WorkArray<CubistSquare>(static_cast<std::size_t>(state.SquareCount));
    if (!state.Squares) return false;

    CubistSquare alike{};
    alike.Thickness = GetSpinnerValue(dialog, kThickness);
    alike.Opacity = GetSpinnerValue(dialog, kOpacity);
    alike.VariAlpha = platform::IsChecked(dialog, kVariAlpha) ? 1 : 0;
    alike.VariWidth = platform::IsChecked(dialog, kVariWidth) ? 1 : 0;
    alike.Roundness = GetSpinnerValue(dialog, kRound);
    alike.Solid = platform::IsChecked(dialog, kSolid) ? 1 : 0;
    int last_color = -1;
    for (CubistSquare& square : state.Squares) {
        square = alike;
        square.X = runtime::rand() % state.Width;
        square.Y = runtime::rand() % state.Depth;
        square.Stage = runtime::rand() % state.FrameCount;
        square.Color = state.FillColors.Colors[PickFillColor(state.FillColors.Count, &last_color)];
    }
    return true;
}

/// The square's size rises for half a loop and falls back in the other; in a loop
/// of odd length the peak lasts two frames.
MaskShape ShapeOf(const CubistState& state, const CubistSquare& square) {
    const int half = state.FrameCount / 2;
    const int rise = square.Stage <= half ? square.Stage : state.FrameCount - square.Stage;
    const double part = static_cast<double>(rise) / half;
    MaskShape shape{rise * state.MaxSize / half, square.Opacity, square.Thickness};
    if (square.VariAlpha != 0) {
        shape.grey = std::clamp(static_cast<int>(square.Opacity * part), 0, 255);
    }
    if (square.VariWidth != 0) {
        shape.width = std::clamp(static_cast<int>(square.Thickness * part), 1, 255);
    }
    return shape;
}

/// The mask of a square, which the caller owns, or null.
ImageHandle CubistMask(const CubistSquare& square, const MaskShape& shape) {
    const int side = shape.size < 2 ? 8 : 8 * shape.size;
    SupersampledDrawing drawing(side, side);
    if (!drawing) return nullptr;
    drawing.Fill(raster::kBlackBrush);
    raster::DrawingContext& context = drawing.Context();
    const ColorWord grey = MakeColor(shape.grey, shape.grey, shape.grey);
    if (square.Solid != 0) {
        context.pen = raster::kNullPen;
        context.brush = raster::SolidBrush(grey);
    } else {
        context.pen = raster::InsideFramePen(shape.width * 4, grey);
        context.brush = raster::kNullBrush;
    }
    const int corner = square.Roundness * side / 100;
    raster::RoundRect(context, 0, 0, side, side, corner, corner);

    platform::OwnedBlock large(drawing.TakeLarge());
    const ImageHandle scaled = ScaleImagePercent(large.Get(), 25, 25);
    return scaled != nullptr ? scaled : large.Release();
}

ImageHandle FindMask(CubistState& state, const CubistSquare& square) {
    const MaskShape shape = ShapeOf(state, square);
    const int key = shape.size << 16 | shape.grey << 8 | shape.width;
    return state.Masks.Find(static_cast<std::uint64_t>(key),
                            [&] { return CubistMask(square, shape); });
}

/// Frames must be rendered in order and each once: the stages walk on.
ImageHandle RenderFrame(StyleContext& context, CubistState& state, int) {
    platform::OwnedBlock frame(
        NewSolidImage({0, 0, state.Width, state.Depth},
                      platform::ControlNumber(context.Dialog, kBackground, false)));
    {
        const LockedImage picture(frame.Get());
        if (!picture) return nullptr;
        for (CubistSquare& square : state.Squares) {
            const LockedImage mask(FindMask(state, square));
            if (!mask) return nullptr;
            // Where opacity does not vary the mask has it already, and it is
            // applied twice: half opacity shows at about a quarter strength. So it
            // is meant.
            WrapStampMask(picture, mask, square.X - mask->Width / 2, square.Y - mask->Height / 2,
                          square.Color, square.Opacity);
            square.Stage = square.Stage + 1 == state.FrameCount ? 0 : square.Stage + 1;
        }
    }
    return frame.Release();
}

}  // namespace

const StyleEntry CubistStyle = {
    .Name = "Cubist",
    .ConfigurationName = "Style002",
    .PanelTemplate = 7402,
    .Parameters = parameters,
    .Test = TestStyle<CubistState, StyleSetup, RenderFrame>,
    .Build = BuildStyle<CubistState, StyleSetup, RenderFrame>,
    .BackgroundControl = kBackground,
};

}  // namespace tess
