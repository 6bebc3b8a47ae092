#include "host/composition.h"

#include <gtest/gtest.h>
#include <vector>

#include "tests/host/sample_animations.h"

namespace tess {
namespace {

using test::AddFrame;
using test::StartAnimation;
using Bytes = std::vector<std::uint8_t>;

Bytes Shown(const Composition& shown, const Animation& animation) {
    return {shown.Pixels(),
            shown.Pixels() + shown.RowBytes() * static_cast<std::size_t>(animation.Height)};
}

TEST(Composition, TransparentPixelsLeaveWhatWasThere) {
    Animation animation;
    StartAnimation(animation, 3, 1, 3);
    AddFrame(animation, 4, -1, {1, 2, 3});
    AddFrame(animation, 4, 5, {5, 4, 5});
    Composition shown(animation);
    ASSERT_TRUE(shown && shown.IsIndexed());
    ASSERT_EQ(shown.ShowFrame(0) + shown.ShowFrame(1), 2);
    EXPECT_EQ(Shown(shown, animation), (Bytes{1, 4, 3}));
}

TEST(Composition, SameIndexIsAColorInAFrameWithoutTransparency) {
    Animation animation;
    StartAnimation(animation, 2, 1, 3);
    AddFrame(animation, 4, -1, {5, 2});
    Composition shown(animation);
    ASSERT_EQ(shown.ShowFrame(0), 1);
    EXPECT_EQ(Shown(shown, animation), (Bytes{5, 2}));
}

TEST(Composition, DifferentTablesAreShownInTrueColor) {
    Animation animation;
    StartAnimation(animation, 2, 1, 3);
    AddFrame(animation, 4, -1, {1, 1});
    AddFrame(animation, 4, 2, {3, 2});
    test::SetTableEntry(animation, 1, 3, 200, 100, 50);
    Composition shown(animation);
    ASSERT_FALSE(shown.IsIndexed());
    ASSERT_EQ(shown.ShowFrame(0) + shown.ShowFrame(1), 2);
    EXPECT_EQ(Shown(shown, animation), (Bytes{200, 100, 50, 10, 20, 30}));
}

TEST(Composition, TrueColorFramesAreRedGreenBlueFromTheTop) {
    Animation animation;
    StartAnimation(animation, 1, 2, 24);
    AddFrame(animation, 4, -1, {0x030201, 0x060504});
    Composition shown(animation);
    ASSERT_EQ(shown.ShowFrame(0), 1);
    EXPECT_EQ(Shown(shown, animation), (Bytes{1, 2, 3, 4, 5, 6}));
}

}  // namespace
}  // namespace tess
