// Wavelet: a tight grid of small shaded balls through which a sine wave of opacity runs
// from side to side. Nothing moves: each column of balls fades towards the background
// and back, a little behind the one before.
//
// The loop closes by angle: the one wave across the tile walks one wavelength.
#include <cstdint>
#include <numbers>

#include "controls/direction_picker.h"
#include "controls/spinner.h"
#include "pipeline/image_buffers.h"
#include "platform/block_guards.h"
#include "platform/dialog.h"
#include "runtime/mathematics.h"
#include "runtime/random.h"
#include "styles/fill_colors.h"
#include "styles/scaled_alpha.h"
#include "styles/shaded_ball.h"
#include "styles/style_run.h"
#include "styles/styles.h"
#include "toolkit/wrap_compositing.h"

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

struct WaveletBall {
    std::int32_t X, Y;
    ImageHandle Sprite;  // owned by the state
};

struct WaveletState {
    std::int32_t TileWidth, TileHeight;  // whole balls
    std::int32_t Columns, Rows;
    std::int32_t FrameCount;
    std::int32_t Pitch;  // diameter of a ball and distance to the next
    std::int32_t Reverse;
    ColorWord Background;
    FillColorList FillColors;
    float Amplitude;
    BallSet Sprites;
    platform::WorkArray<WaveletBall> Balls;  // row by row
};

void ReadPanel(platform::WindowHandle dialog, WaveletState& state) {
    state.Pitch = GetSpinnerValue(dialog, kSize);
    state.Columns = GetSpinnerValue(dialog, kWidth) / state.Pitch;
    state.Rows = GetSpinnerValue(dialog, kDepth) / state.Pitch;
    state.TileWidth = state.Columns * state.Pitch;
    state.TileHeight = state.Rows * state.Pitch;
    state.FrameCount = GetSpinnerValue(dialog, kFrames);
    state.Reverse = SelectedDirection(dialog, kScroll) != 0 ? 1 : 0;
    state.Sprites.Size = state.Pitch;
    state.Sprites.Shading = GetSpinnerValue(dialog, kShade);
    state.Sprites.Angle = RingAngle::Single;
    state.Amplitude = static_cast<float>(GetSpinnerValue(dialog, kAmplitude) / 100.0);
    state.Background = platform::ControlNumber(dialog, kBackground, false);
    state.FillColors = ReadFillColors(dialog, {kColor1, kColor2, kColor3, kColor4, kColor5},
                                      {kEnable2, kEnable3, kEnable4, kEnable5});
}

bool StyleSetup(StyleContext& context, WaveletState& state) {
    ReadPanel(context.Dialog, state);
    runtime::srand(static_cast<unsigned>(GetSpinnerValue(context.Dialog, kSeed)));
    state.Balls = platform::WorkArray<WaveletBall>(static_cast<std::size_t>(state.Columns) *
                                                   static_cast<std::size_t>(state.Rows));
    int last_color = -1;
    int i = 0;
    for (WaveletBall& ball : state.Balls) {
        ball.X = i % state.Columns * state.Pitch;
        ball.Y = i / state.Columns * state.Pitch;
        ball.Sprite = FindBall(&state.Sprites, state.FillColors,
                               PickFillColor(state.FillColors.Count, &last_color));
        if (ball.Sprite == nullptr) return false;
        ++i;
    }
    return static_cast<bool>(state.Balls);
}

/// Degrees that the wave has walked, in single precision.
float PhaseOf(const WaveletState& state, int frame) {
    const int step = state.Reverse != 0 ? state.FrameCount - frame - 1 : frame;
    const float part = static_cast<float>(step) / static_cast<float>(state.FrameCount);
    return static_cast<float>(static_cast<double>(part) * 360.0);
}

/// The level of a column's balls: 0 in the trough at full amplitude, above 255, which
/// is full, on much of a weak wave.
int LevelOf(const WaveletState& state, int column, float phase) {
    const auto amplitude = static_cast<double>(state.Amplitude);
    const int floor_level = 255 - static_cast<int>(amplitude * 255.0);
    const float part = static_cast<float>(column) / static_cast<float>(state.Columns);
    const double degrees = static_cast<double>(part) * 360.0 + static_cast<double>(phase);
    const double wave = runtime::Sine(degrees * std::numbers::pi / 180.0);
    return floor_level - static_cast<int>((wave * amplitude + 1.0) * -0.5 * 255.0);
}

/// Lays one ball on the tile at a level. One that cannot be faded is left out.
void DrawBall(PackedDib* tile, const WaveletBall& ball, int level) {
    const platform::OwnedBlock faded(ScaleImageAlpha(ball.Sprite, level));
    const LockedImage sprite(faded.Get());
    if (sprite) WrapBlendImage(tile, sprite, ball.X, ball.Y);
}

ImageHandle RenderFrame(StyleContext&, WaveletState& state, int frame) {
    const float phase = PhaseOf(state, frame);
    platform::OwnedBlock picture(
        NewSolidImage({0, 0, state.TileWidth, state.TileHeight}, state.Background));
    {
        const LockedImage tile(picture.Get());
        if (!tile) return nullptr;
        // Balls do not overlap, so they may be drawn column by column.
        for (int column = 0; column < state.Columns; ++column) {
            const int level = LevelOf(state, column, phase);
            for (int row = 0; row < state.Rows; ++row) {
                DrawBall(tile, state.Balls[static_cast<std::size_t>(row * state.Columns + column)],
                         level);
            }
        }
    }
    return picture.Release();
}

}  // namespace

const StyleEntry WaveletStyle = {
    .Name = "Wavelet",
    .ConfigurationName = "Style019",
    .PanelTemplate = 7419,
    .Parameters = parameters,
    .Test = TestStyle<WaveletState, StyleSetup, RenderFrame, SampleDraft>,
    .Build = BuildStyle<WaveletState, StyleSetup, RenderFrame>,
    .BackgroundControl = kBackground,
};

}  // namespace tess
