// Atmosphere: fractal clouds in the colours of a fountain, which flow through the
// clouds without end. Nothing in the picture moves.
//
// One field of heights is made by spectral synthesis (D. Saupe, in "The Science of
// Fractal Images", 1988): random Fourier coefficients, falling off with a power of
// the frequency, and their inverse transform. Such a field is periodic, so it needs
// no mirroring. The loop closes because the ring of colours turns once.
#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>

#include "controls/spinner.h"
#include "pipeline/image_buffers.h"
#include "platform/block_guards.h"
#include "runtime/mathematics.h"
#include "runtime/random.h"
#include "styles/color_ring.h"
#include "styles/style_run.h"
#include "styles/styles.h"
#include "toolkit/inverse_fourier.h"

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

using Spectrum = platform::WorkArray<ComplexNumber>;
using Samples = platform::WorkArray<std::uint8_t>;

double DrawPhase() {
    constexpr double kTwoPi = 2 * 3.141592653589793;
    return (runtime::rand() & 0x7FFF) * kTwoPi / 32767.0;
}

/// About normally distributed: a sum of four draws.
double DrawDeviate() {
    const double spread = std::sqrt(12.0);
    const double factor = 2 * spread / (32767.0 * 4);
    int sum = 0;
    for (int i = 0; i < 4; ++i)
        sum += runtime::rand();
    return factor * sum - spread;
}

/// Draws the coefficients of a spectrum.
class CoefficientSource {
public:
    explicit CoefficientSource(double exponent) : power_(-(exponent + 1) / 2) {}

    /// That of frequency (i, j). The mean of the field, at (0, 0), has a phase and no
    /// deviate.
    [[nodiscard]] ComplexNumber Draw(int i, int j) const {
        const double phase = DrawPhase();
        double amplitude = 0.0;
        if (i != 0 || j != 0) {
            const double deviate = DrawDeviate();
            amplitude = runtime::Power(i * i + j * j, power_) * deviate;
        }
        return {static_cast<float>(amplitude * runtime::Cosine(phase)),
                static_cast<float>(amplitude * runtime::Sine(phase))};
    }

private:
    double power_;
};

ComplexNumber Conjugate(const ComplexNumber& number) {
    return {number.Real, -number.Imaginary};
}

/// Returns size x size numbers, whose real parts are the field; false without
/// memory. The spectrum is its own mirrored conjugate, so the rest is rounding.
Spectrum SpectralSynthesis(int size, double exponent) {
    Spectrum spectrum(static_cast<std::size_t>(size) * static_cast<std::size_t>(size));
    if (!spectrum) return spectrum;
    const auto at = [&spectrum, size](int i, int j) -> ComplexNumber& {
        return spectrum[static_cast<std::size_t>(i) * static_cast<std::size_t>(size) +
                        static_cast<std::size_t>(j)];
    };
    const CoefficientSource source(exponent);
    const int half = size / 2;
    for (int i = 0; i <= half; ++i) {
        for (int j = 0; j <= half; ++j) {
            const ComplexNumber number = source.Draw(i, j);
            at(i, j) = number;
            at(i == 0 ? 0 : size - i, j == 0 ? 0 : size - j) = Conjugate(number);
        }
    }
    at(half, 0).Imaginary = 0.0F;
    at(0, half).Imaginary = 0.0F;
    at(half, half).Imaginary = 0.0F;
    for (int i = 1; i < half; ++i) {
        for (int j = 1; j < half; ++j) {
            const ComplexNumber number = source.Draw(i, j);
            at(i, size - j) = number;
            at(size - i, j) = Conjugate(number);
        }
    }
    InverseFourier2D(spectrum.data(), size);
    return spectrum;
}

/// Lifts the positive heights to a power.
void ApplyPower(Spectrum& field, double power) {
    if (power == 1.0) return;
    for (ComplexNumber& number : field) {
        if (number.Real > 0.0F) {
            number.Real = static_cast<float>(runtime::Power(double{number.Real}, power));
        }
    }
}

/// Scales the field to -1 to 1 and that to bytes. The last byte is there twice,
/// since the resampling reads one beyond. False without memory.
Samples MakeSamples(Spectrum& field) {
    Samples samples(field.size() + 1);
    if (!samples) return samples;
    const auto [lowest, highest] = std::minmax_element(
        field.begin(), field.end(), [](const auto& a, const auto& b) { return a.Real < b.Real; });
    const double low = lowest->Real, high = highest->Real;
    const double middle = (low + high) * 0.5, reach = (high - low) * 0.5;
    for (std::size_t i = 0; i < field.size(); ++i) {
        // A field without any height has nothing to scale by.
        const auto height =
            reach == 0.0 ? 0.0F : static_cast<float>((field[i].Real - middle) / reach);
        samples[i] = static_cast<std::uint8_t>((height + 1.0) * 255.0 * 0.5);
    }
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
    Spectrum field = SpectralSynthesis(state.MeshSize, 3.0 - state.Dimension);
    if (!field) return nullptr;
    ApplyPower(field, state.Power);
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

int FrameCount(const StyleContext&, const AtmosphereState& state) {
    return state.FrameCount;
}

}  // namespace

const StyleEntry AtmosphereStyle = {
    .Name = "Atmosphere",
    .ConfigurationName = "Style011",
    .PanelTemplate = 7411,
    .Parameters = parameters,
    .Test = TestStyle<AtmosphereState, StyleSetup, RenderFrame>,
    .Build = BuildStyle<AtmosphereState, StyleSetup, RenderFrame, FrameCount>,
    .BackgroundControl = 0,
};

}  // namespace tess
