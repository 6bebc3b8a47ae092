// Neural Network's frames at its start values, 96 of 96 balls, with nothing kept.
// What "Build/Neural Network" of styles_bench.cpp makes in the same run is to be at
// least 20 times as fast.
#include <benchmark/benchmark.h>

#include "tests/reference/plain_neural_network.h"

namespace tess {

namespace {

void BuildNeuralNetworkWithNothingKept(benchmark::State& state) {
    for ([[maybe_unused]] auto _ : state) {
        const test::PlainNeuralNetwork plain({});
        for (int frame = 0; frame < plain.FrameCount(); ++frame) {
            const platform::OwnedBlock picture(plain.RenderFrame(frame));
            if (!picture) return state.SkipWithError("no frame");
        }
    }
}
BENCHMARK(BuildNeuralNetworkWithNothingKept)
    ->Name("Build/Neural Network, nothing kept")
    ->Unit(benchmark::kMillisecond);

}  // namespace

}  // namespace tess
