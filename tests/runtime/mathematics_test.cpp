#include "runtime/mathematics.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

#include "runtime/hard_cases.h"

namespace {

using runtime::ArcTangent;
using runtime::Cosine;
using runtime::Exponential;
using runtime::Power;
using runtime::Sine;

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNotANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double kLargest = std::numeric_limits<double>::max();
constexpr double kSmallest = 0x1p-1074;
constexpr double kPi = 3.141592653589793;

/// Equal, and of the same sign where both are zero.
void ExpectExactly(double found, double right) {
    EXPECT_EQ(found, right);
    EXPECT_EQ(std::signbit(found), std::signbit(right));
}

TEST(Sine, ZeroKeepsItsSign) {
    ExpectExactly(Sine(0.0), 0.0);
    ExpectExactly(Sine(-0.0), -0.0);
}

TEST(Sine, QuarterTurnIsOne) {
    EXPECT_EQ(Sine(90 * kPi / 180), 1.0);
    EXPECT_EQ(Sine(-kPi / 2), -1.0);
}

// The double kPi falls short of pi by 1.2246467991473532e-16, to seventeen digits.
TEST(Sine, HalfTurnIsWhatTheDoubleLacksOfPi) {
    EXPECT_EQ(Sine(kPi), 1.2246467991473532e-16);
}

// pi / 6 as a double is below the true one, so its sine is just below one half.
TEST(Sine, ThirtyDegreesIsJustBelowOneHalf) {
    EXPECT_EQ(Sine(30 * kPi / 180), 0.49999999999999994);
}

TEST(Sine, OfOneHasTheKnownDigits) {
    EXPECT_EQ(Sine(1.0), 0.8414709848078965);
}

TEST(Sine, IsOdd) {
    EXPECT_EQ(Sine(-2.5), -Sine(2.5));
}

TEST(Sine, TinyAnglesAreTheirOwn) {
    EXPECT_EQ(Sine(0x1p-30), 0x1p-30);
    EXPECT_EQ(Sine(-kSmallest), -kSmallest);
}

// x - x^3 / 6 with x = 2^-20: 2^-60 / 6 is 2^12 / 6 = 682.67 of the 2^-72 or 2^-73
// that separate doubles below 2^-20, so 1365.33 of the latter.
TEST(Sine, SmallAnglesFallShortByTheCube) {
    EXPECT_EQ(Sine(0x1p-20), 0x1p-20 - 1365 * 0x1p-73);
}

TEST(Sine, HugeAnglesAreReducedExactly) {
    EXPECT_EQ(Sine(1e22), -0.8522008497671888);
    EXPECT_EQ(Sine(kLargest), 0.004961954789184062);
}

TEST(Sine, OfInfinityIsNotANumber) {
    EXPECT_TRUE(std::isnan(Sine(kInfinity)));
    EXPECT_TRUE(std::isnan(Sine(-kInfinity)));
    EXPECT_TRUE(std::isnan(Sine(kNotANumber)));
}

TEST(Cosine, OfZeroIsOne) {
    EXPECT_EQ(Cosine(0.0), 1.0);
    EXPECT_EQ(Cosine(-0.0), 1.0);
    EXPECT_EQ(Cosine(kSmallest), 1.0);
}

TEST(Cosine, HalfTurnIsMinusOne) {
    EXPECT_EQ(Cosine(kPi), -1.0);
}

TEST(Cosine, QuarterTurnIsWhatTheDoubleLacksOfHalfPi) {
    EXPECT_EQ(Cosine(kPi / 2), 6.123233995736766e-17);
}

TEST(Cosine, SixtyDegreesIsJustAboveOneHalf) {
    EXPECT_EQ(Cosine(kPi / 3), 0.5000000000000001);
}

TEST(Cosine, IsEven) {
    EXPECT_EQ(Cosine(-2.5), Cosine(2.5));
}

// 1 - x^2 / 2 with x = 2^-26 is 1 - 2^-53, the double below 1, and the rest of the
// series is far below.
TEST(Cosine, SmallAnglesFallShortByHalfTheSquare) {
    EXPECT_EQ(Cosine(0x1p-26), 1 - 0x1p-53);
}

TEST(Cosine, OfInfinityIsNotANumber) {
    EXPECT_TRUE(std::isnan(Cosine(kInfinity)));
    EXPECT_TRUE(std::isnan(Cosine(kNotANumber)));
}

TEST(ArcTangent, ZeroKeepsItsSign) {
    ExpectExactly(ArcTangent(0.0), 0.0);
    ExpectExactly(ArcTangent(-0.0), -0.0);
}

TEST(ArcTangent, OfOneIsAQuarterOfPi) {
    EXPECT_EQ(ArcTangent(1.0), kPi / 4);
    EXPECT_EQ(ArcTangent(-1.0), -kPi / 4);
}

TEST(ArcTangent, OfInfinityIsHalfOfPi) {
    EXPECT_EQ(ArcTangent(kInfinity), kPi / 2);
    EXPECT_EQ(ArcTangent(-kInfinity), -kPi / 2);
    EXPECT_EQ(ArcTangent(kLargest), kPi / 2);
    EXPECT_TRUE(std::isnan(ArcTangent(kNotANumber)));
}

TEST(ArcTangent, OfTwoAndOneHalfHaveTheKnownDigits) {
    EXPECT_EQ(ArcTangent(2.0), 1.1071487177940904);
    EXPECT_EQ(ArcTangent(0.5), 0.4636476090008061);
}

TEST(ArcTangent, TinyNumbersAreTheirOwn) {
    EXPECT_EQ(ArcTangent(0x1p-30), 0x1p-30);
    EXPECT_EQ(ArcTangent(-kSmallest), -kSmallest);
}

TEST(Exponential, OfZeroIsOne) {
    EXPECT_EQ(Exponential(0.0), 1.0);
    EXPECT_EQ(Exponential(-0.0), 1.0);
    EXPECT_EQ(Exponential(kSmallest), 1.0);
}

TEST(Exponential, OfOneIsE) {
    EXPECT_EQ(Exponential(1.0), 2.718281828459045);
}

// e^(2^-53) = 1 + 2^-53 + 2^-107 + ..., just above the middle between 1 and the next.
TEST(Exponential, JustAboveTheMiddleRoundsUp) {
    EXPECT_EQ(Exponential(0x1p-53), 1 + 0x1p-52);
    EXPECT_EQ(Exponential(0x1.fffffffffffffp-54), 1.0);
}

// e^(-2^-54) = 1 - 2^-54 + 2^-109 - ..., just above the middle below 1.
TEST(Exponential, JustAboveTheMiddleBelowOneRoundsToOne) {
    EXPECT_EQ(Exponential(-0x1p-54), 1.0);
}

TEST(Exponential, LargestArgumentIsTheKnownOne) {
    EXPECT_LT(Exponential(709.782712893384), kInfinity);
    EXPECT_EQ(Exponential(std::nextafter(709.782712893384, 710)), kInfinity);
}

TEST(Exponential, SmallestArgumentIsTheKnownOne) {
    EXPECT_EQ(Exponential(-745.1332191019411), kSmallest);
    EXPECT_EQ(Exponential(-745.1332191019412), 0.0);
}

TEST(Exponential, OfInfinities) {
    EXPECT_EQ(Exponential(kInfinity), kInfinity);
    ExpectExactly(Exponential(-kInfinity), 0.0);
    EXPECT_TRUE(std::isnan(Exponential(kNotANumber)));
}

TEST(Power, ExactPowersAreExact) {
    EXPECT_EQ(Power(3, 4), 81.0);
    EXPECT_EQ(Power(10, 22), 1e22);
    EXPECT_EQ(Power(81, 0.25), 3.0);
    EXPECT_EQ(Power(2, -3), 0.125);
    EXPECT_EQ(Power(2.25, 1.5), 3.375);
}

// 3^34 = 16677181699666569 has 54 bits and is odd; 3^34 - 1 halved is even.
TEST(Power, MiddleBetweenTwoDoublesGoesToTheEvenOne) {
    EXPECT_EQ(Power(3, 34), 16677181699666568.0);
    EXPECT_EQ(Power(-3, 34), 16677181699666568.0);
}

// 7^19 = 11398895185373143 = 4 x 2849723796343285 + 3, so the even one is above.
TEST(Power, MiddleGoesUpWhereTheEvenOneIsAbove) {
    EXPECT_EQ(Power(7, 19), 11398895185373144.0);
}

// (3 x 2^-538)^2 = 9 x 2^-1076 = 2.25 x 2^-1074.
TEST(Power, SubnormalResultsAreRoundedOnce) {
    EXPECT_EQ(Power(0x1.8p-537, 2), 2 * kSmallest);
    EXPECT_EQ(Power(2, -1074), kSmallest);
}

// 2^-1075 is the middle between zero and the smallest number, and zero is even. (3 x
// 2^-215)^5 = 243 x 2^-1075 is 121.5 of that number, (5 x 2^-215)^5 is 1562.5.
TEST(Power, SubnormalMiddleGoesToTheEvenOne) {
    ExpectExactly(Power(2, -1075), 0.0);
    EXPECT_EQ(Power(3 * 0x1p-215, 5), 122 * kSmallest);
    EXPECT_EQ(Power(5 * 0x1p-215, 5), 1562 * kSmallest);
}

TEST(Power, SquareRootsAgreeWithTheExactOnes) {
    for (int i = 1; i < 5000; i++)
        EXPECT_EQ(Power(i, 0.5), std::sqrt(i)) << i;
}

// The square root of 1 + 2^-52 is 1 + 2^-53 - 2^-107 + ..., just below the middle.
TEST(Power, JustBelowTheMiddleRoundsDown) {
    EXPECT_EQ(Power(1 + 0x1p-52, 0.5), 1.0);
}

TEST(Power, DepthLimitsOfSmallSizes) {
    EXPECT_EQ(static_cast<int>(Power(10, 0.17)), 1);
    EXPECT_EQ(static_cast<int>(Power(10, 0.2)), 1);
    EXPECT_EQ(static_cast<int>(Power(48, 0.2)), 2);
    EXPECT_EQ(static_cast<int>(Power(48, 0.17)), 1);
    EXPECT_EQ(Power(32, 0.2), 2.0);
}

TEST(Power, OverflowsAndUnderflowsWithTheSignOfOddPowers) {
    EXPECT_EQ(Power(2, 1024), kInfinity);
    EXPECT_EQ(Power(-2, 1025), -kInfinity);
    EXPECT_EQ(Power(-2, 1026), kInfinity);
    ExpectExactly(Power(-2, -1077), -0.0);
    ExpectExactly(Power(-2, -1078), 0.0);
    EXPECT_EQ(Power(kLargest, 1), kLargest);
}

TEST(Power, ExponentZeroAndBaseOneGiveOneWhateverTheOther) {
    EXPECT_EQ(Power(kNotANumber, 0.0), 1.0);
    EXPECT_EQ(Power(0.0, -0.0), 1.0);
    EXPECT_EQ(Power(kInfinity, 0.0), 1.0);
    EXPECT_EQ(Power(1.0, kNotANumber), 1.0);
    EXPECT_EQ(Power(1.0, -kInfinity), 1.0);
}

TEST(Power, NotANumberOtherwiseStays) {
    EXPECT_TRUE(std::isnan(Power(kNotANumber, 1.0)));
    EXPECT_TRUE(std::isnan(Power(2.0, kNotANumber)));
}

TEST(Power, NegativeBaseNeedsAWholeExponent) {
    EXPECT_TRUE(std::isnan(Power(-2.0, 0.5)));
    EXPECT_EQ(Power(-2.0, 3.0), -8.0);
    EXPECT_EQ(Power(-2.0, -2.0), 0.25);
    EXPECT_EQ(Power(-1.0, 0x1p53), 1.0);
    EXPECT_EQ(Power(-1.0, 0x1p53 - 1), -1.0);
}

TEST(Power, OfZeroes) {
    ExpectExactly(Power(0.0, 3.0), 0.0);
    ExpectExactly(Power(-0.0, 3.0), -0.0);
    ExpectExactly(Power(-0.0, 2.0), 0.0);
    ExpectExactly(Power(-0.0, 0.5), 0.0);
    EXPECT_EQ(Power(0.0, -3.0), kInfinity);
    EXPECT_EQ(Power(-0.0, -3.0), -kInfinity);
    EXPECT_EQ(Power(-0.0, -2.0), kInfinity);
    EXPECT_EQ(Power(0.0, -kInfinity), kInfinity);
    ExpectExactly(Power(-0.0, kInfinity), 0.0);
}

TEST(Power, OfInfiniteBases) {
    EXPECT_EQ(Power(kInfinity, 0.5), kInfinity);
    ExpectExactly(Power(kInfinity, -0.5), 0.0);
    EXPECT_EQ(Power(-kInfinity, 3.0), -kInfinity);
    EXPECT_EQ(Power(-kInfinity, 2.0), kInfinity);
    EXPECT_EQ(Power(-kInfinity, 0.5), kInfinity);
    ExpectExactly(Power(-kInfinity, -3.0), -0.0);
    ExpectExactly(Power(-kInfinity, -2.0), 0.0);
}

TEST(Power, OfInfiniteExponents) {
    EXPECT_EQ(Power(-1.0, kInfinity), 1.0);
    EXPECT_EQ(Power(-1.0, -kInfinity), 1.0);
    EXPECT_EQ(Power(0.5, -kInfinity), kInfinity);
    ExpectExactly(Power(-0.5, kInfinity), 0.0);
    EXPECT_EQ(Power(-1.5, kInfinity), kInfinity);
    ExpectExactly(Power(1.5, -kInfinity), 0.0);
}

TEST(HardCases, WideArithmeticAgreesWithTheFastOne) {
    for (int i = 1; i < 500; i++) {
        const double x = i * 0.05;
        EXPECT_EQ(runtime::WideSine(x, 0), Sine(x)) << x;
        EXPECT_EQ(runtime::WideSine(x, 1), Cosine(x)) << x;
        EXPECT_EQ(runtime::WideArcTangent(x, ArcTangent(x)), ArcTangent(x)) << x;
        EXPECT_EQ(runtime::WideExponential(x), Exponential(x)) << x;
        EXPECT_EQ(runtime::WidePower(x + 1, -x, false), Power(x + 1, -x)) << x;
    }
}

}  // namespace
