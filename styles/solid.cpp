// Solid: the tile in one flat colour that travels through a fountain.
//
// The loop closes by position: frame f has the colour f / frames along the
// fountain, which ends in the colour that it starts with. The sample shows the
// colour half-way, which the first frame does not.
#include <cstdint>

#include "controls/spinner.h"
#include "pipeline/image_buffers.h"
#include "platform/block_guards.h"
#include "styles/fountain_strip.h"
#include "styles/style_run.h"
#include "styles/styles.h"
#include "toolkit/wrap_compositing.h"

namespace tess {

namespace {

enum Control : int {
    kFrames = 284,
    kWidth = 286,
    kDepth = 288,
    kFountain = 290,
};

using enum ParameterKind;

// clang-format off
StyleParameter parameters[] = {
    {"Style005Depth",  kDepth,    Spinner,  16},
    {"Style005Frames", kFrames,   Spinner,  256},
    {"Style005Width",  kWidth,    Spinner,  16},
    {nullptr,          kFountain, Fountain, 0, "FountainButtonLooped"},
};
// clang-format on

struct SolidState {
    std::int32_t Width, Depth;
    std::int32_t FrameCount;
};

bool StyleSetup(StyleContext& context, SolidState& state) {
    state.Width = GetSpinnerValue(context.Dialog, kWidth);
    state.Depth = GetSpinnerValue(context.Dialog, kDepth);
    state.FrameCount = GetSpinnerValue(context.Dialog, kFrames);
    return true;
}

/// The tile in the colour at `phase`, 0 to below 1.
ImageHandle RenderPhase(const StyleContext& context, const SolidState& state, double phase) {
    ColorWord color = 0;
    {
        const platform::OwnedBlock strip(RenderButtonStrip(context.Dialog, kFountain));
        const LockedImage image(strip.Get());
        if (!image) return nullptr;
        color = GetDibPixel(image, static_cast<int>(phase * double{kStripColors}), 0);
    }
    return NewSolidImage({0, 0, state.Width, state.Depth}, color);
}

ImageHandle RenderFrame(StyleContext& context, SolidState& state, int frame) {
    return RenderPhase(context, state, static_cast<double>(frame) / state.FrameCount);
}

ImageHandle RenderHalfWay(StyleContext& context, SolidState& state, int) {
    return RenderPhase(context, state, 0.5);
}

}  // namespace

const StyleEntry SolidStyle = {
    .Name = "Solid",
    .ConfigurationName = "Style005",
    .PanelTemplate = 7405,
    .Parameters = parameters,
    .Test = TestStyle<SolidState, StyleSetup, RenderHalfWay>,
    .Build = BuildStyle<SolidState, StyleSetup, RenderFrame>,
    .BackgroundControl = 0,
};

}  // namespace tess
