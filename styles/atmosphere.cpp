// Atmosphere: fractal clouds in the colours of a fountain, which flow through the
// clouds without end. Nothing in the picture moves.
//
// One field of heights is made by spectral synthesis. Such a field is periodic, so it
// needs no mirroring. The loop closes because the ring of colours turns once.
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <numbers>

#include "controls/spinner.h"
#include "pipeline/image_buffers.h"
#include "platform/block_guards.h"
#include "runtime/random.h"
#include "styles/color_ring.h"
#include "styles/style_run.h"
#include "styles/styles.h"
#include "toolkit/spectral_synthesis.h"

namespace tess {

namespace {

enum Control : int {
    kFrames = 445,
    kSize = 447,
    kSeed = 449,
    kFountain = 451,
    kDensity = 453,
    kMesh = 455,
    kElevation = 457,
};

using enum ParameterKind;

// clang-format off
StyleParameter parameters[] = {
    {"Style011Density",   kDensity,   Spinner,  32},
    {"Style011Elevation", kElevation, Spinner,  10},
    {"Style011Frames",    kFrames,    Spinner,  64},
    {"Style011Mesh",      kMesh,      Spinner,  8},
    {"Style011Seed",      kSeed,      Spinner,  9872},
    {"Style011Size",      kSize,      Spinner,  192},
    {nullptr,             kFountain,  Fountain, 0, "FountainButtonLooped"},
};
// clang-format on

struct AtmosphereState {
    std::int32_t TileWidth, TileHeight;
    std::int32_t FrameCount;
    double Dimension;
    double Power;
    std::int32_t MeshSize;  // 16 to 512
    std::int32_t Mesh, Seed;
    platform::OwnedBlock HeightField;  // grey
};

using Samples = platform::WorkArray<std::uint8_t>;

double PhaseOfDraw(int draw) {
    constexpr double kTwoPi = 2 * std::numbers::pi;
    return draw * kTwoPi / 32767.0;
}

/// Scales the field to bytes. The last byte is there twice, since the resampling
/// reads one beyond. False without memory.
Samples MakeSamples(Spectrum& field) {
    Samples samples(field.size() + 1);
    if (!samples) return samples;
    ScaleHeights(field);
    for (std::size_t i = 0; i < field.size(); ++i)
        samples[i] = static_cast<std::uint8_t>((field[i].Real + 1.0) * 255.0 * 0.5);
    samples[field.size()] = samples[field.size() - 1];
    return samples;
}

/// A pixel's place among the samples of a line.
struct SamplePlace {
    std::size_t index;
    double fraction;

    SamplePlace(int pixel, int pixels, int samples) {
        const double place = static_cast<double>(pixel) / (pixels - 1) * (samples - 1);
        index = static_cast<std::size_t>(place);
        fraction = place - static_cast<double>(index);
    }
};

/// The mean of the four samples round a place. Those beyond the last row have no
/// weight and count 0.
int Resample(const Samples& samples, std::size_t size, const SamplePlace& column,
             const SamplePlace& row) {
    const auto sample = [&samples](std::size_t index) {
        return index < samples.size() ? static_cast<double>(samples.begin()[index]) : 0.0;
    };
    const std::size_t upper = size * row.index + column.index, lower = upper + size;
    const double fx = column.fraction, fy = row.fraction;
    return static_cast<int>(sample(upper) * (1 - fx) * (1 - fy) + sample(lower) * (1 - fx) * fy +
                            sample(lower + 1) * fx * fy + sample(upper + 1) * fx * (1 - fy));
}

ImageHandle MakeCloudField(int width, int height, const AtmosphereState& state) {
    runtime::srand(static_cast<unsigned>(state.Seed));
    Spectrum field = SpectralSynthesis(state.MeshSize, 3.0 - state.Dimension, PhaseOfDraw);
    if (!field) return nullptr;
    LiftHeights(field, state.Power);
    const Samples samples = MakeSamples(field);
    platform::OwnedBlock picture(NewPackedDib(width, height, nullptr, 24));
    const LockedImage image(picture.Get());
    if (!samples || !image) return nullptr;
    for (int y = 0; y < height; ++y) {
        const SamplePlace row(y, height, state.MeshSize);
        std::uint8_t* pixel = DibRow(image, y);
        for (int x = 0; x < width; ++x, pixel += 3) {
            const SamplePlace column(x, width, state.MeshSize);
            std::memset(
                pixel, Resample(samples, static_cast<std::size_t>(state.MeshSize), column, row), 3);
        }
    }
    return picture.Release();
}

bool StyleSetup(StyleContext& context, AtmosphereState& state) {
    const platform::WindowHandle dialog = context.Dialog;
    state.FrameCount = GetSpinnerValue(dialog, kFrames);
    state.Dimension = GetSpinnerValue(dialog, kDensity) / 10.0;
    state.Mesh = GetSpinnerValue(dialog, kMesh);
    state.MeshSize = 1 << state.Mesh;
    state.Seed = GetSpinnerValue(dialog, kSeed);
    state.TileWidth = state.TileHeight = GetSpinnerValue(dialog, kSize);
    state.Power = GetSpinnerValue(dialog, kElevation) / 10.0;
    state.HeightField.Reset(MakeCloudField(state.TileWidth, state.TileHeight, state));
    return static_cast<bool>(state.HeightField);
}

ImageHandle RenderFrame(StyleContext& context, AtmosphereState& state, int frame) {
    const ColorRing ring{kFountain, state.HeightField.Get(), state.TileWidth, state.TileHeight};
    return RenderColorRing(context.Dialog, ring, static_cast<double>(frame) / state.FrameCount);
}

}  // namespace

const StyleEntry AtmosphereStyle = {
    .Name = "Atmosphere",
    .ConfigurationName = "Style011",
    .PanelTemplate = 7411,
    .Parameters = parameters,
    .Test = TestStyle<AtmosphereState, StyleSetup, RenderFrame>,
    .Build = BuildStyle<AtmosphereState, StyleSetup, RenderFrame>,
    .BackgroundControl = 0,
};

}  // namespace tess
