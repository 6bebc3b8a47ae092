// For processors without SSE2: the sums as they are defined.
#include "pipeline/weighted_sums.h"

#include "pipeline/exact_sums.h"

namespace tess {

void SumRows(const RowBytes& rows, const LineWeights& weights, std::size_t begin, std::size_t end,
             std::uint8_t* target) {
    SumRowsExactly(rows, weights, begin, end, target);
}

void SumPixels(const std::uint8_t* row, const LineWeights& weights, int channels,
               std::uint8_t* target) {
    SumPixelsExactly(row, weights, channels, target);
}

}  // namespace tess
