// What a small surface shows of a shape is what a window of a large one shows.
// Curves are left out: their means are rounded towards zero, so that a curve left
// of the origin or above it is not quite the same as within.
#include <array>
#include <climits>
#include <cstdint>
#include <gtest/gtest.h>

#include "raster/lines.h"
#include "raster/shapes.h"
#include "runtime/random.h"
#include "tests/raster/test_canvas.h"

namespace raster {
namespace {

constexpr int kLargeSide = 300;
constexpr int kSmallWidth = 23;
constexpr int kSmallHeight = 17;
constexpr std::size_t kPoints = 7;

struct RandomShape {
    int figure;
    PolygonFill fill;
    int pen_width;  ///< -1: no pen
    std::array<Point, kPoints> points;
};

int RandomBelow(int limit) {
    return runtime::rand() % limit;
}

RandomShape NextShape() {
    RandomShape shape{};
    shape.figure = RandomBelow(7);
    shape.fill = RandomBelow(2) == 0 ? PolygonFill::Alternate : PolygonFill::Winding;
    shape.pen_width = RandomBelow(3) - 1;
    for (Point& point : shape.points)
        point = {RandomBelow(kLargeSide), RandomBelow(kLargeSide)};
    return shape;
}

void Draw(TestCanvas& canvas, const RandomShape& shape, Point origin) {
    DrawingContext& context = canvas.Context();
    context.polygon_fill = shape.fill;
    if (shape.pen_width >= 0) context.pen = SolidPen(shape.pen_width, kPenColor);
    std::array<Point, kPoints> at = shape.points;
    for (Point& point : at)
        point = {point.x - origin.x, point.y - origin.y};
    switch (shape.figure) {
        case 0:
            FillRect(context, {at[0].x, at[0].y, at[1].x, at[1].y}, context.brush);
            break;
        case 1:
            Rectangle(context, at[0].x, at[0].y, at[1].x, at[1].y);
            break;
        case 2:
            Ellipse(context, at[0].x, at[0].y, at[1].x, at[1].y);
            break;
        case 3:
            RoundRect(context, at[0].x, at[0].y, at[1].x, at[1].y, shape.points[2].x / 4,
                      shape.points[2].y / 4);
            break;
        case 4:
            Polygon(context, at);
            break;
        case 5:
            MoveToEx(context, at[0].x, at[0].y);
            LineTo(context, at[1].x, at[1].y);
            break;
        case 6:
            Polyline(context, at);
            break;
        case 7:
            PolyBezier(context, at);
            break;
    }
}

TEST(Clipping, SmallSurfaceShowsAWindowOfTheLargeOne) {
    runtime::srand(7);
    for (int round = 0; round < 600; ++round) {
        const RandomShape shape = NextShape();
        const Point origin{RandomBelow(kLargeSide - kSmallWidth),
                           RandomBelow(kLargeSide - kSmallHeight)};
        TestCanvas large(kLargeSide, kLargeSide), small(kSmallWidth, kSmallHeight);
        Draw(large, shape, {0, 0});
        Draw(small, shape, origin);
        ASSERT_TRUE(small.IsUntouchedAround()) << "round " << round;
        for (int y = 0; y < kSmallHeight; ++y)
            for (int x = 0; x < kSmallWidth; ++x)
                ASSERT_EQ(small.At(x, y), large.At(x + origin.x, y + origin.y))
                    << "round " << round << " figure " << shape.figure << " at " << x << ' ' << y;
    }
}

int AnyCoordinate() {
    constexpr int kExtremes[] = {INT_MIN, INT_MIN + 1, INT_MAX - 1, INT_MAX, -(1 << 20), 1 << 20};
    const int pick = RandomBelow(12);
    if (pick < 6) return kExtremes[pick];
    if (pick < 8) return RandomBelow(40) - 10;
    const auto bits = static_cast<std::uint32_t>(runtime::rand()) << 20 ^
                      static_cast<std::uint32_t>(runtime::rand()) << 8;
    return static_cast<int>(bits) >> RandomBelow(20);
}

TEST(Clipping, AnyCoordinatesStayWithinTheSurface) {
    runtime::srand(11);
    for (int round = 0; round < 400; ++round) {
        RandomShape shape = NextShape();
        if (RandomBelow(4) == 0) shape.pen_width = RandomBelow(40);
        for (Point& point : shape.points)
            point = {AnyCoordinate(), AnyCoordinate()};
        TestCanvas canvas(kSmallWidth, kSmallHeight);
        Draw(canvas, shape, {0, 0});
        PolyBezier(canvas.Context(), shape.points);
        ASSERT_TRUE(canvas.IsUntouchedAround()) << "round " << round;
        ASSERT_FALSE(canvas.Context().failed) << "round " << round;
    }
}

}  // namespace
}  // namespace raster
