#include "raster/lines.h"

#include <climits>
#include <gtest/gtest.h>

#include "platform/memory.h"
#include "tests/raster/test_canvas.h"

namespace raster {
namespace {

std::string LineArt(int width, int height, Point from, Point to) {
    TestCanvas canvas(width, height);
    MoveToEx(canvas.WithPen(1), from.x, from.y);
    LineTo(canvas.Context(), to.x, to.y);
    EXPECT_TRUE(canvas.IsUntouchedAround());
    return canvas.Art();
}

// Where a line passes the middle between two pixels it takes the upper or the
// left one, whichever way it runs.
TEST(LineTo, ShallowLineDownToTheRight) {
    EXPECT_EQ(LineArt(7, 4, {0, 0}, {6, 3}),
              "##.....\n"
              "..##...\n"
              "....##.\n"
              ".......\n");
}

TEST(LineTo, ShallowLineUpToTheLeft) {
    EXPECT_EQ(LineArt(7, 4, {6, 3}, {0, 0}),
              ".#.....\n"
              "..##...\n"
              "....##.\n"
              "......#\n");
}

TEST(LineTo, ShallowLineUpToTheRight) {
    EXPECT_EQ(LineArt(7, 4, {0, 3}, {6, 0}),
              ".....#.\n"
              "...##..\n"
              ".##....\n"
              "#......\n");
}

TEST(LineTo, ShallowLineDownToTheLeft) {
    EXPECT_EQ(LineArt(7, 4, {6, 0}, {0, 3}),
              ".....##\n"
              "...##..\n"
              ".##....\n"
              ".......\n");
}

TEST(LineTo, SteepLineDownToTheRight) {
    EXPECT_EQ(LineArt(3, 5, {0, 0}, {2, 4}),
              "#..\n"
              "#..\n"
              ".#.\n"
              ".#.\n"
              "...\n");
}

TEST(LineTo, SteepLineUpToTheLeft) {
    EXPECT_EQ(LineArt(3, 5, {2, 4}, {0, 0}),
              "...\n"
              "#..\n"
              ".#.\n"
              ".#.\n"
              "..#\n");
}

TEST(LineTo, SteepLineUpToTheRight) {
    EXPECT_EQ(LineArt(3, 5, {0, 4}, {2, 0}),
              "...\n"
              ".#.\n"
              ".#.\n"
              "#..\n"
              "#..\n");
}

TEST(LineTo, SteepLineDownToTheLeft) {
    EXPECT_EQ(LineArt(3, 5, {2, 0}, {0, 4}),
              "..#\n"
              ".#.\n"
              ".#.\n"
              "#..\n"
              "...\n");
}

TEST(LineTo, StraightLinesLeaveOutTheirLastPixel) {
    EXPECT_EQ(LineArt(4, 1, {0, 0}, {3, 0}), "###.\n");
    EXPECT_EQ(LineArt(4, 1, {3, 0}, {0, 0}), ".###\n");
    EXPECT_EQ(LineArt(1, 3, {0, 0}, {0, 2}), "#\n#\n.\n");
    EXPECT_EQ(LineArt(1, 3, {0, 2}, {0, 0}), ".\n#\n#\n");
    EXPECT_EQ(LineArt(1, 1, {0, 0}, {0, 0}), ".\n");
}

TEST(LineTo, GoesOnFromWhereItEnded) {
    TestCanvas canvas(4, 3);
    MoveToEx(canvas.WithPen(0), 0, 0);
    LineTo(canvas.Context(), 3, 0);
    LineTo(canvas.Context(), 3, 3);
    EXPECT_EQ(canvas.Art(),
              "####\n"
              "...#\n"
              "...#\n");
}

TEST(LineTo, NullPenMovesOnly) {
    TestCanvas canvas(3, 3);
    LineTo(canvas.Context(), 2, 2);
    EXPECT_TRUE(canvas.IsBlank());
    EXPECT_EQ(canvas.Context().position.x, 2);
}

TEST(LineTo, FromCornerToCornerOfAllCoordinates) {
    EXPECT_EQ(LineArt(3, 3, {INT_MIN, INT_MIN}, {INT_MAX, INT_MAX}),
              "#..\n"
              ".#.\n"
              "..#\n");
}

TEST(LineTo, LinesThatMissTheSurfacePaintNothing) {
    for (const Point& to : {Point{INT_MAX, -5}, Point{-7, INT_MAX}, Point{-9, -9}})
        EXPECT_EQ(LineArt(2, 1, {-5, -5}, to), "..\n");
}

TEST(Polyline, EveryPieceStartsWhereTheLastEnded) {
    TestCanvas canvas(4, 4);
    const Point points[] = {{0, 0}, {3, 0}, {3, 3}, {0, 3}};
    Polyline(canvas.WithPen(1), points);
    EXPECT_EQ(canvas.Art(),
              "####\n"
              "...#\n"
              "...#\n"
              ".###\n");
    EXPECT_EQ(canvas.Context().position.x, 0);
}

TEST(Polyline, OnePointDrawsNothing) {
    TestCanvas canvas(3, 3);
    const Point point[] = {{1, 1}};
    Polyline(canvas.WithPen(1), point);
    Polyline(canvas.Context(), {});
    EXPECT_TRUE(canvas.IsBlank());
}

TEST(PolyBezier, StraightControlsDrawAStraightLine) {
    TestCanvas canvas(7, 1);
    const Point points[] = {{0, 0}, {2, 0}, {4, 0}, {6, 0}};
    PolyBezier(canvas.WithPen(1), points);
    EXPECT_EQ(canvas.Art(), "######.\n");
}

// Its middle is 3/4 of the way to the controls' row.
TEST(PolyBezier, ArchReachesThreeQuartersOfItsControls) {
    TestCanvas canvas(17, 9);
    const Point points[] = {{0, 0}, {0, 8}, {16, 8}, {16, 0}};
    PolyBezier(canvas.WithPen(1), points);
    EXPECT_EQ(canvas.At(8, 6), kPenColor);
    EXPECT_EQ(canvas.At(8, 7), 0u);
    EXPECT_EQ(canvas.At(0, 0), kPenColor);
    EXPECT_EQ(canvas.At(16, 0), 0u);
}

TEST(PolyBezier, OtherCountsThanOneAndThreesDrawNothing) {
    TestCanvas canvas(9, 9);
    const Point points[] = {{0, 0}, {8, 8}, {0, 8}, {8, 0}, {4, 4}, {2, 2}};
    for (const std::size_t count : {0u, 1u, 2u, 3u, 5u, 6u})
        PolyBezier(canvas.WithPen(1), std::span(points).first(count));
    EXPECT_TRUE(canvas.IsBlank());
}

TEST(PolyBezier, WithoutMemoryFails) {
    TestCanvas canvas(9, 9);
    const Point points[] = {{0, 0}, {8, 8}, {0, 8}, {8, 0}};
    platform::FailAllocation(1, true);
    PolyBezier(canvas.WithPen(1), points);
    platform::FailAllocation(0);
    EXPECT_TRUE(canvas.Context().failed);
    EXPECT_TRUE(canvas.IsBlank());
}

TEST(PolyBezier, ControlsAtTheEndsOfAllCoordinatesStayInBounds) {
    TestCanvas canvas(9, 9);
    const Point points[] = {{INT_MIN, 0}, {INT_MAX, INT_MAX}, {INT_MIN, INT_MAX}, {INT_MAX, 3}};
    PolyBezier(canvas.WithPen(1), points);
    EXPECT_TRUE(canvas.IsUntouchedAround());
}

}  // namespace
}  // namespace raster
