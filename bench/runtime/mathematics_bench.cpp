// The functions of runtime/mathematics.h beside the C library's, on arguments as
// pictures have them.
#include <array>
#include <benchmark/benchmark.h>
#include <cmath>
#include <cstddef>

#include "runtime/hard_cases.h"
#include "runtime/mathematics.h"

namespace {

constexpr std::size_t kCount = 4096;

std::array<double, kCount> Evenly(double least, double most) {
    std::array<double, kCount> values;
    for (std::size_t i = 0; i < kCount; i++) {
        values[i] = least + (most - least) * static_cast<double>(i * 2477 % kCount) / kCount;
    }
    return values;
}

template <typename Evaluate>
void OverRange(benchmark::State& state, double least, double most, Evaluate evaluate) {
    const std::array<double, kCount> values = Evenly(least, most);
    std::size_t i = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(evaluate(values[i]));
        i = (i + 1) % kCount;
    }
}

void Sine(benchmark::State& state) {
    OverRange(state, 0, 25, runtime::Sine);
}
void LibrarySine(benchmark::State& state) {
    OverRange(state, 0, 25, [](double x) { return std::sin(x); });
}
void HugeSine(benchmark::State& state) {
    OverRange(state, 1e200, 1e201, runtime::Sine);
}
void WideSine(benchmark::State& state) {
    OverRange(state, 0.1, 25, [](double x) { return runtime::WideSine(x, 0); });
}
void Cosine(benchmark::State& state) {
    OverRange(state, 0, 25, runtime::Cosine);
}
void ArcTangent(benchmark::State& state) {
    OverRange(state, -4, 4, runtime::ArcTangent);
}
void LibraryArcTangent(benchmark::State& state) {
    OverRange(state, -4, 4, [](double x) { return std::atan(x); });
}
void Exponential(benchmark::State& state) {
    OverRange(state, -20, 20, runtime::Exponential);
}
void LibraryExponential(benchmark::State& state) {
    OverRange(state, -20, 20, [](double x) { return std::exp(x); });
}
void Power(benchmark::State& state) {
    OverRange(state, 0, 1000, [](double x) { return runtime::Power(x, -1.3); });
}
void LibraryPower(benchmark::State& state) {
    OverRange(state, 0, 1000, [](double x) { return std::pow(x, -1.3); });
}
void WidePower(benchmark::State& state) {
    OverRange(state, 2, 1000, [](double x) { return runtime::WidePower(x, -1.3, false); });
}
void WideArcTangent(benchmark::State& state) {
    OverRange(state, 0.1, 4,
              [](double x) { return runtime::WideArcTangent(x, runtime::ArcTangent(x)); });
}

BENCHMARK(Sine);
BENCHMARK(LibrarySine);
BENCHMARK(HugeSine);
BENCHMARK(WideSine);
BENCHMARK(Cosine);
BENCHMARK(ArcTangent);
BENCHMARK(LibraryArcTangent);
BENCHMARK(WideArcTangent);
BENCHMARK(Exponential);
BENCHMARK(LibraryExponential);
BENCHMARK(Power);
BENCHMARK(LibraryPower);
BENCHMARK(WidePower);

}  // namespace
