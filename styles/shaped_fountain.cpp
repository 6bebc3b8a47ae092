// Shaped Fountain: shapes inside one another in a fountain's colours, from the
// outside in. They seem to stream, for the fountain turns under them.
//
// The loop closes by position: the fountain is rolled by f / frames of its length,
// and ends in the colour that it starts with.
//
// Only the colours differ between frames, so the shapes are drawn once, each in the
// number of its place in the fountain; a frame looks its colours up. A shape lies
// inside the one before it, so one with the same number would change nothing and is
// left out. What is drawn lies at four times the size.
#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>

#include "controls/direction_picker.h"
#include "controls/spinner.h"
#include "pipeline/image_buffers.h"
#include "pipeline/image_scaling.h"
#include "platform/block_guards.h"
#include "platform/dialog.h"
#include "raster/shapes.h"
#include "styles/fountain_strip.h"
#include "styles/style_run.h"
#include "styles/styles.h"
#include "styles/supersampled_drawing.h"
#include "toolkit/wrap_compositing.h"

namespace tess {

namespace {

enum Control : int {
    kFrames = 302,
    kSize = 304,
    kFountain = 306,
    kScroll = 308,
    kShape = 310,
};

using enum ParameterKind;

// clang-format off
StyleParameter parameters[] = {
    {"Style006Frames", kFrames,   Spinner,    64},
    {"Style006Scroll", kScroll,   Scroll2,    1},
    {"Style006Shape",  kShape,    ChoiceList, 0, "Circle;Diamond;Square;Biscuit"},
    {"Style006Size",   kSize,     Spinner,    88},
    {nullptr,          kFountain, Fountain,   0, "FountainButtonLooped"},
};
// clang-format on

constexpr int kFactor = 4;
constexpr int kPercent = 100 / kFactor;

enum Shape : int { kCircle = 0, kDiamond = 1, kSquare = 2, kBiscuit = 3, kLastShape = 4 };

struct ShapedFountainState {
    std::int32_t Size;
    std::int32_t FrameCount;
    std::int32_t Reverse, Shape;
    platform::WorkArray<std::uint8_t> Places;  // the fountain's column of each large pixel
};

/// Paints the shape at `t`, 0 for the outermost to below 1, on a canvas of twice
/// `half`.
void PaintShape(raster::DrawingContext& context, int shape, int half, double t) {
    const int inset = static_cast<int>(half * t + 0.5);
    const int opposite = 2 * half - inset;
    switch (shape) {
        case kCircle: {
            const double corner = std::sqrt(2.0 * half * half);
            const int radius = static_cast<int>(corner * (1 - t) + 0.5);
            raster::Ellipse(context, half - radius, half - radius, half + radius, half + radius);
            return;
        }
        case kDiamond: {
            const int reach = 2 * half - static_cast<int>(2 * half * t + 0.5);
            const raster::Point outline[] = {{half - reach, half},
                                             {half, half - reach},
                                             {half + reach, half},
                                             {half, half + reach},
                                             {half - reach, half}};
            raster::Polygon(context, outline);
            return;
        }
        case kBiscuit:
            raster::RoundRect(context, inset, inset, opposite, opposite, inset, inset);
            return;
        default:
            raster::FillRect(context, {inset, inset, opposite, opposite}, context.brush);
            return;
    }
}

/// The shapes, each in the number of its place. The caller owns the picture; null
/// without memory.
ImageHandle DrawShapes(const ShapedFountainState& state) {
    const int side = kFactor * state.Size;
    SupersampledDrawing drawing(side, side);
    if (!drawing) return nullptr;
    raster::DrawingContext& context = drawing.Context();
    context.pen = raster::kNullPen;
    context.polygon_fill = raster::PolygonFill::Alternate;
    const int half = side / 2;
    int last_place = -1;
    for (int i = 0; i < half; ++i) {
        const double t = static_cast<double>(i) / half;
        const int place = static_cast<int>(t * double{kStripColors});
        if (place == last_place) continue;
        last_place = place;
        context.brush = raster::SolidBrush(static_cast<ColorWord>(place));
        PaintShape(context, state.Shape, half, t);
    }
    return drawing.TakeLarge();
}

/// Fills state.Places. Returns false without memory.
bool DrawPlaces(ShapedFountainState& state) {
    const int side = kFactor * state.Size;
    state.Places = platform::WorkArray<std::uint8_t>(static_cast<std::size_t>(side) *
                                                     static_cast<std::size_t>(side));
    const platform::OwnedBlock shapes(DrawShapes(state));
    const LockedImage picture(shapes.Get());
    if (!picture || !state.Places) return false;
    std::uint8_t* place = state.Places.begin();
    for (int y = 0; y < side; ++y) {
        const std::uint8_t* pixel = DibRow(picture.Get(), y) + kLowByte;
        for (int x = 0; x < side; ++x, pixel += 3)
            *place++ = *pixel;
    }
    return true;
}

bool StyleSetup(StyleContext& context, ShapedFountainState& state) {
    const platform::WindowHandle dialog = context.Dialog;
    state.Size = GetSpinnerValue(dialog, kSize);
    state.FrameCount = GetSpinnerValue(dialog, kFrames);
    state.Reverse = SelectedDirection(dialog, kScroll) != 0 ? 1 : 0;
    state.Shape = std::clamp(platform::Selection(dialog, kShape), int{kCircle}, int{kLastShape});
    return DrawPlaces(state);
}

/// The large picture in the colours of `ramp`.
ImageHandle PaintPlaces(const ShapedFountainState& state, ImageHandle ramp) {
    const int side = kFactor * state.Size;
    platform::OwnedBlock large(NewPackedDib(side, side, nullptr, 24));
    {
        const LockedImage colors(ramp);
        const LockedImage image(large.Get());
        if (!colors || !image) return nullptr;
        const std::uint8_t* by_place = DibRow(colors.Get(), 0);
        const std::uint8_t* place = state.Places.begin();
        for (int y = 0; y < side; ++y) {
            std::uint8_t* pixel = DibRow(image.Get(), y);
            for (int x = 0; x < side; ++x, ++place, pixel += 3)
                std::memcpy(pixel, by_place + std::ptrdiff_t{3} * *place, 3);
        }
    }
    return large.Release();
}

ImageHandle RenderFrame(StyleContext& context, ShapedFountainState& state, int frame) {
    const double phase = static_cast<double>(frame) / state.FrameCount;
    const int distance = static_cast<int>(phase * double{kStripColors});
    platform::OwnedBlock ramp(RenderButtonStrip(context.Dialog, kFountain));
    if (!ramp) return nullptr;
    ramp.Reset(state.Reverse != 0 ? RollImageRight(ramp.Get(), distance)
                                  : RollImageLeft(ramp.Get(), distance));
    const platform::OwnedBlock large(PaintPlaces(state, ramp.Get()));
    return large ? ScaleImagePercent(large.Get(), kPercent, kPercent) : nullptr;
}

}  // namespace

const StyleEntry ShapedFountainStyle = {
    .Name = "Shaped Fountain",
    .ConfigurationName = "Style006",
    .PanelTemplate = 7406,
    .Parameters = parameters,
    .Test = TestStyle<ShapedFountainState, StyleSetup, RenderFrame>,
    .Build = BuildStyle<ShapedFountainState, StyleSetup, RenderFrame>,
    .BackgroundControl = 0,
};

}  // namespace tess
