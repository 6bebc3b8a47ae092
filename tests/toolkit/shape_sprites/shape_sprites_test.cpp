// Sizes, places and areas of what the service draws, worked out by hand. The two builds
// smooth edges differently, so areas hold to a few percent and edges to a pixel.
#include "toolkit/shape_sprites.h"

#include <cstring>
#include <gtest/gtest.h>
#include <limits>

#include "tests/support/allocation_failures.h"
#include "tests/toolkit/shape_sprites/shape_requests.h"

namespace tess {
namespace {

using test::GradientOfSize;
using test::kBlue;
using test::kGreen;
using test::kRed;
using test::kWhite;
using test::LineFrom;
using test::ShapeOfSize;
using test::ShapePicture;

constexpr std::int32_t kMost = std::numeric_limits<std::int32_t>::max();
constexpr double kPi = 3.14159265358979;

class ShapeSprites : public ::testing::Test {
protected:
    static void ExpectArea(const ShapePicture& picture, double area, double share = 0.05) {
        ASSERT_TRUE(picture.IsThere());
        EXPECT_NEAR(picture.Area(), area, area * share);
    }
    static void ExpectExtent(const ShapePicture& picture, int left, int top, int right,
                             int bottom) {
        ASSERT_TRUE(picture.IsThere());
        const auto covered = picture.Covered();
        EXPECT_NEAR(covered.left, left, 1);
        EXPECT_NEAR(covered.top, top, 1);
        EXPECT_NEAR(covered.right, right, 1);
        EXPECT_NEAR(covered.bottom, bottom, 1);
    }
    static ShapeRequest Outlined(ShapeOp op, int outline) {
        ShapeRequest request = ShapeOfSize(op, 60, 40);
        request.FillColor = kGreen;
        request.OutlineColor = kRed;
        request.OutlineWidth = outline;
        return request;
    }
    static ShapeRequest Triangle() {
        static constexpr platform::VectorPoint kPoints[] = {{4, 4}, {44, 4}, {4, 34}};
        ShapeRequest request = ShapeOfSize(ShapeOp::Polygon, 40, 30);
        request.Points = kPoints;
        request.PointCount = 3;
        request.PolygonFill = kGreen;
        return request;
    }
    static bool Succeeds(ShapeRequest request) { return ShapePicture(request).IsThere(); }

    test::StartedShapes shapes_;
};

TEST_F(ShapeSprites, APictureHas24BitsAndIsBlackBehindTheShape) {
    const ShapePicture picture(ShapeOfSize(ShapeOp::Ellipse, 60, 40));
    ASSERT_TRUE(picture.IsThere());
    EXPECT_EQ(picture.Width(), 68);
    EXPECT_EQ(picture.Height(), 48);
    EXPECT_EQ(LockedImage(picture.Get())->BitCount, 24);
    EXPECT_EQ(picture.Area(), 0);
}

TEST_F(ShapeSprites, AFilledEllipseCoversItsBox) {
    ShapeRequest request = ShapeOfSize(ShapeOp::Ellipse, 60, 40);
    request.FillColor = kWhite;
    const ShapePicture picture(request);
    ExpectArea(picture, kPi * 30 * 20);
    ExpectExtent(picture, 4, 4, 63, 43);
}

TEST_F(ShapeSprites, AnEllipsesFillGoesOverTheInnerHalfOfItsOutline) {
    // Fill: 52 x 32 at (8, 8). Outline: 8 wide around it, to 60 x 40; seen from 52 x 32.
    const ShapePicture picture(Outlined(ShapeOp::Ellipse, 8));
    ASSERT_TRUE(picture.IsThere());
    EXPECT_NEAR(picture.Area(kGreen), kPi * 26 * 16, 0.05 * kPi * 26 * 16);
    EXPECT_NEAR(picture.Area(kRed), kPi * (30 * 20 - 26 * 16), 0.08 * kPi * 184);
    EXPECT_EQ(picture.At(34, 6), kRed);     // the outer half
    EXPECT_EQ(picture.At(34, 10), kGreen);  // the inner half
}

TEST_F(ShapeSprites, AnOutlineAloneLeavesTheMiddleBlack) {
    ShapeRequest request = Outlined(ShapeOp::Ellipse, 8);
    request.FillColor = kNoShapeColor;
    const ShapePicture picture(request);
    ExpectArea(picture, kPi * (30 * 20 - 22 * 12), 0.08);
    EXPECT_EQ(picture.At(34, 24), 0U);
}

TEST_F(ShapeSprites, ARectangleCoversItsBoxExactlyWithoutSmoothing) {
    ShapeRequest request = ShapeOfSize(ShapeOp::Rectangle, 60, 40);
    request.FillColor = 0x123456;
    request.Smooth = 0;
    const ShapePicture picture(request);
    ASSERT_TRUE(picture.IsThere());
    const auto covered = picture.Covered();
    EXPECT_EQ(covered.left, 4);
    EXPECT_EQ(covered.top, 4);
    EXPECT_EQ(covered.right, 63);
    EXPECT_EQ(covered.bottom, 43);
    EXPECT_EQ(picture.At(4, 43), 0x123456U);
}

TEST_F(ShapeSprites, ARectanglesFillGoesOverTheInnerHalfOfItsOutline) {
    ShapeRequest request = Outlined(ShapeOp::Rectangle, 8);
    request.Smooth = 0;
    const ShapePicture picture(request);
    ASSERT_TRUE(picture.IsThere());
    EXPECT_EQ(picture.Area(kGreen), 52 * 32);
    EXPECT_NEAR(picture.Area(kRed), 60 * 40 - 52 * 32, 20);  // a corner may be open
    EXPECT_EQ(picture.At(34, 7), kRed);
    EXPECT_EQ(picture.At(34, 8), kGreen);
}

TEST_F(ShapeSprites, ARoundedRectangleIsSmallerByTheMargin) {
    // Outline 4: inner box from 6 to 60 - 4 = 56 and 40 - 4 = 36, the pen 2 around it.
    ShapeRequest request = Outlined(ShapeOp::Rectangle, 4);
    request.CornerPercent = 50;  // of 30: arcs of 15 x 15
    const ShapePicture picture(request);
    ExpectExtent(picture, 4, 4, 57, 37);
    ExpectArea(picture, 54 * 34 - (4 - kPi) * 9.5 * 9.5, 0.05);
    EXPECT_EQ(picture.At(5, 5), 0U);  // cut off by the corner
    EXPECT_EQ(picture.At(31, 21), kGreen);
}

TEST_F(ShapeSprites, CornersWithoutASizeDrawNothing) {
    ShapeRequest request = Outlined(ShapeOp::Rectangle, 4);
    request.CornerPercent = -50;
    ExpectArea(ShapePicture(request), 0);
    request.CornerPercent = 1;  // 30 * 1 / 100 = 0
    ExpectArea(ShapePicture(request), 0);
}

TEST_F(ShapeSprites, AShapeNarrowerThanItsOutlineDrawsNothing) {
    ExpectArea(ShapePicture(Outlined(ShapeOp::Ellipse, 50)), 0);
    ExpectArea(ShapePicture(Outlined(ShapeOp::Rectangle, kMost)), 0);
}

TEST_F(ShapeSprites, AFlatLineCoversLengthTimesWidth) {
    const ShapePicture picture(LineFrom({10, 10}, {60, 10}, 8));
    EXPECT_EQ(picture.Width(), 82);  // 50 + (4 + 8) * 2 + 8
    EXPECT_EQ(picture.Height(), 32);
    ExpectArea(picture, 400);
    ExpectExtent(picture, 16, 12, 65, 19);
}

TEST_F(ShapeSprites, ALinesPlaceDoesNotDependOnItsCoordinates) {
    const ShapePicture here(LineFrom({10, 40}, {60, 10}, 5));
    const ShapePicture there(LineFrom({-990, 2040}, {-940, 2010}, 5));
    ASSERT_TRUE(here.IsThere() && there.IsThere());
    EXPECT_EQ(std::memcmp(LockedImage(here.Get()), LockedImage(there.Get()),
                          platform::BlockSize(here.Get())),
              0);
}

TEST_F(ShapeSprites, RoundCapsAddHalfACircleOnEachEnd) {
    ShapeRequest request = LineFrom({10, 10}, {60, 10}, 8);
    request.LineCap = 0;
    const ShapePicture picture(request);
    ExpectArea(picture, 400 + kPi * 16);
    ExpectExtent(picture, 12, 12, 69, 19);
}

TEST_F(ShapeSprites, EachEndHasItsOwnCap) {
    // From 16 to 66 in row 16: a diamond anchor reaches 8 before, a triangle 4 behind.
    ShapeRequest request = LineFrom({10, 10}, {60, 10}, 8);
    request.LineCap = kOwnLineCaps;
    request.LineStartCap = 0x13;
    request.LineEndCap = 3;
    const ShapePicture picture(request);
    ExpectExtent(picture, 8, 8, 69, 23);
    EXPECT_EQ(picture.At(68, 12), 0U);
    EXPECT_EQ(picture.At(68, 16), kWhite);
}

TEST_F(ShapeSprites, AnchorsReachAWidthBeyondTheLine) {
    // Areas beyond the flat line, of a width of 8: half and more of each lies beside it.
    for (const std::uint32_t cap : {0x11U, 0x12U, 0x13U}) {
        ShapeRequest request = LineFrom({10, 10}, {60, 10}, 8);
        request.LineCap = kOwnLineCaps;
        request.LineEndCap = cap;
        const ShapePicture picture(request);
        ASSERT_TRUE(picture.IsThere());
        EXPECT_GT(picture.Area(), 450) << cap;
        const int reach = cap == 0x11U ? 71 : 73;  // a square's side is 1.41 widths
        EXPECT_NEAR(picture.Covered().right, reach, 1) << cap;
    }
}

TEST_F(ShapeSprites, AnArrowEndsWhereTheLineEnds) {
    ShapeRequest request = LineFrom({10, 10}, {60, 10}, 8);
    request.LineCap = kOwnLineCaps;
    request.LineEndCap = 0x14;
    const ShapePicture picture(request);
    // Its base is 16 before the end at (66, 16), and half of it 16 / 1.732 = 9.24.
    ExpectExtent(picture, 16, 7, 65, 25);
    EXPECT_EQ(picture.At(62, 12), 0U);
}

TEST_F(ShapeSprites, APolygonFillsItsPointsWhereTheyAre) {
    const ShapePicture picture(Triangle());
    ExpectArea(picture, 600);
    ExpectExtent(picture, 4, 4, 43, 33);
}

TEST_F(ShapeSprites, APolygonsFillGoesOverItsOutline) {
    ShapeRequest request = Triangle();
    request.PolygonOutline = kRed;
    request.PolygonWidth = 4;
    const ShapePicture picture(request);
    ASSERT_TRUE(picture.IsThere());
    EXPECT_EQ(picture.At(20, 3), kRed);
    EXPECT_EQ(picture.At(20, 5), kGreen);
    // 120 long, half of 4 wide outside, and the round corners' circle.
    EXPECT_NEAR(picture.Area(kRed), 240 + kPi * 4, 45);
}

TEST_F(ShapeSprites, APolygonsTwiceEnclosedMiddleStaysEmpty) {
    static constexpr platform::VectorPoint kStar[] = {
        {40, 8}, {58, 64}, {10, 29}, {70, 29}, {22, 64}};
    ShapeRequest request = ShapeOfSize(ShapeOp::Polygon, 72, 64);
    request.Points = kStar;
    request.PointCount = 5;
    request.PolygonFill = kGreen;
    const ShapePicture picture(request);
    ASSERT_TRUE(picture.IsThere());
    EXPECT_EQ(picture.At(40, 40), 0U);
    EXPECT_EQ(picture.At(40, 20), kGreen);
}

TEST_F(ShapeSprites, PointsFarOutsideAreHarmless) {
    static constexpr platform::VectorPoint kPoints[] = {
        {-kMost - 1, -kMost - 1}, {kMost, 10}, {10, kMost}};
    ShapeRequest request = Triangle();
    request.Points = kPoints;
    request.PolygonOutline = kRed;
    request.PolygonWidth = kMost;
    EXPECT_TRUE(Succeeds(request));
}

TEST_F(ShapeSprites, ALinearGradientAlongTheDiagonalHasItsMeanInTheMiddle) {
    ShapeRequest request = GradientOfSize(ShapeGradientKind::Linear, 79, 39, kRed, kBlue);
    request.GradientAngle = 45;
    const ShapePicture picture(request);
    ASSERT_TRUE(picture.IsThere());
    EXPECT_EQ(picture.Width(), 79);
    // The box is 80 by 40 from (-1, -1), so (39, 19) is its middle, and so is the way
    // across along the other diagonal.
    for (const auto& [x, y] : {std::pair{39, 19}, std::pair{19, 29}, std::pair{59, 9}}) {
        EXPECT_NEAR(RedOf(picture.At(x, y)), 128, 2);
        EXPECT_NEAR(BlueOf(picture.At(x, y)), 128, 2);
    }
    EXPECT_GT(RedOf(picture.At(0, 0)), 245);
    EXPECT_GT(BlueOf(picture.At(78, 38)), 245);
}

TEST_F(ShapeSprites, AnEllipticGradientRunsFromItsCentreToTheEllipse) {
    const ShapePicture picture(GradientOfSize(ShapeGradientKind::Ellipse, 80, 40, kRed, kBlue));
    ASSERT_TRUE(picture.IsThere());
    EXPECT_NEAR(RedOf(picture.At(40, 20)), 255, 8);
    EXPECT_NEAR(RedOf(picture.At(60, 20)), 128, 8);  // half of the radius of 40
    EXPECT_NEAR(RedOf(picture.At(40, 30)), 128, 8);  // half of the radius of 20
    EXPECT_EQ(picture.At(1, 1), kBlue);              // outside of the ellipse
}

TEST_F(ShapeSprites, AGradientsCentreMovesByPercentOfHalfTheSize) {
    for (const auto kind : {ShapeGradientKind::Ellipse, ShapeGradientKind::Rectangle}) {
        ShapeRequest request = GradientOfSize(kind, 80, 40, kRed, kBlue);
        request.CentreX = 50;
        request.CentreY = -50;
        const ShapePicture picture(request);
        ASSERT_TRUE(picture.IsThere());
        EXPECT_NEAR(RedOf(picture.At(60, 10)), 255, 8);
        EXPECT_LT(RedOf(picture.At(40, 20)), 200);
    }
}

TEST_F(ShapeSprites, ARectangularGradientRunsFromItsCentreToTheSides) {
    const ShapePicture picture(GradientOfSize(ShapeGradientKind::Rectangle, 80, 40, kRed, kBlue));
    ASSERT_TRUE(picture.IsThere());
    EXPECT_NEAR(RedOf(picture.At(60, 20)), 128, 8);
    EXPECT_NEAR(RedOf(picture.At(60, 30)), 128, 8);  // on the way to the corner
    EXPECT_NEAR(RedOf(picture.At(79, 39)), 0, 20);
}

TEST_F(ShapeSprites, ACentreOutsideIsHarmless) {
    for (const int percent : {100, -150, 100000, kMost, -kMost}) {
        for (const auto kind : {ShapeGradientKind::Ellipse, ShapeGradientKind::Rectangle}) {
            ShapeRequest request = GradientOfSize(kind, 20, 20, kRed, kBlue);
            request.CentreX = percent;
            EXPECT_TRUE(Succeeds(request)) << percent;
        }
    }
}

TEST_F(ShapeSprites, AnUnknownKindOfGradientIsBlack) {
    const ShapePicture picture(
        GradientOfSize(static_cast<ShapeGradientKind>(3), 20, 20, kRed, kBlue));
    ASSERT_TRUE(picture.IsThere());
    EXPECT_EQ(picture.Area(), 0);
}

TEST_F(ShapeSprites, SizesWithoutAPixelFail) {
    for (const ShapeOp op : {ShapeOp::Line, ShapeOp::Ellipse, ShapeOp::Rectangle}) {
        EXPECT_FALSE(Succeeds(ShapeOfSize(op, -8, 40)));
        EXPECT_FALSE(Succeeds(ShapeOfSize(op, 40, -3000)));
    }
    EXPECT_FALSE(Succeeds(GradientOfSize(ShapeGradientKind::Linear, 0, 5, kRed, kBlue)));
    EXPECT_FALSE(Succeeds(GradientOfSize(ShapeGradientKind::Ellipse, 5, -5, kRed, kBlue)));
}

TEST_F(ShapeSprites, SizesThatNoPictureHasFail) {
    EXPECT_FALSE(Succeeds(GradientOfSize(ShapeGradientKind::Linear, kMost, kMost, kRed, kBlue)));
    EXPECT_FALSE(Succeeds(GradientOfSize(ShapeGradientKind::Linear, 1, kMost, kRed, kBlue)));
    EXPECT_FALSE(Succeeds(GradientOfSize(ShapeGradientKind::Rectangle, 65536, 65536, kRed, kBlue)));
    EXPECT_FALSE(Succeeds(LineFrom({0, 0}, {10, 10}, kMost)));
    ShapeRequest request = ShapeOfSize(ShapeOp::Ellipse, 10, 10);
    request.Left = -kMost - 1;
    request.Right = kMost;
    EXPECT_FALSE(Succeeds(request));
}

TEST_F(ShapeSprites, NegativePensFail) {
    EXPECT_FALSE(Succeeds(LineFrom({0, 0}, {50, 50}, -1)));
    EXPECT_FALSE(Succeeds(Outlined(ShapeOp::Ellipse, -1)));
    EXPECT_FALSE(Succeeds(Outlined(ShapeOp::Rectangle, -kMost)));
    ShapeRequest request = Triangle();
    request.PolygonOutline = kRed;
    request.PolygonWidth = -1;
    EXPECT_FALSE(Succeeds(request));
}

TEST_F(ShapeSprites, APolygonWithoutPointsFails) {
    ShapeRequest request = Triangle();
    for (const int count : {0, -1, -kMost}) {
        request.PointCount = count;
        EXPECT_FALSE(Succeeds(request)) << count;
    }
    request = Triangle();
    request.Points = nullptr;
    EXPECT_FALSE(Succeeds(request));
}

TEST_F(ShapeSprites, TheRequestStaysAsItWas) {
    ShapeRequest request = Outlined(ShapeOp::Ellipse, 3);
    ShapeRequest before;
    std::memcpy(&before, &request, sizeof request);
    const platform::OwnedBlock picture(reinterpret_cast<ImageHandle>(RunShapeRequest(&request)));
    EXPECT_TRUE(picture);
    EXPECT_EQ(std::memcmp(&before, &request, sizeof request), 0);
}

TEST_F(ShapeSprites, EachAllocationMayFail) {
    EXPECT_GE(FailEachAllocation([&] { return Succeeds(Outlined(ShapeOp::Ellipse, 3)); }), 1U);
    EXPECT_GE(FailEachAllocation([] {
                  return Succeeds(GradientOfSize(ShapeGradientKind::Ellipse, 20, 20, kRed, kBlue));
              }),
              1U);
}

}  // namespace
}  // namespace tess
