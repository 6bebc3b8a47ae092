// Numbers of about 106 bits as the sum of two doubles, the second at most half a
// unit in the last place of the first. The sums and products here are exact by
// the theorems of Dekker, Knuth and Veltkamp (T. J. Dekker, "A floating-point
// technique for extending the available precision", 1971); they hold for round
// to nearest without contraction, which the build settings see to. No fused
// multiply-add is used: not every machine has one, and substitutes differ.
#pragma once

#include <bit>
#include <cstdint>

namespace runtime {

struct DoubleDouble {
    double High;
    double Low;
};

/// Returns a + b exactly. Requires |a| >= |b|, or a = 0.
inline DoubleDouble FastTwoSum(double a, double b) {
    const double sum = a + b;
    return {sum, b - (sum - a)};
}

/// Returns a + b exactly.
inline DoubleDouble TwoSum(double a, double b) {
    const double sum = a + b;
    const double part = sum - a;
    return {sum, (a - (sum - part)) + (b - part)};
}

/// Returns `a` as a sum of two numbers of at most 26 bits. Requires |a| < 2^996.
inline DoubleDouble Split(double a) {
    const double scaled = a * 134217729.0;
    const double high = scaled - (scaled - a);
    return {high, a - high};
}

/// Returns a x b exactly. Requires factors and product away from the ends of the
/// exponent range.
inline DoubleDouble TwoProduct(double a, double b) {
    const double product = a * b;
    const DoubleDouble x = Split(a);
    const DoubleDouble y = Split(b);
    const double error = ((x.High * y.High - product) + x.High * y.Low + x.Low * y.High);
    return {product, error + x.Low * y.Low};
}

/// Returns a x b with a relative error below 2^-100.
inline DoubleDouble Multiply(DoubleDouble a, DoubleDouble b) {
    const DoubleDouble product = TwoProduct(a.High, b.High);
    return FastTwoSum(product.High, product.Low + (a.High * b.Low + a.Low * b.High));
}

/// Rounds a value that is known as `value` within a relative error of `error`.
/// Returns whether every number in that range rounds to the same double, which
/// is then in `rounded`. Requires a result that is a normal double.
inline bool RoundsSafely(DoubleDouble value, double error, double& rounded) {
    const double margin = (value.High < 0 ? -value.High : value.High) * error;
    rounded = value.High + (value.Low + margin);
    return rounded == value.High + (value.Low - margin);
}

/// A finite double as Mantissa x 2^Exponent, without its sign.
struct BinaryParts {
    std::uint64_t Mantissa;
    int Exponent;
};

inline constexpr int kMantissaBits = 52;
inline constexpr std::uint64_t kHiddenBit = std::uint64_t{1} << kMantissaBits;

/// Mantissa has 53 bits unless `value` is subnormal or zero.
inline BinaryParts PartsOf(double value) {
    const auto bits = std::bit_cast<std::uint64_t>(value);
    const int field = static_cast<int>(bits >> kMantissaBits & 0x7FF);
    const std::uint64_t fraction = bits & (kHiddenBit - 1);
    if (field == 0) return {fraction, -1074};
    return {fraction | kHiddenBit, field - 1075};
}

/// Returns 2^exponent. Requires -1022 <= exponent <= 1023.
inline double PowerOfTwo(int exponent) {
    return std::bit_cast<double>(static_cast<std::uint64_t>(exponent + 1023) << kMantissaBits);
}

}  // namespace runtime
