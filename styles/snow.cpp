// Snow.
#include "styles/styles.h"
#include "styles/undrawn.h"

namespace tess {

namespace {

enum Control : int {
    kBackground = 550,
    kOpacity = 552,
    kFrames = 554,
    kDrift = 556,
    kSize = 558,
    kDensity = 560,
    kSeed = 562,
    kWidth = 564,
    kDepth = 566,
    kColor1 = 568,
    kColor2 = 570,
    kColor3 = 572,
    kColor4 = 574,
    kColor5 = 576,
    kEnable2 = 578,
    kEnable3 = 579,
    kEnable4 = 580,
    kEnable5 = 581,
};

using enum ParameterKind;

// clang-format off
StyleParameter parameters[] = {
    {"Style015Background",  kBackground, ColorButton, 0xFFFFFF},
    {"Style015Density",     kDensity,    Spinner,     36},
    {"Style015Depth",       kDepth,      Spinner,     192},
    {"Style015Drift",       kDrift,      Spinner,     8},
    {"Style015FillColor1",  kColor1,     ColorButton, 0xEAE3DB},
    {"Style015FillColor2",  kColor2,     ColorButton, 0xDDBC9B},
    {"Style015FillColor3",  kColor3,     ColorButton, 0xC08243},
    {"Style015FillColor4",  kColor4,     ColorButton, 0x95632C},
    {"Style015FillColor5",  kColor5,     ColorButton, 0x7E5429},
    {"Style015FillEnable2", kEnable2,    CheckBox,    1},
    {"Style015FillEnable3", kEnable3,    CheckBox,    1},
    {"Style015FillEnable4", kEnable4,    CheckBox,    1},
    {"Style015FillEnable5", kEnable5,    CheckBox,    1},
    {"Style015FillOpacity", kOpacity,    Spinner,     160},
    {"Style015Frames",      kFrames,     Spinner,     64},
    {"Style015Seed",        kSeed,       Spinner,     10645},
    {"Style015Size",        kSize,       Spinner,     48},
    {"Style015Width",       kWidth,      Spinner,     192},
};
// clang-format on

}  // namespace

const StyleEntry SnowStyle = {
    .Name = "Snow",
    .ConfigurationName = "Style015",
    .PanelTemplate = 7415,
    .Parameters = parameters,
    .Test = UndrawnSlot,
    .Build = UndrawnSlot,
    .BackgroundControl = kBackground,
};

}  // namespace tess
