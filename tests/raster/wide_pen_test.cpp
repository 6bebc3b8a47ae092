// The miniatures are GDI's own pictures. `gdi_comparison` holds many more.
#include "raster/wide_pen.h"

#include <algorithm>
#include <array>
#include <climits>
#include <gtest/gtest.h>

#include "platform/memory.h"
#include "raster/quarter_arc.h"
#include "tests/raster/test_canvas.h"

namespace raster {
namespace {

/// The picture mirrored in its main diagonal. Requires: it is square.
std::string Transposed(const TestCanvas& canvas, int side) {
    const std::string art = canvas.Art();
    std::string transposed;
    for (int x = 0; x < side; ++x) {
        for (int y = 0; y < side; ++y)
            transposed += art[static_cast<std::size_t>(y * (side + 1) + x)];
        transposed += '\n';
    }
    return transposed;
}

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

TEST(RectangleWide, OutlineIsCentredOnTheOutermostPixels) {
    TestCanvas canvas(12, 8);
    canvas.Context().pen = SolidPen(3, kPenColor);
    RectangleWide(canvas.Context(), {2, 1, 10, 7});
    EXPECT_EQ(canvas.Art(),
              "..########..\n"
              ".##########.\n"
              ".##########.\n"
              ".###oooo###.\n"
              ".###oooo###.\n"
              ".##########.\n"
              ".##########.\n"
              "..########..\n");
}

TEST(RectangleWide, PenInsideTheFrameStaysInTheBox) {
    TestCanvas canvas(12, 8);
    canvas.Context().pen = InsideFramePen(3, kPenColor);
    RectangleWide(canvas.Context(), {2, 1, 10, 7});
    EXPECT_EQ(canvas.Art(),
              "............\n"
              "...######...\n"
              "..########..\n"
              "..########..\n"
              "..########..\n"
              "..########..\n"
              "...######...\n"
              "............\n");
}

TEST(RectangleWide, PenWiderThanTheBoxIsCentredInIt) {
    TestCanvas canvas(12, 8);
    canvas.Context().pen = InsideFramePen(6, kPenColor);
    RectangleWide(canvas.Context(), {5, 3, 7, 6});
    EXPECT_EQ(canvas.Art(),
              "...######...\n"
              "..########..\n"
              ".##########.\n"
              ".##########.\n"
              ".##########.\n"
              ".##########.\n"
              ".##########.\n"
              "..########..\n");
}

TEST(EllipseWide, SmallPenLeavesAnInterior) {
    TestCanvas canvas(12, 8);
    canvas.Context().pen = SolidPen(2, kPenColor);
    EllipseWide(canvas.Context(), {1, 1, 11, 7});
    EXPECT_EQ(canvas.Art(),
              "..#######...\n"
              ".#########..\n"
              "####ooo####.\n"
              "###ooooo###.\n"
              "###ooooo###.\n"
              "###########.\n"
              ".#########..\n"
              "............\n");
}

TEST(EllipseWide, ThreeWidePen) {
    TestCanvas canvas(12, 8);
    canvas.Context().pen = SolidPen(3, kPenColor);
    EllipseWide(canvas.Context(), {2, 2, 10, 7});
    EXPECT_EQ(canvas.Art(),
              "............\n"
              "....######..\n"
              "..#########.\n"
              ".#########..\n"
              ".#####o####.\n"
              ".#########..\n"
              "..#########.\n"
              "....######..\n");
}

TEST(EllipseWide, PenInsideTheFrameStaysInTheBox) {
    TestCanvas canvas(12, 8);
    canvas.Context().pen = InsideFramePen(3, kPenColor);
    EllipseWide(canvas.Context(), {1, 0, 11, 8});
    EXPECT_EQ(canvas.Art(),
              "....######..\n"
              "..#########.\n"
              ".#########..\n"
              ".#####o####.\n"
              ".#####o####.\n"
              ".#########..\n"
              "..#########.\n"
              "....######..\n");
}

TEST(RoundRectWide, PenInsideTheFrameRoundsWithItsCorners) {
    TestCanvas canvas(12, 8);
    canvas.Context().pen = InsideFramePen(4, kPenColor);
    RoundRectWide(canvas.Context(), {0, 0, 12, 8}, 6, 6);
    EXPECT_EQ(canvas.Art(),
              "..########..\n"
              ".###########\n"
              "############\n"
              "############\n"
              "############\n"
              "############\n"
              ".##########.\n"
              "..##########\n");
}

TEST(RoundRectWide, PenFarWiderThanTheBox) {
    TestCanvas canvas(12, 8);
    canvas.Context().pen = InsideFramePen(12, kPenColor);
    RoundRectWide(canvas.Context(), {3, 2, 9, 6}, 4, 4);
    EXPECT_EQ(canvas.Art(),
              "############\n"
              "############\n"
              "############\n"
              "############\n"
              "############\n"
              "############\n"
              "############\n"
              "############\n");
}

// Lopsided as GDI's: the last row of the outline lacks two pixels.
TEST(EllipseWide, OutlineKeepsTheSeamOfItsSegments) {
    TestCanvas canvas(20, 14);
    canvas.Context().pen = SolidPen(6, kPenColor);
    EllipseWide(canvas.Context(), {4, 2, 14, 12});
    EXPECT_EQ(canvas.Art(),
              ".....#########......\n"
              "....###########.....\n"
              "...#############....\n"
              "..#############.....\n"
              ".###############....\n"
              ".###############....\n"
              ".########o######....\n"
              ".########o######....\n"
              ".###############....\n"
              "..#############.....\n"
              "..#############.....\n"
              "...#############....\n"
              "....###########.....\n"
              "......#####.##......\n");
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

// A stroke of many points is collected before it is painted, one of few is not.
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

/// Draws one of the three shapes in a box.
using DrawInBox = void (*)(DrawingContext&, const Rect&);
constexpr DrawInBox kShapes[] = {
    RectangleWide, EllipseWide,
    [](DrawingContext& context, const Rect& box) { RoundRectWide(context, box, 5, -4); }};

TEST(WideShapes, EmptyBoxesPaintNothing) {
    for (const DrawInBox draw : kShapes) {
        TestCanvas canvas(12, 8);
        canvas.Context().pen = SolidPen(3, kPenColor);
        draw(canvas.Context(), {4, 2, 4, 6});
        draw(canvas.Context(), {4, 2, 8, 2});
        EXPECT_TRUE(canvas.IsBlank());
    }
}

TEST(WideShapes, CrossedBoxesPaintAsTheirOrderedForm) {
    for (const DrawInBox draw : kShapes) {
        TestCanvas ordered(14, 14), crossed(14, 14);
        ordered.Context().pen = crossed.Context().pen = InsideFramePen(3, kPenColor);
        draw(ordered.Context(), {1, 2, 13, 12});
        draw(crossed.Context(), {13, 12, 1, 2});
        EXPECT_EQ(crossed.Art(), ordered.Art());
    }
}

TEST(WideShapes, BoxesAtTheEndsOfAllCoordinatesStayInBounds) {
    for (const DrawInBox draw : kShapes) {
        for (const Pen& pen : {SolidPen(8, kPenColor), InsideFramePen(8, kPenColor)}) {
            TestCanvas canvas(8, 8);
            canvas.Context().pen = pen;
            draw(canvas.Context(), {INT_MIN, INT_MIN, INT_MAX, INT_MAX});
            EXPECT_EQ(canvas.At(4, 4), kBrushColor);
            EXPECT_TRUE(canvas.IsUntouchedAround());
        }
    }
}

TEST(WideShapes, NullBrushLeavesTheInterior) {
    for (const DrawInBox draw : kShapes) {
        TestCanvas canvas(20, 20);
        draw(canvas.WithPen(3), {2, 2, 18, 18});
        EXPECT_EQ(canvas.At(10, 10), 0u);
        EXPECT_EQ(canvas.At(2, 10), kPenColor);
    }
}

TEST(RoundRectWide, SquareCornersMakeARectangle) {
    TestCanvas rounded(12, 8), rectangle(12, 8);
    rounded.Context().pen = rectangle.Context().pen = SolidPen(2, kPenColor);
    RoundRectWide(rounded.Context(), {1, 1, 11, 7}, 2, 30);
    RectangleWide(rectangle.Context(), {1, 1, 11, 7});
    EXPECT_EQ(rounded.Art(), rectangle.Art());
}

TEST(RoundRectWide, WithoutMemoryFailsAndPaintsNothing) {
    TestCanvas canvas(32, 32);
    canvas.Context().pen = SolidPen(3, kPenColor);
    platform::FailAllocation(1);
    RoundRectWide(canvas.Context(), {2, 2, 30, 30}, 9, 9);
    platform::FailAllocation(0);
    EXPECT_TRUE(canvas.Context().failed);
    EXPECT_TRUE(canvas.IsBlank());
}

TEST(EllipseWide, FarTallerThanWideIsItsFlatTwinTransposed) {
    TestCanvas tall(40, 40), flat(40, 40);
    tall.Context().pen = flat.Context().pen = SolidPen(2, kPenColor);
    EllipseWide(tall.Context(), {10, 2, 15, 36});
    EllipseWide(flat.Context(), {2, 10, 36, 15});
    EXPECT_EQ(tall.Art(), Transposed(flat, 40));
}

TEST(QuarterArc, ReachesTheLastRowOfEveryEllipseThatIsNotFarTooTall) {
    for (int width = 3; width < 120; ++width) {
        const int limit = 2 * (width - 1) * (width - 1);
        for (const int height : {3, width, limit / 2, limit - 1, limit, limit + 1, 2 * limit}) {
            if (height < 3) continue;
            int last_row = 0;
            for (QuarterArc arc(width, height); !arc.IsPastMiddle(); arc.Advance())
                last_row = arc.Row();
            EXPECT_EQ(last_row >= height - 1, WalkReachesLastRow(width, height))
                << width << " x " << height;
        }
    }
}

}  // namespace
}  // namespace raster
