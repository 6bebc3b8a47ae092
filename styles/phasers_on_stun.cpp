// Phasers on Stun.
#include "styles/styles.h"
#include "styles/undrawn.h"

namespace tess {

namespace {

enum Control : int {
    kBackground = 403,
    kFrames = 405,
    kPower = 407,
    kDensity = 409,
    kSeed = 411,
    kWidth = 413,
    kDepth = 415,
    kColor1 = 417,
    kColor2 = 419,
    kColor3 = 421,
    kColor4 = 423,
    kColor5 = 425,
    kEnable2 = 427,
    kEnable3 = 428,
    kEnable4 = 429,
    kEnable5 = 430,
    kLineEast2South = 431,
    kLineWest2South = 432,
    kLineHorizontal = 433,
    kLineVertical = 434,
};

using enum ParameterKind;

// clang-format off
StyleParameter parameters[] = {
    {"Style010Background",     kBackground,     ColorButton, 0x000000},
    {"Style010Density",        kDensity,        Spinner,     256},
    {"Style010Depth",          kDepth,          Spinner,     128},
    {"Style010FillColor1",     kColor1,         ColorButton, 0x0000FF},
    {"Style010FillColor2",     kColor2,         ColorButton, 0x00FF00},
    {"Style010FillColor3",     kColor3,         ColorButton, 0xFF0000},
    {"Style010FillColor4",     kColor4,         ColorButton, 0xFF00FF},
    {"Style010FillColor5",     kColor5,         ColorButton, 0x00FFFF},
    {"Style010FillEnable2",    kEnable2,        CheckBox,    1},
    {"Style010FillEnable3",    kEnable3,        CheckBox,    1},
    {"Style010FillEnable4",    kEnable4,        CheckBox,    1},
    {"Style010FillEnable5",    kEnable5,        CheckBox,    1},
    {"Style010Frames",         kFrames,         Spinner,     64},
    {"Style010LineEast2South", kLineEast2South, CheckBox,    1},
    {"Style010LineHorizontal", kLineHorizontal, CheckBox,    1},
    {"Style010LineVertical",   kLineVertical,   CheckBox,    1},
    {"Style010LineWest2South", kLineWest2South, CheckBox,    1},
    {"Style010Power",          kPower,          Spinner,     5},
    {"Style010Seed",           kSeed,           Spinner,     10632},
    {"Style010Width",          kWidth,          Spinner,     192},
};
// clang-format on

}  // namespace

const StyleEntry PhasersOnStunStyle = {
    .Name = "Phasers on Stun",
    .ConfigurationName = "Style010",
    .PanelTemplate = 7410,
    .Parameters = parameters,
    .Test = UndrawnSlot,
    .Build = UndrawnSlot,
    .BackgroundControl = kBackground,
};

}  // namespace tess
