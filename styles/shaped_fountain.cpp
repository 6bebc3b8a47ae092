// Shaped Fountain.
#include "styles/styles.h"
#include "styles/undrawn.h"

namespace tess {

namespace {

enum Control : int {
    kFrames = 302,
    kSize = 304,
    kFountain = 306,
    kScroll = 308,
    kShape = 310,
};

using enum ParameterKind;

// clang-format off
StyleParameter parameters[] = {
    {"Style006Frames", kFrames,   Spinner,    64},
    {"Style006Scroll", kScroll,   Scroll2,    1},
    {"Style006Shape",  kShape,    ChoiceList, 0, "Circle;Diamond;Square;Biscuit"},
    {"Style006Size",   kSize,     Spinner,    88},
    {nullptr,          kFountain, Fountain,   0, "FountainButtonLooped"},
};
// clang-format on

}  // namespace

const StyleEntry ShapedFountainStyle = {
    .Name = "Shaped Fountain",
    .ConfigurationName = "Style006",
    .PanelTemplate = 7406,
    .Parameters = parameters,
    .Test = UndrawnSlot,
    .Build = UndrawnSlot,
    .BackgroundControl = 0,
};

}  // namespace tess
