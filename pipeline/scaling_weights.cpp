// A target line x looks at the source lines within `radius` of its centre
// (x + 0.5) / factor. Each gets the kernel's value at its distance, and the
// weights are then divided by their sum, so that a flat picture stays flat and
// lines cut off at an edge do not darken it.
//
// Shrinking by a whole factor meets the same distances at every inner line, and
// the sines of the Lanczos kernel are dear: neighbours with the same distances
// share one set of weights.
#include "pipeline/scaling_weights.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>

#include "runtime/mathematics.h"

namespace tess {

namespace {

/// The limits of fixed point: weights fit 16 bits in their upper part, the upper
/// sum (255 x kMostAbsoluteWeight x 2^14, and 1/2 x 255 a weight) stays below 2^24,
/// which is exact in single precision, and the lower sum below 2^31.
constexpr double kMostWeight = 1.99;
constexpr double kMostAbsoluteWeight = 3.5;
constexpr int kMostFixedPointWeights = 1000;

double Sinc(double x) {
    return x == 0.0 ? 1.0 : runtime::Sine(std::numbers::pi * x) / (std::numbers::pi * x);
}

double Lanczos(double distance) {
    if (std::fabs(distance) > 3.0) return 0.0;
    return Sinc(distance) * Sinc(distance / 3.0);
}

double Mitchell(double distance) {
    constexpr double kB = 1.0 / 3.0;
    constexpr double kC = 1.0 / 3.0;
    const double x = std::fabs(distance);
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

/// True for a centre whose distances to whole numbers are exact in double
/// precision, so that equal offsets mean equal distances all along.
bool HasExactDistances(double center) {
    return center * 1024.0 == std::floor(center * 1024.0);
}

constexpr WeightPair MakePair(std::int32_t first, std::int32_t second) {
    const auto both = static_cast<std::int32_t>((static_cast<std::uint32_t>(first) & 0xFFFFU) |
                                                static_cast<std::uint32_t>(second) << 16);
    return {{both, both, both, both}};
}

bool IsSymmetric(const double* weights, int count) {
    if (count % 2 != 0) return false;
    for (int k = 0; k < count / 2; ++k) {
        if (weights[k] != weights[count - 1 - k]) return false;
    }
    return true;
}

/// Splits `count` weights and returns the margin.
float ToFixedPoint(const double* exact, int count, WeightPair* upper, WeightPair* lower) {
    double absolute = 0.0;
    double largest = 0.0;
    for (int k = 0; k < count; ++k) {
        absolute += std::fabs(exact[k]);
        largest = std::max(largest, std::fabs(exact[k]));
    }
    if (!(largest <= kMostWeight && absolute <= kMostAbsoluteWeight) ||
        count > kMostFixedPointWeights) {
        return std::numeric_limits<float>::infinity();
    }
    for (int k = 0; k < count; k += 2) {
        std::int32_t high[2] = {0, 0};
        std::int32_t low[2] = {0, 0};
        for (int half = 0; half < 2 && k + half < count; ++half) {
            const auto fixed =
                static_cast<std::int32_t>(std::floor(exact[k + half] * 268435456.0 + 0.5));
            high[half] = (fixed + 8192) >> 14;
            low[half] = fixed - high[half] * 16384;
        }
        upper[k / 2] = MakePair(high[0], high[1]);
        lower[k / 2] = MakePair(low[0], low[1]);
    }
    // Each weight is off by at most 2^-29, doubled for safety; the roundings of
    // single precision up to 256 stay below 2^-14, and are doubled likewise.
    return static_cast<float>(count * 255.0 / 268435456.0 + 1.0 / 8192.0);
}

}  // namespace

const ScalingKernel kLanczosKernel{Lanczos, 3.0};
const ScalingKernel kMitchellKernel{Mitchell, 2.0};

std::size_t MostWeights(double support, int source_size) {
    return static_cast<std::size_t>(std::min(2.0 * support + 3.0, source_size + 3.0));
}

WeightTable::WeightTable(std::size_t lines, std::size_t most_weights)
    : most_weights_((most_weights + 1) / 2 * 2),
      lines_(lines),
      exact_(lines * most_weights_),
      upper_(lines * most_weights_ / 2),
      lower_(lines * most_weights_ / 2) {}

void WeightTable::Fill(const AxisScaling& axis, int first, int count) {
    double scale = std::max(1.0 / axis.factor, 1.0) * axis.blur;
    double radius = scale * axis.kernel.support;
    if (!(radius > 0.5)) {
        scale = 1.0;
        radius = 0.500001;
    }
    double filled_offset = 0.0;
    const Entry* filled = nullptr;  // the last entry that can be shared
    for (int i = 0; i < count; ++i) {
        const double center = (first + i + 0.5) / axis.factor;
        Entry& entry = lines_[static_cast<std::size_t>(i)];
        entry.start = static_cast<int>(std::max(center - radius + 0.5, 0.0));
        const int stop = static_cast<int>(
            std::min(center + radius + 0.5, static_cast<double>(axis.source_size)));
        entry.count = std::max(stop - entry.start, 0);
        const double offset = entry.start - center;
        if (filled != nullptr && filled->count == entry.count && filled_offset == offset &&
            HasExactDistances(center)) {
            entry.slot = filled->slot;
            entry.symmetric = filled->symmetric;
            entry.margin = filled->margin;
            continue;
        }
        entry.slot = static_cast<std::size_t>(i) * most_weights_;
        FillSlot(axis, center, scale, &entry);
        filled = HasExactDistances(center) ? &entry : nullptr;
        filled_offset = offset;
    }
}

void WeightTable::FillSlot(const AxisScaling& axis, double center, double scale, Entry* entry) {
    double* exact = exact_.data() + entry->slot;
    double density = 0.0;
    for (int k = 0; k < entry->count; ++k) {
        exact[k] = axis.kernel.weight((entry->start + k - center + 0.5) / scale);
        density += exact[k];
    }
    if (density != 0.0 && density != 1.0) {
        const double share = 1.0 / density;
        for (int k = 0; k < entry->count; ++k)
            exact[k] *= share;
    }
    entry->symmetric = IsSymmetric(exact, entry->count);
    entry->margin = ToFixedPoint(exact, entry->count, upper_.data() + entry->slot / 2,
                                 lower_.data() + entry->slot / 2);
}

LineWeights WeightTable::Line(int index) const {
    const Entry& entry = lines_[static_cast<std::size_t>(index)];
    return {entry.start,
            entry.count,
            exact_.data() + entry.slot,
            upper_.data() + entry.slot / 2,
            lower_.data() + entry.slot / 2,
            entry.symmetric,
            entry.margin};
}

}  // namespace tess
