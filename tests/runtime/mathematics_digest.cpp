// Prints digests of COUNT results of each function of runtime/, on arguments made
// of whole numbers, so that two builds can be compared:
//
//     mathematics_digest COUNT
//
// The digest is FNV-1a over the bits of the results. Every line covers a part of
// them, so that a difference shows where it is.
#include <bit>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

#include "runtime/mathematics.h"
#include "runtime/random.h"
#include "tests/runtime/hard_arguments.h"

namespace {

using runtime_tests::Function;

class Digest {
public:
    void Add(std::uint64_t bits) {
        for (int i = 0; i < 64; i += 8)
            value_ = (value_ ^ (bits >> i & 0xFF)) * 0x100000001B3;
    }
    void Add(double value) { Add(std::bit_cast<std::uint64_t>(value)); }
    void Print(const char* name) const {
        std::printf("%-24s %016llx\n", name, static_cast<unsigned long long>(value_));
    }

private:
    std::uint64_t value_ = 0xCBF29CE484222325;
};

/// A linear congruential sequence of 64 bits, the multiplier Knuth's.
class Sequence {
public:
    std::uint64_t Next() {
        state_ = state_ * 6364136223846793005u + 1442695040888963407u;
        return state_ >> 12 ^ state_ << 20;
    }
    /// Returns a double from `least` up to `most`.
    double Between(double least, double most) {
        return least + (most - least) * (static_cast<double>(Next() >> 11) * 0x1p-53);
    }
    /// Returns any double whatever, infinities and NaN among them.
    double Any() { return std::bit_cast<double>(Next()); }

private:
    std::uint64_t state_ = 1;
};

template <typename Result>
void PrintDigest(const char* name, long count, Result result) {
    Digest digest;
    for (long i = 0; i < count; i++)
        digest.Add(result());
    digest.Print(name);
}

double HardResult(const runtime_tests::HardArguments& one) {
    switch (one.Which) {
        case Function::kSine:
            return runtime::Sine(one.First);
        case Function::kCosine:
            return runtime::Cosine(one.First);
        case Function::kArcTangent:
            return runtime::ArcTangent(one.First);
        case Function::kExponential:
            return runtime::Exponential(one.First);
        case Function::kPower:
            return runtime::Power(one.First, one.Second);
    }
    return 0;
}

}  // namespace

int main(int argument_count, char** arguments) {
    if (argument_count != 2) {
        std::fprintf(stderr, "usage: %s COUNT\n", arguments[0]);
        return 2;
    }
    const long count = std::strtol(arguments[1], nullptr, 10);
    using runtime::ArcTangent, runtime::Cosine, runtime::Exponential, runtime::Power, runtime::Sine;
    Sequence s;
    PrintDigest("sine", count, [&s] { return Sine(s.Between(-50, 50)); });
    PrintDigest("sine of any", count, [&s] { return Sine(s.Any()); });
    PrintDigest("cosine", count, [&s] { return Cosine(s.Between(-50, 50)); });
    PrintDigest("cosine of any", count, [&s] { return Cosine(s.Any()); });
    PrintDigest("arc tangent", count, [&s] { return ArcTangent(s.Between(-8, 8)); });
    PrintDigest("arc tangent of any", count, [&s] { return ArcTangent(s.Any()); });
    PrintDigest("exponential", count, [&s] { return Exponential(s.Between(-750, 715)); });
    PrintDigest("exponential of any", count, [&s] { return Exponential(s.Any()); });
    PrintDigest("power", count, [&s] {
        const double base = s.Between(0, 5000);
        return Power(base, s.Between(-80, 80));
    });
    PrintDigest("power of any", count, [&s] {
        const double base = s.Any();
        return Power(base, s.Any());
    });
    Digest hard;
    for (const runtime_tests::HardArguments& one : runtime_tests::kHardArguments) {
        hard.Add(HardResult(one));
    }
    hard.Print("hard arguments");
    runtime::srand(1234);
    PrintDigest("draws", count, [] { return static_cast<std::uint64_t>(runtime::rand()); });
    return 0;
}
