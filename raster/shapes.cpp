#include "raster/shapes.h"

#include <algorithm>
#include <cstdint>

#include "raster/rounded_box.h"
#include "raster/scan_conversion.h"
#include "raster/spans.h"
#include "raster/thin_lines.h"
#include "raster/wide_pen.h"

namespace raster {
namespace {

// Corners this narrow or flat are square.
constexpr int kSquareCorner = 2;

Rect Ordered(const Rect& box) {
    return {std::min(box.left, box.right), std::min(box.top, box.bottom),
            std::max(box.left, box.right), std::max(box.top, box.bottom)};
}

bool IsEmpty(const Rect& box) {
    return box.left == box.right || box.top == box.bottom;
}

void FillOrdered(const DrawingContext& context, const Rect& box, Color color) {
    PaintClippedBox(context.surface, box.left, box.top, box.right, box.bottom, color);
}

/// The border of a box one pixel wide. A box of one pixel has none: it is a
/// closed line of no length.
void OutlineBox(const DrawingContext& context, const Rect& box) {
    const std::int64_t right = std::int64_t{box.right} - 1;
    const std::int64_t bottom = std::int64_t{box.bottom} - 1;
    if (box.left == right && box.top == bottom) return;
    const Color color = context.pen.color;
    PaintClippedBox(context.surface, box.left, box.top, box.right, box.top + std::int64_t{1},
                    color);
    PaintClippedBox(context.surface, box.left, bottom, box.right, box.bottom, color);
    PaintClippedBox(context.surface, box.left, box.top, box.left + std::int64_t{1}, box.bottom,
                    color);
    PaintClippedBox(context.surface, right, box.top, box.right, box.bottom, color);
}

/// Inside a one-pixel outline the brush has what the pen leaves.
void PaintBox(const DrawingContext& context, const Rect& box) {
    if (context.pen.style == PenStyle::None) {
        if (context.brush.paints) FillOrdered(context, box, context.brush.color);
        return;
    }
    if (context.brush.paints)
        PaintClippedBox(context.surface, box.left + std::int64_t{1}, box.top + std::int64_t{1},
                        box.right - std::int64_t{1}, box.bottom - std::int64_t{1},
                        context.brush.color);
    OutlineBox(context, box);
}

int SideOf(int low, int high) {
    return static_cast<int>(
        std::min<std::int64_t>(std::int64_t{high} - low, std::int64_t{INT32_MAX}));
}

int CutAxis(int axis, int low, int high) {
    const std::int64_t length = axis < 0 ? -std::int64_t{axis} : std::int64_t{axis};
    return static_cast<int>(std::min<std::int64_t>(length, SideOf(low, high)));
}

/// Requires: the box is ordered and not empty, and the pen not wide.
void PaintRoundedBox(const DrawingContext& context, const Rect& box, const CornerAxes& corners) {
    if (corners.width <= kSquareCorner || corners.height <= kSquareCorner) {
        PaintBox(context, box);
        return;
    }
    if (context.brush.paints) FillRoundedBox(context.surface, box, corners, context.brush.color);
    if (context.pen.style != PenStyle::None)
        OutlineRoundedBox(context.surface, box, corners, context.pen.color);
}

}  // namespace

void FillRect(DrawingContext& context, const Rect& box, const Brush& brush) {
    if (!brush.paints) return;
    // A crossed side is a run to the left or upwards that starts at its first
    // pixel: it has the pixels right of the smaller coordinate up to the greater.
    const std::int64_t shift_x = box.left > box.right ? 1 : 0;
    const std::int64_t shift_y = box.top > box.bottom ? 1 : 0;
    const Rect ordered = Ordered(box);
    PaintClippedBox(context.surface, ordered.left + shift_x, ordered.top + shift_y,
                    ordered.right + shift_x, ordered.bottom + shift_y, brush.color);
}

void Rectangle(DrawingContext& context, int left, int top, int right, int bottom) {
    const Rect box = Ordered({left, top, right, bottom});
    if (IsEmpty(box)) return;
    if (IsWide(context.pen)) {
        RectangleWide(context, box);
    } else {
        PaintBox(context, box);
    }
}

void Ellipse(DrawingContext& context, int left, int top, int right, int bottom) {
    const Rect box = Ordered({left, top, right, bottom});
    if (IsEmpty(box)) return;
    if (IsWide(context.pen)) {
        EllipseWide(context, box);
    } else {
        PaintRoundedBox(context, box, {SideOf(box.left, box.right), SideOf(box.top, box.bottom)});
    }
}

void RoundRect(DrawingContext& context, int left, int top, int right, int bottom, int corner_width,
               int corner_height) {
    const Rect box = Ordered({left, top, right, bottom});
    if (IsEmpty(box)) return;
    if (IsWide(context.pen)) {
        RoundRectWide(context, box, corner_width, corner_height);
    } else {
        PaintRoundedBox(context, box,
                        {CutAxis(corner_width, box.left, box.right),
                         CutAxis(corner_height, box.top, box.bottom)});
    }
}

void Polygon(DrawingContext& context, std::span<const Point> points) {
    if (points.size() < 2) return;
    if (context.brush.paints &&
        FillPolygon(context.surface, points, context.polygon_fill, context.brush.color) == 0) {
        context.failed = true;
        return;
    }
    if (context.pen.style == PenStyle::None) return;
    if (IsWide(context.pen)) {
        StrokeWide(context, points, Closing::Closed);
    } else {
        ThinLines(context.surface, points, context.pen.color);
        ThinLine(context.surface, points.back(), points.front(), context.pen.color);
    }
}

}  // namespace raster
