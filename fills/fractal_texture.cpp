// Clouds: one to four layers of a colour each over a background. A layer is a periodic
// random field, scaled to -1 to 1 and reduced to bytes; it is clear where the field is
// below its middle, and from there on as solid as the field is high.
//
// The field's rows and columns are stretched over the picture, its last ones on the
// picture's last ones, which makes the first and the last of them neighbours. Columns
// are always as many as rows or more, and of an even number; those beyond the
// picture's right edge are not drawn.
#include <algorithm>
#include <bit>
#include <cmath>
#include <cstddef>
#include <numbers>

#include "fills/texture_picture.h"
#include "toolkit/gaussian_draws.h"
#include "toolkit/spectral_synthesis.h"

namespace tess {

namespace {

constexpr int kLeastSamples = 32, kMostSamples = 1024;

double PhaseOfDraw(int draw) {
    constexpr double kTwoPi = 2 * std::numbers::pi;
    return kTwoPi * (draw / kLargestDraw);
}

/// The transform's size for a record's matrix size: that or the next power of two, 2 at
/// least. 0 beyond what anybody can mean: only a damaged record asks for more than the
/// dialog's 1024, and each doubling takes four times the time and memory, up to many
/// gigabytes, until past the last power of two it would never end.
int MeshOf(int matrix_size) {
    constexpr int kLargestMesh = 4096;
    if (matrix_size == 1) return 1;
    if (matrix_size > kLargestMesh) return 0;
    return static_cast<int>(std::bit_ceil(static_cast<unsigned>(std::max(matrix_size, 2))));
}

/// What a field is on: how many of its samples to a side, and on how many columns and
/// rows of pixels.
struct Sampling {
    int samples;
    int columns, rows;
};

/// A pixel's place between two samples of a line.
struct SamplePlace {
    std::size_t index;
    double part;  // of the way to the next sample
};
SamplePlace PlaceOf(int pixel, int pixels, int samples) {
    // A line of one pixel is the field's first: there is nothing to stretch.
    if (pixels == 1) return {0, 0.0};
    const double place = pixel / (pixels - 1.0) * (samples - 1);
    const double whole = std::floor(place);
    return {static_cast<std::size_t>(whole), place - whole};
}

/// The field as bytes, with one more row and column than its samples. Those, like the
/// places beyond a field that is smaller than the samples, are 0.
class Cells {
public:
    Cells(const Spectrum& field, int mesh, int samples)
        : stride_(static_cast<std::size_t>(samples) + 1), bytes_(stride_ * stride_) {
        if (!bytes_) return;
        const int filled = std::min(mesh, samples);
        for (int i = 0; i < filled; ++i) {
            const ComplexNumber* source = field.data() + std::ptrdiff_t{i} * mesh;
            std::uint8_t* row = bytes_.data() + static_cast<std::size_t>(i) * stride_;
            for (int j = 0; j < filled; ++j) {
                const double value = (source[j].Real + 1.0) * 255.0 * 0.5;
                // Amplitudes beyond single precision leave no numbers in the field.
                row[j] = value >= 0.0 && value < 256.0 ? static_cast<std::uint8_t>(value) : 0;
            }
        }
    }

    explicit operator bool() const { return static_cast<bool>(bytes_); }
    [[nodiscard]] const std::uint8_t* Row(std::size_t i) const {
        return bytes_.data() + i * stride_;
    }

private:
    std::size_t stride_;
    platform::WorkArray<std::uint8_t> bytes_;
};

/// Half the field's range is clear, the other half runs from clear to solid.
int OpacityOf(double value) {
    constexpr double kMiddle = 127.0;
    return value > kMiddle ? static_cast<int>((value - kMiddle) * 0.0078125 * 255.0) : 0;
}

/// Lays a field over the picture as a colour. Returns false without memory.
bool BlendCloudLayer(PackedDib* image, const Spectrum& field, int mesh, const Sampling& sampling,
                     ColorWord color) {
    const Cells cells(field, mesh, sampling.samples);
    const int width = image->Width;
    platform::WorkArray<SamplePlace> columns(static_cast<std::size_t>(width));
    if (!cells || !columns) return false;
    for (int x = 0; x < width; ++x) {
        columns[static_cast<std::size_t>(x)] = PlaceOf(x, sampling.columns, sampling.samples);
    }
    for (int y = 0; y < sampling.rows; ++y) {
        const SamplePlace row = PlaceOf(y, sampling.rows, sampling.samples);
        const std::uint8_t* upper = cells.Row(row.index);
        const std::uint8_t* lower = cells.Row(row.index + 1);
        const double t = row.part;
        std::uint8_t* pixel = DibRow(image, y);
        for (const SamplePlace& column : columns) {
            const std::size_t left = column.index, right = left + 1;
            const double u = column.part;
            const double value = upper[left] * (1 - u) * (1 - t) + lower[left] * (1 - u) * t +
                                 lower[right] * u * t + upper[right] * u * (1 - t);
            const int opacity = OpacityOf(value);
            LayColorOver(pixel, color, opacity);
            pixel += 3;
        }
    }
    return true;
}

/// Returns false without memory.
bool FractalLayer(PackedDib* image, const TextureItem& item, int layer, int mesh,
                  const Sampling& sampling) {
    SeedGaussian(item.SeedValue[layer]);
    Spectrum field = SpectralSynthesis(mesh, 3.0 - double{item.Dimension[layer]}, PhaseOfDraw);
    if (!field) return false;
    LiftHeights(field, double{item.Power[layer]});
    ScaleHeights(field);
    return BlendCloudLayer(image, field, mesh, sampling, item.ForeColour[layer]);
}

}  // namespace

ImageHandle RenderFractalTexture(const TextureItem& item) {
    const TextureKindEntry* kind = FindTextureKind(item.TextureType);
    if (kind == nullptr) return nullptr;
    const TextureSize size = TargetSize(item);
    platform::OwnedBlock picture(NewFilledPicture(size, item.BackColour));
    const LockedImage image(picture.Get());
    const int mesh = MeshOf(item.MatrixSize);
    if (!image || mesh == 0) return nullptr;
    const Sampling sampling{std::clamp(mesh, kLeastSamples, kMostSamples),
                            (std::max(size.Width, size.Height) + 1) & ~1, size.Height};
    for (int layer = 0; layer < kind->Layers; ++layer) {
        if (!FractalLayer(image, item, layer, mesh, sampling)) return nullptr;
    }
    return picture.Release();
}

}  // namespace tess
