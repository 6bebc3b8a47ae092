#include "controls/dialog_background.h"

#include <gtest/gtest.h>

namespace tess::test {

namespace {

TEST(DialogBackground, IsSolidWhenAskedForAndOnFewColors) {
    EXPECT_TRUE(IsBackgroundSolid(32));
    SolidBackground = 0;
    EXPECT_FALSE(IsBackgroundSolid(32));
    EXPECT_FALSE(IsBackgroundSolid(9));
    EXPECT_TRUE(IsBackgroundSolid(8));
    SolidBackground = 1;
}

TEST(DialogBackground, TintIsTheFaceUpToABrightnessOf200) {
    EXPECT_EQ(BackgroundTint(MakeColor(200, 200, 200), 0), MakeColor(200, 200, 200));
    EXPECT_EQ(BackgroundTint(MakeColor(10, 20, 30), 0), MakeColor(10, 20, 30));
}

TEST(DialogBackground, TintOfABrightFaceIsTwoThirdsShadow) {
    EXPECT_EQ(BackgroundTint(MakeColor(240, 230, 220), MakeColor(128, 100, 161)),
              MakeColor(165, 143, 180));
}

TEST(DialogBackground, ChannelMovesByTheTintAndIsHeld) {
    EXPECT_EQ(TintedChannel(130, 128), 130);
    EXPECT_EQ(TintedChannel(130, 100), 102);
    EXPECT_EQ(TintedChannel(250, 140), 255);
    EXPECT_EQ(TintedChannel(5, 100), 0);
}

TEST(DialogBackground, PictureIsTintedThroughout) {
    const platform::OwnedBlock plain(MakeDialogBackground(MakeColor(128, 128, 128)));
    const platform::OwnedBlock tinted(MakeDialogBackground(MakeColor(129, 118, 158)));
    const LockedImage before(plain.Get()), after(tinted.Get());
    ASSERT_TRUE(before && after);
    for (int y = 0; y < before->Height; ++y) {
        for (int x = 0; x < before->Width; ++x) {
            const ColorWord from = GetDibPixel(before, x, y);
            ASSERT_EQ(GetDibPixel(after, x, y),
                      MakeColor(RedOf(from) + 1, GreenOf(from) - 10, BlueOf(from) + 30));
        }
    }
}

TEST(DialogBackground, PictureIsSubtleAndJoinsItself) {
    const platform::OwnedBlock plain(MakeDialogBackground(MakeColor(128, 128, 128)));
    const LockedImage image(plain.Get());
    ASSERT_TRUE(image);
    const auto level = [&](int x, int y) { return int{RedOf(GetDibPixel(image, x, y))}; };
    for (int y = 0; y < image->Height; ++y) {
        for (int x = 0; x < image->Width; ++x) {
            EXPECT_NEAR(level(x, y), 128, 6);
            // The motif's period is half the picture, so its second half tells what
            // has to follow its edge.
            EXPECT_EQ(level(x, y), level((x + 24) % 48, y));
            EXPECT_EQ(level(x, y), level(x, (y + 24) % 48));
        }
    }
}

}  // namespace

}  // namespace tess::test
