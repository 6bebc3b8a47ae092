// The constants of runtime/mathematics.h, made by tools/make-mathematics-tables.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "runtime/double_double.h"
#include "runtime/wide_fixed.h"

namespace runtime {

/// The binary digits of 2 / pi, most significant limb first, after two limbs of
/// zeros, so that a window may begin before the binary point.
inline constexpr std::size_t kTwoOverPiLimbs = 26;
extern const std::array<std::uint64_t, kTwoOverPiLimbs> kTwoOverPi;

extern const WideFixed kWideHalfPi;
extern const WideFixed kWideLogTwo;

/// sin(i x pi / 512): a quarter of a turn.
inline constexpr std::size_t kSineSteps = 256;
extern const std::array<DoubleDouble, kSineSteps + 1> kSines;

/// 2 to the power i / 128.
inline constexpr std::size_t kRootSteps = 128;
extern const std::array<DoubleDouble, kRootSteps> kRootsOfTwo;

/// For m near (i + kFirstLogarithmStep) / 256: a reciprocal of at most eleven
/// bits, and the logarithm of what it stands for.
struct LogarithmStep {
    double Reciprocal;
    DoubleDouble Logarithm;
};
inline constexpr std::size_t kFirstLogarithmStep = 181;
inline constexpr std::size_t kLogarithmSteps = 182;
extern const std::array<LogarithmStep, kLogarithmSteps> kLogarithms;

/// atan(i / 128).
inline constexpr std::size_t kArcTangentSteps = 128;
extern const std::array<DoubleDouble, kArcTangentSteps + 1> kArcTangents;

}  // namespace runtime
