// Compares runtime/mathematics.h with MPFR, which rounds correctly:
//
//     mathematics_against_mpfr SEED COUNT
//
// COUNT arguments are shared out among kinds of arguments: those that pictures
// are made of, random ones over the whole range, and known hard ones (all of
// them, whatever COUNT is). Prints per kind how many were compared and how many
// differ; the exit status is 1 when any does.
#include <array>
#include <bit>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <mpfr.h>
#include <random>

#include "runtime/hard_cases.h"
#include "runtime/mathematics.h"
#include "tests/runtime/hard_arguments.h"

namespace {

constexpr double kPi = 3.141592653589793;

using runtime_tests::Function;

struct Arguments {
    double First;
    double Second;
};

class Draws {
public:
    explicit Draws(std::uint64_t seed) : engine_(seed) {}

    std::uint64_t Bits() { return engine_(); }
    /// Returns a whole number from `least` to `most`.
    int Whole(int least, int most) {
        const auto span = static_cast<std::uint64_t>(most - least) + 1;
        return least + static_cast<int>(Bits() % span);
    }
    /// Returns a double from 0 up to 1.
    double Unit() { return static_cast<double>(Bits() >> 11) * 0x1p-53; }
    /// Returns a double of any sign and mantissa, magnitude from 2^least to 2^(most + 1).
    double Spread(int least, int most) {
        const double magnitude = std::ldexp(1.0 + Unit(), Whole(least, most));
        return (Bits() & 1) != 0 ? -magnitude : magnitude;
    }

private:
    std::mt19937_64 engine_;
};

double Computed(Function function, Arguments a) {
    switch (function) {
        case Function::kSine:
            return runtime::Sine(a.First);
        case Function::kCosine:
            return runtime::Cosine(a.First);
        case Function::kArcTangent:
            return runtime::ArcTangent(a.First);
        case Function::kExponential:
            return runtime::Exponential(a.First);
        case Function::kPower:
            return runtime::Power(a.First, a.Second);
    }
    return 0;
}

/// The slow phase alone, on arguments that it takes.
double ComputedWide(Function function, Arguments a) {
    switch (function) {
        case Function::kSine:
            return runtime::WideSine(a.First, 0);
        case Function::kCosine:
            return runtime::WideSine(a.First, 1);
        case Function::kArcTangent:
            return runtime::WideArcTangent(a.First, std::fabs(runtime::ArcTangent(a.First)));
        case Function::kExponential:
            return runtime::WideExponential(a.First);
        case Function::kPower:
            return runtime::WidePower(a.First, a.Second, false);
    }
    return 0;
}

/// MPFR's result as a double, subnormal numbers rounded once.
class Judge {
public:
    Judge() {
        mpfr_set_emin(-1073);
        mpfr_set_emax(1024);
        mpfr_inits2(53, first_, second_, result_, static_cast<mpfr_ptr>(nullptr));
    }
    ~Judge() { mpfr_clears(first_, second_, result_, static_cast<mpfr_ptr>(nullptr)); }
    Judge(const Judge&) = delete;
    Judge& operator=(const Judge&) = delete;

    double Right(Function function, Arguments a) {
        mpfr_set_d(first_, a.First, MPFR_RNDN);
        mpfr_set_d(second_, a.Second, MPFR_RNDN);
        const int direction = Apply(function);
        mpfr_subnormalize(result_, direction, MPFR_RNDN);
        return mpfr_get_d(result_, MPFR_RNDN);
    }

private:
    int Apply(Function function) {
        switch (function) {
            case Function::kSine:
                return mpfr_sin(result_, first_, MPFR_RNDN);
            case Function::kCosine:
                return mpfr_cos(result_, first_, MPFR_RNDN);
            case Function::kArcTangent:
                return mpfr_atan(result_, first_, MPFR_RNDN);
            case Function::kExponential:
                return mpfr_exp(result_, first_, MPFR_RNDN);
            case Function::kPower:
                return mpfr_pow(result_, first_, second_, MPFR_RNDN);
        }
        return 0;
    }

    mpfr_t first_, second_, result_;
};

Arguments WholeDegrees(Draws& draws) {
    return {draws.Whole(-3600, 36000) * kPi / 180.0, 0};
}

Arguments FractionalDegrees(Draws& draws) {
    const double numerator = draws.Whole(0, 100000);
    return {numerator / draws.Whole(1, 512) * kPi / 180.0, 0};
}

/// A start in degrees that went on by 360 / F for some frames.
Arguments AccumulatedPhase(Draws& draws) {
    const int frames = draws.Whole(1, 256);
    double phase = draws.Whole(0, 359);
    const int steps = draws.Whole(0, 3 * frames);
    for (int i = 0; i < steps; i++)
        phase += 1.0 / frames * 360.0;
    return {phase * kPi / 180.0, 0};
}

/// As the rings of shaded balls have it, half of them in single precision.
Arguments RingAngle(Draws& draws) {
    const int radius = draws.Whole(1, 2048);
    const int i = draws.Whole(0, radius - 1);
    if ((draws.Bits() & 1) != 0) return {static_cast<double>(i) / radius * 90.0 * kPi / 180.0, 0};
    const float degrees = static_cast<float>(i) / static_cast<float>(radius) * 90.0f;
    return {static_cast<double>(degrees) * kPi / 180.0, 0};
}

Arguments RandomPhase(Draws& draws) {
    return {draws.Whole(0, 32767) * 2 * kPi / 32767.0, 0};
}

Arguments Turns(Draws& draws) {
    return {(draws.Unit() - 0.5) * 200.0, 0};
}
Arguments SmallAngle(Draws& draws) {
    return {draws.Spread(-40, 2), 0};
}
Arguments AnyNumber(Draws& draws) {
    for (;;) {
        const auto value = std::bit_cast<double>(draws.Bits());
        if (std::isfinite(value)) return {value, 0};
    }
}

Arguments NearQuarterTurn(Draws& draws) {
    return {draws.Whole(-100000, 100000) * kPi / 2 * (1 + draws.Whole(-3, 3) * 0x1p-52), 0};
}

Arguments QuotientOfWholes(Draws& draws) {
    const double numerator = draws.Whole(-4096, 4096);
    return {numerator / draws.Whole(1, 4096), 0};
}
Arguments QuotientOfSingles(Draws& draws) {
    const auto numerator = static_cast<float>(draws.Whole(-4096, 4096));
    const auto denominator = static_cast<float>(draws.Whole(1, 4096));
    return {static_cast<double>(numerator / denominator), 0};
}
Arguments AnyTangent(Draws& draws) {
    return {draws.Spread(-30, 62), 0};
}
Arguments MiddleTangent(Draws& draws) {
    return {draws.Spread(-8, 8), 0};
}

Arguments TenthsExponent(Draws& draws) {
    return {draws.Whole(-7000, 7000) / 10.0, 0};
}
Arguments WholeExponentialRange(Draws& draws) {
    return {draws.Unit() * 1456.0 - 746.0, 0};
}
Arguments SmallExponential(Draws& draws) {
    return {draws.Spread(-56, 5), 0};
}
Arguments SubnormalExponential(Draws& draws) {
    return {-708.0 - draws.Unit() * 38.0, 0};
}

/// i^2 + j^2 to a power of -(h + 1) / 2 with h from fractal dimensions.
Arguments SpectrumPower(Draws& draws) {
    const int i = draws.Whole(0, 512);
    const int j = draws.Whole(1, 512);
    const double dimension = draws.Whole(0, 300) / 100.0;
    return {static_cast<double>(i * i + j * j), -(dimension + 1) / 2};
}
Arguments SizePower(Draws& draws) {
    const double size = static_cast<double>(static_cast<float>(draws.Unit() * 1000 + 1));
    return {size, (draws.Bits() & 1) != 0 ? 0.2 : 0.17};
}
Arguments WholePower(Draws& draws) {
    return {static_cast<double>(draws.Whole(-40, 40)), static_cast<double>(draws.Whole(-40, 40))};
}
Arguments TenthsPower(Draws& draws) {
    return {draws.Unit() * 10, draws.Whole(1, 100) / 10.0};
}
Arguments SinglePower(Draws& draws) {
    const auto percent = static_cast<float>(draws.Whole(0, 150)) / 100.0f;
    return {static_cast<double>(static_cast<float>(draws.Unit() * 4)),
            static_cast<double>(percent)};
}
Arguments HalfPower(Draws& draws) {
    return {draws.Unit(), 0.5};
}
Arguments AnyPower(Draws& draws) {
    const double base = std::fabs(draws.Spread(-1074, 1023));
    return {base, (draws.Unit() - 0.5) * 2160 / (std::log2(base) + 0.001)};
}
Arguments PowerNearOne(Draws& draws) {
    const double base = 1 + draws.Spread(-52, -3);
    return {base, draws.Spread(-60, 62)};
}
/// Results of at most 54 bits, many of which lie midway between two doubles.
Arguments MiddlePower(Draws& draws) {
    const int exponent = draws.Whole(2, 6);
    const int bits = 54 / exponent;
    const double base = static_cast<double>(draws.Bits() >> (64 - bits) | 1);
    return {std::ldexp(base, draws.Whole(-200, 200)), static_cast<double>(exponent)};
}
/// Squares and cubes below the normal numbers, where fewer bits make a middle.
Arguments SubnormalPower(Draws& draws) {
    const double base = static_cast<double>(draws.Whole(1, 65535));
    return {std::ldexp(base, draws.Whole(-545, -530)), 2.0};
}
Arguments RootPower(Draws& draws) {
    const double root = draws.Whole(1, 8191);
    const int order = draws.Whole(1, 2);
    const double base = order == 1 ? root * root : root * root * root * root;
    return {std::ldexp(base, 4 * draws.Whole(-100, 100)), draws.Whole(-9, 9) * 0.25};
}

Arguments WideAngle(Draws& draws) {
    return {draws.Spread(-26, 1022), 0};
}
Arguments WideTangent(Draws& draws) {
    return {draws.Spread(-26, 58), 0};
}
Arguments WidePowerArguments(Draws& draws) {
    for (;;) {
        const Arguments drawn = AnyPower(draws);
        const double logarithm = std::fabs(drawn.Second * std::log(drawn.First));
        if (logarithm > 0x1p-59 && logarithm < 745.5) return drawn;
    }
}

struct Kind {
    Function Which;
    const char* Name;
    Arguments (*Draw)(Draws&);
    /// How many arguments in a thousand are of this kind.
    int PerMille;
    double (*Compute)(Function, Arguments) = Computed;
};

constexpr std::array kKinds = {
    Kind{Function::kSine, "sine of whole degrees", WholeDegrees, 30},
    Kind{Function::kSine, "sine of fractions of degrees", FractionalDegrees, 40},
    Kind{Function::kSine, "sine of accumulated phases", AccumulatedPhase, 40},
    Kind{Function::kSine, "sine of ring angles", RingAngle, 30},
    Kind{Function::kSine, "sine of random phases", RandomPhase, 10},
    Kind{Function::kSine, "sine of some turns", Turns, 50},
    Kind{Function::kSine, "sine of small angles", SmallAngle, 40},
    Kind{Function::kSine, "sine of any number", AnyNumber, 40},
    Kind{Function::kSine, "sine near quarter turns", NearQuarterTurn, 20},
    Kind{Function::kCosine, "cosine of whole degrees", WholeDegrees, 30},
    Kind{Function::kCosine, "cosine of fractions of degrees", FractionalDegrees, 40},
    Kind{Function::kCosine, "cosine of accumulated phases", AccumulatedPhase, 40},
    Kind{Function::kCosine, "cosine of random phases", RandomPhase, 10},
    Kind{Function::kCosine, "cosine of some turns", Turns, 50},
    Kind{Function::kCosine, "cosine of small angles", SmallAngle, 40},
    Kind{Function::kCosine, "cosine of any number", AnyNumber, 40},
    Kind{Function::kCosine, "cosine near quarter turns", NearQuarterTurn, 20},
    Kind{Function::kArcTangent, "arc tangent of quotients", QuotientOfWholes, 30},
    Kind{Function::kArcTangent, "arc tangent of single quotients", QuotientOfSingles, 30},
    Kind{Function::kArcTangent, "arc tangent over the range", AnyTangent, 30},
    Kind{Function::kArcTangent, "arc tangent near one", MiddleTangent, 30},
    Kind{Function::kArcTangent, "arc tangent of any number", AnyNumber, 10},
    Kind{Function::kExponential, "exponential of tenths", TenthsExponent, 10},
    Kind{Function::kExponential, "exponential over the range", WholeExponentialRange, 40},
    Kind{Function::kExponential, "exponential of small numbers", SmallExponential, 40},
    Kind{Function::kExponential, "exponential, subnormal", SubnormalExponential, 5},
    Kind{Function::kPower, "power of spectra", SpectrumPower, 40},
    Kind{Function::kPower, "power of sizes", SizePower, 20},
    Kind{Function::kPower, "power of whole numbers", WholePower, 10},
    Kind{Function::kPower, "power of tenths", TenthsPower, 20},
    Kind{Function::kPower, "power of singles", SinglePower, 20},
    Kind{Function::kPower, "power one half", HalfPower, 10},
    Kind{Function::kPower, "power over the range", AnyPower, 30},
    Kind{Function::kPower, "power near one", PowerNearOne, 20},
    Kind{Function::kPower, "power midway between doubles", MiddlePower, 5},
    Kind{Function::kPower, "power, subnormal", SubnormalPower, 5},
    Kind{Function::kPower, "power of roots", RootPower, 5},
    Kind{Function::kSine, "sine, slow phase", WideAngle, 5, ComputedWide},
    Kind{Function::kCosine, "cosine, slow phase", WideAngle, 5, ComputedWide},
    Kind{Function::kArcTangent, "arc tangent, slow phase", WideTangent, 3, ComputedWide},
    Kind{Function::kExponential, "exponential, slow phase", WholeExponentialRange, 3,
         [](Function function, Arguments a) {
             return a.First > 709.9 || std::fabs(a.First) < 0x1p-59 ? Computed(function, a)
                                                                    : ComputedWide(function, a);
         }},
    Kind{Function::kPower, "power, slow phase", WidePowerArguments, 4, ComputedWide},
};

class Comparison {
public:
    explicit Comparison(const char* name) : name_(name) {}

    void Compare(Judge& judge, Function function, Arguments a, double found) {
        const double right = judge.Right(function, a);
        compared_++;
        if (std::isnan(right) && std::isnan(found)) return;
        if (std::bit_cast<std::uint64_t>(right) == std::bit_cast<std::uint64_t>(found)) return;
        if (different_++ < 3) {
            std::printf("  %s: (%a, %a) gives %a, not %a\n", name_, a.First, a.Second, found,
                        right);
        }
    }
    /// Prints the line of this kind and returns how many differ.
    long Report() const {
        std::printf("%-34s %9ld compared, %ld differ\n", name_, compared_, different_);
        return different_;
    }
    long Compared() const { return compared_; }

private:
    const char* name_;
    long compared_ = 0;
    long different_ = 0;
};

}  // namespace

int main(int argument_count, char** arguments) {
    if (argument_count != 3) {
        std::fprintf(stderr, "usage: %s SEED COUNT\n", arguments[0]);
        return 2;
    }
    Draws draws(std::strtoull(arguments[1], nullptr, 10));
    const long count = std::strtol(arguments[2], nullptr, 10);
    Judge judge;
    long compared = 0;
    long different = 0;
    for (const Kind& kind : kKinds) {
        Comparison comparison(kind.Name);
        for (long i = 0; i < count * kind.PerMille / 1000 + 1; i++) {
            const Arguments a = kind.Draw(draws);
            comparison.Compare(judge, kind.Which, a, kind.Compute(kind.Which, a));
        }
        different += comparison.Report();
        compared += comparison.Compared();
    }
    Comparison hard("hard arguments");
    for (const runtime_tests::HardArguments& one : runtime_tests::kHardArguments) {
        const Arguments a = {one.First, one.Second};
        hard.Compare(judge, one.Which, a, Computed(one.Which, a));
    }
    different += hard.Report();
    compared += hard.Compared();
    std::printf("%ld compared, %ld differ\n", compared, different);
    return different == 0 ? 0 : 1;
}
