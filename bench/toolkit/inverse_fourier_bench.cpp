#include <benchmark/benchmark.h>
#include <vector>

#include "toolkit/inverse_fourier.h"

namespace tess {

namespace {

void Transform(benchmark::State& state) {
    const auto size = static_cast<std::size_t>(state.range(0));
    std::vector<ComplexNumber> numbers(size * size, ComplexNumber{0.0F, 0.0F});
    for ([[maybe_unused]] auto _ : state)
        InverseFourier2D(numbers.data(), static_cast<int>(size));
}
BENCHMARK(Transform)->RangeMultiplier(2)->Range(16, 512)->Unit(benchmark::kMicrosecond);

}  // namespace

}  // namespace tess
