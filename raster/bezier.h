// Cubic curves as straight pieces.
#pragma once

#include <cstddef>

#include "raster/drawing_context.h"

namespace raster {

/// No curve has more pieces than this.
inline constexpr std::size_t kMostPiecesOfACurve = 256;

struct Curve {
    Point start, start_control, end_control, end;
};

/// Writes the ends of the curve's pieces, without its start, to `points`, which
/// has room for kMostPiecesOfACurve. Returns how many they are.
[[nodiscard]] std::size_t FlattenCurve(const Curve& curve, Point* points);

}  // namespace raster
