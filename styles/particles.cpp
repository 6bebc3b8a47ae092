// Particles: shaded balls with soft shadows, each on a circle of its own, pass over one
// another in the order of the array.
//
// The loop closes by angle: every ball makes one turn, clockwise. Its place is cut to
// whole pixels, so it wobbles a little along its circle.
#include <algorithm>
#include <bit>
#include <cstdint>

#include "controls/spinner.h"
#include "pipeline/image_buffers.h"
#include "platform/block_guards.h"
#include "platform/dialog.h"
#include "runtime/mathematics.h"
#include "runtime/random.h"
#include "styles/fill_colors.h"
#include "styles/shaded_ball.h"
#include "styles/style_run.h"
#include "styles/styles.h"
#include "toolkit/wrap_compositing.h"

namespace tess {

namespace {

enum Control : int {
    kBackground = 642,
    kFrames = 644,
    kGlare = 646,
    kSize = 648,
    kDensity = 650,
    kSeed = 652,
    kWidth = 654,
    kDepth = 656,
    kColor1 = 658,
    kColor2 = 660,
    kColor3 = 662,
    kColor4 = 664,
    kColor5 = 666,
    kEnable2 = 668,
    kEnable3 = 669,
    kEnable4 = 670,
    kEnable5 = 671,
    kShadowOpacity = 672,
    kShadowOffset = 674,
    kShade = 676,
};

using enum ParameterKind;

// clang-format off
StyleParameter parameters[] = {
    {"Style017Background",    kBackground,    ColorButton, 0x333333},
    {"Style017Density",       kDensity,       Spinner,     36},
    {"Style017Depth",         kDepth,         Spinner,     128},
    {"Style017FillColor1",    kColor1,        ColorButton, 0xFF0000},
    {"Style017FillColor2",    kColor2,        ColorButton, 0x00FF00},
    {"Style017FillColor3",    kColor3,        ColorButton, 0x00CCFF},
    {"Style017FillColor4",    kColor4,        ColorButton, 0x0033CC},
    {"Style017FillColor5",    kColor5,        ColorButton, 0x0066FF},
    {"Style017FillEnable2",   kEnable2,       CheckBox,    1},
    {"Style017FillEnable3",   kEnable3,       CheckBox,    1},
    {"Style017FillEnable4",   kEnable4,       CheckBox,    1},
    {"Style017FillEnable5",   kEnable5,       CheckBox,    1},
    {"Style017Frames",        kFrames,        Spinner,     64},
    {"Style017Glare",         kGlare,         Spinner,     160},
    {"Style017Seed",          kSeed,          Spinner,     12054},
    {"Style017Shade",         kShade,         Spinner,     70},
    {"Style017ShadowOffset",  kShadowOffset,  Spinner,     8},
    {"Style017ShadowOpacity", kShadowOpacity, Spinner,     48},
    {"Style017Size",          kSize,          Spinner,     20},
    {"Style017Width",         kWidth,         Spinner,     128},
};
// clang-format on

// Degrees to radians, the single precision number of these very bits.
constexpr float kRadians = std::bit_cast<float>(0x3C8EFA2EU);

struct ParticleRecord {
    std::int32_t X, Y;   // centre of its circle
    std::int32_t Reach;  // the circle's diameter
    double StartAngle;   // whole degrees
    ImageHandle Sprite;  // owned by the state
};

struct ParticleState {
    std::int32_t TileWidth, TileHeight;
    std::int32_t FrameCount;
    ColorWord Background;
    FillColorList FillColors;
    BallSet Balls;
    SpriteShadow Shadow;
    platform::WorkArray<ParticleRecord> Particles;
};

void ReadPanel(platform::WindowHandle dialog, ParticleState& state) {
    state.TileWidth = GetSpinnerValue(dialog, kWidth);
    state.TileHeight = GetSpinnerValue(dialog, kDepth);
    state.FrameCount = GetSpinnerValue(dialog, kFrames);
    const int size = GetSpinnerValue(dialog, kSize);
    state.Balls.Size = size;
    state.Balls.Shading = GetSpinnerValue(dialog, kShade);
    state.Balls.Angle = RingAngle::Double;
    state.Shadow = {size, size, GetSpinnerValue(dialog, kShadowOffset),
                    GetSpinnerValue(dialog, kShadowOpacity)};
    state.Background = platform::ControlNumber(dialog, kBackground, false);
    state.FillColors = ReadFillColors(dialog, {kColor1, kColor2, kColor3, kColor4, kColor5},
                                      {kEnable2, kEnable3, kEnable4, kEnable5});
}

bool StyleSetup(StyleContext& context, ParticleState& state) {
    ReadPanel(context.Dialog, state);
    const int shorter_side = std::min(state.TileWidth, state.TileHeight);
    const int least_reach = shorter_side / 2;
    const int reach_span = shorter_side * 3 / 4 - least_reach;

    runtime::srand(static_cast<unsigned>(GetSpinnerValue(context.Dialog, kSeed)));
    const int count = GetSpinnerValue(context.Dialog, kDensity);
    state.Particles = platform::WorkArray<ParticleRecord>(static_cast<std::size_t>(count));
    int last_color = -1;
    for (ParticleRecord& particle : state.Particles) {
        particle.X = runtime::rand() % state.TileWidth;
        particle.Y = runtime::rand() % state.TileHeight;
        runtime::SkipDraw();  // a sense of turning, which all balls share
        particle.Reach = runtime::rand() % reach_span + least_reach;
        particle.StartAngle = runtime::rand() % 360;
        particle.Sprite = FindBall(&state.Balls, state.FillColors,
                                   PickFillColor(state.FillColors.Count, &last_color));
        if (particle.Sprite == nullptr) return false;
    }
    return static_cast<bool>(state.Particles);
}

/// Where the ball's upper left corner is, not folded into the tile. Degrees, cosine and
/// sine are computed in double precision; the cosine and the sine are rounded to single,
/// in which the rest is.
raster::Point PlaceOf(const ParticleState& state, const ParticleRecord& particle, int frame) {
    const float part = static_cast<float>(frame) / static_cast<float>(state.FrameCount);
    const double degrees = static_cast<double>(part) * 360.0 + particle.StartAngle;
    const float radians = static_cast<float>(degrees) * kRadians;
    const auto cosine = static_cast<float>(runtime::Cosine(static_cast<double>(radians)));
    const auto sine = static_cast<float>(runtime::Sine(static_cast<double>(radians)));
    // The point above the centre is turned: its distance across is 0.
    const float dx = 0.0F;
    const float dy =
        static_cast<float>(particle.Y - particle.Reach / 2) - static_cast<float>(particle.Y);
    return {static_cast<int>(dx * cosine - dy * sine) + particle.X,
            static_cast<int>(dx * sine + dy * cosine) + particle.Y};
}

ImageHandle RenderFrame(StyleContext&, ParticleState& state, int frame) {
    platform::OwnedBlock picture(
        NewSolidImage({0, 0, state.TileWidth, state.TileHeight}, state.Background));
    {
        const LockedImage tile(picture.Get());
        if (!tile) return nullptr;
        for (const ParticleRecord& particle : state.Particles) {
            DrawOverShadow(tile, PlaceOf(state, particle, frame), particle.Sprite, &state.Shadow);
        }
    }
    return picture.Release();
}

}  // namespace

const StyleEntry ParticlesStyle = {
    .Name = "Particles",
    .ConfigurationName = "Style017",
    .PanelTemplate = 7417,
    .Parameters = parameters,
    .Test = TestStyle<ParticleState, StyleSetup, RenderFrame, SampleDraft>,
    .Build = BuildStyle<ParticleState, StyleSetup, RenderFrame>,
    .BackgroundControl = kBackground,
};

}  // namespace tess
