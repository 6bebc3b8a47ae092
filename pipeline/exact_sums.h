// The sums of pipeline/weighted_sums.h as they are defined, one by one in double precision:
// what every faster way to them must equal byte for byte, and takes where it decides nothing.
#pragma once

#include <cstddef>
#include <cstdint>

#include "pipeline/scaling_weights.h"
#include "pipeline/weighted_sums.h"

namespace tess {

/// One sum, over bytes `step` apart.
[[nodiscard]] std::uint8_t ExactSum(const std::uint8_t* first, std::ptrdiff_t step,
                                    const LineWeights& weights);

/// As SumRows; reads and writes nothing before `begin`.
void SumRowsExactly(const RowBytes& rows, const LineWeights& weights, std::size_t begin,
                    std::size_t end, std::uint8_t* target);

/// As SumPixels; reads nothing beyond the pixels that have a weight.
void SumPixelsExactly(const std::uint8_t* row, const LineWeights& weights, int channels,
                      std::uint8_t* target);

}  // namespace tess
