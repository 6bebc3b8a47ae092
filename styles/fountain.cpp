// Fountain: a fountain's colours as a band that scrolls across the tile.
//
// The loop closes by position: the band is rolled by f / frames of its length, and
// ends in the colour that it starts with.
#include <cstdint>

#include "controls/direction_picker.h"
#include "controls/spinner.h"
#include "pipeline/image_buffers.h"
#include "platform/block_guards.h"
#include "styles/fountain_strip.h"
#include "styles/quarter_turn.h"
#include "styles/style_run.h"
#include "styles/styles.h"
#include "toolkit/wrap_compositing.h"

namespace tess {

namespace {

enum Control : int {
    kFrames = 264,
    kWidth = 266,
    kDepth = 268,
    kFountain = 270,
    kScroll = 272,
};

using enum ParameterKind;

// clang-format off
StyleParameter parameters[] = {
    {"Style004Depth",  kDepth,    Spinner,  16},
    {"Style004Frames", kFrames,   Spinner,  64},
    {"Style004Scroll", kScroll,   Scroll4,  1},
    {"Style004Width",  kWidth,    Spinner,  256},
    {nullptr,          kFountain, Fountain, 0, "FountainButtonLooped"},
};
// clang-format on

struct FountainState {
    std::int32_t Width, Depth;
    std::int32_t FrameCount;
};

/// A way to scroll: the band lies along x, or is made so and turned upright.
struct ScrollWay {
    ImageHandle (*Turn)(ImageHandle image);  // null for none
    ImageHandle (*Roll)(ImageHandle image, int distance);
};

ScrollWay WayOf(std::uint32_t scroll) {
    switch (scroll) {
        case 0:
            return {RotateImageClockwise, RollImageUp};
        case 2:
            return {nullptr, RollImageLeft};
        case 3:
            return {RotateImageCounterClockwise, RollImageDown};
        default:
            return {nullptr, RollImageRight};
    }
}

bool StyleSetup(StyleContext& context, FountainState& state) {
    state.Width = GetSpinnerValue(context.Dialog, kWidth);
    state.Depth = GetSpinnerValue(context.Dialog, kDepth);
    state.FrameCount = GetSpinnerValue(context.Dialog, kFrames);
    return true;
}

ImageHandle RenderFrame(StyleContext& context, FountainState& state, int frame) {
    const ScrollWay way = WayOf(SelectedDirection(context.Dialog, kScroll));
    const bool is_upright = way.Turn != nullptr;
    const int length = is_upright ? state.Depth : state.Width;
    const int breadth = is_upright ? state.Width : state.Depth;
    platform::OwnedBlock image(RenderButtonFountain(context.Dialog, kFountain, length, breadth));
    if (image && is_upright) image.Reset(way.Turn(image.Get()));
    const double phase = static_cast<double>(frame) / state.FrameCount;
    const int distance = static_cast<int>(length * phase);
    if (image && distance >= 1) image.Reset(way.Roll(image.Get(), distance));
    return image.Release();
}

}  // namespace

const StyleEntry FountainStyle = {
    .Name = "Fountain",
    .ConfigurationName = "Style004",
    .PanelTemplate = 7404,
    .Parameters = parameters,
    .Test = TestStyle<FountainState, StyleSetup, RenderFrame>,
    .Build = BuildStyle<FountainState, StyleSetup, RenderFrame>,
    .BackgroundControl = 0,
};

}  // namespace tess
