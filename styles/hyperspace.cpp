// Hyperspace.
#include "styles/styles.h"
#include "styles/undrawn.h"

namespace tess {

namespace {

enum Control : int {
    kBackground = 143,
    kOpacity = 145,
    kFrames = 147,
    kScroll = 149,
    kSeed = 151,
    kDensity = 153,
    kWidth = 155,
    kDepth = 157,
    kColor1 = 159,
    kColor2 = 161,
    kColor3 = 163,
    kColor4 = 165,
    kColor5 = 167,
    kEnable2 = 169,
    kEnable3 = 170,
    kEnable4 = 171,
    kEnable5 = 172,
};

using enum ParameterKind;

// clang-format off
StyleParameter parameters[] = {
    {"Style001Background",  kBackground, ColorButton, 0x000000},
    {"Style001Density",     kDensity,    Spinner,     18},
    {"Style001Depth",       kDepth,      Spinner,     256},
    {"Style001FillColor1",  kColor1,     ColorButton, 0xEAE3DB},
    {"Style001FillColor2",  kColor2,     ColorButton, 0xDDBC9B},
    {"Style001FillColor3",  kColor3,     ColorButton, 0xC08243},
    {"Style001FillColor4",  kColor4,     ColorButton, 0x95632C},
    {"Style001FillColor5",  kColor5,     ColorButton, 0x7E5429},
    {"Style001FillEnable2", kEnable2,    CheckBox,    1},
    {"Style001FillEnable3", kEnable3,    CheckBox,    1},
    {"Style001FillEnable4", kEnable4,    CheckBox,    1},
    {"Style001FillEnable5", kEnable5,    CheckBox,    1},
    {"Style001FillOpacity", kOpacity,    Spinner,     255},
    {"Style001Frames",      kFrames,     Spinner,     64},
    {"Style001Scroll",      kScroll,     Scroll2,     1},
    {"Style001Seed",        kSeed,       Spinner,     9864},
    {"Style001Width",       kWidth,      Spinner,     256},
};
// clang-format on

}  // namespace

const StyleEntry HyperspaceStyle = {
    .Name = "Hyperspace",
    .ConfigurationName = "Style001",
    .PanelTemplate = 7401,
    .Parameters = parameters,
    .Test = UndrawnSlot,
    .Build = UndrawnSlot,
    .BackgroundControl = kBackground,
};

}  // namespace tess
