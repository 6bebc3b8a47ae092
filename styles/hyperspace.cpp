// Hyperspace: horizontal streaks fly across a solid background, each bright at its
// head and fading along a tail twenty times its thickness, in three layers of
// speed. The pixels are those of the final frame, without supersampling.
//
// The loop closes by position: each streak flies a whole number of tile widths,
// its steps added up in double precision, and wraps at the sides. Nothing wraps
// at top and bottom, where a thick streak loses its outer rows.
#include <algorithm>
#include <cmath>
#include <cstdint>

#include "controls/direction_picker.h"
#include "controls/spinner.h"
#include "pipeline/image_buffers.h"
#include "platform/block_guards.h"
#include "platform/dialog.h"
#include "runtime/random.h"
#include "styles/fill_colors.h"
#include "styles/style_run.h"
#include "styles/styles.h"
#include "toolkit/wrap_compositing.h"

namespace tess {

namespace {

enum Control : int {
    kBackground = 143,
    kOpacity = 145,
    kFrames = 147,
    kScroll = 149,
    kSeed = 151,
    kDensity = 153,
    kWidth = 155,
    kDepth = 157,
    kColor1 = 159,
    kColor2 = 161,
    kColor3 = 163,
    kColor4 = 165,
    kColor5 = 167,
    kEnable2 = 169,
    kEnable3 = 170,
    kEnable4 = 171,
    kEnable5 = 172,
};

using enum ParameterKind;

// clang-format off
StyleParameter parameters[] = {
    {"Style001Background",  kBackground, ColorButton, 0x000000},
    {"Style001Density",     kDensity,    Spinner,     18},
    {"Style001Depth",       kDepth,      Spinner,     256},
    {"Style001FillColor1",  kColor1,     ColorButton, 0xEAE3DB},
    {"Style001FillColor2",  kColor2,     ColorButton, 0xDDBC9B},
    {"Style001FillColor3",  kColor3,     ColorButton, 0xC08243},
    {"Style001FillColor4",  kColor4,     ColorButton, 0x95632C},
    {"Style001FillColor5",  kColor5,     ColorButton, 0x7E5429},
    {"Style001FillEnable2", kEnable2,    CheckBox,    1},
    {"Style001FillEnable3", kEnable3,    CheckBox,    1},
    {"Style001FillEnable4", kEnable4,    CheckBox,    1},
    {"Style001FillEnable5", kEnable5,    CheckBox,    1},
    {"Style001FillOpacity", kOpacity,    Spinner,     255},
    {"Style001Frames",      kFrames,     Spinner,     64},
    {"Style001Scroll",      kScroll,     Scroll2,     1},
    {"Style001Seed",        kSeed,       Spinner,     9864},
    {"Style001Width",       kWidth,      Spinner,     256},
};
// clang-format on

constexpr int kTailLengths = 20;  // of the streak's thickness

struct StreakRecord {
    double X, Y;           // the head; X changes from frame to frame
    double Step;           // columns a frame at Speed 1
    std::int32_t Size;     // rows of thickness: 4, 2 or 1
    std::int32_t Speed;    // tile widths a loop
    std::int32_t Opacity;  // of the head
    std::int32_t Reverse;  // flies right
    ColorWord Color;
};

/// One layer's share of the settings.
struct Layer {
    int count, size, speed, opacity;
};

struct HyperspaceState {
    platform::WorkArray<StreakRecord> Streaks;
    std::int32_t StreakCount;
    std::int32_t Width, Depth;
    std::int32_t BigSize, MidSize, SmallSize;
    std::int32_t FrameCount;
    FillColorList FillColors;
};

StreakRecord DrawStreakPlace(const HyperspaceState& state, const Layer& layer, int* last_color) {
    StreakRecord streak{};
    streak.X = runtime::rand() % (state.Width - layer.size) + layer.size / 2;
    streak.Y = runtime::rand() % state.Depth;
    runtime::SkipDraw();
    // The draw that would vary the thickness: with layers at most 4 thick, by nothing.
    streak.Size = layer.size - runtime::rand() % std::max(layer.size / 9, 1);
    streak.Color = state.FillColors.Colors[PickFillColor(state.FillColors.Count, last_color)];
    streak.Speed = layer.speed;
    streak.Opacity = layer.opacity;
    return streak;
}

bool StyleSetup(StyleContext& context, HyperspaceState& state) {
    const platform::WindowHandle dialog = context.Dialog;
    state.Width = GetSpinnerValue(dialog, kWidth);
    state.Depth = GetSpinnerValue(dialog, kDepth);
    state.FrameCount = GetSpinnerValue(dialog, kFrames);
    state.BigSize = 4;
    state.MidSize = 2;
    state.SmallSize = 1;
    const double step = static_cast<double>(state.Width) / state.FrameCount;
    const bool reverse = SelectedDirection(dialog, kScroll) != 0;
    const int opacity = GetSpinnerValue(dialog, kOpacity);
    const int density = GetSpinnerValue(dialog, kDensity);
    runtime::srand(static_cast<unsigned>(GetSpinnerValue(dialog, kSeed)));
    state.FillColors = ReadFillColors(dialog, {kColor1, kColor2, kColor3, kColor4, kColor5},
                                      {kEnable2, kEnable3, kEnable4, kEnable5});

    const Layer layers[] = {{density / 2, state.BigSize, 1, opacity},
                            {density * 3 / 4, state.MidSize, 2, opacity * 160 / 255},
                            {density, state.SmallSize, 4, opacity * 128 / 255}};
    for (const Layer& layer : layers)
        state.StreakCount += layer.count;
    state.Streaks = platform::WorkArray<StreakRecord>(static_cast<std::size_t>(state.StreakCount));
    if (!state.Streaks) return false;

    int last_color = -1;
    StreakRecord* next = state.Streaks.begin();
    for (const Layer& layer : layers) {
        for (int i = 0; i < layer.count; ++i) {
            *next = DrawStreakPlace(state, layer, &last_color);
            next->Step = step;
            next->Reverse = reverse ? 1 : 0;
            ++next;
        }
    }
    return true;
}

/// Blends `color` into one pixel; a place outside the picture is left out.
/// `strength` is cut to a byte.
void BlendPixel(PackedDib* picture, int x, int y, ColorWord color, double strength) {
    const int alpha = static_cast<int>(strength) & 255;
    const ColorWord under = GetDibPixel(picture, x, y);
    const auto blend = [alpha](int below, int above) {
        return below * (255 - alpha) / 255 + above * alpha / 255;
    };
    SetDibPixel(picture, x, y,
                MakeColor(blend(RedOf(under), RedOf(color)), blend(GreenOf(under), GreenOf(color)),
                          blend(BlueOf(under), BlueOf(color))));
}

/// Blends one column of a streak, `fade` being 1 at the head. The outer rows are
/// left out at the head, but for the second row of the thickest streaks: this
/// rounds the heads off, and is meant as it stands.
void BlendColumn(PackedDib* picture, const StreakRecord& streak, int x, double fade, bool is_head) {
    const int y = static_cast<int>(streak.Y) - streak.Size / 2;
    const double opacity = streak.Opacity;
    BlendPixel(picture, x, y, streak.Color, opacity * fade);
    if (streak.Size == 2) {
        BlendPixel(picture, x, y + 1, streak.Color, is_head ? 0.0 : opacity * 0.5 * fade);
    } else if (streak.Size == 4) {
        BlendPixel(picture, x, y + 1, streak.Color, opacity * 0.5 * fade);
        BlendPixel(picture, x, y + 2, streak.Color, is_head ? 0.0 : opacity * 0.25 * fade);
        BlendPixel(picture, x, y - 1, streak.Color, is_head ? 0.0 : opacity * 0.25 * fade);
    }
}

/// Moves the head on by one frame. It wraps once even where a move is longer than
/// the tile (2 or 3 frames): the head may then stand outside for a frame, and the
/// columns there are left out.
void MoveHead(StreakRecord& streak, int width) {
    const double move = streak.Speed * streak.Step;
    if (streak.Reverse != 0) {
        streak.X += move;
        if (streak.X >= width) streak.X -= width;
    } else {
        streak.X -= move;
        if (streak.X < 0) streak.X = width - std::fabs(streak.X);
    }
}

/// Draws the streak from its head back along its tail, and moves it on.
void DrawStreak(PackedDib* picture, StreakRecord& streak, int width) {
    const int length = streak.Size * kTailLengths;
    int x = static_cast<int>(streak.X);
    for (int i = 0; i < length; ++i) {
        const double fade = static_cast<double>(length - i) / length;
        BlendColumn(picture, streak, x, fade, i == 0);
        if (streak.Reverse != 0) {
            x = x - 1 < 0 ? width - 1 : x - 1;
        } else {
            x = x + 1 >= width ? 0 : x + 1;
        }
    }
    MoveHead(streak, width);
}

/// Frames must be rendered in order and each once: the streaks fly on.
ImageHandle RenderFrame(StyleContext& context, HyperspaceState& state, int) {
    const ColorWord background = platform::ControlNumber(context.Dialog, kBackground, false);
    platform::OwnedBlock frame(NewSolidImage({0, 0, state.Width, state.Depth}, background));
    {
        const LockedImage picture(frame.Get());
        if (!picture) return nullptr;
        for (StreakRecord& streak : state.Streaks)
            DrawStreak(picture, streak, state.Width);
    }
    return frame.Release();
}

}  // namespace

const StyleEntry HyperspaceStyle = {
    .Name = "Hyperspace",
    .ConfigurationName = "Style001",
    .PanelTemplate = 7401,
    .Parameters = parameters,
    .Test = TestStyle<HyperspaceState, StyleSetup, RenderFrame>,
    .Build = BuildStyle<HyperspaceState, StyleSetup, RenderFrame>,
    .BackgroundControl = kBackground,
};

}  // namespace tess
