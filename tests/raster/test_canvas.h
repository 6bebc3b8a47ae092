// A small surface for tests, shown as rows of letters.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "raster/drawing_context.h"

namespace raster {

inline constexpr Color kPenColor = 0x112233;
inline constexpr Color kBrushColor = 0x445566;

/// A black surface between two guards. Its context draws with no pen and a brush.
class TestCanvas {
public:
    TestCanvas(int width, int height)
        : stride_((width * 3 + 3) & ~3),
          bits_(static_cast<std::size_t>(stride_ * (height + 2)), 0),
          context_{.surface = {bits_.data() + stride_, width, height, stride_},
                   .pen = kNullPen,
                   .brush = SolidBrush(kBrushColor)} {}

    DrawingContext& Context() { return context_; }

    /// Only a line of this width, no inside.
    DrawingContext& WithPen(int width) {
        context_.pen = SolidPen(width, kPenColor);
        context_.brush = kNullBrush;
        return context_;
    }
    DrawingContext& WithPenAndBrush() {
        context_.pen = SolidPen(1, kPenColor);
        return context_;
    }

    [[nodiscard]] Color At(int x, int y) const {
        const std::uint8_t* pixel = bits_.data() +
                                    (context_.surface.height - y) * std::ptrdiff_t{stride_} +
                                    std::ptrdiff_t{x} * 3;
        return pixel[2] | static_cast<Color>(pixel[1]) << 8 | static_cast<Color>(pixel[0]) << 16;
    }

    /// Top row first: '#' for the pen, 'o' for the brush, '.' for neither.
    [[nodiscard]] std::string Art() const {
        std::string art;
        for (int y = 0; y < context_.surface.height; ++y) {
            for (int x = 0; x < context_.surface.width; ++x) {
                const Color color = At(x, y);
                art += color == 0             ? '.'
                       : color == kPenColor   ? '#'
                       : color == kBrushColor ? 'o'
                                              : '?';
            }
            art += '\n';
        }
        return art;
    }

    /// Whether the rows before and after the surface and the rows' padding are
    /// as they were.
    [[nodiscard]] bool IsUntouchedAround() const {
        const int used = context_.surface.width * 3;
        const int rows = context_.surface.height + 2;
        for (int row = 0; row < rows; ++row) {
            const bool guard = row == 0 || row == rows - 1;
            for (int i = guard ? 0 : used; i < stride_; ++i)
                if (bits_[static_cast<std::size_t>(row * stride_ + i)] != 0) return false;
        }
        return true;
    }

    [[nodiscard]] bool IsBlank() const {
        for (const std::uint8_t byte : bits_)
            if (byte != 0) return false;
        return true;
    }

private:
    int stride_;
    std::vector<std::uint8_t> bits_;
    DrawingContext context_;
};

}  // namespace raster
