// Elementary functions in double precision, correctly rounded (to nearest, ties
// to even): each has one right answer, so both builds and every machine agree to
// the last bit. The C libraries differ there.
//
// Square root, floor and the four operations are exact by IEEE 754 and need no
// place here.
#pragma once

namespace runtime {

[[nodiscard]] double Sine(double radians);
[[nodiscard]] double Cosine(double radians);
[[nodiscard]] double ArcTangent(double value);
/// Special cases as in C's `pow`.
[[nodiscard]] double Power(double base, double exponent);
[[nodiscard]] double Exponential(double value);

}  // namespace runtime
