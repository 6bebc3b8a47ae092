// Gridlock: shaded bars with round corners slide along straight lanes like cars in a
// jam, each over its soft shadow. No bar minds another: the later one of the array
// passes over the earlier.
//
// The loop closes by position: a bar goes round the tile once, twice or four times.
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
    kBackground = 592,
    kFrames = 594,
    kGlare = 596,
    kSize = 598,
    kDensity = 600,
    kSeed = 602,
    kWidth = 604,
    kDepth = 606,
    kColor1 = 608,
    kColor2 = 610,
    kColor3 = 612,
    kColor4 = 614,
    kColor5 = 616,
    kEnable2 = 618,
    kEnable3 = 619,
    kEnable4 = 620,
    kEnable5 = 621,
    kDirUp = 622,
    kDirDown = 623,
    kDirRight = 624,
    kDirLeft = 625,
    kShadowOpacity = 626,
    kShadowOffset = 628,
    kShade = 630,
};

using enum ParameterKind;

// clang-format off
StyleParameter parameters[] = {
    {"Style016Background",    kBackground,    ColorButton, 0x002051},
    {"Style016Density",       kDensity,       Spinner,     24},
    {"Style016Depth",         kDepth,         Spinner,     128},
    {"Style016DirDown",       kDirDown,       CheckBox,    1},
    {"Style016DirLeft",       kDirLeft,       CheckBox,    1},
    {"Style016DirRight",      kDirRight,      CheckBox,    1},
    {"Style016DirUp",         kDirUp,         CheckBox,    1},
    {"Style016FillColor1",    kColor1,        ColorButton, 0x3787FF},
    {"Style016FillColor2",    kColor2,        ColorButton, 0x0066FF},
    {"Style016FillColor3",    kColor3,        ColorButton, 0x0053CE},
    {"Style016FillColor4",    kColor4,        ColorButton, 0x0046AE},
    {"Style016FillColor5",    kColor5,        ColorButton, 0x003077},
    {"Style016FillEnable2",   kEnable2,       CheckBox,    1},
    {"Style016FillEnable3",   kEnable3,       CheckBox,    1},
    {"Style016FillEnable4",   kEnable4,       CheckBox,    1},
    {"Style016FillEnable5",   kEnable5,       CheckBox,    1},
    {"Style016Frames",        kFrames,        Spinner,     64},
    {"Style016Glare",         kGlare,         Spinner,     160},
    {"Style016Seed",          kSeed,          Spinner,     10634},
    {"Style016Shade",         kShade,         Spinner,     70},
    {"Style016ShadowOffset",  kShadowOffset,  Spinner,     8},
    {"Style016ShadowOpacity", kShadowOpacity, Spinner,     48},
    {"Style016Size",          kSize,          Spinner,     20},
    {"Style016Width",         kWidth,         Spinner,     128},
};
// clang-format on

/// Where a bar goes. The labels of the boxes stand for the opposite of what is seen,
/// since y grows downwards; that is meant.
enum Direction : std::int32_t {
    kUp = 0,     // y grows
    kDown = 1,   // y falls, and starts a pixel short of a turn
    kLeft = 2,   // x grows
    kRight = 3,  // x falls, and starts a pixel short of a turn
};

constexpr bool IsTall(std::int32_t direction) {
    return direction == kUp || direction == kDown;
}

struct DirectionList {
    std::int32_t Directions[4];
    std::int32_t Count;  // 1 to 4
};

struct GridlockBar {
    std::int32_t X, Y;
    std::int32_t Laps;  // round the tile in a loop
    std::int32_t Direction;
    ImageHandle Sprite;  // owned by the state
};

/// What all bars of one orientation have in common.
struct BarShape {
    std::int32_t Width, Height;
    SpriteForm Form;
    std::array<platform::OwnedBlock, 5> Sprites;  // by colour, made at first use
    SpriteShadow Shadow;
};

struct GridlockState {
    std::int32_t TileWidth, TileHeight;
    std::int32_t FrameCount;
    std::int32_t Size;  // thickness of a bar
    std::int32_t Shading;
    ColorWord Background;
    FillColorList FillColors;
    DirectionList Directions;
    BarShape Tall, Wide;
    platform::WorkArray<GridlockBar> Bars;
};

BarShape& ShapeOf(GridlockState& state, std::int32_t direction) {
    return IsTall(direction) ? state.Tall : state.Wide;
}

DirectionList ReadDirections(platform::WindowHandle dialog) {
    constexpr int kBoxes[] = {kDirUp, kDirDown, kDirLeft, kDirRight};
    DirectionList list{};
    for (const std::int32_t direction : {kUp, kDown, kLeft, kRight}) {
        if (platform::IsChecked(dialog, kBoxes[direction]))
            list.Directions[list.Count++] = direction;
    }
    // With no box checked there is the first entry, which is kUp.
    list.Count = std::max(list.Count, 1);
    return list;
}

void ReadPanel(platform::WindowHandle dialog, GridlockState& state) {
    state.TileWidth = GetSpinnerValue(dialog, kWidth);
    state.TileHeight = GetSpinnerValue(dialog, kDepth);
    state.FrameCount = GetSpinnerValue(dialog, kFrames);
    state.Size = GetSpinnerValue(dialog, kSize);
    state.Tall.Width = state.Wide.Height = state.Size;
    state.Tall.Height = state.Wide.Width = 3 * state.Size;
    state.Shading = GetSpinnerValue(dialog, kShade);
    for (BarShape* shape : {&state.Tall, &state.Wide}) {
        shape->Shadow = {shape->Width, shape->Height, GetSpinnerValue(dialog, kShadowOffset),
                         GetSpinnerValue(dialog, kShadowOpacity)};
    }
    state.Background = platform::ControlNumber(dialog, kBackground, false);
    state.FillColors = ReadFillColors(dialog, {kColor1, kColor2, kColor3, kColor4, kColor5},
                                      {kEnable2, kEnable3, kEnable4, kEnable5});
    state.Directions = ReadDirections(dialog);
}

/// The sprite of a colour and a direction, or null. The bar's own colour shines
/// through its rim, not the background.
ImageHandle FindSprite(GridlockState& state, int color_index, std::int32_t direction) {
    BarShape& shape = ShapeOf(state, direction);
    platform::OwnedBlock& sprite = shape.Sprites[static_cast<std::size_t>(color_index)];
    if (!sprite) {
        const ColorWord color = state.FillColors.Colors[color_index];
        sprite = RenderShadedBar(ShadeColor(color, color, state.Shading), state.Size,
                                 {0, 0, shape.Width, shape.Height}, &shape.Form)
                     .Picture;
    }
    return sprite.Get();
}

bool StyleSetup(StyleContext& context, GridlockState& state) {
    constexpr std::int32_t kLaps[] = {1, 2, 4};
    ReadPanel(context.Dialog, state);
    runtime::srand(static_cast<unsigned>(GetSpinnerValue(context.Dialog, kSeed)));
    const int count = GetSpinnerValue(context.Dialog, kDensity);
    state.Bars = platform::WorkArray<GridlockBar>(static_cast<std::size_t>(count));
    int last_color = -1;
    int i = 0;
    for (GridlockBar& bar : state.Bars) {
        bar.X = runtime::rand() % state.TileWidth;
        bar.Y = runtime::rand() % state.TileHeight;
        bar.Laps = kLaps[i++ % 3];
        bar.Direction = state.Directions.Directions[runtime::rand() % state.Directions.Count];
        bar.Sprite =
            FindSprite(state, PickFillColor(state.FillColors.Count, &last_color), bar.Direction);
        if (bar.Sprite == nullptr) return false;
    }
    return static_cast<bool>(state.Bars);
}

/// How far a bar has come. The cut stands before the laps: a bar of 4 laps moves in
/// steps of 4 pixels.
int Travelled(const GridlockState& state, const GridlockBar& bar, int frame) {
    const int side = IsTall(bar.Direction) ? state.TileHeight : state.TileWidth;
    const float part = static_cast<float>(frame) / static_cast<float>(state.FrameCount);
    return static_cast<int>(part * static_cast<float>(side)) * bar.Laps;
}

ImageHandle RenderFrame(StyleContext&, GridlockState& state, int frame) {
    platform::OwnedBlock picture(
        NewSolidImage({0, 0, state.TileWidth, state.TileHeight}, state.Background));
    {
        const LockedImage tile(picture.Get());
        if (!tile) return nullptr;
        for (const GridlockBar& bar : state.Bars) {
            const int way = Travelled(state, bar, frame);
            int x = bar.X - state.Size / 2;
            int y = bar.Y - state.Size / 2;
            if (bar.Direction == kUp) y += way;
            if (bar.Direction == kDown) y += state.TileHeight - way - 1;
            if (bar.Direction == kLeft) x += way;
            if (bar.Direction == kRight) x += state.TileWidth - way - 1;
            DrawOverShadow(tile, {x, y}, bar.Sprite, &ShapeOf(state, bar.Direction).Shadow);
        }
    }
    return picture.Release();
}

}  // namespace

const StyleEntry GridlockStyle = {
    .Name = "Gridlock",
    .ConfigurationName = "Style016",
    .PanelTemplate = 7416,
    .Parameters = parameters,
    .Test = TestStyle<GridlockState, StyleSetup, RenderFrame, SampleDraft>,
    .Build = BuildStyle<GridlockState, StyleSetup, RenderFrame>,
    .BackgroundControl = kBackground,
};

}  // namespace tess
