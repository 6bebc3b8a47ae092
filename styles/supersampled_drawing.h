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

/// What shrinking a drawing gives, for where the large picture is better than none.
struct ShrunkPicture {
    platform::OwnedBlock Picture;  ///< none where there was no memory at all
    bool IsShrunk = false;         ///< not so where there was none to scale it

    /// The picture, made by `make()` unless it is here from before, or null. One that
    /// stayed large serves once: the next call makes it anew.
    template <class Make>
    [[nodiscard]] ImageHandle Find(Make make) {
        if (!IsShrunk) {
            Picture.Reset();
            *this = make();
        }
        return Picture.Get();
    }
};

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

    /// The same, but a picture that could not be scaled stays large.
    [[nodiscard]] ShrunkPicture TakeShrunk(int percent) {
        platform::OwnedBlock large(TakeLarge());
        platform::OwnedBlock small(ScaleImagePercent(large.Get(), percent, percent));
        if (small) return {std::move(small), true};
        return {std::move(large), false};
    }

private:
    DibCanvas canvas_{};
    bool open_;
};

}  // namespace tess
