#include "raster/lines.h"

#include "platform/block_guards.h"
#include "raster/bezier.h"
#include "raster/thin_lines.h"
#include "raster/wide_pen.h"

namespace raster {
namespace {

void Stroke(DrawingContext& context, std::span<const Point> points) {
    if (points.size() < 2 || context.pen.style == PenStyle::None) return;
    if (IsWide(context.pen)) {
        StrokeWide(context, points, Closing::Open);
    } else {
        ThinLines(context.surface, points, context.pen.color);
    }
}

}  // namespace

void MoveToEx(DrawingContext& context, int x, int y) {
    context.position = {x, y};
}

void LineTo(DrawingContext& context, int x, int y) {
    const Point points[2] = {context.position, {x, y}};
    Stroke(context, points);
    context.position = {x, y};
}

void Polyline(DrawingContext& context, std::span<const Point> points) {
    Stroke(context, points);
}

void PolyBezier(DrawingContext& context, std::span<const Point> points) {
    if (points.size() < 4 || (points.size() - 1) % 3 != 0) return;
    const std::size_t curves = (points.size() - 1) / 3;
    platform::WorkArray<Point> pieces(1 + curves * kMostPiecesOfACurve);
    if (!pieces) {
        context.failed = true;
        return;
    }
    pieces[0] = points[0];
    std::size_t count = 1;
    for (std::size_t i = 0; i + 3 < points.size(); i += 3) {
        const Curve curve{points[i], points[i + 1], points[i + 2], points[i + 3]};
        count += FlattenCurve(curve, pieces.data() + count);
    }
    Stroke(context, {pieces.data(), count});
}

}  // namespace raster
