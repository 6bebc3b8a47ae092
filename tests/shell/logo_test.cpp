#include "shell/logo.h"

#include <cstring>
#include <gtest/gtest.h>

#include "platform/resources.h"

namespace tess::test {

namespace {

constexpr ColorWord kFace = 0xC8D0D4;

class LogoTest : public testing::Test {
protected:
    LogoTest() { EXPECT_EQ(OpenLogo(kFace, &logo_), 1); }
    ~LogoTest() override { CloseLogo(&logo_); }
    [[nodiscard]] ColorWord At(int frame, int x, int y) const {
        const LockedImage image(logo_.Frames);
        return GetDibPixel(image, x, frame * kLogoSide + y);
    }
    Logo logo_;
};

TEST_F(LogoTest, HasAllPicturesBelowOneAnotherAt24Bits) {
    const LockedImage image(logo_.Frames);
    EXPECT_EQ(image->Width, 50);
    EXPECT_EQ(image->Height, 1800);
    EXPECT_EQ(image->BitCount, 24);
}

TEST_F(LogoTest, FaceShowsRoundItAndNotThroughIt) {
    for (const int frame : {0, 17, 35}) {
        EXPECT_EQ(At(frame, 0, 0), kFace);
        EXPECT_EQ(At(frame, 49, 49), kFace);
        EXPECT_EQ(At(frame, 25, 25), 0x3EB2F2u);
    }
}

TEST_F(LogoTest, EveryPictureDiffersFromTheNext) {
    const LockedImage image(logo_.Frames);
    const int stride = Stride(50, 24);
    for (int frame = 0; frame < kLogoFrames; ++frame) {
        const int next = (frame + 1) % kLogoFrames;
        const auto* a = DibRow(image.Get(), frame * 50 + 49);
        const auto* b = DibRow(image.Get(), next * 50 + 49);
        EXPECT_NE(std::memcmp(a, b, static_cast<std::size_t>(stride) * 50), 0) << frame;
    }
}

TEST_F(LogoTest, PicturesFollowOneAnotherAndWrap) {
    for (int frame = 0; frame < kLogoFrames; ++frame)
        EXPECT_EQ(TakeLogoFrame(&logo_), frame);
    EXPECT_EQ(TakeLogoFrame(&logo_), 0);
}

TEST(LogoPlaces, PictureStandsInsideTheFrameOfOnePixel) {
    EXPECT_EQ(PlaceLogo(0).Top, 1);
    EXPECT_EQ(PlaceLogo(3).Left, 1);
    EXPECT_EQ(PlaceLogo(3).Top, -149);
}

}  // namespace

}  // namespace tess::test
