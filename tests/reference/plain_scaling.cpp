#include "tests/reference/plain_scaling.h"

#include <algorithm>
#include <cmath>

#include "runtime/mathematics.h"

namespace tess::reference {

namespace {

using Kernel = double (*)(double);

double Sinc(double x) {
    constexpr double kPi = 3.14159265358979323846;
    return x == 0.0 ? 1.0 : runtime::Sine(kPi * x) / (kPi * x);
}

double Lanczos(double x) {
    return std::fabs(x) > 3.0 ? 0.0 : Sinc(x) * Sinc(x / 3.0);
}

double Mitchell(double x) {
    constexpr double kB = 1.0 / 3.0;
    constexpr double kC = 1.0 / 3.0;
    x = std::fabs(x);
    if (x < 1.0) {
        return ((12.0 - 9.0 * kB - 6.0 * kC) * x * x * x + (-18.0 + 12.0 * kB + 6.0 * kC) * x * x +
                (6.0 - 2.0 * kB)) /
               6.0;
    }
    if (x < 2.0) {
        return ((-kB - 6.0 * kC) * x * x * x + (6.0 * kB + 30.0 * kC) * x * x +
                (-12.0 * kB - 48.0 * kC) * x + (8.0 * kB + 24.0 * kC)) /
               6.0;
    }
    return 0.0;
}

struct Contribution {
    double weight;
    int position;
};

struct Pass {
    Kernel kernel;
    double support;
    double factor;
    double blur;
    Contribution* contributions;
};

/// Works out one target line's contributions. Returns how many there are.
int Contribute(const Pass& pass, int target, int source_size) {
    double scale = std::max(1.0 / pass.factor, 1.0) * pass.blur;
    double radius = scale * pass.support;
    if (!(radius > 0.5)) {
        scale = 1.0;
        radius = 0.500001;
    }
    const double center = (target + 0.5) / pass.factor;
    const int start = static_cast<int>(std::max(center - radius + 0.5, 0.0));
    const int stop =
        static_cast<int>(std::min(center + radius + 0.5, static_cast<double>(source_size)));
    double density = 0.0;
    int count = 0;
    for (int c = start; c < stop; ++c) {
        const double weight = pass.kernel((c - center + 0.5) / scale);
        pass.contributions[count++] = {weight, c};
        density += weight;
    }
    if (density != 0.0 && density != 1.0) {
        const double share = 1.0 / density;
        for (int k = 0; k < count; ++k)
            pass.contributions[k].weight *= share;
    }
    return count;
}

std::uint32_t Rounded(double level) {
    if (level < 0.0) return 0;
    if (level > 255.0) return 255;
    return static_cast<std::uint32_t>(level + 0.5);
}

/// The weighted sum for (x, y), along a row or a column of the source.
std::uint32_t WeightedPixel(const PackedDib* source, const Pass& pass, int count, int fixed,
                            bool along_row) {
    double sums[4] = {0.0, 0.0, 0.0, 0.0};
    const int channels = source->BitCount / 8;
    for (int k = 0; k < count; ++k) {
        const Contribution& share = pass.contributions[k];
        const std::uint32_t pixel = along_row ? GetDibPixel(source, share.position, fixed)
                                              : GetDibPixel(source, fixed, share.position);
        for (int channel = 0; channel < channels; ++channel) {
            sums[channel] += share.weight * ((pixel >> (8 * channel)) & 255);
        }
    }
    std::uint32_t value = 0;
    for (int channel = 0; channel < channels; ++channel) {
        value |= Rounded(sums[channel]) << (8 * channel);
    }
    return value;
}

void ScaleHorizontally(const PackedDib* source, PackedDib* target, const Pass& pass) {
    for (int x = 0; x < target->Width; ++x) {
        const int count = Contribute(pass, x, source->Width);
        for (int y = 0; y < target->Height; ++y) {
            SetDibPixel(target, x, y, WeightedPixel(source, pass, count, y, true));
        }
    }
}

void ScaleVertically(const PackedDib* source, PackedDib* target, const Pass& pass) {
    for (int y = 0; y < target->Height; ++y) {
        const int count = Contribute(pass, y, source->Height);
        for (int x = 0; x < target->Width; ++x) {
            SetDibPixel(target, x, y, WeightedPixel(source, pass, count, x, false));
        }
    }
}

}  // namespace

ImageHandle PlainScaleImagePercent(ImageHandle handle, int width_percent, int height_percent) {
    const LockedImage image(handle);
    if (!image) return nullptr;
    return PlainScaleImage(handle, static_cast<int>(image->Width * width_percent / 100.0 + 0.5),
                           static_cast<int>(image->Height * height_percent / 100.0 + 0.5), 1.0);
}

ImageHandle PlainScaleImage(ImageHandle handle, int width, int height, double blur) {
    const LockedImage source(handle);
    if (!source) return nullptr;
    if (width == source->Width && height == source->Height && blur == 1.0) {
        return DuplicateImage(handle);
    }
    std::uint8_t palette[kPaletteBytes];
    ReadColorTable(source, palette);
    const int bits = source->BitCount;
    platform::OwnedBlock result(NewPackedDib(width, height, palette, bits));
    const LockedImage target(result.Get());
    if (!target) return nullptr;
    const double factor_x = std::max(0.0001, static_cast<double>(width) / source->Width);
    const double factor_y = std::max(0.0001, static_cast<double>(height) / source->Height);
    const bool enlarges = factor_x * factor_y > 1.0;
    const Kernel kernel = enlarges ? Mitchell : Lanczos;
    const double kernel_support = enlarges ? 2.0 : 3.0;
    const double support =
        std::max({blur * std::max(1.0 / factor_x, 1.0) * kernel_support,
                  blur * std::max(1.0 / factor_y, 1.0) * kernel_support, kernel_support, 0.5});
    platform::WorkArray<Contribution> contributions(static_cast<std::size_t>(2.0 * support + 3.0));
    if (!contributions) return nullptr;
    const bool rows_first = std::int64_t{source->Height + height} * width >
                            std::int64_t{source->Width + width} * height;
    const platform::OwnedBlock between(rows_first
                                           ? NewPackedDib(width, source->Height, palette, bits)
                                           : NewPackedDib(source->Width, height, palette, bits));
    const LockedImage middle(between.Get());
    if (!middle) return nullptr;
    if (bits < 8) return result.Release();
    const Pass across{kernel, kernel_support, factor_x, blur, contributions.data()};
    const Pass down{kernel, kernel_support, factor_y, blur, contributions.data()};
    if (rows_first) {
        ScaleHorizontally(source, middle, across);
        ScaleVertically(middle, target, down);
    } else {
        ScaleVertically(source, middle, down);
        ScaleHorizontally(middle, target, across);
    }
    return result.Release();
}

}  // namespace tess::reference
