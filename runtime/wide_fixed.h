// Unsigned fixed-point numbers of 64 integer and 448 fraction bits, for the few
// arguments that double-double arithmetic cannot decide. Signs are the caller's.
// Results are truncated, so each operation errs by less than a few units of the
// last of the 448 bits. Nothing here saves time: it is used about once in five
// thousand calls.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace runtime {

inline constexpr int kWideFractionBits = 448;
inline constexpr std::size_t kWideLimbs = 8;

/// Least significant limb first; the last one is the integer part.
struct WideFixed {
    std::array<std::uint64_t, kWideLimbs> Limbs{};
};

[[nodiscard]] WideFixed WideInteger(std::uint64_t value);
/// Returns the magnitude of `value`; bits below 2^-448 are dropped. Requires
/// |value| < 2^64.
[[nodiscard]] WideFixed WideFromDouble(double value);
/// Returns a double within a relative error of 2^-52.
[[nodiscard]] double Approximately(const WideFixed& value);

[[nodiscard]] WideFixed Sum(const WideFixed& a, const WideFixed& b);
/// Requires a >= b.
[[nodiscard]] WideFixed Difference(const WideFixed& a, const WideFixed& b);
[[nodiscard]] bool IsLess(const WideFixed& a, const WideFixed& b);
/// Requires a product below 2^64, as the others do.
[[nodiscard]] WideFixed Product(const WideFixed& a, const WideFixed& b);
[[nodiscard]] WideFixed Product(const WideFixed& a, std::uint64_t factor);
[[nodiscard]] WideFixed Quotient(const WideFixed& a, std::uint64_t divisor);
/// Requires a < divisor < 2^63.
[[nodiscard]] WideFixed Quotient(const WideFixed& a, const WideFixed& divisor);
/// Returns a x 2^exponent.
[[nodiscard]] WideFixed Scaled(const WideFixed& a, int exponent);

/// Returns value x 2^exponent, with its sign, rounded to the nearest double, ties
/// to even, as subnormal, zero or infinity where it must be. A value within
/// 2^-348 of a tie counts as that tie; `value` must be good to more than that.
[[nodiscard]] double RoundToDouble(bool negative, const WideFixed& value, int exponent);

}  // namespace runtime
