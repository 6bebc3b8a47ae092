// The kinds of textures, as the dialog's preview shows them and large.
#include <benchmark/benchmark.h>

#include "tests/reference/plain_textures.h"
#include "tests/support/random_textures.h"

namespace tess {

namespace {

constexpr int kPreviewSide = 174;  // of the dialog, pixels

void Preview(benchmark::State& state) {
    const TextureItem item =
        test::DefaultTexture(static_cast<int>(state.range(0)), kPreviewSide, kPreviewSide);
    for ([[maybe_unused]] auto _ : state)
        platform::FreeBlock(RenderTexture(item));
}
BENCHMARK(Preview)->DenseRange(0, kTextureKinds - 1)->Unit(benchmark::kMillisecond);

TextureItem LargeTexture(int kind) {
    constexpr int kSide = 512;
    TextureItem item = test::DefaultTexture(kind, kSide, kSide);
    item.MatrixSize = 1024;
    return item;
}

void Large(benchmark::State& state) {
    const TextureItem item = LargeTexture(static_cast<int>(state.range(0)));
    for ([[maybe_unused]] auto _ : state)
        platform::FreeBlock(RenderTexture(item));
}
BENCHMARK(Large)->Arg(0)->Arg(4)->Arg(5)->Unit(benchmark::kMillisecond);

void LargePixelByPixel(benchmark::State& state) {
    const TextureItem item = LargeTexture(static_cast<int>(state.range(0)));
    for ([[maybe_unused]] auto _ : state) {
        switch (item.TextureType) {
            case 0:
                platform::FreeBlock(test::PlainFractalTexture(item));
                break;
            case 4:
                platform::FreeBlock(test::PlainCraterTexture(item));
                break;
            default:
                platform::FreeBlock(test::PlainPerturbationTexture(item, item.SeedValue[0]));
        }
    }
}
BENCHMARK(LargePixelByPixel)->Arg(0)->Arg(4)->Arg(5)->Unit(benchmark::kMillisecond);

}  // namespace

}  // namespace tess
