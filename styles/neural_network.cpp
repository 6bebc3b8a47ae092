// Neural Network.
#include "styles/styles.h"
#include "styles/undrawn.h"

namespace tess {

namespace {

enum Control : int {
    kBackground = 688,
    kMargin = 690,
    kGlare = 692,
    kSize = 694,
    kDensity = 696,
    kSeed = 698,
    kWidth = 700,
    kDepth = 702,
    kColor1 = 704,
    kColor2 = 706,
    kColor3 = 708,
    kColor4 = 710,
    kColor5 = 712,
    kEnable2 = 714,
    kEnable3 = 715,
    kEnable4 = 716,
    kEnable5 = 717,
    kShadowOpacity = 718,
    kShadowOffset = 720,
    kShade = 722,
};

using enum ParameterKind;

// clang-format off
StyleParameter parameters[] = {
    {"Style018Background",    kBackground,    ColorButton, 0x000000},
    {"Style018Density",       kDensity,       Spinner,     40},
    {"Style018Depth",         kDepth,         Spinner,     8},
    {"Style018FillColor1",    kColor1,        ColorButton, 0xFF0000},
    {"Style018FillColor2",    kColor2,        ColorButton, 0x00FF00},
    {"Style018FillColor3",    kColor3,        ColorButton, 0x00CCFF},
    {"Style018FillColor4",    kColor4,        ColorButton, 0x0033CC},
    {"Style018FillColor5",    kColor5,        ColorButton, 0x0066FF},
    {"Style018FillEnable2",   kEnable2,       CheckBox,    1},
    {"Style018FillEnable3",   kEnable3,       CheckBox,    1},
    {"Style018FillEnable4",   kEnable4,       CheckBox,    1},
    {"Style018FillEnable5",   kEnable5,       CheckBox,    1},
    {"Style018Glare",         kGlare,         Spinner,     160},
    {"Style018Padding",       kMargin,        Spinner,     0},
    {"Style018Seed",          kSeed,          Spinner,     12055},
    {"Style018Shade",         kShade,         Spinner,     70},
    {"Style018ShadowOffset",  kShadowOffset,  Spinner,     0},
    {"Style018ShadowOpacity", kShadowOpacity, Spinner,     0},
    {"Style018Size",          kSize,          Spinner,     14},
    {"Style018Width",         kWidth,         Spinner,     12},
};
// clang-format on

}  // namespace

const StyleEntry NeuralNetworkStyle = {
    .Name = "Neural Network",
    .ConfigurationName = "Style018",
    .PanelTemplate = 7418,
    .Parameters = parameters,
    .Test = UndrawnSlot,
    .Build = UndrawnSlot,
    .BackgroundControl = kBackground,
};

}  // namespace tess
