// Skip Intro.
#include "styles/styles.h"
#include "styles/undrawn.h"

namespace tess {

namespace {

enum Control : int {
    kBackground = 512,
    kDrift = 514,
    kSize = 516,
    kDensity = 518,
    kSeed = 520,
    kColor1 = 522,
    kColor2 = 524,
    kColor3 = 526,
    kColor4 = 528,
    kColor5 = 530,
    kEnable2 = 532,
    kEnable3 = 533,
    kEnable4 = 534,
    kEnable5 = 535,
    kSpokes = 536,
    kMode = 538,
};

using enum ParameterKind;

// clang-format off
StyleParameter parameters[] = {
    {"Style014Background",  kBackground, ColorButton, 0xFFFFFF},
    {"Style014Density",     kDensity,    Spinner,     3},
    {"Style014Drift",       kDrift,      Spinner,     29},
    {"Style014FillColor1",  kColor1,     ColorButton, 0x7E5429},
    {"Style014FillColor2",  kColor2,     ColorButton, 0x95632C},
    {"Style014FillColor3",  kColor3,     ColorButton, 0xC08243},
    {"Style014FillColor4",  kColor4,     ColorButton, 0xDDBC9B},
    {"Style014FillColor5",  kColor5,     ColorButton, 0xEAE3DB},
    {"Style014FillEnable2", kEnable2,    CheckBox,    1},
    {"Style014FillEnable3", kEnable3,    CheckBox,    1},
    {"Style014FillEnable4", kEnable4,    CheckBox,    1},
    {"Style014FillEnable5", kEnable5,    CheckBox,    1},
    {"Style014Mode",        kMode,       ChoiceList,  0, "Cumulative;Sequential;Constant"},
    {"Style014Seed",        kSeed,       Spinner,     10632},
    {"Style014Size",        kSize,       Spinner,     96},
    {"Style014Spokes",      kSpokes,     ChoiceList,  6, "6;8;9;10;12;18;20;24;30;36;40;45;60"},
};
// clang-format on

}  // namespace

const StyleEntry SkipIntroStyle = {
    .Name = "Skip Intro",
    .ConfigurationName = "Style014",
    .PanelTemplate = 7414,
    .Parameters = parameters,
    .Test = UndrawnSlot,
    .Build = UndrawnSlot,
    .BackgroundControl = kBackground,
};

}  // namespace tess
