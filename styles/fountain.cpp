// Fountain.
#include "styles/styles.h"
#include "styles/undrawn.h"

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

}  // namespace

const StyleEntry FountainStyle = {
    .Name = "Fountain",
    .ConfigurationName = "Style004",
    .PanelTemplate = 7404,
    .Parameters = parameters,
    .Test = UndrawnSlot,
    .Build = UndrawnSlot,
    .BackgroundControl = 0,
};

}  // namespace tess
