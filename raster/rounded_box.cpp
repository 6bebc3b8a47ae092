// One walk along a quarter of the corners' ellipse (raster/quarter_arc.h) gives
// all four corners, and the rows between them are full.
//
// The walk goes from the middle row outwards, and ends at the middle column. Of an
// ellipse much taller than wide it gets there before it has been in every row; such
// a one is walked as its flat twin, with the axes exchanged, and painted in columns
// where the other is painted in rows.
//
// The walk is exact up to kLargestArc pixels a side. Beyond, the insets are worked
// out in double precision for the rows of the surface alone.
#include "raster/rounded_box.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

#include "raster/quarter_arc.h"
#include "raster/spans.h"

namespace raster {
namespace {

struct LongBox {
    std::int64_t left, top, right, bottom;
};

/// Where spans go: onto the surface as they are, or with the axes exchanged.
class Painter {
public:
    Painter(const Surface& surface, Color color, bool transposed)
        : surface_(surface), color_(color), transposed_(transposed) {}

    void Box(const LongBox& box) const {
        if (transposed_) {
            PaintClippedBox(surface_, box.top, box.left, box.bottom, box.right, color_);
        } else {
            PaintClippedBox(surface_, box.left, box.top, box.right, box.bottom, color_);
        }
    }
    void Row(std::int64_t y, std::int64_t left, std::int64_t right) const {
        Box({left, y, right, y + 1});
    }
    void Pixel(std::int64_t x, std::int64_t y) const { Row(y, x, x + 1); }

private:
    const Surface& surface_;
    Color color_;
    bool transposed_;
};

/// The rows of the box that stand for row `arc_row` of the corners' ellipse.
struct RowPair {
    std::int64_t upper, lower;
};
RowPair RowsOf(const LongBox& box, const CornerAxes& axes, std::int64_t arc_row) {
    return {box.top + axes.height - 1 - arc_row, box.bottom - axes.height + arc_row};
}

void FillWalked(const Painter& painter, const LongBox& box, const CornerAxes& axes) {
    QuarterArc arc(axes.width, axes.height);
    const RowPair middle = RowsOf(box, axes, arc.Row());
    painter.Box({box.left, middle.upper, box.right, middle.lower + 1});
    int row = arc.Row();
    for (; !arc.IsPastMiddle(); arc.Advance()) {
        if (arc.Row() == row) continue;
        row = arc.Row();
        const RowPair rows = RowsOf(box, axes, row);
        painter.Row(rows.upper, box.left + arc.Inset(), box.right - arc.Inset());
        painter.Row(rows.lower, box.left + arc.Inset(), box.right - arc.Inset());
    }
}

void OutlineWalked(const Painter& painter, const LongBox& box, const CornerAxes& axes) {
    QuarterArc arc(axes.width, axes.height);
    const RowPair middle = RowsOf(box, axes, arc.Row());
    painter.Box({box.left, middle.upper, box.left + 1, middle.lower + 1});
    painter.Box({box.right - 1, middle.upper, box.right, middle.lower + 1});
    RowPair rows = middle;
    std::int64_t inset = 0;
    for (; arc.Inset() < (axes.width + 1) / 2; arc.Advance()) {
        rows = RowsOf(box, axes, arc.Row());
        inset = arc.Inset();
        for (const std::int64_t y : {rows.upper, rows.lower}) {
            painter.Pixel(box.left + inset, y);
            painter.Pixel(box.right - 1 - inset, y);
        }
    }
    painter.Row(rows.upper, box.left + inset, box.right - inset);
    painter.Row(rows.lower, box.left + inset, box.right - inset);
}

/// Insets of a box whose corners are too large to be walked.
class ComputedInsets {
public:
    ComputedInsets(const LongBox& box, const CornerAxes& axes) : box_(box), axes_(axes) {}

    /// The inset in row `y`, which may be outside the box: half the axis then.
    [[nodiscard]] std::int64_t At(std::int64_t y) const {
        const std::int64_t from_edge = std::min(y - box_.top, box_.bottom - 1 - y);
        if (from_edge < 0) return axes_.width / 2;
        const double up = (axes_.height - 1) / 2.0 - static_cast<double>(from_edge);
        if (up <= 0.5) return 0;
        // Where the curve is steep its row has the nearest pixel; where it is flat,
        // all pixels that are nearer to it than those of the row further in.
        return static_cast<std::int64_t>(
            std::min(std::floor(Exact(up) + 0.5), std::ceil(Exact(up - 0.5))));
    }

private:
    /// The inset of the curve itself, `up` rows above the middle.
    [[nodiscard]] double Exact(double up) const {
        const double part = up / ((axes_.height - 1) / 2.0);
        return (axes_.width - 1) / 2.0 * (1 - std::sqrt(1 - part * part));
    }

    LongBox box_;
    CornerAxes axes_;
};

void PaintComputed(const Surface& surface, const LongBox& box, const CornerAxes& axes, Color color,
                   bool outline) {
    const ComputedInsets insets(box, axes);
    const int first = static_cast<int>(std::max<std::int64_t>(box.top, 0));
    const int end = static_cast<int>(std::min<std::int64_t>(box.bottom, surface.height));
    for (int y = first; y < end; ++y) {
        const std::int64_t inset = insets.At(y);
        if (!outline) {
            PaintClippedSpan(surface, y, box.left + inset, box.right - inset, color);
            continue;
        }
        // The outline goes on to where the next row outwards begins.
        const std::int64_t outer = std::max(insets.At(y - 1), insets.At(y + 1));
        const std::int64_t length = std::max<std::int64_t>(outer - inset, 1);
        const bool edge_row = y == box.top || y == box.bottom - 1;
        if (edge_row) PaintClippedSpan(surface, y, box.left + inset, box.right - inset, color);
        PaintClippedSpan(surface, y, box.left + inset, box.left + inset + length, color);
        PaintClippedSpan(surface, y, box.right - inset - length, box.right - inset, color);
    }
}

bool IsOffSurface(const Surface& surface, const Rect& box) {
    return box.right <= 0 || box.bottom <= 0 || box.left >= surface.width ||
           box.top >= surface.height;
}

void Paint(const Surface& surface, const Rect& box, CornerAxes axes, Color color, bool outline) {
    if (IsOffSurface(surface, box)) return;
    LongBox placed{box.left, box.top, box.right, box.bottom};
    if (std::max(axes.width, axes.height) > kLargestArc) {
        PaintComputed(surface, placed, axes, color, outline);
        return;
    }
    const bool transposed = !WalkReachesLastRow(axes.width, axes.height);
    if (transposed) {
        placed = {box.top, box.left, box.bottom, box.right};
        std::swap(axes.width, axes.height);
    }
    const Painter painter(surface, color, transposed);
    if (outline) {
        OutlineWalked(painter, placed, axes);
    } else {
        FillWalked(painter, placed, axes);
    }
}

}  // namespace

void FillRoundedBox(const Surface& surface, const Rect& box, const CornerAxes& corners,
                    Color color) {
    Paint(surface, box, corners, color, false);
}

void OutlineRoundedBox(const Surface& surface, const Rect& box, const CornerAxes& corners,
                       Color color) {
    Paint(surface, box, corners, color, true);
}

}  // namespace raster
