#include "platform/cairo/gradient_pixels.h"

#include <gtest/gtest.h>

namespace platform {
namespace {

constexpr VectorBox kBox{0, 0, 80, 40};

TEST(GradientPixels, MixedColorsAreRounded) {
    EXPECT_EQ(MixColors(0xFF000000, 0xFFFF8001, 0.5), 0xFF804001U);
    EXPECT_EQ(MixColors(0xFF123456, 0xFFABCDEF, 0), 0xFF123456U);
    EXPECT_EQ(MixColors(0xFF123456, 0xFFABCDEF, 1), 0xFFABCDEFU);
}

TEST(GradientPixels, AnEllipsesShareIsThatOfTheWayToTheEdge) {
    EXPECT_EQ(ShareInEllipse(kBox, {40, 20}, 40, 20), 0);
    EXPECT_NEAR(ShareInEllipse(kBox, {40, 20}, 60, 20), 0.5, 1e-12);
    EXPECT_NEAR(ShareInEllipse(kBox, {40, 20}, 40, 15), 0.25, 1e-12);
    EXPECT_NEAR(ShareInEllipse(kBox, {60, 20}, 70, 20), 0.5, 1e-12);
    EXPECT_NEAR(ShareInEllipse(kBox, {60, 20}, 30, 20), 0.5, 1e-12);
    EXPECT_EQ(ShareInEllipse(kBox, {40, 20}, 0, 0), 1);
}

TEST(GradientPixels, FromOutsideTheWayGoesToTheFarEdge) {
    // From 100 through 40 to the left edge at 0.
    EXPECT_NEAR(ShareInEllipse(kBox, {100, 20}, 40, 20), 0.6, 1e-12);
    EXPECT_NEAR(ShareInRectangle(kBox, {100, 20}, 40, 20), 0.6, 1e-12);
    EXPECT_EQ(ShareInEllipse(kBox, {100, 20}, 120, 90), 1);
}

TEST(GradientPixels, ARectanglesShareIsThatOfTheWayToTheNearestSide) {
    EXPECT_EQ(ShareInRectangle(kBox, {40, 20}, 40, 20), 0);
    EXPECT_NEAR(ShareInRectangle(kBox, {40, 20}, 60, 25), 0.5, 1e-12);
    EXPECT_NEAR(ShareInRectangle(kBox, {40, 20}, 45, 30), 0.5, 1e-12);
    EXPECT_NEAR(ShareInRectangle(kBox, {40, 20}, 40, 5), 0.75, 1e-12);
}

TEST(GradientPixels, ADirectionRunsBetweenTheOutermostCorners) {
    EXPECT_NEAR(ShareAlong(kBox, 1, 0, 20, 7), 0.25, 1e-12);
    EXPECT_NEAR(ShareAlong(kBox, 0, -1, 7, 10), 0.75, 1e-12);
    const double half = 0.70710678118654752;
    EXPECT_NEAR(ShareAlong(kBox, half, half, 20, 10), 0.25, 1e-12);
    EXPECT_NEAR(ShareAlong(kBox, half, half, 0, 40), 0.5, 1e-12);
}

TEST(GradientPixels, ADirectionIsRepeatedOutside) {
    EXPECT_NEAR(ShareAlong(kBox, 1, 0, 100, 0), 0.25, 1e-12);
    EXPECT_NEAR(ShareAlong(kBox, 1, 0, -20, 0), 0.75, 1e-12);
}

}  // namespace
}  // namespace platform
