// Particles.
#include "styles/styles.h"
#include "styles/undrawn.h"

namespace tess {

namespace {

enum Control : int {
    kBackground = 642,
    kFrames = 644,
    kGlare = 646,
    kSize = 648,
    kDensity = 650,
    kSeed = 652,
    kWidth = 654,
    kDepth = 656,
    kColor1 = 658,
    kColor2 = 660,
    kColor3 = 662,
    kColor4 = 664,
    kColor5 = 666,
    kEnable2 = 668,
    kEnable3 = 669,
    kEnable4 = 670,
    kEnable5 = 671,
    kShadowOpacity = 672,
    kShadowOffset = 674,
    kShade = 676,
};

using enum ParameterKind;

// clang-format off
StyleParameter parameters[] = {
    {"Style017Background",    kBackground,    ColorButton, 0x333333},
    {"Style017Density",       kDensity,       Spinner,     36},
    {"Style017Depth",         kDepth,         Spinner,     128},
    {"Style017FillColor1",    kColor1,        ColorButton, 0xFF0000},
    {"Style017FillColor2",    kColor2,        ColorButton, 0x00FF00},
    {"Style017FillColor3",    kColor3,        ColorButton, 0x00CCFF},
    {"Style017FillColor4",    kColor4,        ColorButton, 0x0033CC},
    {"Style017FillColor5",    kColor5,        ColorButton, 0x0066FF},
    {"Style017FillEnable2",   kEnable2,       CheckBox,    1},
    {"Style017FillEnable3",   kEnable3,       CheckBox,    1},
    {"Style017FillEnable4",   kEnable4,       CheckBox,    1},
    {"Style017FillEnable5",   kEnable5,       CheckBox,    1},
    {"Style017Frames",        kFrames,        Spinner,     64},
    {"Style017Glare",         kGlare,         Spinner,     160},
    {"Style017Seed",          kSeed,          Spinner,     12054},
    {"Style017Shade",         kShade,         Spinner,     70},
    {"Style017ShadowOffset",  kShadowOffset,  Spinner,     8},
    {"Style017ShadowOpacity", kShadowOpacity, Spinner,     48},
    {"Style017Size",          kSize,          Spinner,     20},
    {"Style017Width",         kWidth,         Spinner,     128},
};
// clang-format on

}  // namespace

const StyleEntry ParticlesStyle = {
    .Name = "Particles",
    .ConfigurationName = "Style017",
    .PanelTemplate = 7417,
    .Parameters = parameters,
    .Test = UndrawnSlot,
    .Build = UndrawnSlot,
    .BackgroundControl = kBackground,
};

}  // namespace tess
