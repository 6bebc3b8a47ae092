// Quantizing and remapping of 1024 x 1024 pictures: the plain versions against
// those that the program uses.
#include <benchmark/benchmark.h>

#include "pipeline/color_tree.h"
#include "pipeline/palette.h"
#include "pipeline/remapping.h"
#include "tests/reference/plain_palette.h"
#include "tests/reference/plain_remapping.h"
#include "tests/support/sample_pictures.h"

namespace tess {
namespace {

constexpr int kSide = 1024;
constexpr int kDepth = 8;

using Remap = ImageHandle (*)(ImageHandle, const std::uint8_t*, int, int);
using Quantize = int (*)(int*, std::uint8_t*, const FrameList*);

class OneFrame {
public:
    explicit OneFrame(PictureKind kind) {
        const FrameRecord record{MakePicture(kind, kSide, kSide, 5), nullptr, 10, -1};
        filled_ = FrameListAdd(&list_, &record);
        image_ = record.Image;
    }
    OneFrame(const OneFrame&) = delete;
    OneFrame& operator=(const OneFrame&) = delete;
    ~OneFrame() { FrameListFree(&list_); }

    [[nodiscard]] bool IsFilled() const { return filled_ != 0; }
    [[nodiscard]] const FrameList* List() const { return &list_; }
    [[nodiscard]] ImageHandle Image() const { return image_; }

private:
    FrameList list_{};
    ImageHandle image_ = nullptr;
    int filled_ = 0;
};

void RunRemap(benchmark::State& state, Remap remap, PictureKind kind, std::uint32_t fast_remap) {
    const OneFrame frame(kind);
    std::uint8_t palette[kPaletteBytes];
    int count = kPaletteEntries;
    if (!frame.IsFilled() || QuantizeFrames(&count, palette, frame.List()) == 0) {
        state.SkipWithError("no memory");
        return;
    }
    FastRemap = fast_remap;
    for (auto _ : state) {
        const ImageHandle image = remap(frame.Image(), palette, kDepth, count);
        benchmark::DoNotOptimize(image);
        platform::FreeBlock(image);
    }
    FastRemap = 0;
    state.SetItemsProcessed(state.iterations() * kSide * kSide);
}

void RunQuantize(benchmark::State& state, Quantize quantize, PictureKind kind) {
    const OneFrame frame(kind);
    std::uint8_t palette[kPaletteBytes];
    for (auto _ : state) {
        int count = kPaletteEntries;
        benchmark::DoNotOptimize(quantize(&count, palette, frame.List()));
    }
    state.SetItemsProcessed(state.iterations() * kSide * kSide);
}

#define REMAP_PAIR(what, kind, fast)                                                       \
    BENCHMARK_CAPTURE(RunRemap, what##_##kind##_fast##fast##_plain, plain::what,           \
                      PictureKind::kind, fast)                                             \
        ->Unit(benchmark::kMillisecond);                                                   \
    BENCHMARK_CAPTURE(RunRemap, what##_##kind##_fast##fast, what, PictureKind::kind, fast) \
        ->Unit(benchmark::kMillisecond)

REMAP_PAIR(RemapPlain, Smooth, 0);
REMAP_PAIR(RemapPlain, Noise, 0);
REMAP_PAIR(RemapPlain, Smooth, 1);
REMAP_PAIR(RemapDither, Smooth, 0);
REMAP_PAIR(RemapDither, Noise, 0);
REMAP_PAIR(RemapDither, Smooth, 1);

#define QUANTIZE_PAIR(kind)                                                                \
    BENCHMARK_CAPTURE(RunQuantize, kind##_plain, plain::QuantizeFrames, PictureKind::kind) \
        ->Unit(benchmark::kMillisecond);                                                   \
    BENCHMARK_CAPTURE(RunQuantize, kind, QuantizeFrames, PictureKind::kind)                \
        ->Unit(benchmark::kMillisecond)

QUANTIZE_PAIR(Smooth);
QUANTIZE_PAIR(Runs);
QUANTIZE_PAIR(FewColors);
QUANTIZE_PAIR(Flat);

}  // namespace
}  // namespace tess
