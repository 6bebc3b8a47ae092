// Exponential and power, first in double-double arithmetic with a known bound of
// the error, and where that leaves the rounding open in the wide arithmetic of
// runtime/hard_cases.h; see runtime/trigonometry.cpp. Powers that lie exactly in
// the middle between two doubles always go the second way.
#include <array>
#include <bit>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>

#include "runtime/double_double.h"
#include "runtime/hard_cases.h"
#include "runtime/mathematics.h"
#include "runtime/mathematics_tables.h"

namespace runtime {

namespace {

constexpr double kNotANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

/// e^x rounds to 1 for x below the first, to infinity above the second and to 0
/// below the third; the results between the last two are normal.
constexpr double kTiny = 0x1p-55;
constexpr double kOverflow = 710.0;
constexpr double kUnderflow = -746.0;
constexpr double kLargestFast = 709.0;
constexpr double kSmallestFast = -708.0;

/// The bound of the relative error of the fast exponential of an exact argument:
/// the rest is below 2^-8.5, and what is worked out in plain doubles begins with
/// half its square, below 2^-18, with eight roundings of 2^-53.
constexpr double kExponentialError = 0x1p-67;
/// The logarithm's relative error is below 2^-79, which times 709 adds 2^-69.5.
constexpr double kPowerError = 0x1p-66;

/// e^x as Value x 2^Exponent.
struct ScaledPower {
    DoubleDouble Value;
    int Exponent;
};

/// Requires x between kSmallestFast and kLargestFast. e^x = 2^(k / 128) x e^r.
ScaledPower ExponentialOf(DoubleDouble x) {
    constexpr double kStepsPerUnit = 0x1.71547652b82fep7;
    constexpr double kRounder = 0x1.8p52;
    // log(2) / 128 in three parts, of which the first two have 34 bits, so that
    // their products with the 18 bits of k are exact.
    constexpr std::array<double, 3> kStep = {0x1.62e42fef8p-8, 0x1.1cf79abc8p-43,
                                             0x1.e3b39803f2f6bp-79};
    const double steps = (x.High * kStepsPerUnit + kRounder) - kRounder;
    const DoubleDouble most = TwoSum(x.High - steps * kStep[0], -steps * kStep[1]);
    // Summed once more, since the low part of x may be as large as 2^-44.
    const DoubleDouble rest = TwoSum(most.High, most.Low + (x.Low - steps * kStep[2]));
    const double r = rest.High;
    const double series =
        r * r *
        (0.5 +
         r * (1.0 / 6 + r * (1.0 / 24 + r * (1.0 / 120 + r * (1.0 / 720 + r * (1.0 / 5040))))));
    const int k = static_cast<int>(steps);
    const DoubleDouble& root = kRootsOfTwo[static_cast<unsigned>(k) % kRootSteps];
    const DoubleDouble product = TwoProduct(root.High, r);
    const DoubleDouble sum = FastTwoSum(root.High, product.High);
    const double tail = root.High * (series + rest.Low) + root.Low * r + (root.Low + product.Low);
    return {FastTwoSum(sum.High, sum.Low + tail), k >> 7};
}

/// Requires value > 0, finite. With value = m x 2^e, m between 0.707 and 1.415, and a
/// reciprocal c of a number near m: log(value) = e log(2) - log(c) + log(1 + z),
/// z = m c - 1 exactly, |z| < 2^-8.3. Where the first two terms are not 0 they are
/// larger than z, and where they are 0 |z| is below 2^-9 and no digits are lost.
DoubleDouble Logarithm(double value) {
    constexpr double kAboutRootTwo = 362.0 / 256;
    // The first part has 42 bits, so that its product with e is exact.
    constexpr DoubleDouble kLogTwo = {0x1.62e42fefa38p-1, 0x1.ef35793c7673p-45};
    constexpr DoubleDouble kThird = {0x1.5555555555555p-2, 0x1.5555555555555p-56};

    int exponent = 0;
    if (value < 0x1p-1022) {
        value *= 0x1p54;
        exponent = -54;
    }
    const auto bits = std::bit_cast<std::uint64_t>(value);
    exponent += static_cast<int>(bits >> kMantissaBits) - 1023;
    double m =
        std::bit_cast<double>((bits & (kHiddenBit - 1)) | (std::uint64_t{1023} << kMantissaBits));
    if (m >= kAboutRootTwo) {
        m *= 0.5;
        exponent++;
    }
    const auto nearest = static_cast<std::size_t>(m * 256 + 0.5);
    const LogarithmStep& step = kLogarithms[nearest - kFirstLogarithmStep];
    const DoubleDouble halves = Split(m);
    const DoubleDouble z =
        TwoSum(halves.High * step.Reciprocal - 1.0, halves.Low * step.Reciprocal);

    // log(1 + z) = z + z^2 (-1/2 + z (1/3 + z (-1/4 + ...))).
    const double x = z.High;
    const double series =
        -1.0 / 4 +
        x * (1.0 / 5 +
             x * (-1.0 / 6 + x * (1.0 / 7 + x * (-1.0 / 8 + x * (1.0 / 9 + x * (-1.0 / 10))))));
    const DoubleDouble inner = Multiply(z, FastTwoSum(kThird.High, x * series + kThird.Low));
    DoubleDouble outer = FastTwoSum(-0.5, inner.High);
    outer.Low += inner.Low;
    const DoubleDouble bend = Multiply(Multiply(z, z), outer);

    const DoubleDouble base = FastTwoSum(exponent * kLogTwo.High, step.Logarithm.High);
    const DoubleDouble line = FastTwoSum(base.High, z.High);
    const DoubleDouble sum = FastTwoSum(line.High, bend.High);
    const double tail = z.Low + bend.Low + (step.Logarithm.Low + exponent * kLogTwo.Low);
    return FastTwoSum(sum.High, base.Low + line.Low + sum.Low + tail);
}

enum class Parity { kFraction, kEven, kOdd };

/// Requires a finite value other than 0.
Parity ParityOf(double value) {
    const BinaryParts parts = PartsOf(value);
    const int lowest = parts.Exponent + std::countr_zero(parts.Mantissa);
    if (lowest < 0) return Parity::kFraction;
    return lowest == 0 ? Parity::kOdd : Parity::kEven;
}

/// base^exponent for an infinite exponent. Requires a magnitude other than 1.
double PowerToInfinity(double magnitude, double exponent) {
    return (magnitude > 1.0) == (exponent > 0) ? kInfinity : 0.0;
}

/// base^exponent for finite values above 0, other than 1.
double PositivePower(double base, double exponent, bool negated) {
    const double sign = negated ? -1.0 : 1.0;
    const DoubleDouble logarithm = Logarithm(base);
    const double estimate = exponent * logarithm.High;
    if (estimate > kOverflow) return sign * kInfinity;
    if (estimate < kUnderflow) return sign * 0.0;
    if (estimate < kTiny && estimate > -kTiny) return sign;
    if (estimate >= kSmallestFast && estimate <= kLargestFast) {
        const DoubleDouble product = TwoProduct(exponent, logarithm.High);
        const ScaledPower power =
            ExponentialOf(FastTwoSum(product.High, product.Low + exponent * logarithm.Low));
        double rounded = 0;
        if (RoundsSafely(power.Value, kPowerError, rounded)) {
            return sign * rounded * PowerOfTwo(power.Exponent);
        }
    }
    return WidePower(base, exponent, negated);
}

}  // namespace

double Exponential(double value) {
    if (value != value) return kNotANumber;
    if (value > kOverflow) return kInfinity;
    if (value < kUnderflow) return 0.0;
    if (value < kTiny && value > -kTiny) return 1.0;
    if (value >= kSmallestFast && value <= kLargestFast) {
        const ScaledPower power = ExponentialOf({value, 0.0});
        double rounded = 0;
        if (RoundsSafely(power.Value, kExponentialError, rounded)) {
            return rounded * PowerOfTwo(power.Exponent);
        }
    }
    return WideExponential(value);
}

double Power(double base, double exponent) {
    if (base == 1.0 || exponent == 0.0) return 1.0;
    if (base != base || exponent != exponent) return kNotANumber;
    const double magnitude = base < 0 ? -base : base;
    if (exponent == kInfinity || exponent == -kInfinity) {
        return magnitude == 1.0 ? 1.0 : PowerToInfinity(magnitude, exponent);
    }
    const Parity parity = ParityOf(exponent);
    const bool negated = std::signbit(base) && parity == Parity::kOdd;
    if (magnitude == 0.0 || magnitude == kInfinity) {
        const double result = (magnitude == 0.0) == (exponent > 0) ? 0.0 : kInfinity;
        return negated ? -result : result;
    }
    if (base < 0 && parity == Parity::kFraction) return kNotANumber;
    if (magnitude == 1.0) return negated ? -1.0 : 1.0;
    return PositivePower(magnitude, exponent, negated);
}

}  // namespace runtime
