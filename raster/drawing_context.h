// A drawing context over a 24-bit surface: what the shapes of raster/shapes.h
// and raster/lines.h draw with. It paints the pixels that GDI paints in MM_TEXT,
// and a Windows test compares the two (tests/raster/gdi_comparison.cpp).
#pragma once

#include <cstdint>

namespace raster {

struct Point {
    int x, y;
};

/// Left and top belong to it, right and bottom do not.
struct Rect {
    int left, top, right, bottom;
};

/// Colour word 0x00BBGGRR.
using Color = std::uint32_t;

/// 24-bit pixels, blue, green, red, bottom row first, rows `stride` bytes apart.
/// Owns nothing.
struct Surface {
    std::uint8_t* bits;
    int width, height;
    int stride;
};

enum class PenStyle { Solid, None, InsideFrame };
struct Pen {
    PenStyle style;
    int width;  ///< in pixels; 0 and 1 draw one pixel
    Color color;
};
/// Pens and brushes are values: nothing is created or deleted.
constexpr Pen SolidPen(int width, Color color) {
    return {PenStyle::Solid, width, color};
}
constexpr Pen InsideFramePen(int width, Color color) {
    return {PenStyle::InsideFrame, width, color};
}
inline constexpr Pen kNullPen{PenStyle::None, 0, 0};
inline constexpr Pen kBlackPen{PenStyle::Solid, 0, 0x000000};

struct Brush {
    bool paints;
    Color color;
};
constexpr Brush SolidBrush(Color color) {
    return {true, color};
}
inline constexpr Brush kNullBrush{false, 0};
inline constexpr Brush kBlackBrush{true, 0x000000};
inline constexpr Brush kWhiteBrush{true, 0xFFFFFF};

enum class PolygonFill { Alternate, Winding };

struct DrawingContext {
    Surface surface;
    Pen pen = kBlackPen;
    Brush brush = kWhiteBrush;
    Point position{0, 0};  ///< where LineTo starts
    PolygonFill polygon_fill = PolygonFill::Alternate;
    /// Set, and never cleared by a drawing call, when one could not have the
    /// memory that it needed. DibCanvasClose then fails, so callers that draw
    /// many shapes check once.
    bool failed = false;
};

}  // namespace raster
