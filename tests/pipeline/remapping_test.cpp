#include "pipeline/remapping.h"

#include <array>
#include <gtest/gtest.h>
#include <vector>

#include "tests/reference/plain_remapping.h"
#include "tests/support/allocation_failures.h"
#include "tests/support/image_bytes.h"
#include "tests/support/remap_settings.h"
#include "tests/support/sample_pictures.h"

namespace tess {
namespace {

using Palette = std::array<std::uint8_t, kPaletteBytes>;
using Values = std::vector<std::uint32_t>;

/// A palette of these grays, then black.
Palette Grays(const std::vector<int>& grays) {
    Palette palette{};
    for (std::size_t i = 0; i < 3 * grays.size(); ++i) {
        palette[i] = static_cast<std::uint8_t>(grays[i / 3]);
    }
    return palette;
}

ColorWord Gray(int level) {
    return MakeColor(level, level, level);
}

Values Remapped(ImageHandle source, const Palette& palette, int depth, int colors) {
    const platform::OwnedBlock owner(source);
    const platform::OwnedBlock image(RemapPlain(source, palette.data(), depth, colors));
    return Pixels(image.Get());
}

TEST(RemapSettings, DefaultsAreTheConfigurations) {
    EXPECT_EQ(FastRemap, 0U);
    EXPECT_EQ(DitherBrightness, 20U);
    EXPECT_EQ(DitherContrast, 20U);
}

TEST(RemapPlain, TakesTheNearestColor) {
    const Palette palette = Grays({0, 100, 200});
    EXPECT_EQ(Remapped(ImageOf(2, {Gray(49), Gray(51), Gray(150), Gray(255)}), palette, 8, 3),
              (Values{0, 1, 1, 2}));
}

TEST(RemapPlain, LooksAtTheGivenColorsOnly) {
    const Palette palette = Grays({0, 100, 200});
    EXPECT_EQ(Remapped(ImageOf(1, {Gray(200)}), palette, 8, 2), (Values{1}));
    EXPECT_EQ(Remapped(ImageOf(1, {Gray(200)}), palette, 8, 0), (Values{0}));
}

TEST(RemapPlain, ResultHoldsThePaletteInItsLayout) {
    const platform::OwnedBlock source(ImageOf(1, {0}));
    const Palette palette = Grays({1, 2, 3});
    const platform::OwnedBlock image(RemapPlain(source.Get(), palette.data(), 3, 3));
    const LockedImage locked(image.Get());
    ASSERT_TRUE(locked);
    EXPECT_EQ(locked->BitCount, 4);
    Palette table;
    ReadColorTable(locked, table.data());
    EXPECT_EQ(table, palette);
}

TEST(RemapPlain, TwoColorsAreToldByBrightness) {
    // Gray 129: 38 + 75 + 14 = 127; gray 130: 39 + 76 + 14 = 129. The palette has
    // no say.
    EXPECT_EQ(Remapped(ImageOf(2, {Gray(129), Gray(130)}), Grays({255, 0}), 1, 2), (Values{0, 1}));
}

TEST(RemapPlain, LeavesItsSourceAlone) {
    const platform::OwnedBlock source(MakePicture(PictureKind::Noise, 7, 3, 1));
    const std::vector<std::uint8_t> before = ImageBytes(source.Get());
    const platform::OwnedBlock image(RemapPlain(source.Get(), Grays({0, 9}).data(), 8, 2));
    EXPECT_EQ(ImageBytes(source.Get()), before);
}

TEST(RemapPlain, FastRemapTakesAnEqualColorFirst) {
    const RemapSettings settings(1);
    const Palette palette = Grays({96, 103});  // both have the upper bits of 96
    EXPECT_EQ(Remapped(ImageOf(1, {Gray(103)}), palette, 8, 2), (Values{1}));
    EXPECT_EQ(Remapped(ImageOf(1, {Gray(102)}), palette, 8, 2), (Values{0}));
}

TEST(RemapPlain, ExactRemapTellsAllBitsApart) {
    const RemapSettings settings(0);
    EXPECT_EQ(Remapped(ImageOf(1, {Gray(102)}), Grays({96, 103}), 8, 2), (Values{1}));
}

TEST(RemapPlain, IndexedSourceIsMatchedAgainstAllOfTheDepth) {
    // Depth 2 looks at four entries though one colour is told.
    const Palette table = Grays({210, 5});
    const Palette palette = Grays({0, 90, 0, 200, 210});
    EXPECT_EQ(Remapped(ImageOf(2, {0, 1}, 8, table.data()), palette, 2, 1), (Values{3, 0}));
    EXPECT_EQ(Remapped(ImageOf(2, {0, 1}, 4, table.data()), palette, 2, 1), (Values{3, 0}));
    EXPECT_EQ(Remapped(ImageOf(1, {0}, 8, table.data()), palette, 3, 1), (Values{4}));
}

TEST(RemapPlain, IndexedSourceToTwoColorsGoesByBrightness) {
    const Palette table = Grays({129, 130});
    EXPECT_EQ(Remapped(ImageOf(2, {0, 1}, 8, table.data()), Grays({255, 0}), 1, 2), (Values{0, 1}));
}

TEST(RemapPlain, OneBitIsBlackAndWhiteWhateverItsTable) {
    const Palette table = Grays({200, 100});
    const Palette palette = Grays({255, 128, 0});
    EXPECT_EQ(Remapped(ImageOf(2, {0, 1}, 1, table.data()), palette, 8, 3), (Values{2, 0}));
}

TEST(RemapPlain, OneBitWithoutAnyWhiteTakesTheNearest) {
    const Palette palette = Grays({3, 248, 254, 10});
    EXPECT_EQ(Remapped(ImageOf(2, {0, 1}, 1), palette, 8, 4), (Values{0, 2}));
}

TEST(RemapPlain, OneBitWithFastRemapFallsBackOnTheTable) {
    // The table's last entry stands for 248, its first for 0.
    const RemapSettings settings(1);
    EXPECT_EQ(Remapped(ImageOf(2, {0, 1}, 1), Grays({3, 248, 254, 10}), 8, 4), (Values{0, 1}));
    EXPECT_EQ(Remapped(ImageOf(2, {0, 1}, 1), Grays({3, 248, 255, 0}), 8, 4), (Values{3, 2}));
}

TEST(RemapPlain, DepthsWithoutATableAreRefused) {
    const platform::OwnedBlock source(ImageOf(1, {0}));
    const Palette palette{};
    for (const int depth : {0, -1, 9, 24, 32}) {
        EXPECT_EQ(RemapPlain(source.Get(), palette.data(), depth, 2), nullptr) << depth;
    }
}

TEST(RemapPlain, NullSourceGivesNull) {
    EXPECT_EQ(RemapPlain(nullptr, Palette{}.data(), 8, 2), nullptr);
}

TEST(RemapPlain, EachMissingBlockGivesNullAndNothingIsLeft) {
    const Palette palette = Grays({0, 255});
    const platform::OwnedBlock sources[] = {
        platform::OwnedBlock(MakePicture(PictureKind::Noise, 9, 5, 1)),
        platform::OwnedBlock(MakeIndexedPicture(9, 5, 8, 1)),
        platform::OwnedBlock(MakeIndexedPicture(9, 5, 1, 1))};
    for (const platform::OwnedBlock& source : sources) {
        for (const int depth : {1, 4, 8}) {
            const auto remap = [&] {
                return !TakeImageBytes(RemapPlain(source.Get(), palette.data(), depth, 2)).empty();
            };
            EXPECT_GT(FailEachAllocation(remap), 1U);
        }
    }
}

class BothSpeeds : public testing::TestWithParam<int> {};
INSTANTIATE_TEST_SUITE_P(FastRemap, BothSpeeds, testing::Values(0, 1));

TEST_P(BothSpeeds, PlainRemapAgreesWithItsPlainVersion) {
    const RemapSettings settings(static_cast<std::uint32_t>(GetParam()));
    for (std::uint32_t seed = 0; seed < 96; ++seed) {
        Palette palette;
        MakePalette(palette.data(), seed);
        const int colors = seed % 4 == 0 ? 256 : static_cast<int>(seed * 41 % 257);
        const int depth = 1 + static_cast<int>(seed % 8);
        const auto kind = static_cast<PictureKind>(seed / 8 % kPictureKinds);
        const int width = 1 + static_cast<int>(seed * 13 % 67);
        const platform::OwnedBlock source(MakePicture(kind, width, 1 + static_cast<int>(seed % 31),
                                                      seed, seed % 5 == 0 ? 32 : 24));
        EXPECT_EQ(TakeImageBytes(RemapPlain(source.Get(), palette.data(), depth, colors)),
                  TakeImageBytes(plain::RemapPlain(source.Get(), palette.data(), depth, colors)))
            << "seed " << seed;
    }
}

TEST_P(BothSpeeds, IndexedSourcesAgreeWithThePlainVersion) {
    const RemapSettings settings(static_cast<std::uint32_t>(GetParam()));
    for (std::uint32_t seed = 0; seed < 72; ++seed) {
        Palette palette;
        MakePalette(palette.data(), seed + 500);
        const int colors = static_cast<int>(seed * 41 % 257);
        const int depth = 1 + static_cast<int>(seed % 8);
        const int source_depths[] = {1, 4, 8};
        const platform::OwnedBlock source(
            MakeIndexedPicture(1 + static_cast<int>(seed), 9, source_depths[seed / 8 % 3], seed));
        EXPECT_EQ(TakeImageBytes(RemapPlain(source.Get(), palette.data(), depth, colors)),
                  TakeImageBytes(plain::RemapPlain(source.Get(), palette.data(), depth, colors)))
            << "seed " << seed;
    }
}

TEST(ForceColorIndex, ReplacesPixelsOfTheColor) {
    const platform::OwnedBlock image(ImageOf(3, {1, 2, 3, 4, 5, 6}, 8));
    const platform::OwnedBlock source(ImageOf(3, {9, 7, 9, 7, 8, 9}));
    const platform::OwnedBlock forced(ForceColorIndex(image.Get(), source.Get(), 7, 200));
    EXPECT_EQ(Pixels(forced.Get()), (Values{1, 200, 3, 200, 5, 6}));
}

TEST(ForceColorIndex, ComparesTheLow24Bits) {
    const platform::OwnedBlock image(ImageOf(2, {1, 2}, 8));
    const platform::OwnedBlock source(ImageOf(2, {0xFFFFFF, 0xFEFFFF}));
    const platform::OwnedBlock forced(ForceColorIndex(image.Get(), source.Get(), 0xFFFFFFFF, 9));
    EXPECT_EQ(Pixels(forced.Get()), (Values{9, 2}));
}

TEST(ForceColorIndex, KeepsDepthAndTable) {
    Palette palette;
    MakePalette(palette.data(), 3);
    const platform::OwnedBlock image(ImageOf(3, {1, 2, 3}, 4, palette.data()));
    const platform::OwnedBlock source(ImageOf(3, {0, 1, 2}));
    const platform::OwnedBlock forced(ForceColorIndex(image.Get(), source.Get(), 77, 0));
    EXPECT_EQ(ImageBytes(forced.Get()), ImageBytes(image.Get()));
    EXPECT_NE(forced.Get(), image.Get());
}

TEST(ForceColorIndex, AgreesWithItsPlainVersion) {
    for (std::uint32_t seed = 0; seed < 30; ++seed) {
        const int depths[] = {1, 4, 8};
        const int width = 1 + static_cast<int>(seed % 19);
        const platform::OwnedBlock image(MakeIndexedPicture(width, 7, depths[seed % 3], seed));
        const platform::OwnedBlock source(MakePicture(PictureKind::FewColors, width, 7, seed));
        const ColorWord color = Pixels(source.Get())[seed % 7] | 0xAB000000;
        const int index = static_cast<int>(seed * 9);
        EXPECT_EQ(TakeImageBytes(ForceColorIndex(image.Get(), source.Get(), color, index)),
                  TakeImageBytes(plain::ForceColorIndex(image.Get(), source.Get(), color, index)));
    }
}

TEST(ForceColorIndex, PicturesThatDoNotFitAreRefused) {
    const platform::OwnedBlock image(ImageOf(2, {1, 2}, 8));
    const platform::OwnedBlock source(ImageOf(2, {1, 2}));
    const platform::OwnedBlock wider(ImageOf(3, {1, 2, 3}));
    EXPECT_EQ(ForceColorIndex(image.Get(), wider.Get(), 0, 0), nullptr);
    EXPECT_EQ(ForceColorIndex(source.Get(), source.Get(), 0, 0), nullptr);
    EXPECT_EQ(ForceColorIndex(image.Get(), image.Get(), 0, 0), nullptr);
    EXPECT_EQ(ForceColorIndex(nullptr, source.Get(), 0, 0), nullptr);
    EXPECT_EQ(ForceColorIndex(image.Get(), nullptr, 0, 0), nullptr);
}

TEST(ForceColorIndex, EachMissingBlockGivesNullAndNothingIsLeft) {
    const platform::OwnedBlock image(ImageOf(2, {1, 2}, 8));
    const platform::OwnedBlock source(ImageOf(2, {1, 2}));
    EXPECT_EQ(FailEachAllocation([&] {
                  return !TakeImageBytes(ForceColorIndex(image.Get(), source.Get(), 1, 5)).empty();
              }),
              2U);
}

}  // namespace
}  // namespace tess
