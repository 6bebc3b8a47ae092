// The miniatures are GDI's own pictures. `gdi_comparison` holds many more.
#include "raster/wide_pen.h"

#include <array>
#include <climits>
#include <gtest/gtest.h>
#include <span>

#include "platform/memory.h"
#include "tests/raster/test_canvas.h"

namespace raster {
namespace {

/// A spiral of 40 points that leaves a surface of 32 by 32 on all sides.
std::array<Point, 40> Spiral() {
    std::array<Point, 40> points{};
    constexpr Point kDirections[] = {{1, 0},  {1, 1},   {0, 1},  {-1, 1},
                                     {-1, 0}, {-1, -1}, {0, -1}, {1, -1}};
    for (int i = 0; i < 40; ++i) {
        const Point& direction = kDirections[i % 8];
        points[static_cast<std::size_t>(i)] = {16 + direction.x * i / 2, 15 + direction.y * i / 2};
    }
    return points;
}

TEST(WidePen, LineWithoutLengthIsADiscTwoWide) {
    TestCanvas canvas(12, 8);
    StrokeWide(canvas.WithPen(2), std::array<Point, 2>{{{4, 3}, {4, 3}}}, Closing::Open);
    EXPECT_EQ(canvas.Art(),
              "............\n"
              "............\n"
              "...##.......\n"
              "...##.......\n"
              "............\n"
              "............\n"
              "............\n"
              "............\n");
}

TEST(WidePen, LineWithoutLengthIsADiscThreeWide) {
    TestCanvas canvas(12, 8);
    StrokeWide(canvas.WithPen(3), std::array<Point, 2>{{{4, 3}, {4, 3}}}, Closing::Open);
    EXPECT_EQ(canvas.Art(),
              "............\n"
              "............\n"
              "....#.......\n"
              "...###......\n"
              "....#.......\n"
              "............\n"
              "............\n"
              "............\n");
}

TEST(WidePen, LineWithoutLengthIsADiscFourWide) {
    TestCanvas canvas(12, 8);
    StrokeWide(canvas.WithPen(4), std::array<Point, 2>{{{4, 3}, {4, 3}}}, Closing::Open);
    EXPECT_EQ(canvas.Art(),
              "............\n"
              "...##.......\n"
              "..####......\n"
              "..####......\n"
              "...##.......\n"
              "............\n"
              "............\n"
              "............\n");
}

TEST(WidePen, LineWithoutLengthIsADiscFiveWide) {
    TestCanvas canvas(12, 8);
    StrokeWide(canvas.WithPen(5), std::array<Point, 2>{{{4, 3}, {4, 3}}}, Closing::Open);
    EXPECT_EQ(canvas.Art(),
              "............\n"
              "...###......\n"
              "..#####.....\n"
              "..#####.....\n"
              "..#####.....\n"
              "...###......\n"
              "............\n"
              "............\n");
}

TEST(WidePen, HorizontalLineHasRoundEnds) {
    TestCanvas canvas(12, 8);
    StrokeWide(canvas.WithPen(3), std::array<Point, 2>{{{2, 3}, {9, 3}}}, Closing::Open);
    EXPECT_EQ(canvas.Art(),
              "............\n"
              "............\n"
              "..########..\n"
              ".##########.\n"
              "..########..\n"
              "............\n"
              "............\n"
              "............\n");
}

TEST(WidePen, VerticalLineOfEvenWidthLiesMoreToTheLeft) {
    TestCanvas canvas(12, 8);
    StrokeWide(canvas.WithPen(4), std::array<Point, 2>{{{4, 2}, {4, 5}}}, Closing::Open);
    EXPECT_EQ(canvas.Art(),
              "...##.......\n"
              "..####......\n"
              "..####......\n"
              "..####......\n"
              "..####......\n"
              "..####......\n"
              "...##.......\n"
              "............\n");
}

TEST(WidePen, LineFallingToTheRight) {
    TestCanvas canvas(12, 8);
    StrokeWide(canvas.WithPen(4), std::array<Point, 2>{{{2, 2}, {9, 5}}}, Closing::Open);
    EXPECT_EQ(canvas.Art(),
              ".##.........\n"
              "######......\n"
              "########....\n"
              ".#########..\n"
              ".##########.\n"
              "....#######.\n"
              "......####..\n"
              "............\n");
}

TEST(WidePen, LineRisingToTheRight) {
    TestCanvas canvas(12, 8);
    StrokeWide(canvas.WithPen(4), std::array<Point, 2>{{{2, 5}, {9, 2}}}, Closing::Open);
    EXPECT_EQ(canvas.Art(),
              "........##..\n"
              "......#####.\n"
              "....#######.\n"
              ".#########..\n"
              "##########..\n"
              "########....\n"
              ".#####......\n"
              "............\n");
}

TEST(WidePen, ChevronHasARoundJoin) {
    TestCanvas canvas(12, 8);
    StrokeWide(canvas.WithPen(3), std::array<Point, 3>{{{2, 5}, {6, 2}, {10, 5}}}, Closing::Open);
    EXPECT_EQ(canvas.Art(),
              "............\n"
              "......###...\n"
              "....######..\n"
              "...########.\n"
              ".##########.\n"
              ".#####..####\n"
              "..###.....#.\n"
              "............\n");
}

TEST(WidePen, ClosedFigureStrokesTheWayBack) {
    TestCanvas canvas(12, 8);
    StrokeWide(canvas.WithPen(2), std::array<Point, 3>{{{2, 1}, {9, 2}, {5, 6}}}, Closing::Closed);
    EXPECT_EQ(canvas.Art(),
              ".##.........\n"
              ".#########..\n"
              ".#########..\n"
              "..###.####..\n"
              "...######...\n"
              "...#####....\n"
              "....###.....\n"
              "............\n");
}

TEST(WidePen, RepeatedPointsAddNothing) {
    TestCanvas plain(12, 8), repeated(12, 8);
    StrokeWide(plain.WithPen(3), std::array<Point, 2>{{{2, 2}, {9, 5}}}, Closing::Open);
    StrokeWide(repeated.WithPen(3), std::array<Point, 4>{{{2, 2}, {2, 2}, {9, 5}, {9, 5}}},
               Closing::Open);
    EXPECT_EQ(repeated.Art(), plain.Art());
}

TEST(WidePen, FewerThanTwoPointsDrawNothing) {
    TestCanvas canvas(12, 8);
    StrokeWide(canvas.WithPen(5), {}, Closing::Closed);
    StrokeWide(canvas.WithPen(5), std::array<Point, 1>{{{4, 4}}}, Closing::Closed);
    EXPECT_TRUE(canvas.IsBlank());
}

TEST(WidePen, ManyPointsPaintWhatTheirPiecesPaint) {
    const auto points = Spiral();
    for (int width = 2; width < 12; ++width) {
        TestCanvas whole(32, 32), pieces(32, 32);
        StrokeWide(whole.WithPen(width), points, Closing::Open);
        for (std::size_t i = 0; i + 1 < points.size(); ++i)
            StrokeWide(pieces.WithPen(width), std::span(points).subspan(i, 2), Closing::Open);
        EXPECT_EQ(whole.Art(), pieces.Art()) << width;
        EXPECT_TRUE(whole.IsUntouchedAround());
    }
}

TEST(WidePen, LongSpansAreCollectedAcrossWords) {
    std::array<Point, 20> points{};
    for (int i = 0; i < 20; ++i)
        points[static_cast<std::size_t>(i)] = {i % 2 == 0 ? 3 : 190, 4};
    TestCanvas canvas(200, 8);
    StrokeWide(canvas.WithPen(4), points, Closing::Open);
    for (int x = 0; x < 200; ++x) {
        EXPECT_EQ(canvas.At(x, 4), x >= 1 && x < 192 ? kPenColor : 0u) << x;
        EXPECT_EQ(canvas.At(x, 2), x >= 2 && x < 191 ? kPenColor : 0u) << x;
    }
}

TEST(WidePen, ManyPointsWithoutMemoryFailAndPaintNothing) {
    TestCanvas canvas(32, 32);
    platform::FailAllocation(1);
    StrokeWide(canvas.WithPen(3), Spiral(), Closing::Open);
    platform::FailAllocation(0);
    EXPECT_TRUE(canvas.Context().failed);
    EXPECT_TRUE(canvas.IsBlank());
}

TEST(WidePen, FewPointsNeedNoMemory) {
    TestCanvas canvas(12, 8);
    platform::FailAllocation(1, true);
    StrokeWide(canvas.WithPen(3), std::array<Point, 2>{{{2, 2}, {9, 5}}}, Closing::Open);
    platform::FailAllocation(0);
    EXPECT_FALSE(canvas.Context().failed);
    EXPECT_FALSE(canvas.IsBlank());
}

TEST(WidePen, LineFromEndToEndOfAllCoordinatesCrossesTheSurface) {
    TestCanvas canvas(6, 5);
    StrokeWide(canvas.WithPen(3), std::array<Point, 2>{{{INT_MIN, 2}, {INT_MAX, 2}}},
               Closing::Open);
    EXPECT_EQ(canvas.Art(),
              "......\n"
              "######\n"
              "######\n"
              "######\n"
              "......\n");
}

TEST(WidePen, SlantedLineFromCornerToCornerOfAllCoordinates) {
    TestCanvas canvas(4, 4);
    StrokeWide(canvas.WithPen(2), std::array<Point, 2>{{{INT_MIN, INT_MIN}, {INT_MAX, INT_MAX}}},
               Closing::Open);
    EXPECT_EQ(canvas.At(2, 2), kPenColor);
    EXPECT_EQ(canvas.At(0, 3), 0u);
    EXPECT_TRUE(canvas.IsUntouchedAround());
}

TEST(WidePen, WidestPenCoversEverything) {
    TestCanvas canvas(4, 4);
    StrokeWide(canvas.WithPen(INT_MAX), std::array<Point, 2>{{{1, 1}, {2, 3}}}, Closing::Open);
    EXPECT_EQ(canvas.Art(), "####\n####\n####\n####\n");
}

TEST(WidePen, StrokesBesideTheSurfaceReachInWithTheirRimOnly) {
    TestCanvas canvas(5, 3);
    StrokeWide(canvas.WithPen(5), std::array<Point, 2>{{{-2, -5}, {-2, 9}}}, Closing::Open);
    EXPECT_EQ(canvas.Art(), "#....\n#....\n#....\n");
}

}  // namespace
}  // namespace raster
