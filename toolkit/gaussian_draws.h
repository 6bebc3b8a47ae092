// Draws of the runtime's generator that are about normally distributed: sums of four
// even ones (D. Saupe, in "The Science of Fractal Images", 1988).
#pragma once

#include <cmath>

#include "runtime/random.h"

namespace tess {

/// The largest draw.
inline constexpr double kLargestDraw = 32767.0;

/// Starts the generator for draws of either kind.
inline void SeedGaussian(int seed) {
    runtime::srand(static_cast<unsigned>(seed));
}

/// Makes four draws. The mean is 0, the deviation 1.
[[nodiscard]] inline double DrawGaussian() {
    const double spread = std::sqrt(12.0);
    const double factor = 2 * spread / (4 * kLargestDraw);
    int sum = 0;
    for (int i = 0; i < 4; ++i)
        sum += runtime::rand() & 0x7FFF;
    return factor * sum - spread;
}

}  // namespace tess
