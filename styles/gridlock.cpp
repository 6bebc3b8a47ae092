// Gridlock.
#include "styles/styles.h"
#include "styles/undrawn.h"

namespace tess {

namespace {

enum Control : int {
    kBackground = 592,
    kFrames = 594,
    kGlare = 596,
    kSize = 598,
    kDensity = 600,
    kSeed = 602,
    kWidth = 604,
    kDepth = 606,
    kColor1 = 608,
    kColor2 = 610,
    kColor3 = 612,
    kColor4 = 614,
    kColor5 = 616,
    kEnable2 = 618,
    kEnable3 = 619,
    kEnable4 = 620,
    kEnable5 = 621,
    kDirUp = 622,
    kDirDown = 623,
    kDirRight = 624,
    kDirLeft = 625,
    kShadowOpacity = 626,
    kShadowOffset = 628,
    kShade = 630,
};

using enum ParameterKind;

// clang-format off
StyleParameter parameters[] = {
    {"Style016Background",    kBackground,    ColorButton, 0x002051},
    {"Style016Density",       kDensity,       Spinner,     24},
    {"Style016Depth",         kDepth,         Spinner,     128},
    {"Style016DirDown",       kDirDown,       CheckBox,    1},
    {"Style016DirLeft",       kDirLeft,       CheckBox,    1},
    {"Style016DirRight",      kDirRight,      CheckBox,    1},
    {"Style016DirUp",         kDirUp,         CheckBox,    1},
    {"Style016FillColor1",    kColor1,        ColorButton, 0x3787FF},
    {"Style016FillColor2",    kColor2,        ColorButton, 0x0066FF},
    {"Style016FillColor3",    kColor3,        ColorButton, 0x0053CE},
    {"Style016FillColor4",    kColor4,        ColorButton, 0x0046AE},
    {"Style016FillColor5",    kColor5,        ColorButton, 0x003077},
    {"Style016FillEnable2",   kEnable2,       CheckBox,    1},
    {"Style016FillEnable3",   kEnable3,       CheckBox,    1},
    {"Style016FillEnable4",   kEnable4,       CheckBox,    1},
    {"Style016FillEnable5",   kEnable5,       CheckBox,    1},
    {"Style016Frames",        kFrames,        Spinner,     64},
    {"Style016Glare",         kGlare,         Spinner,     160},
    {"Style016Seed",          kSeed,          Spinner,     10634},
    {"Style016Shade",         kShade,         Spinner,     70},
    {"Style016ShadowOffset",  kShadowOffset,  Spinner,     8},
    {"Style016ShadowOpacity", kShadowOpacity, Spinner,     48},
    {"Style016Size",          kSize,          Spinner,     20},
    {"Style016Width",         kWidth,         Spinner,     128},
};
// clang-format on

}  // namespace

const StyleEntry GridlockStyle = {
    .Name = "Gridlock",
    .ConfigurationName = "Style016",
    .PanelTemplate = 7416,
    .Parameters = parameters,
    .Test = UndrawnSlot,
    .Build = UndrawnSlot,
    .BackgroundControl = kBackground,
};

}  // namespace tess
