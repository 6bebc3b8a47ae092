// Carpet.
#include "styles/styles.h"
#include "styles/undrawn.h"

namespace tess {

namespace {

enum Control : int {
    kFrames = 490,
    kSize = 492,
    kSeed = 494,
    kFountain = 496,
    kScale = 498,
    kLayers = 500,
};

using enum ParameterKind;

// clang-format off
StyleParameter parameters[] = {
    {"Style013Frames", kFrames,   Spinner,  64},
    {"Style013Layers", kLayers,   Spinner,  2},
    {"Style013Scale",  kScale,    Spinner,  60},
    {"Style013Seed",   kSeed,     Spinner,  10356},
    {"Style013Size",   kSize,     Spinner,  128},
    {nullptr,          kFountain, Fountain, 0, "FountainButtonLooped"},
};
// clang-format on

}  // namespace

const StyleEntry CarpetStyle = {
    .Name = "Carpet",
    .ConfigurationName = "Style013",
    .PanelTemplate = 7413,
    .Parameters = parameters,
    .Test = UndrawnSlot,
    .Build = UndrawnSlot,
    .BackgroundControl = 0,
};

}  // namespace tess
