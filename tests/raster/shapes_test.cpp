#include "raster/shapes.h"

#include <climits>
#include <gtest/gtest.h>

#include "platform/memory.h"
#include "tests/raster/test_canvas.h"

namespace raster {
namespace {

TEST(FillRect, LeavesOutRightAndBottom) {
    TestCanvas canvas(5, 4);
    FillRect(canvas.Context(), {1, 1, 4, 3}, SolidBrush(kBrushColor));
    EXPECT_EQ(canvas.Art(),
              ".....\n"
              ".ooo.\n"
              ".ooo.\n"
              ".....\n");
}

TEST(FillRect, TakesItsOwnBrushAndNoPen) {
    TestCanvas canvas(3, 1);
    FillRect(canvas.WithPenAndBrush(), {0, 0, 3, 1}, SolidBrush(0x010203));
    EXPECT_EQ(canvas.At(0, 0), 0x010203u);
    EXPECT_EQ(canvas.At(2, 0), 0x010203u);
}

TEST(FillRect, NullBrushPaintsNothing) {
    TestCanvas canvas(3, 3);
    FillRect(canvas.Context(), {0, 0, 3, 3}, kNullBrush);
    EXPECT_TRUE(canvas.IsBlank());
}

TEST(FillRect, WritesBlueGreenRedInEveryPixelOfALongRow) {
    TestCanvas canvas(11, 1);
    FillRect(canvas.Context(), {0, 0, 11, 1}, SolidBrush(0x030201));
    for (int x = 0; x < 11; ++x)
        EXPECT_EQ(canvas.At(x, 0), 0x030201u) << x;
    EXPECT_TRUE(canvas.IsUntouchedAround());
}

// A crossed box runs from its first corner, which it has, back to the other.
TEST(FillRect, CrossedSidesHaveThePixelsAfterTheSmallerCoordinate) {
    TestCanvas canvas(6, 5);
    FillRect(canvas.Context(), {4, 3, 1, 1}, SolidBrush(kBrushColor));
    EXPECT_EQ(canvas.Art(),
              "......\n"
              "......\n"
              "..ooo.\n"
              "..ooo.\n"
              "......\n");
}

TEST(Rectangle, WithoutPenFillsUpToRightAndBottom) {
    TestCanvas canvas(5, 4);
    Rectangle(canvas.Context(), 1, 1, 4, 3);
    EXPECT_EQ(canvas.Art(),
              ".....\n"
              ".ooo.\n"
              ".ooo.\n"
              ".....\n");
}

TEST(Rectangle, CrossedBoxPaintsAsItsOrderedForm) {
    TestCanvas canvas(5, 4), ordered(5, 4);
    Rectangle(canvas.Context(), 4, 3, 1, 1);
    Rectangle(ordered.Context(), 1, 1, 4, 3);
    EXPECT_EQ(canvas.Art(), ordered.Art());
}

TEST(Rectangle, PenOfOnePixelRunsInsideTheBox) {
    TestCanvas canvas(6, 5);
    Rectangle(canvas.WithPenAndBrush(), 1, 1, 5, 4);
    EXPECT_EQ(canvas.Art(),
              "......\n"
              ".####.\n"
              ".#oo#.\n"
              ".####.\n"
              "......\n");
}

TEST(Rectangle, OutlineOfASinglePixelHasNoLength) {
    TestCanvas canvas(3, 3);
    Rectangle(canvas.WithPenAndBrush(), 1, 1, 2, 2);
    EXPECT_TRUE(canvas.IsBlank());
}

TEST(Rectangle, OutlineOfAOnePixelColumnIsALine) {
    TestCanvas canvas(3, 4);
    Rectangle(canvas.WithPenAndBrush(), 1, 1, 2, 3);
    EXPECT_EQ(canvas.Art(),
              "...\n"
              ".#.\n"
              ".#.\n"
              "...\n");
}

TEST(Ellipse, FiveBySeven) {
    TestCanvas canvas(7, 8);
    Ellipse(canvas.Context(), 1, 1, 6, 8);
    EXPECT_EQ(canvas.Art(),
              ".......\n"
              "...o...\n"
              "..ooo..\n"
              ".ooooo.\n"
              ".ooooo.\n"
              ".ooooo.\n"
              "..ooo..\n"
              "...o...\n");
}

TEST(Ellipse, ThreeByThreeIsACross) {
    TestCanvas canvas(3, 3);
    Ellipse(canvas.Context(), 0, 0, 3, 3);
    EXPECT_EQ(canvas.Art(),
              ".o.\n"
              "ooo\n"
              ".o.\n");
}

TEST(Ellipse, NarrowOnesFillTheirBox) {
    TestCanvas canvas(6, 3);
    Ellipse(canvas.Context(), 0, 0, 1, 1);
    Ellipse(canvas.Context(), 2, 0, 4, 2);
    Ellipse(canvas.Context(), 5, 0, 6, 3);
    EXPECT_EQ(canvas.Art(),
              "o.oo.o\n"
              "..oo.o\n"
              ".....o\n");
}

TEST(Ellipse, PenOfOnePixelIsItsRim) {
    TestCanvas canvas(7, 9);
    Ellipse(canvas.WithPenAndBrush(), 1, 1, 6, 8);
    EXPECT_EQ(canvas.Art(),
              ".......\n"
              "...#...\n"
              "..#o#..\n"
              ".#ooo#.\n"
              ".#ooo#.\n"
              ".#ooo#.\n"
              "..#o#..\n"
              "...#...\n"
              ".......\n");
}

TEST(Ellipse, CrossedBoxPaintsAsItsOrderedForm) {
    TestCanvas canvas(12, 10), ordered(12, 10);
    Ellipse(canvas.WithPenAndBrush(), 11, 9, 1, 2);
    Ellipse(ordered.WithPenAndBrush(), 1, 2, 11, 9);
    EXPECT_EQ(canvas.Art(), ordered.Art());
}

TEST(Ellipse, MuchTallerThanWideIsItsFlatTwinTransposed) {
    TestCanvas tall(5, 60), flat(60, 5);
    Ellipse(tall.WithPenAndBrush(), 0, 0, 5, 60);
    Ellipse(flat.WithPenAndBrush(), 0, 0, 60, 5);
    for (int y = 0; y < 60; ++y)
        for (int x = 0; x < 5; ++x)
            ASSERT_EQ(tall.At(x, y), flat.At(y, x)) << x << ' ' << y;
    EXPECT_NE(tall.At(2, 0), 0u);
}

TEST(Ellipse, ConcentricOnesNeverReachOutOfTheLarger) {
    for (int side = 4; side < 60; ++side) {
        TestCanvas outer(side, side), inner(side, side);
        Ellipse(outer.Context(), 0, 0, side, side);
        Ellipse(inner.Context(), 1, 1, side - 1, side - 1);
        for (int y = 0; y < side; ++y)
            for (int x = 0; x < side; ++x)
                ASSERT_TRUE(inner.At(x, y) == 0 || outer.At(x, y) != 0) << side;
    }
}

TEST(RoundRect, CornersOfThreePixels) {
    TestCanvas canvas(8, 5);
    RoundRect(canvas.Context(), 0, 0, 8, 5, 3, 3);
    EXPECT_EQ(canvas.Art(),
              ".oooooo.\n"
              "oooooooo\n"
              "oooooooo\n"
              "oooooooo\n"
              ".oooooo.\n");
}

TEST(RoundRect, CornersOfTwoPixelsAreSquare) {
    TestCanvas canvas(4, 3);
    RoundRect(canvas.Context(), 0, 0, 4, 3, 2, 9);
    EXPECT_EQ(canvas.Art(),
              "oooo\n"
              "oooo\n"
              "oooo\n");
}

TEST(RoundRect, SignOfTheCornersIsIgnored) {
    TestCanvas canvas(12, 12), positive(12, 12);
    RoundRect(canvas.WithPenAndBrush(), 0, 0, 12, 12, -7, -5);
    RoundRect(positive.WithPenAndBrush(), 0, 0, 12, 12, 7, 5);
    EXPECT_EQ(canvas.Art(), positive.Art());
}

TEST(RoundRect, CornersAsLargeAsTheBoxMakeAnEllipse) {
    TestCanvas canvas(13, 11), ellipse(13, 11);
    RoundRect(canvas.WithPenAndBrush(), 0, 0, 13, 11, 99, 99);
    Ellipse(ellipse.WithPenAndBrush(), 0, 0, 13, 11);
    EXPECT_EQ(canvas.Art(), ellipse.Art());
}

TEST(RoundRect, PenOfOnePixelIsItsRim) {
    TestCanvas canvas(9, 6);
    RoundRect(canvas.WithPenAndBrush(), 0, 0, 9, 6, 5, 5);
    EXPECT_EQ(canvas.Art(),
              ".#######.\n"
              "#ooooooo#\n"
              "#ooooooo#\n"
              "#ooooooo#\n"
              "#ooooooo#\n"
              ".#######.\n");
}

constexpr Point kStar[] = {{5, 0}, {8, 10}, {0, 4}, {10, 4}, {2, 10}};

TEST(Polygon, AlternateLeavesTheStarsMiddleOut) {
    TestCanvas canvas(11, 11);
    Polygon(canvas.Context(), kStar);
    EXPECT_EQ(canvas.At(5, 5), 0u);
    EXPECT_EQ(canvas.At(5, 2), kBrushColor);
}

TEST(Polygon, WindingFillsTheStarsMiddle) {
    TestCanvas canvas(11, 11);
    canvas.Context().polygon_fill = PolygonFill::Winding;
    Polygon(canvas.Context(), kStar);
    EXPECT_EQ(canvas.At(5, 5), kBrushColor);
}

// Two squares of opposite direction, joined by a line of no width.
constexpr Point kRing[] = {{0, 0}, {6, 0}, {6, 5}, {0, 5}, {0, 0},
                           {2, 1}, {2, 4}, {4, 4}, {4, 1}, {2, 1}};

TEST(Polygon, WindingLeavesOutWhatIsEncircledBothWays) {
    TestCanvas canvas(7, 6);
    canvas.Context().polygon_fill = PolygonFill::Winding;
    Polygon(canvas.Context(), kRing);
    EXPECT_EQ(canvas.Art(),
              "oooooo.\n"
              "oo..oo.\n"
              "oo..oo.\n"
              "oo..oo.\n"
              "oooooo.\n"
              ".......\n");
}

TEST(Polygon, TriangleHasItsLeftEdgeAndNotItsRight) {
    TestCanvas canvas(6, 5);
    const Point triangle[] = {{0, 0}, {4, 4}, {0, 4}};
    Polygon(canvas.Context(), triangle);
    EXPECT_EQ(canvas.Art(),
              "......\n"
              "o.....\n"
              "oo....\n"
              "ooo...\n"
              "......\n");
}

TEST(Polygon, NeighboursShareNoPixel) {
    TestCanvas canvas(8, 8);
    const Point lower[] = {{0, 0}, {7, 7}, {0, 7}};
    const Point upper[] = {{0, 0}, {7, 7}, {7, 0}};
    Polygon(canvas.Context(), lower);
    TestCanvas other(8, 8);
    Polygon(other.Context(), upper);
    for (int y = 0; y < 7; ++y)
        for (int x = 0; x < 7; ++x)
            ASSERT_NE(canvas.At(x, y) != 0, other.At(x, y) != 0) << x << ' ' << y;
}

TEST(Polygon, PenOfOnePixelClosesTheOutline) {
    TestCanvas canvas(6, 5);
    const Point triangle[] = {{0, 0}, {4, 4}, {0, 4}};
    Polygon(canvas.WithPenAndBrush(), triangle);
    EXPECT_EQ(canvas.Art(),
              "#.....\n"
              "##....\n"
              "#o#...\n"
              "#oo#..\n"
              "#####.\n");
}

TEST(Polygon, OnePointDrawsNothing) {
    TestCanvas canvas(3, 3);
    const Point point[] = {{1, 1}};
    Polygon(canvas.WithPenAndBrush(), point);
    EXPECT_TRUE(canvas.IsBlank());
}

TEST(Polygon, ManyPointsWithoutMemoryFailsAndPaintsNothing) {
    TestCanvas canvas(20, 20);
    Point points[20];
    for (int i = 0; i < 20; ++i)
        points[i] = {i, i % 2 == 0 ? 0 : 20};
    platform::FailAllocation(1, true);
    Polygon(canvas.Context(), points);
    platform::FailAllocation(0);
    EXPECT_TRUE(canvas.Context().failed);
    EXPECT_TRUE(canvas.IsBlank());
}

void DrawAllShapes(DrawingContext& context, const Rect& box) {
    FillRect(context, box, context.brush);
    Rectangle(context, box.left, box.top, box.right, box.bottom);
    Ellipse(context, box.left, box.top, box.right, box.bottom);
    RoundRect(context, box.left, box.top, box.right, box.bottom, 9, 7);
}

TEST(Shapes, EmptyBoxesPaintNothing) {
    TestCanvas canvas(9, 9);
    DrawAllShapes(canvas.WithPenAndBrush(), {4, 1, 4, 8});
    DrawAllShapes(canvas.Context(), {1, 4, 8, 4});
    EXPECT_TRUE(canvas.IsBlank());
}

TEST(Shapes, BoxesOutsidePaintNothing) {
    TestCanvas canvas(9, 9);
    for (const Rect& box : {Rect{-30, 0, 0, 9}, Rect{9, 0, 40, 9}, Rect{0, -30, 9, 0},
                            Rect{0, 9, 9, 40}, Rect{500, 500, 900, 900}})
        DrawAllShapes(canvas.WithPenAndBrush(), box);
    EXPECT_TRUE(canvas.IsBlank());
}

TEST(Shapes, LargestBoxCoversTheSurface) {
    TestCanvas canvas(4, 2);
    DrawAllShapes(canvas.WithPenAndBrush(), {INT_MIN, INT_MIN, INT_MAX, INT_MAX});
    EXPECT_EQ(canvas.Art(), "oooo\noooo\n");
    EXPECT_TRUE(canvas.IsUntouchedAround());
}

TEST(Shapes, HugeEllipseShowsItsTopmostRow) {
    TestCanvas canvas(5, 4);
    Ellipse(canvas.WithPenAndBrush(), -1000000000, 2, 1000000000, 2000000000);
    EXPECT_EQ(canvas.Art(),
              ".....\n"
              ".....\n"
              "#####\n"
              "ooooo\n");
}

}  // namespace
}  // namespace raster
