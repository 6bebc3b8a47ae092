// The miniatures are GDI's own pictures. `gdi_comparison` holds many more.
#include <climits>
#include <gtest/gtest.h>
#include <string>

#include "platform/memory.h"
#include "raster/wide_pen.h"
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

// A stroke of many points is collected before it is painted, one of few is not.

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

}  // namespace
}  // namespace raster
