// Scan conversion with a table of edges.
//
// A pixel is inside when the point at its whole coordinates is: an edge from
// (x0, y0) down to (x1, y1) crosses the rows y0 <= y < y1, and the first pixel on
// its right in row y is the ceiling of x0 + (y - y0) (x1 - x0) / (y1 - y0). So a
// left edge belongs to the polygon and a right edge does not, and polygons that
// share an edge share no pixel.
//
// Edges are sorted by their first row. Those that cross the current row are kept
// sorted by column, and a row's spans lie between them: from every odd one to the
// next (alternate), or while the sum of their directions is not 0 (winding). The
// ceiling is kept exact from row to row by an integer remainder.
#include "raster/scan_conversion.h"

#include <algorithm>
#include <cstdint>

#include "platform/block_guards.h"
#include "raster/spans.h"

namespace raster {
namespace {

struct Edge {
    int first_row, end_row;  ///< cut to the surface
    int direction;           ///< 1 downwards, -1 upwards
    std::int64_t column;     ///< the ceiling in the current row
    std::int64_t whole_step;
    std::int64_t step_rest;  ///< 0 <= step_rest < height
    std::int64_t slack;      ///< height x (ceiling - exact column), 0 <= slack < height
    std::int64_t height;

    void NextRow() {
        column += whole_step;
        slack -= step_rest;
        if (slack < 0) {
            slack += height;
            ++column;
        }
    }
};

/// Returns false for an edge that crosses no row of the surface.
bool MakeEdge(const Surface& surface, Point from, Point to, Edge& edge) {
    edge.direction = 1;
    if (from.y > to.y) {
        std::swap(from, to);
        edge.direction = -1;
    }
    edge.first_row = std::max(from.y, 0);
    edge.end_row = std::min(to.y, surface.height);
    if (edge.first_row >= edge.end_row) return false;

    edge.height = std::int64_t{to.y} - from.y;
    const std::int64_t run = std::int64_t{to.x} - from.x;
    edge.whole_step = run / edge.height;
    edge.step_rest = run % edge.height;
    if (edge.step_rest < 0) {
        --edge.whole_step;
        edge.step_rest += edge.height;
    }
    // Both factors of `travelled` are below 2^32, so the product fits.
    const auto rows = static_cast<std::uint64_t>(std::int64_t{edge.first_row} - from.y);
    const std::uint64_t travelled = rows * static_cast<std::uint64_t>(edge.step_rest);
    const auto height = static_cast<std::uint64_t>(edge.height);
    const std::uint64_t rest = travelled % height;
    edge.column = from.x + static_cast<std::int64_t>(rows) * edge.whole_step +
                  static_cast<std::int64_t>(travelled / height) + (rest > 0 ? 1 : 0);
    edge.slack = rest > 0 ? static_cast<std::int64_t>(height - rest) : 0;
    return true;
}

/// The edges that cross the current row, sorted by column.
class ActiveEdges {
public:
    /// Requires: `slots` has room for all edges.
    explicit ActiveEdges(Edge** slots) : slots_(slots) {}

    void Add(Edge* edge) { slots_[count_++] = edge; }

    /// They are nearly sorted from the row before.
    void Sort() {
        for (std::size_t i = 1; i < count_; ++i) {
            Edge* const edge = slots_[i];
            std::size_t place = i;
            for (; place > 0 && slots_[place - 1]->column > edge->column; --place)
                slots_[place] = slots_[place - 1];
            slots_[place] = edge;
        }
    }

    void Paint(const Surface& surface, int y, PolygonFill fill, Color color) const {
        int sum = 0;
        std::int64_t left = 0;
        for (std::size_t i = 0; i < count_; ++i) {
            const int before = sum;
            sum = fill == PolygonFill::Winding ? sum + slots_[i]->direction : 1 - sum;
            if (before == 0) left = slots_[i]->column;
            if (sum == 0) PaintClippedSpan(surface, y, left, slots_[i]->column, color);
        }
    }

    /// Goes to the row after `y`, and forgets the edges that end before it.
    void NextRow(int y) {
        std::size_t kept = 0;
        for (std::size_t i = 0; i < count_; ++i) {
            if (slots_[i]->end_row <= y + 1) continue;
            slots_[i]->NextRow();
            slots_[kept++] = slots_[i];
        }
        count_ = kept;
    }

    [[nodiscard]] bool IsEmpty() const { return count_ == 0; }

private:
    Edge** slots_;
    std::size_t count_ = 0;
};

void PaintRows(const Surface& surface, std::span<Edge> edges, Edge** slots, PolygonFill fill,
               Color color) {
    std::sort(edges.begin(), edges.end(),
              [](const Edge& a, const Edge& b) { return a.first_row < b.first_row; });
    ActiveEdges active(slots);
    std::size_t next = 0;
    int y = 0;
    while (next < edges.size() || !active.IsEmpty()) {
        if (active.IsEmpty()) y = edges[next].first_row;
        while (next < edges.size() && edges[next].first_row == y)
            active.Add(&edges[next++]);
        active.Sort();
        active.Paint(surface, y, fill, color);
        active.NextRow(y);
        ++y;
    }
}

/// Requires: room for an edge a point in both.
void PaintPolygon(const Surface& surface, std::span<const Point> points, PolygonFill fill,
                  Color color, Edge* edges, Edge** slots) {
    std::size_t count = 0;
    Point previous = points.back();
    for (const Point& point : points) {
        if (MakeEdge(surface, previous, point, edges[count])) ++count;
        previous = point;
    }
    PaintRows(surface, {edges, count}, slots, fill, color);
}

}  // namespace

int FillPolygon(const Surface& surface, std::span<const Point> points, PolygonFill fill,
                Color color) {
    if (points.size() < 3) return 1;
    // The diamonds and bars that are drawn by the thousand need no block.
    constexpr std::size_t kFewPoints = 8;
    if (points.size() <= kFewPoints) {
        Edge edges[kFewPoints];
        Edge* slots[kFewPoints];
        PaintPolygon(surface, points, fill, color, edges, slots);
        return 1;
    }
    platform::WorkArray<Edge> edges(points.size());
    platform::WorkArray<Edge*> slots(points.size());
    if (!edges || !slots) return 0;
    PaintPolygon(surface, points, fill, color, edges.data(), slots.data());
    return 1;
}

}  // namespace raster
