// Iris.
#include "styles/styles.h"
#include "styles/undrawn.h"

namespace tess {

namespace {

enum Control : int {
    kBackground = 228,
    kFrames = 230,
    kColor1 = 232,
    kColor2 = 234,
    kColor3 = 236,
    kColor4 = 238,
    kColor5 = 240,
    kEnable2 = 242,
    kEnable3 = 243,
    kEnable4 = 244,
    kEnable5 = 245,
    kStyle1 = 246,
    kStyle2 = 247,
    kStyle3 = 248,
    kStyle4 = 249,
    kStyle5 = 250,
    kStyle6 = 251,
    kSize = 252,
};

using enum ParameterKind;

constexpr char kChoices[] =
    "Square;Diamond;Circle;Horiz. blind;Vert. blind;Diag. left;Diag. right;Chev. left;Chev. right";

// clang-format off
StyleParameter parameters[] = {
    {"Style003Background",  kBackground, ColorButton, 0xFFFFFF},
    {"Style003FillColor1",  kColor1,     ColorButton, 0x7E5429},
    {"Style003FillColor2",  kColor2,     ColorButton, 0x95632C},
    {"Style003FillColor3",  kColor3,     ColorButton, 0xC08243},
    {"Style003FillColor4",  kColor4,     ColorButton, 0xDDBC9B},
    {"Style003FillColor5",  kColor5,     ColorButton, 0xEAE3DB},
    {"Style003FillEnable2", kEnable2,    CheckBox,    1},
    {"Style003FillEnable3", kEnable3,    CheckBox,    1},
    {"Style003FillEnable4", kEnable4,    CheckBox,    1},
    {"Style003FillEnable5", kEnable5,    CheckBox,    1},
    {"Style003Frames",      kFrames,     Spinner,     96},
    {"Style003Size",        kSize,       Spinner,     24},
    {"Style003Style1",      kStyle1,     ChoiceList,  1, kChoices},
    {"Style003Style2",      kStyle2,     ChoiceList,  0, kChoices},
    {"Style003Style3",      kStyle3,     ChoiceList,  2, kChoices},
    {"Style003Style4",      kStyle4,     ChoiceList,  3, kChoices},
    {"Style003Style5",      kStyle5,     ChoiceList,  7, kChoices},
    {"Style003Style6",      kStyle6,     ChoiceList,  6, kChoices},
};
// clang-format on

}  // namespace

const StyleEntry IrisStyle = {
    .Name = "Iris",
    .ConfigurationName = "Style003",
    .PanelTemplate = 7403,
    .Parameters = parameters,
    .Test = UndrawnSlot,
    .Build = UndrawnSlot,
    .BackgroundControl = kBackground,
};

}  // namespace tess
