// White Noise: television static, wide blocks of random shade between a light and a
// dark colour, with a soft bright band that rolls down the picture and, by choice,
// a random delay on each frame.
//
// The band closes its loop by position. The noise does not repeat: each frame's is
// fresh, from one sequence that runs through all frames, delays included.
#include <algorithm>
#include <cstdint>
#include <cstring>
#include <numbers>

#include "controls/spinner.h"
#include "pipeline/image_buffers.h"
#include "platform/block_guards.h"
#include "platform/dialog.h"
#include "runtime/mathematics.h"
#include "runtime/random.h"
#include "styles/style_run.h"
#include "styles/styles.h"

namespace tess {

namespace {

enum Control : int {
    kFrames = 376,
    kWidth = 378,
    kDepth = 380,
    kSeed = 382,
    kInterference = 384,
    kSize = 386,
    kLightFill = 388,
    kDarkFill = 390,
    kRandomDelay = 392,
};

using enum ParameterKind;

// clang-format off
StyleParameter parameters[] = {
    {"Style009DarkFill",     kDarkFill,     ColorButton, 0x5F503D},
    {"Style009Depth",        kDepth,        Spinner,     192},
    {"Style009Frames",       kFrames,       Spinner,     64},
    {"Style009Interference", kInterference, Spinner,     80},
    {"Style009LightFill",    kLightFill,    ColorButton, 0xC4B6AA},
    {"Style009RandomDelay",  kRandomDelay,  CheckBox,    1},
    {"Style009Seed",         kSeed,         Spinner,     11234},
    {"Style009Size",         kSize,         Spinner,     3},
    {"Style009Width",        kWidth,        Spinner,     128},
};
// clang-format on

struct WhiteNoiseState {
    std::int32_t Width, Depth;  // multiples of PixelSize
    std::int32_t FrameCount;
    std::int32_t PixelSize;
    ColorWord LightFill, DarkFill;
    double Phase;  // of the loop, 0 up to 1
};

using InterferenceTable = platform::WorkArray<std::int32_t>;

int NextMultiple(int value, int step) {
    while (value % step != 0)
        ++value;
    return value;
}

bool StyleSetup(StyleContext& context, WhiteNoiseState& state) {
    const platform::WindowHandle dialog = context.Dialog;
    runtime::srand(static_cast<unsigned>(GetSpinnerValue(dialog, kSeed)));
    state.PixelSize = GetSpinnerValue(dialog, kSize);
    state.Width = NextMultiple(GetSpinnerValue(dialog, kWidth), state.PixelSize);
    state.Depth = NextMultiple(GetSpinnerValue(dialog, kDepth), state.PixelSize);
    state.FrameCount = GetSpinnerValue(dialog, kFrames);
    state.LightFill = platform::ControlNumber(dialog, kLightFill, false);
    state.DarkFill = platform::ControlNumber(dialog, kDarkFill, false);
    return true;
}

/// A picture of 8 bits whose index is its grey level, all black.
ImageHandle NewGreyImage(int width, int height) {
    std::uint8_t palette[kPaletteBytes];
    for (int i = 0; i < kPaletteBytes; ++i)
        palette[i] = static_cast<std::uint8_t>(i / 3);
    return NewPackedDib(width, height, palette, 8);
}

double DrawUnit() {
    return (runtime::rand() & 0x7FFF) / 32767.0;
}

/// A Poisson count by D. Knuth's method (The Art of Computer Programming, 3.4.1),
/// as a shade: a multiple of 20 up to 240, or 255. `threshold` is exp(-mean). The
/// number of draws varies, so all later frames hang on each shade.
int PoissonShade(double threshold) {
    double product = DrawUnit();
    if (product == 0.0) product = 1.0;
    int count = 0;
    while (product > threshold) {
        product *= DrawUnit();
        ++count;
    }
    const double shade = count / 0.05;
    return shade > 255.0 ? 255 : static_cast<int>(shade + 0.5);
}

/// Adds noise to every pixel of an 8-bit picture, from the bottom row up.
void AddNoise(PackedDib* image) {
    constexpr double kMean = 6.4;
    const double threshold = runtime::Exponential(-kMean);
    for (int y = image->Height - 1; y >= 0; --y) {
        std::uint8_t* pixel = DibRow(image, y);
        for (int x = 0; x < image->Width; ++x, ++pixel) {
            const int noisy = *pixel + PoissonShade(threshold) - 64;
            *pixel = static_cast<std::uint8_t>(std::clamp(noisy, 0, 255));
        }
    }
}

/// Spreads the levels. The divisor is what the highest level leaves of 255, not
/// that level, and what overflows a byte wraps: this makes the look, and is meant
/// as it stands. Levels are at most 191, so the divisor is at least 64.
void StretchLevels(PackedDib* image) {
    int lowest = 255;
    int highest = 0;
    for (int y = 0; y < image->Height; ++y) {
        const std::uint8_t* row = DibRow(image, y);
        const auto [low, high] = std::minmax_element(row, row + image->Width);
        lowest = std::min<int>(lowest, *low);
        highest = std::max<int>(highest, *high);
    }
    const int divisor = 255 - (highest - lowest);
    std::uint8_t stretched[256]{};
    for (int level = lowest; level <= highest; ++level) {
        stretched[level] = static_cast<std::uint8_t>((level - lowest) * 255 / divisor);
    }
    for (int y = 0; y < image->Height; ++y) {
        std::uint8_t* row = DibRow(image, y);
        for (int x = 0; x < image->Width; ++x)
            row[x] = stretched[row[x]];
    }
}

/// Fills the table with half a sine hump of `height` over the picture's rows,
/// starting at the row that the phase has reached.
void RaiseBand(const WhiteNoiseState& state, int height, InterferenceTable& table) {
    int row = static_cast<int>(state.Depth * state.Phase);
    for (int i = 0; i < state.Depth; ++i) {
        if (row >= state.Depth) row = 0;
        const double angle =
            static_cast<double>(i) / state.Depth * 180.0 * std::numbers::pi / 180.0;
        table[static_cast<std::size_t>(row)] =
            static_cast<std::int32_t>(runtime::Sine(angle) * height);
        ++row;
    }
}

ColorWord MixFills(const WhiteNoiseState& state, int shade) {
    const auto mix = [shade](int light, int dark) {
        return light * shade / 255 + dark * (255 - shade) / 255;
    };
    return MakeColor(mix(RedOf(state.LightFill), RedOf(state.DarkFill)),
                     mix(GreenOf(state.LightFill), GreenOf(state.DarkFill)),
                     mix(BlueOf(state.LightFill), BlueOf(state.DarkFill)));
}

/// Paints the frame in blocks one and a half times as wide as tall, each in the
/// shade at its top left; the last of a row is cut off by the edge.
void PaintBlocks(const WhiteNoiseState& state, const PackedDib* noise,
                 const InterferenceTable& table, PackedDib* frame) {
    const int block = std::max(state.PixelSize * 3 / 2, 2);
    for (int y = 0; y < state.Depth; y += state.PixelSize) {
        for (int x = 0; x < state.Width; x += block) {
            const int level = static_cast<int>(GetDibPixel(noise, x, y) & 255);
            const ColorWord color =
                MixFills(state, std::min(level + table[static_cast<std::size_t>(y)], 255));
            for (int i = x; i < x + block; ++i)
                SetDibPixel(frame, i, y, color);
        }
        for (int j = y + 1; j < y + state.PixelSize; ++j) {
            std::memcpy(DibRow(frame, j), DibRow(frame, y),
                        static_cast<std::size_t>(Stride(state.Width, 24)));
        }
    }
}

/// Frames must be rendered in order and each once: the noise runs on.
ImageHandle RenderFrame(StyleContext& context, WhiteNoiseState& state, int index) {
    state.Phase = static_cast<double>(index) / state.FrameCount;
    constexpr int kSpareRows = 16;
    const platform::OwnedBlock grey(NewGreyImage(state.Width, state.Depth));
    InterferenceTable table(static_cast<std::size_t>(state.Depth + kSpareRows));
    platform::OwnedBlock frame(NewPackedDib(state.Width, state.Depth, nullptr, 24));
    {
        const LockedImage noise(grey.Get());
        const LockedImage picture(frame.Get());
        if (!noise || !table || !picture) return nullptr;
        AddNoise(noise);
        StretchLevels(noise);
        const int interference = GetSpinnerValue(context.Dialog, kInterference);
        if (interference > 0) RaiseBand(state, interference, table);
        PaintBlocks(state, noise, table, picture);
    }
    return frame.Release();
}

/// The delay of the frame just rendered. Its draws shift the next frame's noise.
std::uint32_t FrameDelay(const StyleContext& context, std::uint32_t delay) {
    if (!platform::IsChecked(context.Dialog, kRandomDelay)) return delay;
    const int limit = static_cast<int>(std::max<std::uint32_t>(delay, 1));
    const int first = runtime::rand() % limit;
    return static_cast<std::uint32_t>(first >= 1 ? runtime::rand() % limit : 1);
}

}  // namespace

const StyleEntry WhiteNoiseStyle = {
    .Name = "White Noise",
    .ConfigurationName = "Style009",
    .PanelTemplate = 7409,
    .Parameters = parameters,
    .Test = TestStyle<WhiteNoiseState, StyleSetup, RenderFrame>,
    .Build = BuildStyle<WhiteNoiseState, StyleSetup, RenderFrame, StateFrames<WhiteNoiseState>,
                        StateFrames<WhiteNoiseState>, FrameDelay>,
    .BackgroundControl = kDarkFill,
};

}  // namespace tess
