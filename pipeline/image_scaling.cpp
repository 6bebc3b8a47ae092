// ScaleImage: the kernel by whether the area grows; an intermediate picture between
// two passes, whose order is a rule of its own; each pass weighs the source's
// lines (pipeline/scaling_weights.h) and sums (pipeline/weighted_sums.h). Passes
// keep 8 bits between them. Weights are worked out for a run of target lines at a
// time, so that they stay small beside the pictures.
#include "pipeline/image_scaling.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>

#include "pipeline/scaling_weights.h"
#include "pipeline/weighted_sums.h"
#include "platform/block_guards.h"

namespace tess {

namespace {

constexpr int kLinesAtOnce = 256;
/// The vertical pass takes strips this wide, so that the rows of a sum, and those
/// of the next target row, stay in the fast cache.
constexpr std::size_t kStripBytes = 512;

std::size_t RowLength(const PackedDib* image) {
    return static_cast<std::size_t>(image->Width) * (image->BitCount / 8U);
}

/// Returns 0 when memory is short.
int ScaleHorizontally(const PackedDib* source, PackedDib* target, const AxisScaling& axis,
                      WeightTable* table) {
    const int channels = source->BitCount / 8;
    const std::size_t length = RowLength(source);
    platform::WorkArray<std::uint8_t> row(length + kRowSlack);
    if (!row) return 0;
    for (int first = 0; first < target->Width; first += table->Capacity()) {
        const int count = std::min(table->Capacity(), target->Width - first);
        table->Fill(axis, first, count);
        for (int y = 0; y < target->Height; ++y) {
            std::memcpy(row.data(), DibRow(source, y), length);
            std::uint8_t* pixel = DibRow(target, y) + std::ptrdiff_t{channels} * first;
            for (int i = 0; i < count; ++i, pixel += channels) {
                SumPixels(row.data(), table->Line(i), channels, pixel);
            }
        }
    }
    return 1;
}

void ScaleVertically(const PackedDib* source, PackedDib* target, const AxisScaling& axis,
                     WeightTable* table) {
    if (source->Height < 1) return;
    const RowBytes rows{DibRow(source, 0),
                        -std::ptrdiff_t{Stride(source->Width, source->BitCount)}};
    const std::size_t length = RowLength(target);
    for (int first = 0; first < target->Height; first += table->Capacity()) {
        const int count = std::min(table->Capacity(), target->Height - first);
        table->Fill(axis, first, count);
        for (std::size_t begin = 0; begin < length; begin += kStripBytes) {
            const std::size_t end = std::min(begin + kStripBytes, length);
            for (int i = 0; i < count; ++i) {
                SumRows(rows, table->Line(i), begin, end, DibRow(target, first + i));
            }
        }
    }
}

/// The cut of size x percent / 100.0 + 0.5, or -1, which no picture has, where
/// that is beyond an int.
int PercentOf(int size, int percent) {
    const double scaled =
        static_cast<double>(static_cast<std::int64_t>(size) * percent) / 100.0 + 0.5;
    return scaled < std::numeric_limits<int>::max() && scaled > -1.0 ? static_cast<int>(scaled)
                                                                     : -1;
}

}  // namespace

ImageHandle ScaleImagePercent(ImageHandle handle, int width_percent, int height_percent) {
    const LockedImage image(handle);
    if (!image) return nullptr;
    return ScaleImage(handle, PercentOf(image->Width, width_percent),
                      PercentOf(image->Height, height_percent), 1.0);
}

ImageHandle ScaleImage(ImageHandle handle, int width, int height, double blur) {
    const LockedImage source(handle);
    if (!source) return nullptr;
    const int old_width = source->Width;
    const int old_height = source->Height;
    if (width == old_width && height == old_height && blur == 1.0) return DuplicateImage(handle);

    const int bits = source->BitCount;
    std::uint8_t palette[kPaletteBytes];
    ReadColorTable(source, palette);
    platform::OwnedBlock result(NewPackedDib(width, height, palette, bits));
    const LockedImage target(result.Get());
    if (!target) return nullptr;
    if (bits < 8) return result.Release();  // their pixels are not scaled

    const double factor_x = std::max(0.0001, static_cast<double>(width) / old_width);
    const double factor_y = std::max(0.0001, static_cast<double>(height) / old_height);
    const ScalingKernel& kernel = factor_x * factor_y > 1.0 ? kMitchellKernel : kLanczosKernel;
    const double support =
        std::max({kernel.support, 0.5, blur * std::max(1.0 / factor_x, 1.0) * kernel.support,
                  blur * std::max(1.0 / factor_y, 1.0) * kernel.support});
    WeightTable table(
        static_cast<std::size_t>(std::clamp(std::max(width, height), 1, kLinesAtOnce)),
        MostWeights(support, std::max(old_width, old_height)));
    if (!table) return nullptr;

    const bool across_first =
        (std::int64_t{old_height} + height) * width > (std::int64_t{old_width} + width) * height;
    const platform::OwnedBlock between(across_first
                                           ? NewPackedDib(width, old_height, palette, bits)
                                           : NewPackedDib(old_width, height, palette, bits));
    const LockedImage middle(between.Get());
    if (!middle) return nullptr;
    const AxisScaling across{kernel, factor_x, blur, old_width};
    const AxisScaling down{kernel, factor_y, blur, old_height};
    if (across_first) {
        if (ScaleHorizontally(source, middle, across, &table) == 0) return nullptr;
        ScaleVertically(middle, target, down, &table);
    } else {
        ScaleVertically(source, middle, down, &table);
        if (ScaleHorizontally(middle, target, across, &table) == 0) return nullptr;
    }
    return result.Release();
}

}  // namespace tess
