// The strips of fountains, which several styles make for each frame.
#include <benchmark/benchmark.h>

#include "fills/fountain.h"
#include "fills/gradient.h"
#include "tests/reference/plain_gradient.h"

namespace tess {

namespace {

void Strip(benchmark::State& state) {
    Fountain fountain;
    InitFountain(&fountain, FountainPreset::SevenColors);
    for ([[maybe_unused]] auto _ : state) {
        platform::FreeBlock(RenderFountainImage(fountain, static_cast<int>(state.range(0)),
                                                static_cast<int>(state.range(1))));
    }
}
BENCHMARK(Strip)
    ->Args({256, 1})
    ->Args({256, 16})
    ->Args({1024, 1024})
    ->Unit(benchmark::kMicrosecond);

void Run(benchmark::State& state) {
    for ([[maybe_unused]] auto _ : state)
        platform::FreeBlock(DrawLinearGradient(0, 0xFFFFFF, 32, 1, 90, nullptr));
}
BENCHMARK(Run)->Unit(benchmark::kMicrosecond);

void RunWithEveryBand(benchmark::State& state) {
    for ([[maybe_unused]] auto _ : state)
        platform::FreeBlock(test::PlainLinearGradient(0, 0xFFFFFF, 32, 1, 90, nullptr));
}
BENCHMARK(RunWithEveryBand)->Unit(benchmark::kMicrosecond);

void Shape(benchmark::State& state) {
    Gradient gradient{};
    gradient.Type = static_cast<GradientType>(state.range(0));
    InitFountain(&gradient.Ramp, FountainPreset::SevenColors);
    for ([[maybe_unused]] auto _ : state)
        platform::FreeBlock(RenderGradient(256, 256, gradient));
}
BENCHMARK(Shape)->DenseRange(0, 3)->Unit(benchmark::kMicrosecond);

}  // namespace

}  // namespace tess
