// Text of the service. The two builds have different hinting and so slightly different
// widths.
#include <cstring>
#include <gtest/gtest.h>
#include <string>

#include "tests/toolkit/shape_sprites/shape_requests.h"
#include "tests/toolkit/shape_sprites/text_target.h"

namespace tess {
namespace {

using test::kRed;
using test::kWhite;
using test::ShapePicture;
using test::TextOn;

class ShapeText : public ::testing::Test {
protected:
    /// Measured, and returned.
    ShapeRequest Measured(const char* text, ShapeTextMode mode = ShapeTextMode::Measure) {
        ShapeRequest request = TextOn(target_.Get(), text, mode);
        EXPECT_EQ(RunShapeRequest(&request), 1);
        return request;
    }
    /// A request for a path of `text` in mode 3 or 4.
    ShapeRequest Path(const char* text, ShapeTextMode mode) {
        ShapeRequest request = TextOn(target_.Get(), text, mode);
        request.TextSize = 36;
        request.TextOutline = 2;
        return request;
    }
    int ChangedPixels() const {
        int changed = 0;
        for (int y = 0; y < kHeight; ++y) {
            for (int x = 0; x < kWidth; ++x) {
                changed += target_.At(x, y) != kWhite;
            }
        }
        return changed;
    }

    static constexpr int kWidth = 200, kHeight = 60;
    test::StartedShapes shapes_;
    test::TextTarget target_{kWidth, kHeight, test::TestFont(32)};
};

TEST_F(ShapeText, AMeasuredTextGrowsWithItsLetters) {
    const ShapeRequest one = Measured("M");
    const ShapeRequest two = Measured("MM");
    // An M of this family is 0.863 em wide.
    EXPECT_NEAR(two.TextWidth - one.TextWidth, 0.863 * 32, 2);
    EXPECT_EQ(one.TextHeight, two.TextHeight);
    EXPECT_NEAR(one.TextHeight, 1.164 * 32, 3);
}

TEST_F(ShapeText, MeasuringSubtractsABlankFromATextThatStartsWithAPrintedCharacter) {
    ShapeRequest measured = Measured("Tile");
    ShapeRequest sprite = TextOn(target_.Get(), "Tile", ShapeTextMode::Sprite);
    const ShapePicture picture(sprite);
    ASSERT_TRUE(picture.IsThere());
    EXPECT_EQ(measured.TextWidth, picture.Width() - Measured(" ").TextWidth);
    // Nothing is subtracted behind a blank.
    const ShapePicture blank_first(TextOn(target_.Get(), " Tile", ShapeTextMode::Sprite));
    EXPECT_EQ(Measured(" Tile").TextWidth, blank_first.Width());
}

TEST_F(ShapeText, ATextIsCutOffAt260Characters) {
    const std::string all(260, 'i');
    const std::string more(300, 'i');
    EXPECT_EQ(Measured(all.c_str()).TextWidth, Measured(more.c_str()).TextWidth);
    EXPECT_GT(Measured(all.c_str()).TextWidth, Measured(all.c_str() + 10).TextWidth);
}

TEST_F(ShapeText, AFontOfItsOwnGoesBeforeTheTargets) {
    const platform::LogFont font = test::TestFont(64);
    ShapeRequest request = TextOn(target_.Get(), "Tile", ShapeTextMode::Measure);
    request.FontLog = &font;
    EXPECT_EQ(RunShapeRequest(&request), 1);
    EXPECT_NEAR(request.TextHeight, 2 * Measured("Tile").TextHeight, 6);
}

TEST_F(ShapeText, APositiveHeightIsThatOfTheLine) {
    platform::LogFont font = test::TestFont(0);
    font.Height = 40;
    ShapeRequest request = TextOn(target_.Get(), "Tile", ShapeTextMode::Measure);
    request.FontLog = &font;
    EXPECT_EQ(RunShapeRequest(&request), 1);
    EXPECT_NEAR(request.TextHeight, 40, 2);
}

TEST_F(ShapeText, DirectTextGoesOnTheTargetAtItsPlace) {
    ShapeRequest request = TextOn(target_.Get(), "I", ShapeTextMode::Direct);
    request.TextColor = kRed;
    request.TextX = 100;
    request.TextY = 10;
    EXPECT_EQ(RunShapeRequest(&request), 1);
    int red = 0;
    for (int y = 0; y < kHeight; ++y) {
        for (int x = 0; x < kWidth; ++x) {
            if (target_.At(x, y) == kWhite) continue;
            EXPECT_TRUE(x >= 100 && x < 120 && y >= 10 && y < 50) << x << ", " << y;
            red += target_.At(x, y) == kRed;
        }
    }
    // The stroke is 0.098 em wide and 0.729 em high.
    EXPECT_NEAR(red, 0.098 * 0.729 * 32 * 32, 30);
}

TEST_F(ShapeText, DirectTextWithoutAlphaChangesNothing) {
    ShapeRequest request = TextOn(target_.Get(), "Tile", ShapeTextMode::Direct);
    request.TextColor = kRed;
    request.TextAlpha = 0;
    EXPECT_EQ(RunShapeRequest(&request), 1);
    EXPECT_EQ(ChangedPixels(), 0);
}

TEST_F(ShapeText, ASpriteHasTheMeasuredSize) {
    ShapeRequest request = TextOn(target_.Get(), "Tile", ShapeTextMode::Sprite);
    const platform::OwnedBlock block(reinterpret_cast<ImageHandle>(RunShapeRequest(&request)));
    const LockedImage image(block.Get());
    ASSERT_TRUE(image);
    EXPECT_EQ(image->Width, request.TextWidth);
    EXPECT_EQ(image->Height, request.TextHeight);
    EXPECT_EQ(ChangedPixels(), 0);
}

TEST_F(ShapeText, ASpriteIsInItsColor) {
    ShapeRequest request = TextOn(target_.Get(), "I", ShapeTextMode::Sprite);
    request.TextColor = kRed;
    const ShapePicture picture(request);
    ASSERT_TRUE(picture.IsThere());
    EXPECT_NEAR(picture.Area(kRed), 0.098 * 0.729 * 32 * 32, 30);
    EXPECT_EQ(picture.Area(0xFFFF00), 0);
}

TEST_F(ShapeText, AFilledPathFollowsTextSizeAndNotTheFont) {
    // 36 * 88 / 100 = 31.
    ShapeRequest request = Path("I", ShapeTextMode::Fill);
    const ShapePicture small(request);
    ASSERT_TRUE(small.IsThere());
    EXPECT_NEAR(small.Area(), 0.098 * 0.729 * 31 * 31, 20);
    request.TextSize = 18;  // 15
    const ShapePicture smaller(request);
    ASSERT_TRUE(smaller.IsThere());
    EXPECT_EQ(smaller.Width(), small.Width());
    EXPECT_NEAR(smaller.Area(), 0.098 * 0.729 * 15 * 15, 10);
}

TEST_F(ShapeText, AnOutlinedPathLeavesTheStemsInsideBlack) {
    // A stem of 31 em is 3 wide; at 100 it is 8 wide and an outline of 2 leaves 6.
    const platform::LogFont font = test::TestFont(88);
    ShapeRequest request = Path("I", ShapeTextMode::Outline);
    request.FontLog = &font;
    request.TextSize = 100;
    const ShapePicture outline(request);
    request.TextMode = ShapeTextMode::Fill;
    const ShapePicture filled(request);
    ASSERT_TRUE(outline.IsThere() && filled.IsThere());
    const double width = 0.098 * 88, height = 0.729 * 88;
    EXPECT_NEAR(filled.Area(), width * height, 0.15 * width * height);
    EXPECT_NEAR(outline.Area(), 2 * 2 * (width + height), 0.15 * 4 * (width + height));
}

TEST_F(ShapeText, BoldPathsCoverMore) {
    ShapeRequest request = Path("I", ShapeTextMode::Fill);
    const ShapePicture plain(request);
    request.TextBold = -1;
    const ShapePicture bold(request);
    ASSERT_TRUE(plain.IsThere() && bold.IsThere());
    EXPECT_GT(bold.Area(), 1.5 * plain.Area());
}

TEST_F(ShapeText, APathWithoutASizeIsBlack) {
    for (const int size : {0, 1, -50}) {
        ShapeRequest request = Path("I", ShapeTextMode::Fill);
        request.TextSize = size;
        const ShapePicture picture(request);
        ASSERT_TRUE(picture.IsThere());
        EXPECT_EQ(picture.Area(), 0) << size;
    }
}

TEST_F(ShapeText, WhatIsMissingFails) {
    ShapeRequest request = TextOn(target_.Get(), nullptr, ShapeTextMode::Sprite);
    EXPECT_EQ(RunShapeRequest(&request), 0);
    request = TextOn(nullptr, "Tile", ShapeTextMode::Measure);
    EXPECT_EQ(RunShapeRequest(&request), 0);
    request = Path("Tile", ShapeTextMode::Fill);
    request.FontName = nullptr;
    EXPECT_EQ(RunShapeRequest(&request), 0);
    request.FontName = "No Such Family";
    EXPECT_EQ(RunShapeRequest(&request), 0);
    request = Path("Tile", ShapeTextMode::Outline);
    request.TextOutline = -1;
    EXPECT_EQ(RunShapeRequest(&request), 0);
}

TEST_F(ShapeText, AnEmptyTextAndAnUnknownModeMakeNoPicture) {
    ShapeRequest request = TextOn(target_.Get(), "", ShapeTextMode::Sprite);
    EXPECT_EQ(RunShapeRequest(&request), 0);
    EXPECT_EQ(request.TextWidth, 0);
    for (const int mode : {-1, 5}) {
        request = TextOn(target_.Get(), "Tile", static_cast<ShapeTextMode>(mode));
        EXPECT_EQ(RunShapeRequest(&request), 0);
        EXPECT_GT(request.TextWidth, 0);
    }
}

TEST_F(ShapeText, AHugeFontIsHarmless) {
    for (const int height : {-2147483647, 2147483647}) {
        platform::LogFont font = test::TestFont(0);
        font.Height = height;
        ShapeRequest request = TextOn(target_.Get(), "Tile", ShapeTextMode::Sprite);
        request.FontLog = &font;
        const ShapePicture picture(request);
        EXPECT_TRUE(!picture.IsThere() || (picture.Width() > 0 && picture.Height() > 0));
    }
}

}  // namespace
}  // namespace tess
