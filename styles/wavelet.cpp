// Wavelet.
#include "styles/styles.h"
#include "styles/undrawn.h"

namespace tess {

namespace {

enum Control : int {
    kBackground = 733,
    kGlare = 737,
    kSize = 739,
    kSeed = 741,
    kWidth = 743,
    kDepth = 745,
    kColor1 = 747,
    kColor2 = 749,
    kColor3 = 751,
    kColor4 = 753,
    kColor5 = 755,
    kEnable2 = 757,
    kEnable3 = 758,
    kEnable4 = 759,
    kEnable5 = 760,
    kShade = 761,
    kAmplitude = 763,
    kScroll = 765,
    kFrames = 767,
};

using enum ParameterKind;

// clang-format off
StyleParameter parameters[] = {
    {"Style019Amplitude",   kAmplitude,  Spinner,     75},
    {"Style019Background",  kBackground, ColorButton, 0x000000},
    {"Style019Depth",       kDepth,      Spinner,     90},
    {"Style019FillColor1",  kColor1,     ColorButton, 0xFF0000},
    {"Style019FillColor2",  kColor2,     ColorButton, 0x00FF00},
    {"Style019FillColor3",  kColor3,     ColorButton, 0x00CCFF},
    {"Style019FillColor4",  kColor4,     ColorButton, 0x0033CC},
    {"Style019FillColor5",  kColor5,     ColorButton, 0x0066FF},
    {"Style019FillEnable2", kEnable2,    CheckBox,    1},
    {"Style019FillEnable3", kEnable3,    CheckBox,    1},
    {"Style019FillEnable4", kEnable4,    CheckBox,    1},
    {"Style019FillEnable5", kEnable5,    CheckBox,    1},
    {"Style019Frames",      kFrames,     Spinner,     64},
    {"Style019Glare",       kGlare,      Spinner,     160},
    {"Style019Scroll",      kScroll,     Scroll2,     1},
    {"Style019Seed",        kSeed,       Spinner,     12055},
    {"Style019Shade",       kShade,      Spinner,     70},
    {"Style019Size",        kSize,       Spinner,     10},
    {"Style019Width",       kWidth,      Spinner,     190},
};
// clang-format on

}  // namespace

const StyleEntry WaveletStyle = {
    .Name = "Wavelet",
    .ConfigurationName = "Style019",
    .PanelTemplate = 7419,
    .Parameters = parameters,
    .Test = UndrawnSlot,
    .Build = UndrawnSlot,
    .BackgroundControl = kBackground,
};

}  // namespace tess
