// Sine, cosine and arc tangent. Each is first worked out in double-double
// arithmetic with a known bound of its error; where the bound leaves open which
// double is nearest (about once in five thousand calls) the wide arithmetic of
// runtime/hard_cases.h decides (A. Ziv, "Fast evaluation of elementary
// mathematical functions with correctly rounded last bit", 1991).
#include <cstdint>
#include <limits>

#include "runtime/double_double.h"
#include "runtime/hard_cases.h"
#include "runtime/mathematics.h"
#include "runtime/mathematics_tables.h"
#include "runtime/quarter_turns.h"

namespace runtime {

namespace {

__extension__ using Wide = unsigned __int128;

constexpr double kNotANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();
/// Below this, x differs from sin(x) and atan(x), and 1 from cos(x), by less than
/// a quarter of a unit in the last place.
constexpr double kTiny = 0x1p-27;
constexpr DoubleDouble kHalfPi = {0x1.921fb54442d18p0, 0x1.1a62633145c07p-54};
/// pi / 512, the distance of the sine table, in units of 2^-128.
constexpr DoubleDouble kSineStep = {0x1.921fb54442d18p-136, 0x1.1a62633145c07p-190};

/// Bounds of the relative errors of the fast sine and cosine: the rest angle is below
/// 2^-8.3, and what is worked out in plain doubles begins with its square, below
/// 2^-16.7 of the result, with eight roundings of 2^-53.
constexpr double kCircularError = 0x1p-66;
/// Of the arc tangent: the rest is below 2^-8, a third of its square below 2^-17.5.
constexpr double kArcTangentError = 0x1p-66;

/// An angle as a number of steps of pi / 512, modulo 1024, and a rest of at most
/// half a step.
struct ReducedAngle {
    unsigned Steps;
    DoubleDouble Rest;
};

/// Returns a number of units of 2^-128 as a double-double of them.
DoubleDouble FromUnits(Wide units) {
    const auto high = static_cast<std::uint64_t>(units >> 64);
    const auto low = static_cast<std::uint64_t>(units);
    const auto number = [](std::uint64_t bits) {
        return static_cast<double>(static_cast<std::int64_t>(bits));
    };
    const double top = number(high >> 11) * 0x1p75;
    const double middle = number((high & 0x7FF) << 42 | low >> 22) * 0x1p22;
    const double bottom = number(low & 0x3FFFFF);
    const DoubleDouble sum = FastTwoSum(top, middle);
    return {sum.High, sum.Low + bottom};
}

/// Requires kTiny <= magnitude, finite. The rest is good to 2^-130 absolutely, and
/// no double comes nearer than 2^-62 to a multiple of pi / 2.
ReducedAngle Reduce(double magnitude) {
    if (magnitude < 0x1p-9) return {0, {magnitude, 0.0}};
    const BinaryParts parts = PartsOf(magnitude);
    const Wide low = Wide{parts.Mantissa} * TwoOverPiLimb(parts.Exponent, 2);
    const Wide middle = Wide{parts.Mantissa} * TwoOverPiLimb(parts.Exponent, 1) +
                        static_cast<std::uint64_t>(low >> 64);
    const std::uint64_t high = parts.Mantissa * TwoOverPiLimb(parts.Exponent, 0) +
                               static_cast<std::uint64_t>(middle >> 64);
    // Of the 192 bits the top ten are steps.
    const auto steps = static_cast<unsigned>((high + (std::uint64_t{1} << 53)) >> 54);
    const Wide fraction = (Wide{high} << 64 | static_cast<std::uint64_t>(middle)) << 10 |
                          static_cast<std::uint64_t>(low) >> 54;
    const bool negative = (fraction >> 127) != 0;
    const DoubleDouble units = FromUnits(negative ? -fraction : fraction);
    const DoubleDouble rest = Multiply(units, kSineStep);
    if (negative) return {steps, {-rest.High, -rest.Low}};
    return {steps, rest};
}

/// Returns sin(pi x steps / 512 + rest), as S cos(rest) + C sin(rest) where S and C
/// are table entries.
DoubleDouble SineOf(const ReducedAngle& angle) {
    const unsigned quarter = angle.Steps / kSineSteps;
    const unsigned step = angle.Steps % kSineSteps;
    // In odd quarters the sine is the cosine of the step: both entries change
    // places, and the rest works backwards.
    const bool odd = (quarter & 1) != 0;
    const DoubleDouble& sine = kSines[odd ? kSineSteps - step : step];
    const DoubleDouble& cosine = kSines[odd ? step : kSineSteps - step];
    const double r = odd ? -angle.Rest.High : angle.Rest.High;
    const double low = odd ? -angle.Rest.Low : angle.Rest.Low;
    const double square = r * r;
    const double sine_rest = r * square * (-1.0 / 6 + square * (1.0 / 120 - square * (1.0 / 5040)));
    const double cosine_rest =
        square * (-0.5 + square * (1.0 / 24 - square * (1.0 / 720))) - r * low;
    const DoubleDouble product = TwoProduct(cosine.High, r);
    const DoubleDouble sum = FastTwoSum(sine.High, product.High);
    const double tail = sine.High * cosine_rest + cosine.High * (sine_rest + low) +
                        (cosine.Low * r + sine.Low + product.Low);
    const DoubleDouble result = FastTwoSum(sum.High, sum.Low + tail);
    if ((quarter & 2) != 0) return {-result.High, -result.Low};
    return result;
}

/// Returns the arc tangent of (high + low), below 2^-8 in magnitude, without the
/// leading term `high`.
double ArcTangentRest(double high, double low) {
    const double square = high * high;
    const double series =
        square * (-1.0 / 3 + square * (1.0 / 5 + square * (-1.0 / 7 + square * (1.0 / 9))));
    return low + high * series;
}

/// Returns the quotient of two double-doubles; its low part may be as large as a
/// few units in the last place of the high one.
DoubleDouble Quotient(DoubleDouble numerator, DoubleDouble denominator) {
    const double quotient = numerator.High / denominator.High;
    const DoubleDouble back = TwoProduct(quotient, denominator.High);
    const double rest =
        (numerator.High - back.High) - back.Low + numerator.Low - quotient * denominator.Low;
    return {quotient, rest / denominator.High};
}

/// Requires kTiny <= value <= 1. atan(x) = atan(c) + atan((x - c) / (1 + c x)), c the
/// next multiple of 1 / 128.
DoubleDouble ArcTangentBelowOne(double value) {
    const auto step = static_cast<unsigned>(value * kArcTangentSteps + 0.5);
    const double c = step * (1.0 / kArcTangentSteps);
    const DoubleDouble product = TwoProduct(c, value);
    DoubleDouble denominator = FastTwoSum(1.0, product.High);
    denominator.Low += product.Low;
    const DoubleDouble rest = Quotient({value - c, 0.0}, denominator);
    const DoubleDouble& entry = kArcTangents[step];
    const DoubleDouble sum = FastTwoSum(entry.High, rest.High);
    return FastTwoSum(sum.High, sum.Low + (entry.Low + ArcTangentRest(rest.High, rest.Low)));
}

/// Requires 1 < value < 2^60. atan(x) = pi / 2 - atan(c) - atan((1 - c x) / (x + c)), c
/// the multiple of 1 / 128 next to 1 / x.
DoubleDouble ArcTangentAboveOne(double value) {
    const auto step = static_cast<unsigned>(kArcTangentSteps / value + 0.5);
    const double c = step * (1.0 / kArcTangentSteps);
    const DoubleDouble product = TwoProduct(c, value);
    const DoubleDouble numerator = FastTwoSum(1.0 - product.High, -product.Low);
    const DoubleDouble rest = Quotient(numerator, FastTwoSum(value, c));
    const DoubleDouble& entry = kArcTangents[step];
    const DoubleDouble base = FastTwoSum(kHalfPi.High, -entry.High);
    const DoubleDouble sum = FastTwoSum(base.High, -rest.High);
    const double tail = kHalfPi.Low - entry.Low - ArcTangentRest(rest.High, rest.Low);
    return FastTwoSum(sum.High, sum.Low + (base.Low + tail));
}

}  // namespace

double Sine(double radians) {
    const double magnitude = radians < 0 ? -radians : radians;
    if (magnitude < kTiny) return radians;
    if (!(magnitude < kInfinity)) return kNotANumber;
    double rounded = 0;
    if (!RoundsSafely(SineOf(Reduce(magnitude)), kCircularError, rounded)) {
        return WideSine(radians, 0);
    }
    return radians < 0 ? -rounded : rounded;
}

double Cosine(double radians) {
    const double magnitude = radians < 0 ? -radians : radians;
    if (magnitude < kTiny) return 1.0;
    if (!(magnitude < kInfinity)) return kNotANumber;
    ReducedAngle angle = Reduce(magnitude);
    angle.Steps = (angle.Steps + kSineSteps) % (4 * kSineSteps);
    double rounded = 0;
    if (RoundsSafely(SineOf(angle), kCircularError, rounded)) return rounded;
    return WideSine(radians, 1);
}

double ArcTangent(double value) {
    const double magnitude = value < 0 ? -value : value;
    if (magnitude < kTiny) return value;
    if (!(magnitude < 0x1p60)) {
        if (magnitude != magnitude) return kNotANumber;
        return value < 0 ? -kHalfPi.High : kHalfPi.High;
    }
    const DoubleDouble angle =
        magnitude <= 1.0 ? ArcTangentBelowOne(magnitude) : ArcTangentAboveOne(magnitude);
    double rounded = 0;
    if (!RoundsSafely(angle, kArcTangentError, rounded)) {
        return WideArcTangent(value, angle.High);
    }
    return value < 0 ? -rounded : rounded;
}

}  // namespace runtime
