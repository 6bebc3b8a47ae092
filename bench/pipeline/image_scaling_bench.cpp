// ScaleImagePercent against its plain version, 24 bits unless told.
#include <benchmark/benchmark.h>

#include "pipeline/image_scaling.h"
#include "platform/block_guards.h"
#include "tests/reference/plain_scaling.h"
#include "tests/support/random_pictures.h"

namespace {

using Scaler = tess::ImageHandle (*)(tess::ImageHandle, int, int);

void Scale(benchmark::State& state, Scaler scaler, int bits) {
    const auto size = static_cast<int>(state.range(0));
    const auto percent = static_cast<int>(state.range(1));
    const platform::OwnedBlock picture(tess::test::RandomPicture(size, size, bits, 2));
    for (auto run : state) {
        const platform::OwnedBlock scaled(scaler(picture.Get(), percent, percent));
        benchmark::DoNotOptimize(scaled.Get());
    }
}

void Cases(benchmark::internal::Benchmark* bench) {
    bench->Args({1024, 25})->Args({1024, 50})->Args({256, 150})->Unit(benchmark::kMillisecond);
}

BENCHMARK_CAPTURE(Scale, plain, tess::reference::PlainScaleImagePercent, 24)->Apply(Cases);
BENCHMARK_CAPTURE(Scale, fast, tess::ScaleImagePercent, 24)->Apply(Cases);
BENCHMARK_CAPTURE(Scale, plain_32_bits, tess::reference::PlainScaleImagePercent, 32)->Apply(Cases);
BENCHMARK_CAPTURE(Scale, fast_32_bits, tess::ScaleImagePercent, 32)->Apply(Cases);

}  // namespace
