// White Noise.
#include "styles/styles.h"
#include "styles/undrawn.h"

namespace tess {

namespace {

enum Control : int {
    kFrames = 376,
    kWidth = 378,
    kDepth = 380,
    kSeed = 382,
    kInterference = 384,
    kSize = 386,
    kLightFill = 388,
    kDarkFill = 390,
    kRandomDelay = 392,
};

using enum ParameterKind;

// clang-format off
StyleParameter parameters[] = {
    {"Style009DarkFill",     kDarkFill,     ColorButton, 0x5F503D},
    {"Style009Depth",        kDepth,        Spinner,     192},
    {"Style009Frames",       kFrames,       Spinner,     64},
    {"Style009Interference", kInterference, Spinner,     80},
    {"Style009LightFill",    kLightFill,    ColorButton, 0xC4B6AA},
    {"Style009RandomDelay",  kRandomDelay,  CheckBox,    1},
    {"Style009Seed",         kSeed,         Spinner,     11234},
    {"Style009Size",         kSize,         Spinner,     3},
    {"Style009Width",        kWidth,        Spinner,     128},
};
// clang-format on

}  // namespace

const StyleEntry WhiteNoiseStyle = {
    .Name = "White Noise",
    .ConfigurationName = "Style009",
    .PanelTemplate = 7409,
    .Parameters = parameters,
    .Test = UndrawnSlot,
    .Build = UndrawnSlot,
    .BackgroundControl = kDarkFill,
};

}  // namespace tess
