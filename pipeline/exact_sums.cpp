#include "pipeline/exact_sums.h"

namespace tess {

namespace {

std::uint8_t Rounded(double level) {
    if (!(level > 0.0)) return 0;
    if (level > 255.0) return 255;
    return static_cast<std::uint8_t>(level + 0.5);
}

}  // namespace

std::uint8_t ExactSum(const std::uint8_t* first, std::ptrdiff_t step, const LineWeights& weights) {
    double sum = 0.0;
    for (int k = 0; k < weights.count; ++k, first += step)
        sum += weights.exact[k] * *first;
    return Rounded(sum);
}

void SumRowsExactly(const RowBytes& rows, const LineWeights& weights, std::size_t begin,
                    std::size_t end, std::uint8_t* target) {
    const std::uint8_t* first = rows.first + rows.step * weights.start;
    for (std::size_t i = begin; i < end; ++i) {
        target[i] = ExactSum(first + i, rows.step, weights);
    }
}

void SumPixelsExactly(const std::uint8_t* row, const LineWeights& weights, int channels,
                      std::uint8_t* target) {
    const std::uint8_t* first = row + std::ptrdiff_t{channels} * weights.start;
    for (int channel = 0; channel < channels; ++channel) {
        target[channel] = ExactSum(first + channel, channels, weights);
    }
}

}  // namespace tess
