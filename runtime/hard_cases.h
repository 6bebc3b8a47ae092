// The functions of runtime/mathematics.h in some 400 bits, for arguments whose
// results lie so close to the middle between two doubles that double-double
// arithmetic cannot tell the side. Slow (some microseconds), and complete: each
// gives the right result for all the arguments that it takes, not the hard ones
// alone.
//
// Sine, cosine, arc tangent and exponential of a double are never themselves
// such a middle, except where the results are plain (zero, one). Lefevre and
// Muller ("Worst cases for correct rounding of the elementary functions in
// double precision") found none closer than about 2^-120 of the result in the
// ranges that could be searched. A power can be a middle exactly, as 3^34 is; one
// that comes within 2^-348 of a middle is taken to be it. That nothing else comes
// so close is not proven, but over all pairs of arguments the expected number of
// such powers is below 2^-160.
#pragma once

namespace runtime {

/// Returns the sine of `radians` plus `quarters` quarter turns (0 or 1). Requires
/// 2^-27 <= |radians|, finite.
[[nodiscard]] double WideSine(double radians, unsigned quarters);

/// Requires 2^-27 <= |value| < 2^60, and `approximation` within a relative 2^-45
/// of the result.
[[nodiscard]] double WideArcTangent(double value, double approximation);

/// Requires 2^-60 <= |value| <= 746.
[[nodiscard]] double WideExponential(double value);

/// Returns base^exponent, negated where told. Requires base > 0, finite; 2^-60 <=
/// |exponent x log(base)| <= 746.
[[nodiscard]] double WidePower(double base, double exponent, bool negated);

}  // namespace runtime
