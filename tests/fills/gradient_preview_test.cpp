#include "fills/gradient_preview.h"

#include <gtest/gtest.h>

namespace tess::test {

namespace {

// A preview of 104 by 104 pixels has its centre at (52, 52) and an inside of 100.
constexpr platform::PixelSize kClient{104, 104};

int Rotation(int x, int y) {
    return RotationAt(kClient, {x, y});
}

TEST(GradientPreview, ExactCenterGivesRotation180) {
    EXPECT_EQ(Rotation(52, 52), 180);
}

TEST(GradientPreview, RotationLeadsToThePointAtMultiplesOf45Degrees) {
    EXPECT_EQ(Rotation(92, 52), -180);  // right: 180 - 360
    EXPECT_EQ(Rotation(72, 32), 135);   // 400 * 90 / (28 * 28) = 45; 180 - 45
    EXPECT_EQ(Rotation(52, 12), 90);    // up: 180 - 90
    EXPECT_EQ(Rotation(32, 32), 45);    // 180 - (180 - 45)
    EXPECT_EQ(Rotation(12, 52), 0);     // left: 180 - (0 + 180)
    EXPECT_EQ(Rotation(32, 72), -45);   // 180 - (45 + 180)
    EXPECT_EQ(Rotation(52, 92), -90);   // down: 180 - (360 - 90)
    EXPECT_EQ(Rotation(72, 72), -135);  // 180 - (360 - 45)
}

TEST(GradientPreview, RotationIsCheapInBetween) {
    // 30 right and 10 up is 18 degrees; 100 * 90 / (31 * 31) = 9.
    EXPECT_EQ(Rotation(82, 42), 171);
}

TEST(GradientPreview, CenterRunsFromAboutMinus50To50) {
    EXPECT_EQ(CenterAt(kClient, {2, 2}), (PreviewPoint{-49, -49}));
    EXPECT_EQ(CenterAt(kClient, {51, 52}), (PreviewPoint{0, 1}));
    EXPECT_EQ(CenterAt(kClient, {101, 101}), (PreviewPoint{50, 50}));
    // 120 * 100 / 206 = 58, 30 * 100 / 213 = 14
    EXPECT_EQ(CenterAt({210, 217}, {120, 30}), (PreviewPoint{7, -37}));
}

TEST(GradientPreview, PointIsHeldTwoPixelsInside) {
    EXPECT_EQ(HoldInPreview(kClient, {-300, 400}), (PreviewPoint{2, 101}));
    EXPECT_EQ(HoldInPreview(kClient, {101, 2}), (PreviewPoint{101, 2}));
}

TEST(GradientPreview, PreviewWithoutAnInsideDividesByNothing) {
    EXPECT_EQ(HoldInPreview({3, 4}, {9, 9}), (PreviewPoint{2, 2}));
    EXPECT_EQ(CenterAt({3, 4}, {2, 2}), (PreviewPoint{149, 149}));
}

TEST(GradientPreview, MarkerOfTheRotationIsALineOfTheControlsWidth) {
    const auto line = [](int rotation) {
        const PreviewMarker marker = MarkerOf(GradientType::Conical, kClient, rotation, {9, 9});
        EXPECT_TRUE(marker.IsLine);
        return marker.Bars[0];
    };
    EXPECT_EQ(line(0), (PreviewBar{52, 52, -52, 52}));      // to the left
    EXPECT_EQ(line(90), (PreviewBar{52, 52, 52, -52}));     // upwards
    EXPECT_EQ(line(180), (PreviewBar{52, 52, 156, 52}));    // to the right
    EXPECT_EQ(line(-135), (PreviewBar{52, 52, 125, 125}));  // 104 * 0.7071 = 73 right and down
}

TEST(GradientPreview, MarkerOfTheCenterIsFourBarsAroundThePoint) {
    const PreviewMarker marker = MarkerOf(GradientType::Rectangular, kClient, 0, {30, 40});
    EXPECT_FALSE(marker.IsLine);
    EXPECT_EQ(marker.Bars[0], (PreviewBar{32, 38, 37, 42}));
    EXPECT_EQ(marker.Bars[1], (PreviewBar{28, 38, 23, 42}));
    EXPECT_EQ(marker.Bars[2], (PreviewBar{28, 42, 32, 47}));
    EXPECT_EQ(marker.Bars[3], (PreviewBar{28, 38, 32, 33}));
}

TEST(GradientPreview, OnlyLinearAndConicalAreTurned) {
    EXPECT_TRUE(DragSetsRotation(GradientType::Linear));
    EXPECT_TRUE(DragSetsRotation(GradientType::Conical));
    EXPECT_FALSE(DragSetsRotation(GradientType::Elliptical));
    EXPECT_FALSE(DragSetsRotation(GradientType::Rectangular));
    EXPECT_TRUE(DragSetsRotation(static_cast<GradientType>(9)));  // draws as linear
}

}  // namespace

}  // namespace tess::test
