// A picture drawn at a multiple of its size and shrunk, which is how edges get
// smooth.
#pragma once

#include <utility>

#include "pipeline/image_buffers.h"
#include "pipeline/image_scaling.h"
#include "platform/block_guards.h"
#include "raster/drawing_context.h"
#include "raster/shapes.h"

namespace tess {

/// A canvas that is open for a scope, and discarded unless it is taken.
class SupersampledDrawing {
public:
    SupersampledDrawing(int width, int height)
        : open_(DibCanvasOpen(width, height, &canvas_) != 0) {}
    SupersampledDrawing(const SupersampledDrawing&) = delete;
    SupersampledDrawing& operator=(const SupersampledDrawing&) = delete;
    ~SupersampledDrawing() { DibCanvasClose(&canvas_, CanvasClose::Discard); }

    explicit operator bool() const { return open_; }
    [[nodiscard]] raster::DrawingContext& Context() { return canvas_.MemoryDC; }
    void Fill(const raster::Brush& brush) {
        raster::FillRect(canvas_.MemoryDC, canvas_.Bounds, brush);
    }

    /// Closes the canvas. Returns the picture at its large size, or null.
    [[nodiscard]] ImageHandle TakeLarge() {
        DibCanvasClose(&canvas_, CanvasClose::Keep);
        return std::exchange(canvas_.Block, nullptr);
    }

    /// Closes the canvas. Returns the picture scaled to `percent`, or null.
    [[nodiscard]] ImageHandle TakeScaled(int percent) {
        const platform::OwnedBlock large(TakeLarge());
        return ScaleImagePercent(large.Get(), percent, percent);
    }

private:
    DibCanvas canvas_{};
    bool open_;
};

}  // namespace tess
