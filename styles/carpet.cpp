// Carpet: smooth, cloudy contours in the colours of a fountain, which run through
// the contours without end. Nothing in the picture moves.
//
// One field of heights is made of layers of gradient noise, each twice as fine as
// the one before. Noise does not join itself, so the field is set among its mirror
// images and halved. The loop closes because the ring of colours turns once.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>

#include "controls/spinner.h"
#include "pipeline/image_buffers.h"
#include "platform/block_guards.h"
#include "runtime/random.h"
#include "styles/color_ring.h"
#include "styles/gradient_noise.h"
#include "styles/height_field.h"
#include "styles/style_run.h"
#include "styles/styles.h"

namespace tess {

namespace {

enum Control : int {
    kFrames = 490,
    kSize = 492,
    kSeed = 494,
    kFountain = 496,
    kScale = 498,
    kLayers = 500,
};

using enum ParameterKind;

// clang-format off
StyleParameter parameters[] = {
    {"Style013Frames", kFrames,   Spinner,  64},
    {"Style013Layers", kLayers,   Spinner,  2},
    {"Style013Scale",  kScale,    Spinner,  60},
    {"Style013Seed",   kSeed,     Spinner,  10356},
    {"Style013Size",   kSize,     Spinner,  128},
    {nullptr,          kFountain, Fountain, 0, "FountainButtonLooped"},
};
// clang-format on

constexpr int kMostLayers = 8;
constexpr double kDepthDivisor = 8.0;

struct CarpetState {
    std::int32_t TileWidth, TileHeight;
    std::int32_t FrameCount;
    std::int32_t Layers, Scale, Seed;
    double NoiseScale;
    platform::OwnedBlock HeightField;  // the low byte of a pixel is its height
};

/// A table of the layer's own is drawn and never read; its draws count.
void SkipUnusedTable() {
    constexpr int kDraws = 256 * 3 + 256;
    for (int i = 0; i < kDraws; ++i)
        runtime::SkipDraw();
}

/// Returns a grey picture. Negative noise is 0.
ImageHandle MakeNoiseLayer(int width, int height, const CarpetState& state, int frequency) {
    SkipUnusedTable();
    NoiseTables tables;
    FillNoiseTables(&tables);
    platform::OwnedBlock layer(NewPackedDib(width, height, nullptr, 24));
    const LockedImage image(layer.Get());
    if (!image) return nullptr;
    const auto side = static_cast<float>(std::max(width, height));
    const auto scale = static_cast<float>(frequency * state.NoiseScale);
    const auto depth = static_cast<float>(1.0 / kDepthDivisor);
    for (int y = 0; y < height; ++y) {
        const float row = static_cast<float>(y) / side * scale;
        std::uint8_t* pixel = DibRow(image, y);
        for (int x = 0; x < width; ++x, pixel += 3) {
            const float noise =
                PerlinNoise3(tables, static_cast<float>(x) / side * scale, row, depth);
            const int grey = std::clamp(static_cast<int>(double{noise} * 255.0), 0, 255);
            std::memset(pixel, grey, 3);
        }
    }
    return layer.Release();
}

/// Adds the low bytes of `layer` to `sums`.
void AddHeights(const PackedDib* layer, platform::WorkArray<std::uint16_t>& sums) {
    std::uint16_t* sum = sums.begin();
    for (int y = 0; y < layer->Height; ++y) {
        const std::uint8_t* height = DibRow(layer, y) + kLowByte;
        for (int x = 0; x < layer->Width; ++x, height += 3, ++sum)
            *sum = static_cast<std::uint16_t>(*sum + *height);
    }
}

/// An eighth of each sum, whatever the number of layers, in red alone.
ImageHandle MakePictureOfSums(int width, int height,
                              const platform::WorkArray<std::uint16_t>& sums) {
    platform::OwnedBlock picture(NewPackedDib(width, height, nullptr, 24));
    const LockedImage image(picture.Get());
    if (!image) return nullptr;
    const std::uint16_t* sum = sums.begin();
    for (int y = 0; y < height; ++y) {
        std::uint8_t* pixel = DibRow(image, y) + kLowByte;
        for (int x = 0; x < width; ++x, pixel += 3, ++sum)
            *pixel = static_cast<std::uint8_t>(std::clamp(*sum / 8, 0, 255));
    }
    return picture.Release();
}

ImageHandle MakeLayeredNoise(const CarpetState& state) {
    const int width = state.TileWidth, height = state.TileHeight;
    runtime::srand(static_cast<unsigned>(state.Seed));
    const int layers = std::clamp(state.Layers, 1, kMostLayers);
    if (layers == 1) return MakeNoiseLayer(width, height, state, 1);
    platform::WorkArray<std::uint16_t> sums(static_cast<std::size_t>(width) *
                                            static_cast<std::size_t>(height));
    if (!sums) return nullptr;
    for (int i = 0; i < layers; ++i) {
        const platform::OwnedBlock layer(MakeNoiseLayer(width, height, state, 1 << i));
        const LockedImage image(layer.Get());
        if (!image) return nullptr;
        AddHeights(image, sums);
    }
    return MakePictureOfSums(width, height, sums);
}

bool StyleSetup(StyleContext& context, CarpetState& state) {
    const platform::WindowHandle dialog = context.Dialog;
    state.FrameCount = GetSpinnerValue(dialog, kFrames);
    state.Layers = GetSpinnerValue(dialog, kLayers);
    state.Seed = GetSpinnerValue(dialog, kSeed);
    state.TileWidth = state.TileHeight = GetSpinnerValue(dialog, kSize);
    state.Scale = GetSpinnerValue(dialog, kScale);
    state.NoiseScale = state.Scale / 10.0;
    state.HeightField.Reset(MakeLayeredNoise(state));
    if (!state.HeightField || !NormalizeHeights(state.HeightField.Get())) return false;
    state.HeightField.Reset(MirrorTile(state.HeightField.Get()));
    return static_cast<bool>(state.HeightField);
}

ImageHandle RenderFrame(StyleContext& context, CarpetState& state, int frame) {
    const ColorRing ring{kFountain, state.HeightField.Get(), state.TileWidth, state.TileHeight};
    return RenderColorRing(context.Dialog, ring, static_cast<double>(frame) / state.FrameCount);
}

}  // namespace

const StyleEntry CarpetStyle = {
    .Name = "Carpet",
    .ConfigurationName = "Style013",
    .PanelTemplate = 7413,
    .Parameters = parameters,
    .Test = TestStyle<CarpetState, StyleSetup, RenderFrame>,
    .Build = BuildStyle<CarpetState, StyleSetup, RenderFrame>,
    .BackgroundControl = 0,
};

}  // namespace tess
