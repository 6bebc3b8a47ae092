#include "pipeline/image_scaling.h"

#include <gtest/gtest.h>
#include <limits>
#include <random>
#include <vector>

#include "platform/block_guards.h"
#include "tests/reference/plain_scaling.h"
#include "tests/support/allocation_failures.h"
#include "tests/support/random_pictures.h"

namespace tess {
namespace {

using platform::OwnedBlock;
using test::Difference;
using test::FlatPicture;
using test::RandomPicture;

/// A grey picture of one row.
ImageHandle GreyRow(const std::vector<int>& levels) {
    const auto width = static_cast<int>(levels.size());
    OwnedBlock row(NewPackedDib(width, 1, nullptr, 24));
    const LockedImage image(row.Get());
    for (int x = 0; x < width; ++x) {
        const int level = levels[static_cast<std::size_t>(x)];
        SetDibPixel(image, x, 0, MakeColor(level, level, level));
    }
    return row.Release();
}

/// The red levels of a picture's top row.
std::vector<int> TopRow(ImageHandle handle) {
    const LockedImage image(handle);
    std::vector<int> levels;
    for (int x = 0; image && x < image->Width; ++x) {
        levels.push_back(static_cast<int>(GetDibPixel(image, x, 0) & 255));
    }
    return levels;
}

std::vector<int> ScaledRow(const std::vector<int>& levels, int width, double blur = 1.0) {
    const OwnedBlock row(GreyRow(levels));
    const OwnedBlock scaled(ScaleImage(row.Get(), width, 1, blur));
    return TopRow(scaled.Get());
}

std::vector<int> SizeOf(ImageHandle handle) {
    const LockedImage image(handle);
    if (!image) return {};
    return {image->Width, image->Height};
}

TEST(ScaleImagePercent, HundredPercentOnBothAxesIsAByteCopy) {
    for (const int bits : {1, 4, 8, 24, 32}) {
        const OwnedBlock picture(RandomPicture(13, 7, bits, 4));
        const OwnedBlock scaled(ScaleImagePercent(picture.Get(), 100, 100));
        EXPECT_NE(picture.Get(), scaled.Get());
        EXPECT_EQ(Difference(picture.Get(), scaled.Get()), "") << bits << " bits";
    }
}

TEST(ScaleImagePercent, EachSideIsRoundedByItself) {
    const OwnedBlock picture(RandomPicture(10, 6, 24, 4));
    // 10 x 25 / 100 + 0.5 = 3.0 and 6 x 25 / 100 + 0.5 = 2.0; 10 x 33 / 100 + 0.5 = 3.8.
    EXPECT_EQ(SizeOf(OwnedBlock(ScaleImagePercent(picture.Get(), 25, 25)).Get()),
              (std::vector<int>{3, 2}));
    EXPECT_EQ(SizeOf(OwnedBlock(ScaleImagePercent(picture.Get(), 33, 150)).Get()),
              (std::vector<int>{3, 9}));
}

TEST(ScaleImagePercent, AQuarterOfOnePixelIsAnEmptyPicture) {
    const OwnedBlock picture(FlatPicture(1, 1, 24, 200));
    EXPECT_EQ(SizeOf(OwnedBlock(ScaleImagePercent(picture.Get(), 25, 25)).Get()),
              (std::vector<int>{0, 0}));
    EXPECT_EQ(SizeOf(OwnedBlock(ScaleImagePercent(picture.Get(), 25, 300)).Get()),
              (std::vector<int>{0, 3}));
    EXPECT_EQ(SizeOf(OwnedBlock(ScaleImagePercent(picture.Get(), 50, 50)).Get()),
              (std::vector<int>{1, 1}));
}

TEST(ScaleImagePercent, AnEmptyPictureScalesToAnEmptyOne) {
    const OwnedBlock picture(NewPackedDib(0, 0, nullptr, 24));
    EXPECT_EQ(SizeOf(OwnedBlock(ScaleImagePercent(picture.Get(), 50, 50)).Get()),
              (std::vector<int>{0, 0}));
}

TEST(ScaleImage, AnEmptySourceLeavesTheTargetAtZero) {
    const OwnedBlock picture(NewPackedDib(0, 0, nullptr, 24));
    const OwnedBlock scaled(ScaleImage(picture.Get(), 3, 2, 1.0));
    EXPECT_EQ(TopRow(scaled.Get()), (std::vector<int>{0, 0, 0}));
}

TEST(ScaleImagePercent, NoHandleAndImpossibleSizesGiveNull) {
    const OwnedBlock picture(FlatPicture(100, 100, 24, 9));
    const int huge = std::numeric_limits<int>::max();
    EXPECT_EQ(ScaleImagePercent(nullptr, 50, 50), nullptr);
    EXPECT_EQ(ScaleImagePercent(picture.Get(), -50, 100), nullptr);
    EXPECT_EQ(ScaleImagePercent(picture.Get(), huge, huge), nullptr);
    EXPECT_EQ(ScaleImagePercent(picture.Get(), huge / 100, huge / 100), nullptr);
    EXPECT_EQ(ScaleImagePercent(picture.Get(), std::numeric_limits<int>::min(), 100), nullptr);
}

TEST(ScaleImage, NoHandleAndNegativeSizesGiveNull) {
    const OwnedBlock picture(FlatPicture(4, 4, 24, 9));
    EXPECT_EQ(ScaleImage(nullptr, 2, 2, 1.0), nullptr);
    EXPECT_EQ(ScaleImage(picture.Get(), -1, 2, 1.0), nullptr);
    EXPECT_EQ(ScaleImage(picture.Get(), 2, -1, 1.0), nullptr);
}

TEST(ScaleImage, OnePixelIsSpreadOverAllTargetPixels) {
    const OwnedBlock pixel(FlatPicture(1, 1, 32, 77));
    const OwnedBlock expected(FlatPicture(37, 5, 32, 77));
    EXPECT_EQ(Difference(OwnedBlock(ScaleImage(pixel.Get(), 37, 5, 1.0)).Get(), expected.Get()),
              "");
}

TEST(ScaleImage, AFlatPictureStaysFlat) {
    const OwnedBlock picture(FlatPicture(64, 48, 24, 201));
    const OwnedBlock expected(FlatPicture(17, 11, 24, 201));
    EXPECT_EQ(Difference(OwnedBlock(ScaleImage(picture.Get(), 17, 11, 1.0)).Get(), expected.Get()),
              "");
}

TEST(ScaleImage, EnlargingTakesMitchellsCubic) {
    // Distances 1/4 and 5/4 have weights 0.782118 and -0.023438, 3/4 has 0.256076:
    // 255 x 0.256076 / (0.256076 + 0.782118) = 62.9.
    EXPECT_EQ(ScaledRow({0, 255}, 4), (std::vector<int>{0, 63, 192, 255}));
}

TEST(ScaleImage, ShrinkingTakesLanczosWithThreeLobes) {
    // Distances 0 and 1/3: 1 and 0.826993 x 0.979816 = 0.810301, so the shares are
    // 0.381568 in the middle and 0.309216 at the sides.
    EXPECT_EQ(ScaledRow({0, 0, 200}, 1), (std::vector<int>{62}));
    EXPECT_EQ(ScaledRow({0, 200, 0}, 1), (std::vector<int>{76}));
}

TEST(ScaleImage, AnAreaThatDoesNotGrowTakesLanczos) {
    // Twice the width and half the height: the product of the factors is 1. At
    // distance 1/4 Lanczos has 0.890067, at 5/4 -0.132871, at 3/4 0.270190:
    // 255 x 0.270190 / 1.160257 = 59.4, and 255 x -0.132871 / 0.757196 is below 0.
    OwnedBlock square(NewPackedDib(2, 2, nullptr, 24));
    {
        const LockedImage image(square.Get());
        for (const int y : {0, 1})
            SetDibPixel(image, 1, y, 0xFFFFFF);
    }
    const OwnedBlock scaled(ScaleImage(square.Get(), 4, 1, 1.0));
    EXPECT_EQ(TopRow(scaled.Get()), (std::vector<int>{0, 59, 196, 255}));
}

TEST(ScaleImage, OvershootIsClampedToBlackAndWhite) {
    const std::vector<int> scaled = ScaledRow({0, 0, 0, 0, 255, 255, 255, 255}, 4);
    EXPECT_EQ(scaled.front(), 0);
    EXPECT_EQ(scaled.back(), 255);
}

TEST(ScaleImage, IndexesOfAnEightBitPictureAreFilteredAsLevels) {
    OwnedBlock picture(RandomPicture(2, 1, 8, 6));
    {
        const LockedImage image(picture.Get());
        SetDibPixel(image, 0, 0, 0);
        SetDibPixel(image, 1, 0, 100);
    }
    const OwnedBlock scaled(ScaleImage(picture.Get(), 1, 1, 1.0));
    const LockedImage image(scaled.Get());
    ASSERT_TRUE(image);
    EXPECT_EQ(GetDibPixel(image, 0, 0), 50U);
}

TEST(ScaleImage, TheColourTableIsCopied) {
    const OwnedBlock picture(RandomPicture(4, 4, 8, 6));
    const OwnedBlock scaled(ScaleImage(picture.Get(), 2, 2, 1.0));
    const LockedImage before(picture.Get());
    const LockedImage after(scaled.Get());
    std::uint8_t palette[2][kPaletteBytes];
    ReadColorTable(before, palette[0]);
    ReadColorTable(after, palette[1]);
    EXPECT_TRUE(std::equal(palette[0], palette[1], palette[1]));
}

TEST(ScaleImage, PixelsOfOneAndFourBitsStayZero) {
    for (const int bits : {1, 4}) {
        const OwnedBlock picture(RandomPicture(8, 8, bits, 6));
        const OwnedBlock scaled(ScaleImage(picture.Get(), 4, 4, 1.0));
        const LockedImage image(scaled.Get());
        ASSERT_TRUE(image);
        EXPECT_EQ(image->BitCount, bits);
        for (int i = 0; i < 16; ++i)
            EXPECT_EQ(GetDibPixel(image, i % 4, i / 4), 0U);
    }
}

TEST(ScaleImage, PassesKeepEightBitsBetweenThem) {
    // Level 1 in the four corners: the outer columns come to 2 x 0.309216 = 0.62,
    // rounded to 1, and their row to 0.62 again. Unrounded it would be 0.38.
    OwnedBlock corners(NewPackedDib(3, 3, nullptr, 24));
    {
        const LockedImage image(corners.Get());
        for (const int x : {0, 2}) {
            for (const int y : {0, 2})
                SetDibPixel(image, x, y, 0x010101);
        }
    }
    const OwnedBlock scaled(ScaleImage(corners.Get(), 1, 1, 1.0));
    EXPECT_EQ(TopRow(scaled.Get()), (std::vector<int>{1}));
}

TEST(ScaleImage, ABlurOfZeroTakesTheNearestPixelAlone) {
    EXPECT_EQ(ScaledRow({10, 200, 30, 255}, 4, 0.0), (std::vector<int>{10, 200, 30, 255}));
    EXPECT_EQ(ScaledRow({10, 200, 30, 255}, 4, -3.0), (std::vector<int>{10, 200, 30, 255}));
}

TEST(ScaleImage, ABlurBeyondAllBoundsAveragesThePicture) {
    const double infinite = std::numeric_limits<double>::infinity();
    EXPECT_EQ(ScaledRow({0, 20, 40, 80}, 2, infinite), (std::vector<int>{35, 35}));
}

TEST(ScaleImage, ABlurThatIsNoNumberTakesTheNearestPixelAlone) {
    const double none = std::numeric_limits<double>::quiet_NaN();
    EXPECT_EQ(ScaledRow({10, 200, 30}, 3, none), (std::vector<int>{10, 200, 30}));
}

TEST(ScaleImage, TheSourceStaysAsItWas) {
    const OwnedBlock picture(RandomPicture(20, 20, 24, 8));
    const OwnedBlock copy(DuplicateImage(picture.Get()));
    const OwnedBlock scaled(ScaleImage(picture.Get(), 9, 31, 1.0));
    EXPECT_EQ(Difference(picture.Get(), copy.Get()), "");
}

void ExpectPlainScaling(ImageHandle picture, int width, int height, double blur) {
    const OwnedBlock plain(reference::PlainScaleImage(picture, width, height, blur));
    const OwnedBlock fast(ScaleImage(picture, width, height, blur));
    const LockedImage image(picture);
    EXPECT_EQ(Difference(plain.Get(), fast.Get()), "")
        << image->Width << " x " << image->Height << " of " << image->BitCount << " bits to "
        << width << " x " << height << ", blur " << blur;
}

TEST(ScaleImage, RandomPicturesEqualThePlainVersion) {
    std::mt19937 draw(7);
    const auto below = [&draw](int limit) {
        return static_cast<int>(draw() % static_cast<unsigned>(limit));
    };
    const double blurs[] = {1.0, 1.0, 1.0, 0.5, 2.0, 0.2, 7.3, 0.0};
    for (int i = 0; i < 600; ++i) {
        const int bits[] = {8, 24, 32};
        const OwnedBlock picture(RandomPicture(1 + below(70), 1 + below(70), bits[i % 3],
                                               static_cast<std::uint32_t>(i)));
        ExpectPlainScaling(picture.Get(), 1 + below(90), 1 + below(90), blurs[below(8)]);
    }
}

TEST(ScaleImage, WholeFactorsEqualThePlainVersion) {
    for (std::uint32_t seed = 0; seed < 24; ++seed) {
        const auto tile = static_cast<int>(16 + seed);
        const OwnedBlock picture(
            RandomPicture(4 * tile, 4 * tile + 4, seed % 3 == 0 ? 32 : 24, seed));
        ExpectPlainScaling(picture.Get(), tile, tile + 1, 1.0);
        ExpectPlainScaling(picture.Get(), 2 * tile, 2 * tile + 2, 1.0);
        ExpectPlainScaling(picture.Get(), 8 * tile, tile, 1.0);
    }
}

TEST(ScaleImage, ExtremeFactorsEqualThePlainVersion) {
    const int shapes[][4] = {
        {1, 1, 700, 3}, {3000, 2, 1, 1},  {2, 3000, 1, 1},  {30000, 1, 1, 1}, {1, 30000, 2, 2},
        {5, 5, 1, 900}, {700, 1, 300, 9}, {1, 700, 9, 300}, {257, 3, 513, 3}, {600, 600, 2, 599}};
    for (const auto& shape : shapes) {
        for (const int bits : {8, 24, 32}) {
            const OwnedBlock picture(RandomPicture(shape[0], shape[1], bits, 3));
            ExpectPlainScaling(picture.Get(), shape[2], shape[3], 1.0);
        }
    }
}

TEST(ScaleImage, HalfwayLevelsEqualThePlainVersion) {
    // Levels that lie on or beside a rounding step: equal shares of two levels
    // whose sum is odd.
    for (int level = 0; level < 255; ++level) {
        EXPECT_EQ(ScaledRow({level, level + 1}, 1).front(), [level] {
            const OwnedBlock row(GreyRow({level, level + 1}));
            return TopRow(OwnedBlock(reference::PlainScaleImage(row.Get(), 1, 1, 1.0)).Get())
                .front();
        }());
    }
    OwnedBlock stripes(NewPackedDib(128, 64, nullptr, 24));
    {
        const LockedImage image(stripes.Get());
        for (int i = 0; i < 128 * 64; ++i) {
            const int level = (i % 128) * 2 + (i / 128) % 2;
            SetDibPixel(image, i % 128, i / 128, MakeColor(level, 255 - level, level / 2));
        }
    }
    ExpectPlainScaling(stripes.Get(), 64, 32, 1.0);
    ExpectPlainScaling(stripes.Get(), 32, 16, 1.0);
    ExpectPlainScaling(stripes.Get(), 256, 128, 1.0);
}

TEST(ScaleImage, EveryAllocationThatFailsGivesNullAndLeavesNothing) {
    const OwnedBlock picture(RandomPicture(40, 30, 24, 8));
    const auto failures = [&picture](int width, int height) {
        return FailEachAllocation([&] {
            return static_cast<bool>(OwnedBlock(ScaleImage(picture.Get(), width, height, 1.0)));
        });
    };
    EXPECT_EQ(failures(10, 8), 7U);
    EXPECT_EQ(failures(80, 20), 7U);
    EXPECT_EQ(failures(40, 30), 1U);
}

}  // namespace
}  // namespace tess
