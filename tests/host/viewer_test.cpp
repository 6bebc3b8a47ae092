#include "host/viewer.h"

#include <gtest/gtest.h>

#include "tests/host/sample_animations.h"

namespace tess {
namespace {

ColorWord Pixel(const Viewer& viewer, int x, int y) {
    const LockedImage image(viewer.Picture());
    return image ? GetDibPixel(image, x, y) : kNoPixel;
}

TEST(Viewer, FirstFrameIsShownInThePalettesColors) {
    Animation animation;
    test::StartAnimation(animation, 2, 1, 3);
    test::AddFrame(animation, 4, -1, {1, 2});
    Viewer viewer;
    ASSERT_EQ(viewer.Open(animation), 1);
    EXPECT_EQ(Pixel(viewer, 0, 0), MakeColor(10, 20, 30));
    EXPECT_EQ(Pixel(viewer, 1, 0), MakeColor(20, 40, 60));
    EXPECT_EQ(viewer.Delay(), 40u);
}

TEST(Viewer, RowsAreShownFromTheTop) {
    Animation animation;
    test::StartAnimation(animation, 1, 2, 3);
    test::AddFrame(animation, 4, -1, {1, 2});
    Viewer viewer;
    ASSERT_EQ(viewer.Open(animation), 1);
    EXPECT_EQ(Pixel(viewer, 0, 0), MakeColor(10, 20, 30));
    EXPECT_EQ(Pixel(viewer, 0, 1), MakeColor(20, 40, 60));
}

TEST(Viewer, TransparentPixelShowsTheFrameBefore) {
    Animation animation;
    test::StartAnimation(animation, 2, 1, 3);
    test::AddFrame(animation, 4, -1, {1, 2});
    test::AddFrame(animation, 5, 7, {7, 3});
    Viewer viewer;
    ASSERT_EQ(viewer.Open(animation), 1);
    ASSERT_EQ(viewer.ShowNext(), 1);
    EXPECT_EQ(Pixel(viewer, 0, 0), MakeColor(10, 20, 30));
    EXPECT_EQ(Pixel(viewer, 1, 0), MakeColor(30, 60, 90));
    EXPECT_EQ(viewer.Frame(), 1);
    EXPECT_EQ(viewer.Delay(), 50u);
}

TEST(Viewer, AfterTheLastFrameComesTheFirst) {
    Animation animation;
    test::StartAnimation(animation, 1, 1, 3);
    test::AddFrame(animation, 4, -1, {1});
    test::AddFrame(animation, 4, -1, {2});
    Viewer viewer;
    ASSERT_EQ(viewer.Open(animation), 1);
    ASSERT_EQ(viewer.ShowNext(), 1);
    ASSERT_EQ(viewer.ShowNext(), 1);
    EXPECT_EQ(viewer.Frame(), 0);
    EXPECT_EQ(Pixel(viewer, 0, 0), MakeColor(10, 20, 30));
}

TEST(Viewer, TrueColorFramesAreShownAsTheyAre) {
    Animation animation;
    test::StartAnimation(animation, 1, 1, 24);
    test::AddFrame(animation, 4, -1, {MakeColor(1, 2, 3)});
    Viewer viewer;
    ASSERT_EQ(viewer.Open(animation), 1);
    EXPECT_EQ(Pixel(viewer, 0, 0), MakeColor(1, 2, 3));
}

TEST(Viewer, AnimationWithoutFramesIsNotShown) {
    const Animation animation;
    Viewer viewer;
    EXPECT_EQ(viewer.Open(animation), 0);
    EXPECT_FALSE(viewer.IsOpen());
}

TEST(Viewer, ShortageOfMemoryLeavesNothingShown) {
    Animation animation;
    test::StartAnimation(animation, 4, 4, 24);
    test::AddFrame(animation, 4, -1, {});
    Viewer viewer;
    platform::FailAllocation(1);
    EXPECT_EQ(viewer.Open(animation), 0);
    platform::FailAllocation(2);
    EXPECT_EQ(viewer.Open(animation), 0);
    platform::FailAllocation(0);
    EXPECT_EQ(viewer.Picture(), nullptr);
    EXPECT_EQ(viewer.Open(animation), 1);
}

}  // namespace
}  // namespace tess
