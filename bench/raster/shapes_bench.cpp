// What filled shapes cost on a canvas of the size that styles draw at.
#include <benchmark/benchmark.h>
#include <cstdint>
#include <vector>

#include "raster/lines.h"
#include "raster/shapes.h"

namespace {

constexpr int kSide = 256;

class Canvas {
public:
    Canvas() : bits_(std::size_t{kSide} * kSide * 3) {
        context_.surface = {bits_.data(), kSide, kSide, kSide * 3};
        context_.pen = raster::kNullPen;
    }
    raster::DrawingContext& Context() { return context_; }

private:
    std::vector<std::uint8_t> bits_;
    raster::DrawingContext context_{};
};

/// The rings of a soft round mask: one ellipse in the other, from the rim inwards.
void ConcentricEllipses(benchmark::State& state) {
    Canvas canvas;
    for (auto _ : state) {
        for (int i = 0; i < kSide / 2; ++i) {
            canvas.Context().brush = raster::SolidBrush(static_cast<raster::Color>(i) * 0x010101);
            raster::Ellipse(canvas.Context(), i, i, kSide - i, kSide - i);
        }
        benchmark::ClobberMemory();
    }
    state.SetItemsProcessed(state.iterations() * (kSide / 2));
}
BENCHMARK(ConcentricEllipses);

void ColoredRectangle(benchmark::State& state) {
    Canvas canvas;
    for (auto _ : state) {
        raster::FillRect(canvas.Context(), {0, 0, kSide, kSide}, raster::SolidBrush(0x123456));
        benchmark::ClobberMemory();
    }
    state.SetBytesProcessed(state.iterations() * kSide * kSide * 3);
}
BENCHMARK(ColoredRectangle);

void Diamond(benchmark::State& state) {
    Canvas canvas;
    const raster::Point points[] = {{0, 128}, {128, 0}, {256, 128}, {128, 256}, {0, 128}};
    for (auto _ : state) {
        raster::Polygon(canvas.Context(), points);
        benchmark::ClobberMemory();
    }
}
BENCHMARK(Diamond);

void WidePenCurve(benchmark::State& state) {
    Canvas canvas;
    canvas.Context().pen = raster::SolidPen(8, 0x808080);
    const raster::Point points[] = {{10, 10}, {250, 20}, {5, 240}, {240, 250}};
    for (auto _ : state) {
        raster::PolyBezier(canvas.Context(), points);
        benchmark::ClobberMemory();
    }
}
BENCHMARK(WidePenCurve);

}  // namespace
