#include "toolkit/shape_geometry.h"

#include <gtest/gtest.h>
#include <limits>

namespace tess {
namespace {

constexpr std::int32_t kLeast = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t kMost = std::numeric_limits<std::int32_t>::max();

/// A box of 60 by 40, whose place does not count.
ShapeRequest Box(ShapeOp op, int outline = 0) {
    ShapeRequest request{};
    request.Op = op;
    request.Left = -7;
    request.Top = 1000;
    request.Right = 53;
    request.Bottom = 1040;
    request.OutlineWidth = outline;
    return request;
}

void ExpectBox(const platform::VectorBox& box, int x, int y, int width, int height) {
    EXPECT_EQ(box.X, x);
    EXPECT_EQ(box.Y, y);
    EXPECT_EQ(box.Width, width);
    EXPECT_EQ(box.Height, height);
}

void ExpectPoint(platform::VectorPoint point, int x, int y) {
    EXPECT_EQ(point.X, x);
    EXPECT_EQ(point.Y, y);
}

TEST(ShapeBitmapSize, AShapeHasEightPixelsMore) {
    for (const ShapeOp op : {ShapeOp::Ellipse, ShapeOp::Rectangle, ShapeOp::Polygon}) {
        EXPECT_EQ(ShapeBitmapSize(Box(op, 9)), (ShapeSize{68, 48}));
    }
}

TEST(ShapeBitmapSize, ALineHasRoomForItsCapsToo) {
    // 9 / 2 + 9 = 13, twice 13 plus 8 = 34.
    ShapeRequest request = Box(ShapeOp::Line);
    request.LineWidth = 9;
    EXPECT_EQ(ShapeBitmapSize(request), (ShapeSize{94, 74}));
}

TEST(ShapeBitmapSize, AGradientHasItsOwnSize) {
    ShapeRequest request = Box(ShapeOp::Gradient);
    request.GradientWidth = 3;
    request.GradientHeight = 5;
    EXPECT_EQ(ShapeBitmapSize(request), (ShapeSize{3, 5}));
}

TEST(ShapeBitmapSize, ASmallNegativeBoxStillHasItsMargin) {
    ShapeRequest request = Box(ShapeOp::Ellipse);
    request.Right = request.Left - 7;
    request.Bottom = request.Top - 8;
    EXPECT_EQ(ShapeBitmapSize(request), (ShapeSize{1, 0}));
}

TEST(ShapeBitmapSize, WhatNoNumberHoldsIsNoSize) {
    ShapeRequest request = Box(ShapeOp::Ellipse);
    request.Left = kLeast;
    request.Right = kMost;
    EXPECT_EQ(ShapeBitmapSize(request).Width, 0);
    request = Box(ShapeOp::Line);
    request.LineWidth = kMost;
    EXPECT_EQ(ShapeBitmapSize(request), (ShapeSize{0, 0}));
}

TEST(ShapeBox, StartsHalfAnOutlineInsideTheMargin) {
    ExpectBox(ShapeBox(Box(ShapeOp::Ellipse, 5)), 6, 6, 55, 35);
    ExpectBox(ShapeBox(Box(ShapeOp::Rectangle, 0)), 4, 4, 60, 40);
}

TEST(ShapeBox, AnOutlineWiderThanTheShapeTurnsItInsideOut) {
    ExpectBox(ShapeBox(Box(ShapeOp::Ellipse, 50)), 29, 29, 10, -10);
    ExpectBox(ShapeBox(Box(ShapeOp::Ellipse, kMost)), kMost / 2 + 4, kMost / 2 + 4, 60 - kMost,
              40 - kMost);
}

TEST(CornerDiameter, IsAPercentageOfTheShorterInnerSide) {
    // 40 - 4 - (4 / 2 + 4) = 30; 55 % of it is 16.5.
    ShapeRequest request = Box(ShapeOp::Rectangle, 4);
    request.CornerPercent = 55;
    EXPECT_EQ(CornerDiameter(request), 16);
    request.CornerPercent = -55;
    EXPECT_EQ(CornerDiameter(request), -16);
}

TEST(RoundedCorners, RunClockwiseFromTheTopRight) {
    ShapeRequest request = Box(ShapeOp::Rectangle, 4);
    request.CornerPercent = 20;
    const CornerArcs corners = RoundedCorners(request);
    ExpectBox(corners.Arcs[0].Box, 50, 6, 6, 6);
    ExpectBox(corners.Arcs[1].Box, 50, 30, 6, 6);
    ExpectBox(corners.Arcs[2].Box, 6, 30, 6, 6);
    ExpectBox(corners.Arcs[3].Box, 6, 6, 6, 6);
    EXPECT_EQ(corners.Arcs[0].Start, 270);
    EXPECT_EQ(corners.Arcs[1].Start, 0);
    EXPECT_EQ(corners.Arcs[2].Start, 90);
    EXPECT_EQ(corners.Arcs[3].Start, 180);
}

TEST(PlaceLine, PutsTheLeastCoordinatesBehindTheMargin) {
    // 9 + 4 + 9 / 2 = 17.
    ShapeRequest request{};
    request.LineWidth = 9;
    request.LineX1 = 60;
    request.LineY1 = -40;
    request.LineX2 = 10;
    request.LineY2 = -10;
    ExpectPoint(PlaceLine(request).From, 67, 17);
    ExpectPoint(PlaceLine(request).To, 17, 47);
}

TEST(LinePen, AZeroCapIsRoundOnBothEnds) {
    ShapeRequest request{};
    request.LineStartCap = 3;
    EXPECT_EQ(LinePen(request).StartCap, platform::LineCap::Round);
    EXPECT_EQ(LinePen(request).EndCap, platform::LineCap::Round);
}

TEST(LinePen, MinusOneTakesTheCapsOfTheirOwn) {
    ShapeRequest request{};
    request.LineCap = kOwnLineCaps;
    request.LineStartCap = 3;
    request.LineEndCap = 0x14;
    EXPECT_EQ(LinePen(request).StartCap, platform::LineCap::Triangle);
    EXPECT_EQ(LinePen(request).EndCap, platform::LineCap::ArrowAnchor);
}

TEST(LinePen, AnyOtherCapIsFlat) {
    ShapeRequest request{};
    request.LineCap = 2;
    request.LineStartCap = request.LineEndCap = 3;
    EXPECT_EQ(LinePen(request).StartCap, platform::LineCap::Flat);
    EXPECT_EQ(LinePen(request).EndCap, platform::LineCap::Flat);
}

TEST(GradientCenter, LiesInTheMiddleWithoutAnOffset) {
    ShapeRequest request{};
    request.GradientWidth = 81;
    request.GradientHeight = 40;
    ExpectPoint(GradientCenter(request), 40, 20);
}

TEST(GradientCenter, AnOffsetIsAPercentageOfHalfTheSizeAndTruncated) {
    // 40.5 + 20.25 = 60.75; 20.5 - 30.75 = -10.25.
    ShapeRequest request{};
    request.GradientWidth = 81;
    request.GradientHeight = 41;
    request.CentreX = 50;
    request.CentreY = -150;
    ExpectPoint(GradientCenter(request), 60, -10);
}

TEST(GradientCenter, EndsAtTheEdgeOfTheNumbers) {
    ShapeRequest request{};
    request.GradientWidth = request.GradientHeight = kMost;
    request.CentreX = kMost;
    request.CentreY = kLeast;
    ExpectPoint(GradientCenter(request), kMost, kLeast);
}

TEST(TextEmSize, Is88HundredthsTruncated) {
    EXPECT_EQ(TextEmSize(36), 31.0F);  // 31.68
    EXPECT_EQ(TextEmSize(100), 88.0F);
    EXPECT_EQ(TextEmSize(-10), -8.0F);  // -8.8
    EXPECT_EQ(TextEmSize(kMost), 1889785610.0F);
}

TEST(TextStyle, BoldIsAnythingButZeroAndTheOthersAreAboveZero) {
    ShapeRequest request{};
    EXPECT_EQ(TextStyle(request), 0);
    request.TextBold = request.TextItalic = request.TextUnderline = -1;
    EXPECT_EQ(TextStyle(request), platform::kBold);
    request.TextBold = request.TextItalic = request.TextUnderline = 1;
    EXPECT_EQ(TextStyle(request), 7);
}

TEST(ShapeArgb, ExchangesRedAndBlueAndDropsTheColorsOwnAlpha) {
    EXPECT_EQ(ShapeArgb(0x00112233), 0xFF332211U);
    EXPECT_EQ(ShapeArgb(0x99112233, 0x40), 0x40332211U);
}

TEST(TruncateToInt, EndsAtTheNearestNumber) {
    EXPECT_EQ(TruncateToInt(-1.9F), -1);
    EXPECT_EQ(TruncateToInt(3e9F), kMost);
    EXPECT_EQ(TruncateToInt(-3e9F), kLeast);
    EXPECT_EQ(TruncateToInt(std::numeric_limits<float>::quiet_NaN()), 0);
}

}  // namespace
}  // namespace tess
