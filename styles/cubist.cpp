// Cubist.
#include "styles/styles.h"
#include "styles/undrawn.h"

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

}  // namespace

const StyleEntry CubistStyle = {
    .Name = "Cubist",
    .ConfigurationName = "Style002",
    .PanelTemplate = 7402,
    .Parameters = parameters,
    .Test = UndrawnSlot,
    .Build = UndrawnSlot,
    .BackgroundControl = kBackground,
};

}  // namespace tess
