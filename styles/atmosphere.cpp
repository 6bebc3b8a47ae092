// Atmosphere.
#include "styles/styles.h"
#include "styles/undrawn.h"

namespace tess {

namespace {

enum Control : int {
    kFrames = 445,
    kSize = 447,
    kSeed = 449,
    kFountain = 451,
    kDensity = 453,
    kMesh = 455,
    kElevation = 457,
};

using enum ParameterKind;

// clang-format off
StyleParameter parameters[] = {
    {"Style011Density",   kDensity,   Spinner,  32},
    {"Style011Elevation", kElevation, Spinner,  10},
    {"Style011Frames",    kFrames,    Spinner,  64},
    {"Style011Mesh",      kMesh,      Spinner,  8},
    {"Style011Seed",      kSeed,      Spinner,  9872},
    {"Style011Size",      kSize,      Spinner,  192},
    {nullptr,             kFountain,  Fountain, 0, "FountainButtonLooped"},
};
// clang-format on

}  // namespace

const StyleEntry AtmosphereStyle = {
    .Name = "Atmosphere",
    .ConfigurationName = "Style011",
    .PanelTemplate = 7411,
    .Parameters = parameters,
    .Test = UndrawnSlot,
    .Build = UndrawnSlot,
    .BackgroundControl = 0,
};

}  // namespace tess
