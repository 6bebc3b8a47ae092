// Reduction of angles by the method of Payne and Hanek ("Radian reduction for
// trigonometric functions", 1983): of M x 2^E radians, M whole, only the digits of
// 2 / pi from weight 2^(1 - E) downwards matter, for those above contribute whole
// turns. A window of 64 n digits, taken as a whole number and multiplied by M
// modulo 2^(64 n), has the number of quarter turns in its top two bits and the
// fraction of a quarter in the rest.
#pragma once

#include <cstdint>

#include "runtime/mathematics_tables.h"

namespace runtime {

/// Returns limb number `limb`, from the most significant, of the window for angles
/// M x 2^exponent. Requires exponent >= -126, and a limb inside the table: below
/// 8 for every double.
[[nodiscard]] inline std::uint64_t TwoOverPiLimb(int exponent, unsigned limb) {
    const auto bit = static_cast<unsigned>(exponent + 126);
    const unsigned shift = bit % 64;
    const unsigned first = bit / 64 + limb;
    // Shifted in two steps, since a shift by 64 is none.
    return kTwoOverPi[first] << shift | kTwoOverPi[first + 1] >> 1 >> (63 - shift);
}

}  // namespace runtime
