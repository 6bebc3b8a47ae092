// Skip Intro: the spinning wheel of a page that is loading, a ring of short thick
// spokes graded from dark to bright, which steps round by one spoke a frame. One
// large wheel fills the tile and turns for ever; smaller ones of other colours fade
// in at random places, turn and fade out again, by one of three timetables.
//
// There is no Frames control: the frame count follows from spokes, wheels and
// timetable, a multiple of the spokes, so every wheel has made whole turns and the
// loop closes. The last turn shows the large wheel alone, and so does frame 0.
#include <algorithm>
#include <cstdint>

#include "controls/spinner.h"
#include "pipeline/image_buffers.h"
#include "platform/block_guards.h"
#include "platform/dialog.h"
#include "runtime/random.h"
#include "styles/fill_colors.h"
#include "styles/style_run.h"
#include "styles/styles.h"
#include "styles/wheel_mask_store.h"
#include "toolkit/wrap_compositing.h"

namespace tess {

namespace {

enum Control : int {
    kBackground = 512,
    kDrift = 514,
    kSize = 516,
    kDensity = 518,
    kSeed = 520,
    kColor1 = 522,
    kColor2 = 524,
    kColor3 = 526,
    kColor4 = 528,
    kColor5 = 530,
    kEnable2 = 532,
    kEnable3 = 533,
    kEnable4 = 534,
    kEnable5 = 535,
    kSpokes = 536,
    kMode = 538,
};

using enum ParameterKind;

// clang-format off
StyleParameter parameters[] = {
    {"Style014Background",  kBackground, ColorButton, 0xFFFFFF},
    {"Style014Density",     kDensity,    Spinner,     3},
    {"Style014Drift",       kDrift,      Spinner,     29},
    {"Style014FillColor1",  kColor1,     ColorButton, 0x7E5429},
    {"Style014FillColor2",  kColor2,     ColorButton, 0x95632C},
    {"Style014FillColor3",  kColor3,     ColorButton, 0xC08243},
    {"Style014FillColor4",  kColor4,     ColorButton, 0xDDBC9B},
    {"Style014FillColor5",  kColor5,     ColorButton, 0xEAE3DB},
    {"Style014FillEnable2", kEnable2,    CheckBox,    1},
    {"Style014FillEnable3", kEnable3,    CheckBox,    1},
    {"Style014FillEnable4", kEnable4,    CheckBox,    1},
    {"Style014FillEnable5", kEnable5,    CheckBox,    1},
    {"Style014Mode",        kMode,       ChoiceList,  0, "Cumulative;Sequential;Constant"},
    {"Style014Seed",        kSeed,       Spinner,     10632},
    {"Style014Size",        kSize,       Spinner,     96},
    {"Style014Spokes",      kSpokes,     ChoiceList,  6, "6;8;9;10;12;18;20;24;30;36;40;45;60"},
};
// clang-format on

constexpr int kFewestSpokes = 4;
constexpr double kFullLevel = 255.0;

enum Mode : std::int32_t { kCumulative, kSequential, kConstant, kUnoffered };
enum FadeState : std::int32_t { kRising, kHolding, kFalling };

struct SkipWheel {
    std::int32_t X, Y;  // top left of the wheel's square; may be negative
    std::int32_t Size;
    std::int32_t Tick;  // rotation in spoke steps; grows with every drawn frame
    std::int32_t Spokes;
    double Level;  // brightness, nominally 0 to 255
    double LevelStep;
    ColorWord Color;
    std::int32_t Active;    // drawn in this frame
    std::int32_t Life;      // frames left while active
    std::int32_t Delay;     // frames left while inactive
    std::int32_t Constant;  // never fades or stops
    std::int32_t Fade;      // a FadeState
    std::int32_t Mode;
    std::int32_t HoldTick, FallTick;  // ticks at which Fade becomes kHolding, kFalling
};

struct SkipIntroState {
    std::int32_t Seed;
    std::int32_t TileSize;
    std::int32_t Spokes;
    std::int32_t FrameCount;
    std::int32_t Mode;
    ColorWord Background;
    FillColorList FillColors;
    platform::WorkArray<SkipWheel> Wheels;
    std::int32_t WheelCount;
    WheelMaskStore Masks;

    /// Frees what can be made again. Returns whether there was anything.
    bool DropKept() { return Masks.DropAll(); }
};

/// Sets the timetable of wheel `index`, 1 and up, in frames.
void SetTimetable(const SkipIntroState& state, int index, SkipWheel& wheel) {
    const int turn = state.Spokes;
    wheel.Life = 3 * turn;
    wheel.Delay = (3 * index - 2) * turn;
    switch (state.Mode) {
        case kCumulative:
            wheel.Life = (state.WheelCount - index) * turn * 3;
            wheel.HoldTick = turn;
            wheel.FallTick = wheel.Life - turn;
            break;
        case kSequential:
            wheel.HoldTick = turn;
            wheel.FallTick = 2 * turn;
            break;
        case kConstant:
            wheel.Delay = 0;
            wheel.Active = 1;
            wheel.Constant = 1;
            wheel.Level = kFullLevel;
            wheel.Fade = kHolding;
            break;
        default:
            break;
    }
}

/// The large wheel, which turns for ever. It makes no draw here.
void SetFirstWheel(const SkipIntroState& state, SkipWheel& wheel) {
    wheel.Size = state.TileSize;
    wheel.Color = state.FillColors.Colors[0];
    wheel.Active = 1;
    wheel.Constant = 1;
    wheel.Life = state.Spokes * state.WheelCount;
    wheel.Level = kFullLevel;
    wheel.Fade = kHolding;
}

/// Draws one of the further wheels.
void DrawWheel(const SkipIntroState& state, int index, int drift, SkipWheel& wheel) {
    const int reach = (100 - drift) * state.TileSize / 100;
    const int margin = drift * state.TileSize / 100;
    const int half = state.TileSize / 2;
    wheel.X = runtime::rand() % reach - half + margin;
    wheel.Y = runtime::rand() % reach - half + margin;
    SetTimetable(state, index, wheel);
    wheel.Color = state.FillColors.Colors[runtime::rand() % state.FillColors.Count];
    wheel.Size = runtime::rand() % half + half;
}

void ReadPanel(const StyleContext& context, SkipIntroState& state) {
    const platform::WindowHandle dialog = context.Dialog;
    state.TileSize = GetSpinnerValue(dialog, kSize);
    state.Seed = GetSpinnerValue(dialog, kSeed);
    // The number is the text of the chosen entry, 0 when none is.
    const std::uint32_t spokes = platform::ControlNumber(dialog, kSpokes, false);
    state.Spokes = std::max(static_cast<std::int32_t>(spokes), kFewestSpokes);
    state.Mode =
        std::clamp<std::int32_t>(platform::Selection(dialog, kMode), kCumulative, kUnoffered);
    if ((context.Flags & SampleDraft) != 0) state.Mode = kConstant;
    state.Background = platform::ControlNumber(dialog, kBackground, false);
    state.FillColors = ReadFillColors(dialog, {kColor1, kColor2, kColor3, kColor4, kColor5},
                                      {kEnable2, kEnable3, kEnable4, kEnable5});
    state.WheelCount = GetSpinnerValue(dialog, kDensity);
}

bool StyleSetup(StyleContext& context, SkipIntroState& state) {
    ReadPanel(context, state);
    const int drift = GetSpinnerValue(context.Dialog, kDrift);
    runtime::srand(static_cast<unsigned>(state.Seed));
    state.Wheels = platform::WorkArray<SkipWheel>(static_cast<std::size_t>(state.WheelCount));
    if (!state.Wheels || !state.Masks.Allocate(state.WheelCount, state.Spokes)) return false;
    int index = 0;
    for (SkipWheel& wheel : state.Wheels) {
        if (index == 0) {
            SetFirstWheel(state, wheel);
        } else {
            DrawWheel(state, index, drift, wheel);
        }
        wheel.Mode = state.Mode;
        wheel.LevelStep = kFullLevel / state.Spokes;
        wheel.Tick = runtime::rand() % state.Spokes;
        wheel.Spokes = state.Spokes;
        ++index;
    }
    const bool is_one_turn = state.WheelCount == 1 || state.Mode == kConstant;
    state.FrameCount = is_one_turn ? state.Spokes : (3 * state.WheelCount - 1) * state.Spokes;
    return true;
}

/// Brings the wheel's brightness on by one frame and returns its mask's peak.
int FadeWheel(SkipWheel& wheel) {
    if (wheel.Fade == kRising) wheel.Level += wheel.LevelStep;
    if (wheel.Fade == kHolding) wheel.Level = kFullLevel;
    if (wheel.Fade == kFalling) wheel.Level -= wheel.LevelStep;
    return wheel.Constant != 0 ? 255 : std::clamp(static_cast<int>(wheel.Level), 0, 255);
}

/// Whether the wheel's mask at this peak will be wanted again.
bool ComesRoundAgain(const SkipIntroState& state, const SkipWheel& wheel, int peak) {
    if (peak < 255 || state.FrameCount == state.Spokes) return false;
    return wheel.Constant != 0 || state.Mode == kCumulative;
}

/// Stamps a wheel. Returns false without memory.
bool StampWheel(SkipIntroState& state, const SkipWheel& wheel, int peak, PackedDib* tile) {
    // At peak 0 the mask is black and changes nothing.
    if (peak == 0) return true;
    const WheelLook look{state.TileSize, wheel.Size, wheel.Spokes, wheel.Tick, peak};
    const auto number = static_cast<std::size_t>(&wheel - state.Wheels.begin());
    const LockedImage mask(ComesRoundAgain(state, wheel, peak) ? state.Masks.Find(number, look)
                                                               : state.Masks.Make(look));
    if (!mask) return false;
    WrapStampMask(tile, mask, wheel.X, wheel.Y, wheel.Color, 255);
    return true;
}

/// Moves a drawn wheel on. The ticks that bound its phases count from a random start,
/// so a wheel rises for shorter and falls for longer than its timetable says, each by
/// that start. A wheel whose life has ended wakes again a frame later, since its delay
/// is spent, and so on in turns, at level 0. All this is meant as it stands.
void AdvanceWheel(SkipWheel& wheel) {
    ++wheel.Tick;
    if (wheel.Tick >= wheel.HoldTick) wheel.Fade = kHolding;
    if (wheel.Tick >= wheel.FallTick) wheel.Fade = kFalling;
    if (wheel.Constant != 0) return;
    if (--wheel.Life < 1) wheel.Active = 0;
}

/// Draws the wheel when it is active, and moves it on by one frame.
bool RunWheel(SkipIntroState& state, SkipWheel& wheel, PackedDib* tile) {
    if (wheel.Active == 0) {
        if (wheel.Constant == 0 && --wheel.Delay < 1) wheel.Active = 1;
        return true;
    }
    const int peak = FadeWheel(wheel);
    if (!StampWheel(state, wheel, peak, tile)) return false;
    AdvanceWheel(wheel);
    return true;
}

/// The tile without a wheel, or null.
ImageHandle NewTile(SkipIntroState& state) {
    const raster::Rect all{0, 0, state.TileSize, state.TileSize};
    const ImageHandle tile = NewSolidImage(all, state.Background);
    return tile == nullptr && state.DropKept() ? NewSolidImage(all, state.Background) : tile;
}

/// Frames must be rendered in order and each once: the wheels turn on.
ImageHandle RenderFrame(StyleContext&, SkipIntroState& state, int) {
    platform::OwnedBlock image(NewTile(state));
    {
        const LockedImage tile(image.Get());
        if (!tile) return nullptr;
        for (SkipWheel& wheel : state.Wheels) {
            if (!RunWheel(state, wheel, tile)) return nullptr;
        }
    }
    return image.Release();
}

}  // namespace

const StyleEntry SkipIntroStyle = {
    .Name = "Skip Intro",
    .ConfigurationName = "Style014",
    .PanelTemplate = 7414,
    .Parameters = parameters,
    .Test = TestStyle<SkipIntroState, StyleSetup, RenderFrame, SampleDraft>,
    .Build = BuildStyle<SkipIntroState, StyleSetup, RenderFrame>,
    .BackgroundControl = kBackground,
};

}  // namespace tess
