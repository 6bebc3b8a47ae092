#include <array>
#include <gtest/gtest.h>
#include <vector>

#include "pipeline/remapping.h"
#include "tests/reference/plain_remapping.h"
#include "tests/support/allocation_failures.h"
#include "tests/support/image_bytes.h"
#include "tests/support/remap_settings.h"
#include "tests/support/sample_pictures.h"

namespace tess {
namespace {

using Palette = std::array<std::uint8_t, kPaletteBytes>;
using Values = std::vector<std::uint32_t>;

Palette TwoGrays(int first, int second) {
    Palette palette{};
    for (std::size_t i = 0; i < 3; ++i)
        palette[i] = static_cast<std::uint8_t>(first);
    for (std::size_t i = 3; i < 6; ++i)
        palette[i] = static_cast<std::uint8_t>(second);
    return palette;
}

/// Dithers a picture of grays, the top row first.
Values Dithered(int width, const std::vector<int>& grays, const Palette& palette, int depth,
                int colors = 2) {
    Values pixels;
    for (const int gray : grays)
        pixels.push_back(MakeColor(gray, gray, gray));
    const platform::OwnedBlock source(ImageOf(width, pixels));
    const platform::OwnedBlock image(RemapDither(source.Get(), palette.data(), depth, colors));
    return Pixels(image.Get());
}

const Palette kBlackWhite = TwoGrays(0, 255);

TEST(RemapDither, SevenSixteenthsGoToTheRight) {
    // 100 becomes black; 100 + (700 >> 4) = 143 becomes white.
    EXPECT_EQ(Dithered(2, {100, 100}, kBlackWhite, 4), (Values{0, 1}));
}

TEST(RemapDither, SharesAreRoundedDown) {
    // 100 becomes 101, an error of -1, of which -7 >> 4 = -1 goes on: 76 - 1 is
    // nearer to 50 than to 101, 76 is not.
    EXPECT_EQ(Dithered(2, {100, 76}, TwoGrays(101, 50), 8), (Values{0, 1}));
}

TEST(RemapDither, BottomRowComesFirst) {
    // Below: 100, black. Above: 100 + (500 >> 4) = 131, white.
    EXPECT_EQ(Dithered(1, {100, 100}, kBlackWhite, 4), (Values{1, 0}));
}

TEST(RemapDither, SecondPixelDoesNotFeedItsLowerLeft) {
    // Below, 96 at x = 1 is black. 110 + (96 * 3 >> 4) = 128 would be white.
    EXPECT_EQ(Dithered(3, {110, 0, 0, 0, 96, 0}, kBlackWhite, 4), (Values{0, 0, 0, 0, 0, 0}));
}

TEST(RemapDither, ThirdPixelFeedsItsLowerLeft) {
    EXPECT_EQ(Dithered(3, {0, 110, 0, 0, 0, 96}, kBlackWhite, 4), (Values{0, 1, 0, 0, 0, 0}));
}

TEST(RemapDither, WidthOfTwoNeverFeedsTheLowerLeft) {
    EXPECT_EQ(Dithered(2, {110, 0, 0, 96}, kBlackWhite, 4), (Values{0, 0, 0, 0}));
}

TEST(RemapDither, OneSixteenthGoesToTheLowerRight) {
    // Below, 127 at x = 0 is black; (127 * 7 >> 4) = 55 at x = 1, black too. Above
    // x = 1 stand 127 >> 4 = 7 and 55 * 5 >> 4 = 17, and from the left, where 127 *
    // 5 >> 4 = 39 is black, 39 * 7 >> 4 = 17: 41 with 87 makes 128, white.
    EXPECT_EQ(Dithered(2, {0, 87, 127, 0}, kBlackWhite, 4), (Values{0, 1, 0, 0}));
    EXPECT_EQ(Dithered(2, {0, 86, 127, 0}, kBlackWhite, 4), (Values{0, 0, 0, 0}));
}

TEST(RemapDither, SingleColorIsHarmless) {
    EXPECT_EQ(Dithered(3, {255, 255, 255, 255, 255, 255}, Palette{}, 8, 1), (Values(6)));
    EXPECT_EQ(Dithered(3, {0, 0, 0, 0, 0, 0}, TwoGrays(255, 0), 8, 1), (Values(6)));
}

TEST(RemapDither, OneBitSourceIsRefused) {
    const platform::OwnedBlock source(MakeIndexedPicture(4, 4, 1, 1));
    for (const int depth : {1, 4, 8}) {
        EXPECT_EQ(RemapDither(source.Get(), kBlackWhite.data(), depth, 2), nullptr);
    }
}

TEST(RemapDither, DepthsWithoutATableAreRefused) {
    const platform::OwnedBlock source(ImageOf(1, {0}));
    for (const int depth : {0, -1, 9, 24, 32}) {
        EXPECT_EQ(RemapDither(source.Get(), kBlackWhite.data(), depth, 2), nullptr) << depth;
    }
}

TEST(RemapDither, NullSourceGivesNull) {
    EXPECT_EQ(RemapDither(nullptr, kBlackWhite.data(), 8, 2), nullptr);
}

TEST(RemapDither, EachMissingBlockGivesNullAndNothingIsLeft) {
    const platform::OwnedBlock source(MakePicture(PictureKind::Noise, 9, 5, 1));
    for (const int depth : {1, 4, 8}) {
        const auto dither = [&] {
            return !TakeImageBytes(RemapDither(source.Get(), kBlackWhite.data(), depth, 2)).empty();
        };
        EXPECT_GT(FailEachAllocation(dither), 2U);
    }
}

TEST(RemapDitherToTwo, ErrorIsCutBeforeItIsShared) {
    // Tones 0, 101, 101, 255; the middle is 127. The second is clear, with 101 >> 4
    // = 6: the third is 101 + 42, set, with (143 - 255) >> 4 = -7: the last is 206.
    const RemapSettings settings(0, 0, 0);
    EXPECT_EQ(Dithered(4, {0, 102, 102, 255}, kBlackWhite, 1), (Values{0, 0, 1, 1}));
}

TEST(RemapDitherToTwo, FirstPixelFeedsTheEndOfItsOwnRow) {
    // Below: tones 101, 0, 101. The first is clear with 6, and gives 42 to the
    // second, 18 to the last. The second, 42, is clear with 2 and gives 14. The
    // last has 133, above the middle; without the 18 it would not be.
    const RemapSettings settings(0, 0, 0);
    EXPECT_EQ(Dithered(3, {255, 255, 255, 102, 0, 102}, kBlackWhite, 1),
              (Values{1, 1, 1, 0, 0, 1}));
}

TEST(RemapDitherToTwo, LastRowFeedsNothingBack) {
    // Of one row only the shares to the right are left: 101 + 14 stays clear.
    const RemapSettings settings(0, 0, 0);
    EXPECT_EQ(Dithered(4, {102, 0, 102, 255}, kBlackWhite, 1), (Values{0, 0, 0, 1}));
}

TEST(RemapDitherToTwo, DefaultCurveSteepensTheTones) {
    // A gray of 109 has the tone 32 + 64 + 11 = 107, and 107 x 256 / 216 = 126.8 is
    // clear against a middle of 127; 110 has 33 + 64 + 12 = 109 and 129.2 is set.
    // The row of one black and one white pixel to the right sets the range.
    EXPECT_EQ(Dithered(3, {109, 0, 255}, kBlackWhite, 1)[0], 0U);
    EXPECT_EQ(Dithered(3, {110, 0, 255}, kBlackWhite, 1)[0], 1U);
}

TEST(RemapDitherToTwo, ContrastOf128DividesByNothing) {
    // All tones but 0 are the brightest then; tone 0 is the darkest.
    const RemapSettings settings(0, 20, 128);
    EXPECT_EQ(Dithered(3, {0, 60, 255}, kBlackWhite, 1), (Values{0, 1, 1}));
}

struct Settings {
    std::uint32_t fast_remap, brightness, contrast;
};
class AllSettings : public testing::TestWithParam<Settings> {};
INSTANTIATE_TEST_SUITE_P(Dither, AllSettings,
                         testing::Values(Settings{0, 20, 20}, Settings{1, 20, 20},
                                         Settings{0, 0, 0}, Settings{0, 90, 100},
                                         Settings{0, 10, 128}, Settings{0, 200, 200}));

TEST_P(AllSettings, DitherAgreesWithItsPlainVersion) {
    const RemapSettings settings(GetParam().fast_remap, GetParam().brightness, GetParam().contrast);
    for (std::uint32_t seed = 0; seed < 96; ++seed) {
        Palette palette;
        MakePalette(palette.data(), seed);
        const int colors = seed % 4 == 0 ? 256 : static_cast<int>(seed * 41 % 257);
        const int depth = 1 + static_cast<int>(seed % 8);
        const auto kind = static_cast<PictureKind>(seed / 8 % kPictureKinds);
        const int width = 1 + static_cast<int>(seed * 13 % 47);
        const platform::OwnedBlock source(MakePicture(kind, width, 1 + static_cast<int>(seed % 31),
                                                      seed, seed % 5 == 0 ? 32 : 24));
        EXPECT_EQ(TakeImageBytes(RemapDither(source.Get(), palette.data(), depth, colors)),
                  TakeImageBytes(plain::RemapDither(source.Get(), palette.data(), depth, colors)))
            << "seed " << seed;
    }
}

TEST_P(AllSettings, IndexedSourcesAgreeWithThePlainVersion) {
    const RemapSettings settings(GetParam().fast_remap, GetParam().brightness, GetParam().contrast);
    for (std::uint32_t seed = 0; seed < 32; ++seed) {
        Palette palette;
        MakePalette(palette.data(), seed + 500);
        const int depth = 1 + static_cast<int>(seed % 8);
        const platform::OwnedBlock source(
            MakeIndexedPicture(1 + static_cast<int>(seed), 9, seed / 8 % 2 == 0 ? 4 : 8, seed));
        EXPECT_EQ(TakeImageBytes(RemapDither(source.Get(), palette.data(), depth, 200)),
                  TakeImageBytes(plain::RemapDither(source.Get(), palette.data(), depth, 200)))
            << "seed " << seed;
    }
}

}  // namespace
}  // namespace tess
