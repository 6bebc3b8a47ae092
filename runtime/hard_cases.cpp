#include "runtime/hard_cases.h"

#include <cstddef>
#include <cstdint>

#include "runtime/double_double.h"
#include "runtime/mathematics_tables.h"
#include "runtime/quarter_turns.h"
#include "runtime/wide_fixed.h"

namespace runtime {

namespace {

struct SignedWide {
    bool Negative;
    WideFixed Magnitude;
};

WideFixed Half(const WideFixed& value) {
    return Scaled(value, -1);
}

SignedWide SignedDifference(const WideFixed& a, const WideFixed& b) {
    if (IsLess(a, b)) return {true, Difference(b, a)};
    return {false, Difference(a, b)};
}

/// The alternating series of sine (`first` = 1) or cosine (`first` = 0), for an
/// angle of at most pi / 2, by Horner's rule: 52 terms, the rest below 2^-480.
WideFixed CircularSeries(const WideFixed& angle, std::uint64_t first) {
    constexpr std::uint64_t kTerms = 52;
    const WideFixed one = WideInteger(1);
    const WideFixed square = Product(angle, angle);
    WideFixed sum = one;
    for (std::uint64_t n = 2 * kTerms + first; n > first; n -= 2) {
        sum = Difference(one, Quotient(Product(square, sum), n * (n - 1)));
    }
    return first == 1 ? Product(angle, sum) : sum;
}

WideFixed WideSineOf(const WideFixed& angle) {
    return CircularSeries(angle, 1);
}
WideFixed WideCosineOf(const WideFixed& angle) {
    return CircularSeries(angle, 0);
}

/// Rounds e to the power of `value`. With k x log(2) taken off and the rest r in
/// [0, log 2): e^r = (e^(r / 256))^256, and the series of e^(r / 256) needs 40
/// terms. Requires a magnitude of at most 746.
double RoundedExponential(const SignedWide& value, bool negated) {
    constexpr std::uint64_t kTerms = 40;
    constexpr int kSquarings = 8;
    constexpr double kOverLogTwo = 1.4426950408889634;
    const WideFixed& magnitude = value.Magnitude;
    auto multiple = static_cast<std::uint64_t>(Approximately(magnitude) * kOverLogTwo);
    WideFixed rest;
    if (value.Negative) {
        multiple++;
        if (IsLess(Product(kWideLogTwo, multiple), magnitude)) multiple++;
        rest = Difference(Product(kWideLogTwo, multiple), magnitude);
    } else {
        if (IsLess(magnitude, Product(kWideLogTwo, multiple))) multiple--;
        rest = Difference(magnitude, Product(kWideLogTwo, multiple));
    }
    const WideFixed part = Scaled(rest, -kSquarings);
    WideFixed power = WideInteger(1);
    for (std::uint64_t n = kTerms; n > 0; n--) {
        power = Sum(WideInteger(1), Quotient(Product(part, power), n));
    }
    for (int i = 0; i < kSquarings; i++)
        power = Product(power, power);
    const int scale = static_cast<int>(multiple);
    return RoundToDouble(negated, power, value.Negative ? -scale : scale);
}

/// Returns the logarithm of a positive double: 2 artanh((m - 1) / (m + 1)) plus e x
/// log(2), where value = m x 2^e and m is between about 0.7 and 1.42. The quotient
/// is one of two whole numbers below 2^55; its square is below 2^-5, so that 92
/// terms leave less than 2^-450.
SignedWide WideLogarithm(double value) {
    constexpr std::uint64_t kTerms = 92;
    constexpr std::uint64_t kAboutRootTwo = kHiddenBit + (kHiddenBit >> 1) - (kHiddenBit >> 4);
    BinaryParts parts = PartsOf(value);
    while (parts.Mantissa < kHiddenBit) {
        parts.Mantissa <<= 1;
        parts.Exponent--;
    }
    int exponent = parts.Exponent + kMantissaBits;
    std::uint64_t one = kHiddenBit;
    if (parts.Mantissa >= kAboutRootTwo) {
        one <<= 1;
        exponent++;
    }
    const bool below = parts.Mantissa < one;
    const std::uint64_t distance = below ? one - parts.Mantissa : parts.Mantissa - one;
    const WideFixed quotient = Quotient(WideInteger(distance), parts.Mantissa + one);
    const WideFixed square = Product(quotient, quotient);
    WideFixed sum;
    for (std::uint64_t n = 2 * kTerms + 1; n >= 1; n -= 2) {
        sum = Sum(Product(square, sum), Quotient(WideInteger(1), n));
        if (n == 1) break;
    }
    const WideFixed logarithm = Scaled(Product(quotient, sum), 1);
    if (exponent == 0) return {below, logarithm};
    const bool negative = exponent < 0;
    const WideFixed whole =
        Product(kWideLogTwo, static_cast<std::uint64_t>(negative ? -exponent : exponent));
    return {negative, negative == below ? Sum(whole, logarithm) : Difference(whole, logarithm)};
}

}  // namespace

double WideSine(double radians, unsigned quarters) {
    const BinaryParts parts = PartsOf(radians);
    WideFixed turn;
    for (std::size_t i = 0; i < kWideLimbs; i++) {
        const auto limb = static_cast<unsigned>(kWideLimbs - 1 - i);
        turn.Limbs[i] = TwoOverPiLimb(parts.Exponent, limb);
    }
    // What overflows here is whole turns. The top two bits are quarters, the rest
    // a fraction of one, which is made one of half a quarter with either sign.
    turn = Product(turn, parts.Mantissa);
    unsigned quarter = static_cast<unsigned>(turn.Limbs[kWideLimbs - 1] >> 62);
    turn.Limbs[kWideLimbs - 1] &= (std::uint64_t{1} << 62) - 1;
    turn = Scaled(turn, -62);
    const bool backwards = IsLess(Half(WideInteger(1)), turn);
    if (backwards) {
        turn = Difference(WideInteger(1), turn);
        quarter++;
    }
    bool negative = radians < 0;
    if (negative && quarters == 1) {
        negative = false;  // The cosine is even.
    }
    quarter += quarters;
    const WideFixed angle = Product(turn, kWideHalfPi);
    if ((quarter & 2) != 0) negative = !negative;
    if ((quarter & 1) != 0) return RoundToDouble(negative, WideCosineOf(angle), 0);
    return RoundToDouble(negative != backwards, WideSineOf(angle), 0);
}

double WideArcTangent(double value, double approximation) {
    // With value = rise / run, both at most 1, and a the approximation, the rest is
    // the arc tangent of (rise cos a - run sin a) / (run cos a + rise sin a), below
    // 2^-44, so that four terms of its series do.
    const double magnitude = value < 0 ? -value : value;
    int exponent = 0;
    while (magnitude > PowerOfTwo(exponent))
        exponent++;
    const WideFixed run = Scaled(WideInteger(1), -exponent);
    const WideFixed rise = Scaled(WideFromDouble(magnitude), -exponent);
    const WideFixed start = WideFromDouble(approximation);
    const WideFixed sine = WideSineOf(start);
    const WideFixed cosine = WideCosineOf(start);
    const SignedWide across = SignedDifference(Product(rise, cosine), Product(run, sine));
    const WideFixed along = Sum(Product(run, cosine), Product(rise, sine));
    const WideFixed tangent = Quotient(across.Magnitude, along);
    const WideFixed square = Product(tangent, tangent);
    WideFixed sum = Quotient(WideInteger(1), 9);
    for (std::uint64_t n = 7; n >= 1; n -= 2) {
        sum = Difference(Quotient(WideInteger(1), n), Product(square, sum));
        if (n == 1) break;
    }
    const WideFixed rest = Product(tangent, sum);
    const WideFixed angle = across.Negative ? Difference(start, rest) : Sum(start, rest);
    return RoundToDouble(value < 0, angle, 0);
}

double WideExponential(double value) {
    return RoundedExponential({value < 0, WideFromDouble(value)}, false);
}

double WidePower(double base, double exponent, bool negated) {
    // The logarithm is at most 745 and the mantissa below 2^53, so their product
    // keeps to the 64 integer bits.
    const SignedWide logarithm = WideLogarithm(base);
    const BinaryParts parts = PartsOf(exponent);
    const WideFixed product = Product(logarithm.Magnitude, parts.Mantissa);
    return RoundedExponential(
        {logarithm.Negative != (exponent < 0), Scaled(product, parts.Exponent)}, negated);
}

}  // namespace runtime
