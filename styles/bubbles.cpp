// Bubbles: three layers of soft round discs rise up the tile and sway from side
// to side. Big discs rise slowly and are strong; small ones rise four times as
// fast and are faint, which reads as depth.
//
// The loop closes by position, a whole number of tile heights a loop, and by
// angle, one turn of each bubble's sway.
#include <algorithm>
#include <cstdint>
#include <numbers>

#include "controls/spinner.h"
#include "pipeline/image_buffers.h"
#include "pipeline/image_scaling.h"
#include "platform/block_guards.h"
#include "platform/dialog.h"
#include "runtime/mathematics.h"
#include "runtime/random.h"
#include "styles/fill_colors.h"
#include "styles/sprite_store.h"
#include "styles/style_run.h"
#include "styles/styles.h"
#include "toolkit/wrap_compositing.h"

namespace tess {

namespace {

enum Control : int {
    kBackground = 100,
    kOpacity = 102,
    kFrames = 104,
    kDrift = 106,
    kSize = 108,
    kDensity = 110,
    kSeed = 112,
    kWidth = 114,
    kDepth = 116,
    kInverse = 118,
    kColor1 = 119,
    kColor2 = 121,
    kColor3 = 123,
    kColor4 = 125,
    kColor5 = 127,
    kEnable2 = 129,
    kEnable3 = 130,
    kEnable4 = 131,
    kEnable5 = 132,
    kSmooth = 133,
};

using enum ParameterKind;

// clang-format off
StyleParameter parameters[] = {
    {"Style000Background",  kBackground, ColorButton, 0x000000},
    {"Style000Density",     kDensity,    Spinner,     36},
    {"Style000Depth",       kDepth,      Spinner,     128},
    {"Style000Drift",       kDrift,      Spinner,     16},
    {"Style000FillColor1",  kColor1,     ColorButton, 0xEAE3DB},
    {"Style000FillColor2",  kColor2,     ColorButton, 0xDDBC9B},
    {"Style000FillColor3",  kColor3,     ColorButton, 0xC08243},
    {"Style000FillColor4",  kColor4,     ColorButton, 0x95632C},
    {"Style000FillColor5",  kColor5,     ColorButton, 0x7E5429},
    {"Style000FillEnable2", kEnable2,    CheckBox,    1},
    {"Style000FillEnable3", kEnable3,    CheckBox,    1},
    {"Style000FillEnable4", kEnable4,    CheckBox,    1},
    {"Style000FillEnable5", kEnable5,    CheckBox,    1},
    {"Style000FillOpacity", kOpacity,    Spinner,     255},
    {"Style000Frames",      kFrames,     Spinner,     64},
    {"Style000Inverse",     kInverse,    CheckBox,    0},
    {"Style000Seed",        kSeed,       Spinner,     10632},
    {"Style000Size",        kSize,       Spinner,     18},
    {"Style000Smooth",      kSmooth,     CheckBox,    1},
    {"Style000Width",       kWidth,      Spinner,     128},
};
// clang-format on

struct BubbleRecord {
    std::int32_t X, Y;      // centre in render pixels at frame 0, before sway
    std::int32_t Diameter;  // render pixels
    std::int32_t Speed;     // tile heights a loop
    std::int32_t Peak;      // of the mask
    std::int32_t Opacity;
    std::int32_t Inverse;
    double Phase;  // degrees; advances from frame to frame
    ColorWord Color;
};

/// One layer's share of the settings.
struct Layer {
    int count, size, speed, peak;
};

struct BubblesState {
    platform::WorkArray<BubbleRecord> Bubbles;
    std::int32_t BubbleCount;
    std::int32_t RenderWidth, RenderDepth;
    std::int32_t BigSize, MidSize, SmallSize;
    std::int32_t FrameCount;
    std::int32_t SupersampleFactor;
    platform::OwnedBlock BackgroundImage;
    FillColorList FillColors;
    SpriteStore Masks;
};

/// A remainder that keeps the dividend's sign. A Width equal to a layer's size
/// would divide by zero: all its bubbles then stand at the same x.
int DrawBelow(int limit) {
    const int draw = runtime::rand();
    return limit == 0 ? 0 : draw % limit;
}

BubbleRecord DrawBubble(const BubblesState& state, const Layer& layer, int* last_color) {
    BubbleRecord bubble{};
    bubble.X = layer.size / 2 + DrawBelow(state.RenderWidth - layer.size);
    bubble.Y = DrawBelow(state.RenderDepth);
    runtime::SkipDraw();
    bubble.Diameter = layer.size - DrawBelow(std::max(layer.size / 9, 1));
    bubble.Phase = DrawBelow(360);
    bubble.Color = state.FillColors.Colors[PickFillColor(state.FillColors.Count, last_color)];
    bubble.Speed = layer.speed;
    bubble.Peak = layer.peak;
    return bubble;
}

bool StyleSetup(StyleContext& context, BubblesState& state) {
    const platform::WindowHandle dialog = context.Dialog;
    const int density = GetSpinnerValue(dialog, kDensity);
    runtime::srand(static_cast<unsigned>(GetSpinnerValue(dialog, kSeed)));
    const int factor = platform::IsChecked(dialog, kSmooth) ? 4 : 2;
    state.SupersampleFactor = factor;
    state.RenderWidth = factor * GetSpinnerValue(dialog, kWidth);
    state.RenderDepth = factor * GetSpinnerValue(dialog, kDepth);
    state.FrameCount = GetSpinnerValue(dialog, kFrames);
    state.FillColors = ReadFillColors(dialog, {kColor1, kColor2, kColor3, kColor4, kColor5},
                                      {kEnable2, kEnable3, kEnable4, kEnable5});
    state.BackgroundImage.Reset(NewSolidImage({0, 0, state.RenderWidth, state.RenderDepth},
                                              platform::ControlNumber(dialog, kBackground, false)));
    if (!state.BackgroundImage) return false;
    state.BigSize = GetSpinnerValue(dialog, kSize) * factor;
    state.MidSize = state.BigSize * 3 / 4;
    state.SmallSize = state.BigSize / 2;

    const Layer layers[] = {{density / 2, state.BigSize, 1, 255},
                            {density * 3 / 4, state.MidSize, 2, 160},
                            {density, state.SmallSize, 4, 128}};
    for (const Layer& layer : layers)
        state.BubbleCount += layer.count;
    state.Bubbles = platform::WorkArray<BubbleRecord>(static_cast<std::size_t>(state.BubbleCount));
    if (!state.Bubbles) return false;

    const int opacity = GetSpinnerValue(dialog, kOpacity);
    const bool inverse = platform::IsChecked(dialog, kInverse);
    int last_color = -1;
    BubbleRecord* next = state.Bubbles.begin();
    for (const Layer& layer : layers) {
        for (int i = 0; i < layer.count; ++i) {
            *next = DrawBubble(state, layer, &last_color);
            next->Opacity = opacity;
            next->Inverse = inverse ? 1 : 0;
            ++next;
        }
    }
    return true;
}

/// The bubble's mask, owned by the state, or null. It depends on the diameter and the
/// peak alone, of which a run has few.
ImageHandle FindMask(BubblesState& state, const BubbleRecord& bubble) {
    const int key = bubble.Diameter << 8 | bubble.Peak;
    return state.Masks.Find(static_cast<std::uint64_t>(key), [&bubble] {
        return RadialMask(bubble.Diameter, bubble.Peak, bubble.Inverse != 0);
    });
}

/// Stamps one bubble where it is in this frame. Returns false without memory.
bool StampBubble(BubblesState& state, BubbleRecord& bubble, PackedDib* picture, int sway,
                 int rise) {
    const double s = runtime::Sine(bubble.Phase * std::numbers::pi / 180.0);
    const int x = bubble.X - static_cast<int>(s * sway) - bubble.Diameter / 2;
    const int y = bubble.Y - rise * bubble.Speed - bubble.Diameter / 2;
    const LockedImage mask(FindMask(state, bubble));
    if (!mask) return false;
    WrapStampMask(picture, mask, x, y, bubble.Color, bubble.Opacity);
    bubble.Phase += 1.0 / state.FrameCount * 360.0;
    return true;
}

/// Frames must be rendered in order and each once: the phases walk on.
ImageHandle RenderFrame(StyleContext& context, BubblesState& state, int frame) {
    platform::OwnedBlock large(DuplicateImage(state.BackgroundImage.Get()));
    {
        const LockedImage picture(large.Get());
        if (!picture) return nullptr;
        const int drift = GetSpinnerValue(context.Dialog, kDrift);
        const int sway = static_cast<int>(drift / -100.0 * state.RenderWidth);
        const int rise =
            static_cast<int>(static_cast<double>(frame) / state.FrameCount * state.RenderDepth);
        for (BubbleRecord& bubble : state.Bubbles) {
            if (!StampBubble(state, bubble, picture, sway, rise)) return nullptr;
        }
    }
    const int percent = 100 / state.SupersampleFactor;
    const ImageHandle scaled = ScaleImagePercent(large.Get(), percent, percent);
    return scaled != nullptr ? scaled : large.Release();
}

}  // namespace

const StyleEntry BubblesStyle = {
    .Name = "Bubbles",
    .ConfigurationName = "Style000",
    .PanelTemplate = 7400,
    .Parameters = parameters,
    .Test = TestStyle<BubblesState, StyleSetup, RenderFrame>,
    .Build = BuildStyle<BubblesState, StyleSetup, RenderFrame>,
    .BackgroundControl = kBackground,
};

}  // namespace tess
