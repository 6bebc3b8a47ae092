// Mural.
#include "styles/styles.h"
#include "styles/undrawn.h"

namespace tess {

namespace {

enum Control : int {
    kFrames = 358,
    kScroll = 360,
    kMatrix = 362,
    kResize = 364,
};

using enum ParameterKind;

// clang-format off
StyleParameter parameters[] = {
    {"Style008Frames", kFrames, Spinner, 64},
    {"Style008Matrix", kMatrix, Matrix,  0},
    {"Style008Resize", kResize, Spinner, 100},
    {"Style008Scroll", kScroll, Scroll4, 1},
};
// clang-format on

}  // namespace

const StyleEntry MuralStyle = {
    .Name = "Mural",
    .ConfigurationName = "Style008",
    .PanelTemplate = 7408,
    .Parameters = parameters,
    .Test = UndrawnSlot,
    .Build = UndrawnSlot,
    .BackgroundControl = 0,
};

}  // namespace tess
