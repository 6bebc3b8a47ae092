// Stamping, blending and the radial mask against their plain versions. Stamps go
// over an edge of a 512 x 512 tile.
#include <benchmark/benchmark.h>

#include "platform/block_guards.h"
#include "tests/reference/plain_compositing.h"
#include "tests/support/random_pictures.h"
#include "toolkit/wrap_compositing.h"

namespace {

constexpr int kTile = 512;

template <auto kStamp>
void StampMask(benchmark::State& state) {
    const auto side = static_cast<int>(state.range(0));
    const auto opacity = static_cast<int>(state.range(1));
    const platform::OwnedBlock tile(tess::test::RandomPicture(kTile, kTile, 24, 2));
    const platform::OwnedBlock sprite(tess::RadialMask(side, 255, true));
    const tess::LockedImage destination(tile.Get());
    const tess::LockedImage mask(sprite.Get());
    for (auto run : state) {
        kStamp(destination, mask, kTile - side / 2, 17, 0x00C08243, opacity);
        benchmark::ClobberMemory();
    }
}
BENCHMARK(StampMask<tess::reference::PlainWrapStampMask>)
    ->Name("StampMask/plain")
    ->Args({128, 255})
    ->Args({128, 100})
    ->Args({16, 255});
BENCHMARK(StampMask<tess::WrapStampMask>)
    ->Name("StampMask/fast")
    ->Args({128, 255})
    ->Args({128, 100})
    ->Args({16, 255});

template <auto kBlend>
void BlendImage(benchmark::State& state) {
    const auto side = static_cast<int>(state.range(0));
    const platform::OwnedBlock tile(tess::test::RandomPicture(kTile, kTile, 24, 2));
    const platform::OwnedBlock sprite(tess::test::RandomPicture(side, side, 32, 4));
    const tess::LockedImage destination(tile.Get());
    const tess::LockedImage source(sprite.Get());
    for (auto run : state) {
        kBlend(destination, source, kTile - side / 2, 17);
        benchmark::ClobberMemory();
    }
}
BENCHMARK(BlendImage<tess::reference::PlainWrapBlendImage>)
    ->Name("BlendImage/plain")
    ->Arg(128)
    ->Arg(16);
BENCHMARK(BlendImage<tess::WrapBlendImage>)->Name("BlendImage/fast")->Arg(128)->Arg(16);

template <auto kMask>
void MakeMask(benchmark::State& state) {
    const auto diameter = static_cast<int>(state.range(0));
    for (auto run : state) {
        const platform::OwnedBlock mask(kMask(diameter, 255, true));
        benchmark::DoNotOptimize(mask.Get());
    }
}
BENCHMARK(MakeMask<tess::reference::PlainRadialMask>)
    ->Name("RadialMask/plain")
    ->Arg(36)
    ->Arg(72)
    ->Arg(256);
BENCHMARK(MakeMask<tess::RadialMask>)->Name("RadialMask/fast")->Arg(36)->Arg(72)->Arg(256);

}  // namespace
