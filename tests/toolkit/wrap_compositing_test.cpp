#include "toolkit/wrap_compositing.h"

#include <gtest/gtest.h>
#include <limits>
#include <random>
#include <vector>

#include "platform/block_guards.h"
#include "runtime/random.h"
#include "tests/reference/plain_compositing.h"
#include "tests/support/allocation_failures.h"
#include "tests/support/random_pictures.h"

namespace tess {
namespace {

using platform::OwnedBlock;
using test::Difference;
using test::FlatPicture;
using test::RandomPicture;

constexpr ColorWord kWhite = 0xFFFFFF;

std::uint32_t PixelOf(ImageHandle handle, int x, int y) {
    return GetDibPixel(LockedImage(handle), x, y);
}

void Stamp(const OwnedBlock& tile, const OwnedBlock& mask, int x, int y, ColorWord color,
           int opacity = 255) {
    WrapStampMask(LockedImage(tile.Get()), LockedImage(mask.Get()), x, y, color, opacity);
}

void Blend(const OwnedBlock& tile, const OwnedBlock& sprite, int x, int y) {
    WrapBlendImage(LockedImage(tile.Get()), LockedImage(sprite.Get()), x, y);
}

/// One pixel of `old` grey with `color` stamped over it.
std::uint32_t StampedPixel(int old, int mask_level, ColorWord color, int opacity) {
    const OwnedBlock tile(FlatPicture(1, 1, 24, old));
    const OwnedBlock mask(FlatPicture(1, 1, 24, mask_level));
    Stamp(tile, mask, 0, 0, color, opacity);
    return PixelOf(tile.Get(), 0, 0);
}

/// The columns of row 0 that are white.
std::vector<int> WhiteColumns(const OwnedBlock& tile) {
    const LockedImage image(tile.Get());
    std::vector<int> columns;
    for (int x = 0; x < image->Width; ++x) {
        if (GetDibPixel(image, x, 0) == kWhite) columns.push_back(x);
    }
    return columns;
}

TEST(Wrap, GivesTheNonNegativeRemainder) {
    EXPECT_EQ(Wrap(16, 16), 0);
    EXPECT_EQ(Wrap(35, 16), 3);
    EXPECT_EQ(Wrap(-1, 16), 15);
    EXPECT_EQ(Wrap(-32, 16), 0);
    EXPECT_EQ(Wrap(7, 16), 7);
    // 2147483648 = 7 x 306783378 + 2.
    EXPECT_EQ(Wrap(std::numeric_limits<int>::min(), 7), 5);
}

TEST(WrapStampMask, AStampLeftOfTheEdgeComesBackAtTheRight) {
    const OwnedBlock tile(FlatPicture(16, 1, 24, 0));
    const OwnedBlock mask(FlatPicture(4, 1, 24, 255));
    Stamp(tile, mask, -1, 0, kWhite);
    EXPECT_EQ(WhiteColumns(tile), (std::vector<int>{0, 1, 2, 15}));
}

TEST(WrapStampMask, TwoHeightsUpIsTheSamePlace) {
    const OwnedBlock mask(RandomPicture(5, 5, 24, 2));
    const OwnedBlock one(RandomPicture(9, 6, 24, 4));
    const OwnedBlock other(DuplicateImage(one.Get()));
    Stamp(one, mask, 3, -12, 0x4080C0);
    Stamp(other, mask, 3, 0, 0x4080C0);
    EXPECT_EQ(Difference(one.Get(), other.Get()), "");
}

TEST(WrapStampMask, EachTermIsCutByItself) {
    // 100 x 127 / 255 = 49 and 100 x 128 / 255 = 50.
    EXPECT_EQ(StampedPixel(100, 128, 0x646464, 255), 0x636363U);
}

TEST(WrapStampMask, AnOpacityOfOneIsCutToNothingBelowFullMask) {
    EXPECT_EQ(StampedPixel(100, 254, 0x000000, 1), 0x646464U);
    // At 255 the weight is 1: 100 x 254 / 255 = 99.
    EXPECT_EQ(StampedPixel(100, 255, 0x000000, 1), 0x636363U);
}

TEST(WrapStampMask, EveryMaskLevelAndOpacityGivesItsWeight) {
    for (int opacity = 0; opacity <= 255; ++opacity) {
        const OwnedBlock tile(FlatPicture(256, 1, 24, 201));
        const OwnedBlock mask(FlatPicture(256, 1, 24, 0));
        for (int m = 0; m < 256; ++m) {
            SetDibPixel(LockedImage(mask.Get()), m, 0, MakeColor(m, m, m));
        }
        Stamp(tile, mask, 0, 0, 0x004D4D4D, opacity);
        for (int m = 0; m < 256; ++m) {
            const int kept = opacity == 255 ? 255 - m : 255 - m * opacity / 255;
            const int level = 201 * kept / 255 + 77 * (255 - kept) / 255;
            ASSERT_EQ(PixelOf(tile.Get(), m, 0), MakeColor(level, level, level))
                << "mask " << m << ", opacity " << opacity;
        }
    }
}

TEST(WrapStampMask, EveryProductIsDividedExactly) {
    // All levels under all mask levels, with white and black.
    const OwnedBlock mask(NewPackedDib(256, 256, nullptr, 24));
    const OwnedBlock tile(NewPackedDib(256, 256, nullptr, 24));
    for (int i = 0; i < 65536; ++i) {
        SetDibPixel(LockedImage(mask.Get()), i & 255, i >> 8, MakeColor(i, i, i));
        SetDibPixel(LockedImage(tile.Get()), i & 255, i >> 8, MakeColor(i >> 8, i >> 8, i >> 8));
    }
    Stamp(tile, mask, 0, 0, 0x0000FF);
    for (int i = 0; i < 65536; ++i) {
        const int m = i & 255;
        const int kept = (i >> 8) * (255 - m) / 255;
        ASSERT_EQ(PixelOf(tile.Get(), m, i >> 8), MakeColor(kept + m, kept, kept)) << i;
    }
}

TEST(WrapStampMask, OnlyTheRedOfAMaskCounts) {
    const OwnedBlock tile(FlatPicture(1, 1, 24, 100));
    const OwnedBlock mask(NewPackedDib(1, 1, nullptr, 24));
    SetDibPixel(LockedImage(mask.Get()), 0, 0, 0xFFFF00);
    Stamp(tile, mask, 0, 0, kWhite);
    EXPECT_EQ(PixelOf(tile.Get(), 0, 0), 0x646464U);
}

TEST(WrapStampMask, AMaskWiderThanTheTileBlendsAPixelAgain) {
    // 200 with black at weight 128: 200 x 127 / 255 = 99, then 99 x 127 / 255 = 49.
    const OwnedBlock tile(FlatPicture(1, 1, 24, 200));
    const OwnedBlock mask(FlatPicture(2, 1, 24, 128));
    Stamp(tile, mask, 0, 0, 0x000000);
    EXPECT_EQ(PixelOf(tile.Get(), 0, 0), 0x313131U);
}

TEST(WrapStampMask, AStampClearsAlphaEvenWhereTheMaskIsZero) {
    const OwnedBlock tile(FlatPicture(2, 1, 32, 100));
    const OwnedBlock mask(FlatPicture(1, 1, 24, 0));
    Stamp(tile, mask, 1, 0, kWhite);
    EXPECT_EQ(PixelOf(tile.Get(), 0, 0), 0x64646464U);
    EXPECT_EQ(PixelOf(tile.Get(), 1, 0), 0x00646464U);
}

TEST(WrapStampMask, AnEmptyMaskOrTileDoesNothing) {
    const OwnedBlock tile(RandomPicture(3, 3, 24, 4));
    const OwnedBlock copy(DuplicateImage(tile.Get()));
    const OwnedBlock flat(NewPackedDib(4, 0, nullptr, 24));
    const OwnedBlock thin(NewPackedDib(0, 4, nullptr, 24));
    const OwnedBlock sprite(NewPackedDib(0, 4, nullptr, 32));
    Stamp(tile, flat, 0, 0, kWhite);
    Stamp(tile, thin, 0, 0, kWhite);
    Blend(tile, sprite, 0, 0);
    Stamp(thin, tile, 0, 0, kWhite);
    EXPECT_EQ(Difference(tile.Get(), copy.Get()), "");
}

/// Draws sizes and places that reach every branch of a stamp.
class RandomStamps {
public:
    explicit RandomStamps(std::uint32_t seed) : draw_(seed) {}

    int Below(int limit) { return static_cast<int>(draw_() % static_cast<unsigned>(limit)); }
    int Place() {
        constexpr int kPlaces[] = {std::numeric_limits<int>::min(), -2000000011, -1, 0,
                                   std::numeric_limits<int>::max()};
        return Below(3) == 0 ? kPlaces[Below(5)] : Below(1000) - 500;
    }
    OwnedBlock Picture(int most, int bits) {
        const int width = 1 + Below(most);
        const int height = 1 + Below(most);
        return OwnedBlock(RandomPicture(width, height, bits, static_cast<std::uint32_t>(draw_())));
    }

private:
    std::mt19937 draw_;
};

TEST(WrapStampMask, RandomStampsEqualThePlainVersion) {
    RandomStamps draw(11);
    constexpr int kBits[] = {24, 24, 24, 32, 8, 4, 1};
    for (int i = 0; i < 1500; ++i) {
        const int tile_bits = kBits[draw.Below(7)];
        const OwnedBlock tile = draw.Picture(i % 3 == 0 ? 5 : 300, tile_bits);
        const OwnedBlock mask = draw.Picture(i % 5 == 0 ? 300 : 40, kBits[draw.Below(7)]);
        const OwnedBlock expected(DuplicateImage(tile.Get()));
        const int x = draw.Place();
        const int y = draw.Place();
        const auto color = static_cast<ColorWord>(draw.Below(1 << 30)) * 5;
        const int opacity = i % 2 == 0 ? 255 : i / 2 % 256;
        Stamp(tile, mask, x, y, color, opacity);
        reference::PlainWrapStampMask(LockedImage(expected.Get()), LockedImage(mask.Get()), x, y,
                                      color, opacity);
        ASSERT_EQ(Difference(tile.Get(), expected.Get()), "")
            << "stamp " << i << " at " << x << ", " << y << " on " << tile_bits << " bits";
    }
}

TEST(WrapBlendImage, TakesColourAndAlphaFromTheSprite) {
    const OwnedBlock tile(FlatPicture(1, 1, 24, 100));
    const OwnedBlock sprite(NewPackedDib(1, 1, nullptr, 32));
    SetDibPixel(LockedImage(sprite.Get()), 0, 0, 0x80FF6400);
    Blend(tile, sprite, 0, 0);
    // Kept: 100 x 127 / 255 = 49. Added: 0, 100 x 128 / 255 = 50, 128.
    EXPECT_EQ(PixelOf(tile.Get(), 0, 0), MakeColor(49, 99, 177));
}

TEST(WrapBlendImage, TheResultHasNoAlpha) {
    const OwnedBlock tile(FlatPicture(1, 1, 32, 255));
    const OwnedBlock sprite(FlatPicture(1, 1, 32, 255));
    Blend(tile, sprite, 0, 0);
    EXPECT_EQ(PixelOf(tile.Get(), 0, 0), 0x00FFFFFFU);
}

TEST(WrapBlendImage, RandomBlendsEqualThePlainVersion) {
    RandomStamps draw(12);
    constexpr int kTileBits[] = {24, 24, 32, 8, 4, 1};
    constexpr int kSpriteBits[] = {32, 32, 32, 32, 24, 8};
    for (int i = 0; i < 1500; ++i) {
        const int tile_bits = kTileBits[draw.Below(6)];
        const OwnedBlock tile = draw.Picture(i % 3 == 0 ? 5 : 300, tile_bits);
        const OwnedBlock sprite = draw.Picture(i % 5 == 0 ? 300 : 40, kSpriteBits[draw.Below(6)]);
        const OwnedBlock expected(DuplicateImage(tile.Get()));
        const int x = draw.Place();
        const int y = draw.Place();
        Blend(tile, sprite, x, y);
        reference::PlainWrapBlendImage(LockedImage(expected.Get()), LockedImage(sprite.Get()), x,
                                       y);
        ASSERT_EQ(Difference(tile.Get(), expected.Get()), "")
            << "blend " << i << " at " << x << ", " << y << " on " << tile_bits << " bits";
    }
}

TEST(MergeAlphaImage, TakesAlphaFromTheMasksRed) {
    const OwnedBlock colors(NewPackedDib(1, 1, nullptr, 24));
    const OwnedBlock mask(NewPackedDib(1, 1, nullptr, 24));
    SetDibPixel(LockedImage(colors.Get()), 0, 0, 0x563412);
    SetDibPixel(LockedImage(mask.Get()), 0, 0, 0x000078);
    const OwnedBlock merged(MergeAlphaImage(colors.Get(), mask.Get()));
    EXPECT_EQ(PixelOf(merged.Get(), 0, 0), 0x78563412U);
}

TEST(MergeAlphaImage, RandomPicturesEqualThePlainVersion) {
    for (const int bits : {1, 4, 8, 24, 32}) {
        for (const int mask_width : {7, 19, 30}) {
            const OwnedBlock colors(RandomPicture(19, 8, bits, 4));
            const OwnedBlock mask(RandomPicture(mask_width, 8, 24, 6));
            const OwnedBlock merged(MergeAlphaImage(colors.Get(), mask.Get()));
            const OwnedBlock plain(reference::PlainMergeAlphaImage(colors.Get(), mask.Get()));
            EXPECT_EQ(Difference(merged.Get(), plain.Get()), "");
        }
    }
}

TEST(MergeAlphaImage, AMissingPictureGivesNull) {
    const OwnedBlock picture(FlatPicture(2, 2, 24, 1));
    EXPECT_EQ(MergeAlphaImage(nullptr, picture.Get()), nullptr);
    EXPECT_EQ(MergeAlphaImage(picture.Get(), nullptr), nullptr);
}

TEST(NewSolidImage, HasTheRectanglesSizeAndOneColour) {
    const OwnedBlock solid(NewSolidImage({-2, 10, 5, 13}, 0x7F563412));
    const LockedImage image(solid.Get());
    ASSERT_TRUE(image);
    EXPECT_EQ(image->Width, 7);
    EXPECT_EQ(image->Height, 3);
    EXPECT_EQ(image->ImageSize, 72U);
    for (int i = 0; i < 21; ++i)
        EXPECT_EQ(GetDibPixel(image, i % 7, i / 7), 0x563412U);
}

TEST(NewSolidImage, ACrossedOrImmenseRectangleGivesNull) {
    EXPECT_EQ(NewSolidImage({5, 0, 4, 1}, 0), nullptr);
    EXPECT_EQ(
        NewSolidImage({std::numeric_limits<int>::min(), 0, std::numeric_limits<int>::max(), 1}, 0),
        nullptr);
}

TEST(RollImage, ADistanceOfNoneOrAllIsAnExactCopy) {
    for (const int bits : {1, 4, 8, 24, 32}) {
        const OwnedBlock picture(RandomPicture(11, 6, bits, 4));
        const auto expect_copy = [&](ImageHandle rolled) {
            EXPECT_EQ(Difference(OwnedBlock(rolled).Get(), picture.Get()), "") << bits << " bits";
        };
        for (const int distance : {0, 11}) {
            expect_copy(RollImageLeft(picture.Get(), distance));
            expect_copy(RollImageRight(picture.Get(), distance));
        }
        for (const int distance : {0, 6}) {
            expect_copy(RollImageUp(picture.Get(), distance));
            expect_copy(RollImageDown(picture.Get(), distance));
        }
    }
}

TEST(RollImage, ThePictureMovesTheNamedWay) {
    const OwnedBlock picture(FlatPicture(5, 4, 24, 0));
    SetDibPixel(LockedImage(picture.Get()), 3, 2, kWhite);
    EXPECT_EQ(PixelOf(OwnedBlock(RollImageDown(picture.Get(), 1)).Get(), 3, 3), kWhite);
    EXPECT_EQ(PixelOf(OwnedBlock(RollImageUp(picture.Get(), 3)).Get(), 3, 3), kWhite);
    EXPECT_EQ(PixelOf(OwnedBlock(RollImageRight(picture.Get(), 2)).Get(), 0, 2), kWhite);
    EXPECT_EQ(PixelOf(OwnedBlock(RollImageLeft(picture.Get(), 1)).Get(), 2, 2), kWhite);
}

TEST(RollImage, EveryDistanceEqualsThePlainVersion) {
    for (const int bits : {1, 4, 8, 24, 32}) {
        const OwnedBlock picture(RandomPicture(13, 9, bits, 4));
        for (int n = 0; n <= 13; ++n) {
            const OwnedBlock left(RollImageLeft(picture.Get(), n));
            const OwnedBlock plain_left(reference::PlainRollImage(picture.Get(), n, 0));
            const OwnedBlock right(RollImageRight(picture.Get(), n));
            const OwnedBlock plain_right(reference::PlainRollImage(picture.Get(), -n, 0));
            const OwnedBlock up(RollImageUp(picture.Get(), n % 10));
            const OwnedBlock plain_up(reference::PlainRollImage(picture.Get(), 0, n % 10));
            const OwnedBlock down(RollImageDown(picture.Get(), n % 10));
            const OwnedBlock plain_down(reference::PlainRollImage(picture.Get(), 0, -(n % 10)));
            EXPECT_EQ(Difference(left.Get(), plain_left.Get()), "");
            EXPECT_EQ(Difference(right.Get(), plain_right.Get()), "");
            EXPECT_EQ(Difference(up.Get(), plain_up.Get()), "");
            EXPECT_EQ(Difference(down.Get(), plain_down.Get()), "");
        }
    }
}

TEST(RollImage, AnEmptyPictureStaysEmptyAndAMissingOneGivesNull) {
    const OwnedBlock empty(NewPackedDib(0, 3, nullptr, 24));
    const OwnedBlock rolled(RollImageLeft(empty.Get(), 0));
    EXPECT_EQ(Difference(empty.Get(), rolled.Get()), "");
    EXPECT_EQ(RollImageDown(nullptr, 1), nullptr);
}

TEST(RadialMask, RisesFromTheRimOrFallsFromIt) {
    // Four discs of diameters 8, 6, 4, 2; i / 4 x 200 is 0, 50, 100, 150.
    const OwnedBlock rising(RadialMask(8, 200, true));
    const OwnedBlock falling(RadialMask(8, 200, false));
    const int levels[] = {0, 50, 100, 150};
    for (int i = 0; i < 4; ++i) {
        const int level = levels[i];
        EXPECT_EQ(PixelOf(rising.Get(), i, 4), MakeColor(level, level, level)) << i;
        EXPECT_EQ(PixelOf(falling.Get(), 4, i), MakeColor(255 - level, 255 - level, 255 - level))
            << i;
    }
}

TEST(RadialMask, CornersStayBlack) {
    const OwnedBlock mask(RadialMask(12, 255, false));
    for (const int x : {0, 11}) {
        for (const int y : {0, 11})
            EXPECT_EQ(PixelOf(mask.Get(), x, y), 0U);
    }
}

TEST(RadialMask, BelowADiameterOfTwoItIsABlackSquare) {
    const OwnedBlock mask(RadialMask(1, 255, false));
    const OwnedBlock black(NewPackedDib(1, 1, nullptr, 24));
    EXPECT_EQ(Difference(mask.Get(), black.Get()), "");
    const OwnedBlock none(RadialMask(0, 255, false));
    const OwnedBlock empty(NewPackedDib(0, 0, nullptr, 24));
    EXPECT_EQ(Difference(none.Get(), empty.Get()), "");
    EXPECT_EQ(RadialMask(-1, 255, false), nullptr);
}

TEST(RadialMask, EveryDiameterEqualsDiscsDrawnOneOverTheOther) {
    for (int diameter = 1; diameter <= 300; ++diameter) {
        const int peak = diameter % 3 == 0 ? 255 : diameter * 7 % 400;
        const bool inverse = diameter % 2 == 0;
        const OwnedBlock mask(RadialMask(diameter, peak, inverse));
        const OwnedBlock plain(reference::PlainRadialMask(diameter, peak, inverse));
        ASSERT_EQ(Difference(mask.Get(), plain.Get()), "") << "diameter " << diameter;
    }
}

TEST(PickFillColor, OneColourIsTakenWithoutADraw) {
    runtime::srand(1);
    const int first = runtime::rand();
    runtime::srand(1);
    int last_picked = -1;
    EXPECT_EQ(PickFillColor(1, &last_picked), 0);
    EXPECT_EQ(last_picked, 0);
    EXPECT_EQ(runtime::rand(), first);
}

TEST(PickFillColor, ARepeatIsDrawnAgain) {
    // Seed 1 draws 41, 18467, 6334, 26500, 19169, ...: with two colours 1, 1, 0.
    runtime::srand(1);
    int last_picked = -1;
    EXPECT_EQ(PickFillColor(2, &last_picked), 1);
    EXPECT_EQ(PickFillColor(2, &last_picked), 0);
    EXPECT_EQ(last_picked, 0);
    EXPECT_EQ(runtime::rand(), 26500);
}

TEST(PickFillColor, AfterSixteenRepeatsTheLastStands) {
    // The first sixteen draws of this seed, and no seventeenth, are asked for: 10803,
    // 30069, 31422, ... are all multiples of 3.
    runtime::srand(14372501);
    int last_picked = 0;
    EXPECT_EQ(PickFillColor(3, &last_picked), 0);
    EXPECT_EQ(last_picked, 0);
    EXPECT_EQ(runtime::rand(), 13695);
}

/// Lets each allocation of `make` fail. Returns how many there were.
template <class Make>
std::size_t CountFailures(Make make) {
    return FailEachAllocation([&] { return static_cast<bool>(OwnedBlock(make())); });
}

TEST(WrapCompositing, EveryAllocationThatFailsGivesNullAndLeavesNothing) {
    const OwnedBlock picture(RandomPicture(9, 9, 24, 4));
    EXPECT_EQ(CountFailures([&] { return MergeAlphaImage(picture.Get(), picture.Get()); }), 1U);
    EXPECT_EQ(CountFailures([&] { return RollImageLeft(picture.Get(), 3); }), 1U);
    EXPECT_EQ(CountFailures([] { return NewSolidImage({0, 0, 4, 4}, 1); }), 1U);
    EXPECT_EQ(CountFailures([] { return RadialMask(20, 255, true); }), 2U);
}

}  // namespace
}  // namespace tess
