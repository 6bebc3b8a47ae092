// The LZW writer and its plain version over pictures from flat to noise.
#include <benchmark/benchmark.h>
#include <cstdio>
#include <random>

#include "pipeline/lzw_writer.h"
#include "platform/block_guards.h"
#include "tests/reference/plain_lzw_writer.h"

namespace tess {
namespace {

constexpr int kSize = 512;

/// An 8-bit picture whose colour changes after every `run` pixels or so.
ImageHandle NewPicture(unsigned run) {
    std::mt19937 random(run);
    const ImageHandle handle = NewPackedDib(kSize, kSize, nullptr, 8);
    const LockedImage image(handle);
    std::uint32_t color = 0;
    for (int y = 0; y < kSize; ++y) {
        for (int x = 0; x < kSize; ++x) {
            if (random() % run == 0) color = random() & 255;
            SetDibPixel(image, x, y, color);
        }
    }
    return handle;
}

constexpr GifImageDescriptor kDescriptor{0, 0, kSize, kSize, 7};

void CountPixels(benchmark::State& state) {
    state.SetItemsProcessed(state.iterations() * kSize * kSize);
}

void LzwWriter(benchmark::State& state) {
    const platform::OwnedBlock block(NewPicture(static_cast<unsigned>(state.range(0))));
    const LockedImage image(block.Get());
    std::FILE* stream = std::tmpfile();
    for (auto _ : state) {
        std::rewind(stream);
        platform::WorkArray<std::uint32_t> codes(kLzwSlots);
        platform::WorkArray<std::uint8_t> buffer(kLzwBufferBytes);
        LzwState lzw{};
        lzw.Codes = codes.data();
        lzw.Buffer = buffer.data();
        benchmark::DoNotOptimize(LzwWriteImage(stream, image, &kDescriptor, &lzw));
    }
    std::fclose(stream);
    CountPixels(state);
}
BENCHMARK(LzwWriter)->ArgName("run")->Arg(1)->Arg(4)->Arg(32)->Arg(1000);

void PlainLzwWriter(benchmark::State& state) {
    const platform::OwnedBlock block(NewPicture(static_cast<unsigned>(state.range(0))));
    const LockedImage image(block.Get());
    for (auto _ : state) {
        benchmark::DoNotOptimize(test::PlainLzwWriteImage(image, kDescriptor));
    }
    CountPixels(state);
}
BENCHMARK(PlainLzwWriter)->ArgName("run")->Arg(1)->Arg(4)->Arg(32)->Arg(1000);

}  // namespace
}  // namespace tess
