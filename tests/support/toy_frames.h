// Small pictures made by hand, and a style's Build that delivers them.
#pragma once

#include <functional>
#include <vector>

#include "pipeline/image_buffers.h"
#include "shell/style_table.h"

namespace tess::test {

/// A 24-bit frame, its pixels row by row from the top.
struct ToyFrame {
    int width = 0;
    int height = 0;
    std::vector<ColorWord> pixels;
    std::uint32_t delay = 4;
};

/// A frame of one row.
[[nodiscard]] ToyFrame RowOf(std::vector<ColorWord> pixels);

/// The frame as a picture, owned by the caller; null when memory is short.
[[nodiscard]] ImageHandle NewPicture(const ToyFrame& frame);

/// A Build slot that adds the frames in order.
[[nodiscard]] std::function<int(StyleContext*)> Deliver(std::vector<ToyFrame> frames);

}  // namespace tess::test
