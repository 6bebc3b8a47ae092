// Machine.
#include "styles/styles.h"
#include "styles/undrawn.h"

namespace tess {

namespace {

enum Control : int {
    kSize = 469,
    kStart = 471,
    kEnd = 473,
    kRotation = 475,
    kOffset = 477,
    kInverse = 479,
};

using enum ParameterKind;

constexpr char kChoices[] =
    "-60;-45;-40;-30;-24;-20;-15;-12;-10;-9;-8;-6;-5;-4;-3;-2;-1;1;2;3;4;5;6;8;9;10;12;15;20;24;30;"
    "40;45;60";

// clang-format off
StyleParameter parameters[] = {
    {"Style012End",      kEnd,      ColorButton, 0x996633},
    {"Style012Inverse",  kInverse,  CheckBox,    0},
    {"Style012Offset",   kOffset,   Spinner,     180},
    {"Style012Size",     kSize,     Spinner,     48},
    {"Style012Start",    kStart,    ColorButton, 0xFFFFFF},
    {"Style012Rotation", kRotation, ChoiceList,  22, kChoices},
};
// clang-format on

}  // namespace

const StyleEntry MachineStyle = {
    .Name = "Machine",
    .ConfigurationName = "Style012",
    .PanelTemplate = 7412,
    .Parameters = parameters,
    .Test = UndrawnSlot,
    .Build = UndrawnSlot,
    .BackgroundControl = 0,
};

}  // namespace tess
