// Neural Network: a regular grid of shaded balls, dim at rest. One ball fires in each
// frame, in a random order that visits every ball once, and a trail of earlier firings
// fades out behind it.
//
// There are as many frames as balls, and the loop closes by that timetable: the trail
// runs backwards through the order, from its start on to its end.
#include <algorithm>
#include <array>
#include <cstdint>

#include "controls/spinner.h"
#include "pipeline/image_buffers.h"
#include "platform/block_guards.h"
#include "platform/dialog.h"
#include "runtime/random.h"
#include "styles/fill_colors.h"
#include "styles/shaded_ball.h"
#include "styles/style_run.h"
#include "styles/styles.h"
#include "toolkit/wrap_compositing.h"

namespace tess {

namespace {

enum Control : int {
    kBackground = 688,
    kMargin = 690,
    kGlare = 692,
    kSize = 694,
    kDensity = 696,
    kSeed = 698,
    kWidth = 700,
    kDepth = 702,
    kColor1 = 704,
    kColor2 = 706,
    kColor3 = 708,
    kColor4 = 710,
    kColor5 = 712,
    kEnable2 = 714,
    kEnable3 = 715,
    kEnable4 = 716,
    kEnable5 = 717,
    kShadowOpacity = 718,
    kShadowOffset = 720,
    kShade = 722,
};

using enum ParameterKind;

// clang-format off
StyleParameter parameters[] = {
    {"Style018Background",    kBackground,    ColorButton, 0x000000},
    {"Style018Density",       kDensity,       Spinner,     40},
    {"Style018Depth",         kDepth,         Spinner,     8},
    {"Style018FillColor1",    kColor1,        ColorButton, 0xFF0000},
    {"Style018FillColor2",    kColor2,        ColorButton, 0x00FF00},
    {"Style018FillColor3",    kColor3,        ColorButton, 0x00CCFF},
    {"Style018FillColor4",    kColor4,        ColorButton, 0x0033CC},
    {"Style018FillColor5",    kColor5,        ColorButton, 0x0066FF},
    {"Style018FillEnable2",   kEnable2,       CheckBox,    1},
    {"Style018FillEnable3",   kEnable3,       CheckBox,    1},
    {"Style018FillEnable4",   kEnable4,       CheckBox,    1},
    {"Style018FillEnable5",   kEnable5,       CheckBox,    1},
    {"Style018Glare",         kGlare,         Spinner,     160},
    {"Style018Padding",       kMargin,        Spinner,     0},
    {"Style018Seed",          kSeed,          Spinner,     12055},
    {"Style018Shade",         kShade,         Spinner,     70},
    {"Style018ShadowOffset",  kShadowOffset,  Spinner,     0},
    {"Style018ShadowOpacity", kShadowOpacity, Spinner,     0},
    {"Style018Size",          kSize,          Spinner,     14},
    {"Style018Width",         kWidth,         Spinner,     12},
};
// clang-format on

constexpr int kRestBrightness = 64;
constexpr int kFullBrightness = 255;

struct NeuralNode {
    std::int32_t ColorIndex;  // in the colour list
    std::int32_t Brightness;  // may fall below 0 in a long trail
};

/// The balls drawn so far: one for each colour and brightness.
class BallStore {
public:
    /// The place of a ball.
    ShrunkPicture& Find(const NeuralNode& node) {
        // From 0 down a ball is black.
        const int brightness = std::max(node.Brightness, 0);
        return balls_[static_cast<std::size_t>(node.ColorIndex)]
                     [static_cast<std::size_t>(brightness)];
    }

private:
    std::array<std::array<ShrunkPicture, kFullBrightness + 1>, 5> balls_;
};

struct NeuralState {
    std::int32_t TileWidth, TileHeight;  // pixels
    std::int32_t Columns, Rows;
    std::int32_t FrameCount;  // and the number of nodes
    std::int32_t Size;        // diameter of a ball
    std::int32_t Pitch;       // from ball to ball
    std::int32_t Shading;
    std::int32_t BrightnessStep;  // from one place of the trail to the next
    std::int32_t TrailLength;
    ColorWord Background;
    FillColorList FillColors;
    platform::WorkArray<NeuralNode> Nodes;  // row by row
    platform::WorkArray<std::int32_t> FiringOrder;
    SpriteForm BallForm;
    BallStore Balls;
    SpriteShadow Shadow;
};

void ReadPanel(platform::WindowHandle dialog, NeuralState& state) {
    state.Columns = GetSpinnerValue(dialog, kWidth);
    state.Rows = GetSpinnerValue(dialog, kDepth);
    state.FrameCount = state.Columns * state.Rows;
    state.Size = GetSpinnerValue(dialog, kSize);
    state.Pitch = state.Size + GetSpinnerValue(dialog, kMargin);
    state.TileWidth = state.Columns * state.Pitch;
    state.TileHeight = state.Rows * state.Pitch;
    state.Shading = GetSpinnerValue(dialog, kShade);
    state.Shadow = {state.Size, state.Size, GetSpinnerValue(dialog, kShadowOffset),
                    GetSpinnerValue(dialog, kShadowOpacity)};
    state.Background = platform::ControlNumber(dialog, kBackground, false);
    state.FillColors = ReadFillColors(dialog, {kColor1, kColor2, kColor3, kColor4, kColor5},
                                      {kEnable2, kEnable3, kEnable4, kEnable5});
    const int density = GetSpinnerValue(dialog, kDensity);
    state.TrailLength = std::max(density * state.FrameCount / 100, 1);
    state.BrightnessStep = std::max((kFullBrightness - kRestBrightness) / state.TrailLength, 1);
}

/// Selection without replacement: each place takes one of those left, and the last
/// of them moves into the gap. Returns false without memory.
bool Shuffle(platform::WorkArray<std::int32_t>& order) {
    platform::WorkArray<std::int32_t> shuffled(order.size());
    if (!shuffled) return false;
    int left = static_cast<int>(order.size());
    for (std::int32_t& place : shuffled) {
        std::int32_t& drawn = order[static_cast<std::size_t>(runtime::rand() % left)];
        place = drawn;
        drawn = order[static_cast<std::size_t>(--left)];
    }
    order = std::move(shuffled);
    return true;
}

bool StyleSetup(StyleContext& context, NeuralState& state) {
    ReadPanel(context.Dialog, state);
    const auto count = static_cast<std::size_t>(state.FrameCount);
    state.Nodes = platform::WorkArray<NeuralNode>(count);
    state.FiringOrder = platform::WorkArray<std::int32_t>(count);
    if (!state.Nodes || !state.FiringOrder) return false;

    runtime::srand(static_cast<unsigned>(GetSpinnerValue(context.Dialog, kSeed)));
    int last_color = -1;
    for (std::size_t i = 0; i < count; ++i) {
        state.FiringOrder[i] = static_cast<std::int32_t>(i);
        state.Nodes[i] = {PickFillColor(state.FillColors.Count, &last_color), kRestBrightness};
    }
    return Shuffle(state.FiringOrder);
}

/// Lights the trail that ends at the ball which fires in `frame`.
void LightTrail(NeuralState& state, int frame) {
    for (NeuralNode& node : state.Nodes)
        node.Brightness = kRestBrightness;
    int place = frame;
    for (int k = 0; k < state.TrailLength; ++k) {
        const auto fired =
            static_cast<std::size_t>(state.FiringOrder[static_cast<std::size_t>(place)]);
        state.Nodes[fired].Brightness = kFullBrightness - k * state.BrightnessStep;
        place = place == 0 ? state.FrameCount - 1 : place - 1;
    }
}

/// The node's ball, made at its first use, or null.
ImageHandle FindNodeBall(NeuralState& state, const NeuralNode& node) {
    return state.Balls.Find(node).Find([&] {
        const ColorWord color =
            ChangeValue(state.FillColors.Colors[node.ColorIndex], node.Brightness / 255.0 - 1.0);
        return RenderShadedBall(ShadeColor(color, state.Background, state.Shading),
                                {0, 0, state.Size, state.Size}, RingAngle::Single, &state.BallForm);
    });
}

/// Draws row by row: a shadow lies over the balls before its own, and at the right and
/// lower edge, by wrapping, over the first ones.
ImageHandle RenderFrame(StyleContext&, NeuralState& state, int frame) {
    LightTrail(state, frame);
    platform::OwnedBlock picture(
        NewSolidImage({0, 0, state.TileWidth, state.TileHeight}, state.Background));
    {
        const LockedImage tile(picture.Get());
        if (!tile) return nullptr;
        const NeuralNode* node = state.Nodes.begin();
        for (int row = 0; row < state.Rows; ++row) {
            for (int column = 0; column < state.Columns; ++column) {
                DrawOverShadow(tile, {state.Pitch * column, state.Pitch * row},
                               FindNodeBall(state, *node++), &state.Shadow);
            }
        }
    }
    return picture.Release();
}

}  // namespace

const StyleEntry NeuralNetworkStyle = {
    .Name = "Neural Network",
    .ConfigurationName = "Style018",
    .PanelTemplate = 7418,
    .Parameters = parameters,
    .Test = TestStyle<NeuralState, StyleSetup, RenderFrame, SampleDraft>,
    .Build = BuildStyle<NeuralState, StyleSetup, RenderFrame>,
    .BackgroundControl = kBackground,
};

}  // namespace tess
