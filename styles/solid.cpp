// Solid.
#include "styles/styles.h"
#include "styles/undrawn.h"

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

}  // namespace

const StyleEntry SolidStyle = {
    .Name = "Solid",
    .ConfigurationName = "Style005",
    .PanelTemplate = 7405,
    .Parameters = parameters,
    .Test = UndrawnSlot,
    .Build = UndrawnSlot,
    .BackgroundControl = 0,
};

}  // namespace tess
