// Weighted sums of pixel bytes, as the scaler takes them: in double precision,
// in the order of the source, each result cut to a byte with 0.5 added.
#pragma once

#include <cstddef>
#include <cstdint>

#include "pipeline/scaling_weights.h"

namespace tess {

/// Bytes that SumPixels may read beyond the last pixel of a row.
inline constexpr std::size_t kRowSlack = 16;

/// Rows of bytes, `step` bytes apart (negative for rows stored bottom-up).
struct RowBytes {
    const std::uint8_t* first;
    std::ptrdiff_t step;
};

/// Writes to `target[begin]` up to `target[end - 1]` the sums down those byte
/// columns of `rows`; up to 15 bytes of the row before `begin` are summed, too.
void SumRows(const RowBytes& rows, const LineWeights& weights, std::size_t begin, std::size_t end,
             std::uint8_t* target);

/// Writes to `target` one pixel of `channels` bytes (1, 3 or 4), the sum along
/// `row`. Requires: kRowSlack bytes can be read behind the row.
void SumPixels(const std::uint8_t* row, const LineWeights& weights, int channels,
               std::uint8_t* target);

}  // namespace tess
