// Gumdrops.
#include "styles/styles.h"
#include "styles/undrawn.h"

namespace tess {

namespace {

enum Control : int {
    kBackground = 322,
    kFrames = 324,
    kColor1 = 326,
    kColor2 = 328,
    kColor3 = 330,
    kColor4 = 332,
    kColor5 = 334,
    kEnable2 = 336,
    kEnable3 = 337,
    kEnable4 = 338,
    kEnable5 = 339,
    kStyle1 = 340,
    kStyle2 = 341,
    kStyle3 = 342,
    kStyle4 = 343,
    kStyle5 = 344,
    kWidth = 345,
    kDepth = 347,
    kSeed = 349,
    kDensity = 351,
    kBevel = 353,
    kSize = 354,
    kDrift = 356,
};

using enum ParameterKind;

// clang-format off
StyleParameter parameters[] = {
    {"Style007Background",  kBackground, ColorButton, 0x462F17},
    {"Style007BevelEnable", kBevel,      CheckBox,    1},
    {"Style007Density",     kDensity,    Spinner,     72},
    {"Style007Depth",       kDepth,      Spinner,     128},
    {"Style007Drift",       kDrift,      Spinner,     16},
    {"Style007FillColor1",  kColor1,     ColorButton, 0x7E5429},
    {"Style007FillColor2",  kColor2,     ColorButton, 0x95632C},
    {"Style007FillColor3",  kColor3,     ColorButton, 0xC08243},
    {"Style007FillColor4",  kColor4,     ColorButton, 0xDDBC9B},
    {"Style007FillColor5",  kColor5,     ColorButton, 0xEAE3DB},
    {"Style007FillEnable2", kEnable2,    CheckBox,    1},
    {"Style007FillEnable3", kEnable3,    CheckBox,    1},
    {"Style007FillEnable4", kEnable4,    CheckBox,    1},
    {"Style007FillEnable5", kEnable5,    CheckBox,    1},
    {"Style007Frames",      kFrames,     Spinner,     88},
    {"Style007Seed",        kSeed,       Spinner,     12026},
    {"Style007Size",        kSize,       Spinner,     32},
    {"Style007Style1",      kStyle1,     ChoiceList,  1, "Circle;Diamond;Square;Biscuit"},
    {"Style007Style2",      kStyle2,     ChoiceList,  1, "Circle;Diamond;Square;Biscuit"},
    {"Style007Style3",      kStyle3,     ChoiceList,  1, "Circle;Diamond;Square;Biscuit"},
    {"Style007Style4",      kStyle4,     ChoiceList,  1, "Circle;Diamond;Square;Biscuit"},
    {"Style007Style5",      kStyle5,     ChoiceList,  1, "Circle;Diamond;Square;Biscuit"},
    {"Style007Width",       kWidth,      Spinner,     255},
};
// clang-format on

}  // namespace

const StyleEntry GumdropsStyle = {
    .Name = "Gumdrops",
    .ConfigurationName = "Style007",
    .PanelTemplate = 7407,
    .Parameters = parameters,
    .Test = UndrawnSlot,
    .Build = UndrawnSlot,
    .BackgroundControl = kBackground,
};

}  // namespace tess
