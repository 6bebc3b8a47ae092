#include "pipeline/palette.h"

#include <array>
#include <gtest/gtest.h>
#include <vector>

#include "tests/reference/plain_palette.h"
#include "tests/support/sample_pictures.h"

namespace tess {
namespace {

using Palette = std::array<std::uint8_t, kPaletteBytes>;
using Color = std::array<int, 3>;

Palette Fixed(int index) {
    Palette palette;
    palette.fill(77);  // must be cleared
    BuildFixedPalette(palette.data(), nullptr, index);
    return palette;
}

Color EntryOf(const Palette& palette, std::size_t index) {
    return {palette[3 * index], palette[3 * index + 1], palette[3 * index + 2]};
}

TEST(BuildFixedPalette, GivesCountAndDepthWithoutAPalette) {
    const int expected[][2] = {{2, 1},   {16, 4},  {32, 5},  {64, 6},  {128, 7},
                               {216, 8}, {256, 8}, {256, 8}, {256, 8}, {8, 3}};
    for (int index = 0; index < 10; ++index) {
        int depth = 0;
        EXPECT_EQ(BuildFixedPalette(nullptr, &depth, index), expected[index][0]);
        EXPECT_EQ(depth, expected[index][1]);
    }
}

TEST(BuildFixedPalette, ClearsWhatIsBehindTheColors) {
    for (const int index : {0, 1, 2, 3, 4, 5, 9}) {
        const Palette palette = Fixed(index);
        const int count = BuildFixedPalette(nullptr, nullptr, index);
        for (std::size_t i = static_cast<std::size_t>(count); i < 256; ++i) {
            EXPECT_EQ(EntryOf(palette, i), (Color{0, 0, 0})) << index << ", " << i;
        }
    }
}

TEST(BuildFixedPalette, AnyOtherIndexIsTheDefault) {
    for (const int index : {-1, 10, 1000}) {
        EXPECT_EQ(BuildFixedPalette(nullptr, nullptr, index), 256);
        EXPECT_EQ(Fixed(index), Fixed(6));
    }
}

TEST(BuildFixedPalette, BlackAndWhite) {
    EXPECT_EQ(EntryOf(Fixed(0), 0), (Color{0, 0, 0}));
    EXPECT_EQ(EntryOf(Fixed(0), 1), (Color{255, 255, 255}));
}

TEST(BuildFixedPalette, SixteenColors) {
    const Color expected[] = {{0, 0, 0},       {128, 0, 0},   {0, 128, 0},   {128, 128, 0},
                              {0, 0, 128},     {128, 0, 128}, {0, 128, 128}, {128, 128, 128},
                              {192, 192, 192}, {255, 0, 0},   {0, 255, 0},   {255, 255, 0},
                              {0, 0, 255},     {255, 0, 255}, {0, 255, 255}, {255, 255, 255}};
    for (std::size_t i = 0; i < 16; ++i)
        EXPECT_EQ(EntryOf(Fixed(1), i), expected[i]) << i;
}

TEST(BuildFixedPalette, OrthogonalHasRedSlowestAndBlueFastest) {
    // Entry = (red level x greens + green level) x blues + blue level.
    EXPECT_EQ(EntryOf(Fixed(2), (1 * 4 + 2) * 2 + 1), (Color{85, 170, 255}));
    EXPECT_EQ(EntryOf(Fixed(2), 31), (Color{255, 255, 255}));
    EXPECT_EQ(EntryOf(Fixed(3), (3 * 4 + 1) * 4 + 2), (Color{255, 85, 170}));
    EXPECT_EQ(EntryOf(Fixed(4), (2 * 8 + 5) * 4 + 1), (Color{170, 180, 85}));
    EXPECT_EQ(EntryOf(Fixed(6), (1 * 8 + 2) * 4 + 3), (Color{36, 72, 255}));
    EXPECT_EQ(EntryOf(Fixed(6), (6 * 8 + 7) * 4 + 0), (Color{216, 255, 0}));
}

TEST(BuildFixedPalette, SafeColorsHaveGreenSlowest) {
    EXPECT_EQ(EntryOf(Fixed(5), 1), (Color{0, 0, 51}));
    EXPECT_EQ(EntryOf(Fixed(5), 6), (Color{51, 0, 0}));
    EXPECT_EQ(EntryOf(Fixed(5), 36), (Color{0, 51, 0}));
    EXPECT_EQ(EntryOf(Fixed(5), 215), (Color{255, 255, 255}));
}

TEST(BuildFixedPalette, GridAroundGraysHasLevelsOfItsOwn) {
    EXPECT_EQ(EntryOf(Fixed(7), 2 * 4), (Color{0, 73, 0}));  // 72 in the orthogonal ones
    EXPECT_EQ(EntryOf(Fixed(7), 111), (Color{128, 109, 255}));
    EXPECT_EQ(EntryOf(Fixed(7), 144), (Color{128, 146, 0}));
    EXPECT_EQ(EntryOf(Fixed(7), 144 + 16), (Color{170, 0, 0}));
    EXPECT_EQ(EntryOf(Fixed(7), 255), (Color{255, 255, 255}));
}

TEST(BuildFixedPalette, GrayRampLeavesOutBlackAndWhite) {
    EXPECT_EQ(EntryOf(Fixed(7), 112), (Color{1, 1, 1}));
    EXPECT_EQ(EntryOf(Fixed(7), 113), (Color{8, 8, 8}));
    EXPECT_EQ(EntryOf(Fixed(7), 142), (Color{246, 246, 246}));
    EXPECT_EQ(EntryOf(Fixed(7), 143), (Color{254, 254, 254}));
}

TEST(BuildFixedPalette, GrayLevels) {
    EXPECT_EQ(EntryOf(Fixed(8), 0), (Color{0, 0, 0}));
    EXPECT_EQ(EntryOf(Fixed(8), 200), (Color{200, 200, 200}));
}

TEST(BuildFixedPalette, EightColors) {
    const Color expected[] = {{0, 0, 0},   {255, 0, 0},   {0, 255, 0},   {255, 255, 0},
                              {0, 0, 255}, {255, 0, 255}, {0, 255, 255}, {255, 255, 255}};
    for (std::size_t i = 0; i < 8; ++i)
        EXPECT_EQ(EntryOf(Fixed(9), i), expected[i]) << i;
}

TEST(NearestColor, ExactMatchIsTheFirstOne) {
    const std::uint8_t palette[] = {9, 9, 8, 9, 9, 9, 1, 1, 1, 9, 9, 9};
    EXPECT_EQ(NearestColor(9, 9, 9, palette, 4), 1);
}

TEST(NearestColor, WeighsRedThreeGreenFourBlueTwo) {
    const std::uint8_t red_or_blue[] = {10, 0, 0, 0, 0, 12};  // 300 against 288
    EXPECT_EQ(NearestColor(0, 0, 0, red_or_blue, 2), 1);
    const std::uint8_t green_or_red[] = {0, 10, 0, 11, 0, 0};  // 400 against 363
    EXPECT_EQ(NearestColor(0, 0, 0, green_or_red, 2), 1);
}

TEST(NearestColor, LowestIndexWinsTies) {
    const std::uint8_t palette[] = {200, 0, 0, 12, 10, 10, 8, 10, 10};
    EXPECT_EQ(NearestColor(10, 10, 10, palette, 3), 1);
}

TEST(NearestColor, NoEntriesGiveZero) {
    const std::uint8_t palette[] = {1, 1, 1};
    EXPECT_EQ(NearestColor(1, 1, 1, palette, 0), 0);
    EXPECT_EQ(NearestColor(1, 1, 1, palette, -3), 0);
}

TEST(NearestColor, AgreesWithThePlainSearch) {
    for (std::uint32_t seed = 0; seed < 20; ++seed) {
        Palette palette;
        MakePalette(palette.data(), seed);
        for (int i = 0; i < 400; ++i) {
            const int value = i * 7919 + static_cast<int>(seed) * 104729;
            const int red = value & 255;
            const int green = (value >> 4) & 255;
            const int blue = (value >> 9) & 255;
            const int count = 1 + i % 256;
            EXPECT_EQ(NearestColor(red, green, blue, palette.data(), count),
                      plain::NearestColor(red, green, blue, palette.data(), count));
        }
    }
}

TEST(Luminance, EachTermIsCutByItself) {
    EXPECT_EQ(Luminance(255, 255, 255), 255);
    EXPECT_EQ(Luminance(3, 0, 0), 0);                   // 231 / 255
    EXPECT_EQ(Luminance(4, 0, 0), 1);                   // 308 / 255
    EXPECT_EQ(Luminance(3, 1, 9), 0);                   // 231, 150 and 252 of 255 each
    EXPECT_EQ(Luminance(100, 100, 100), 30 + 58 + 10);  // 98: the cuts lose two
}

TEST(SortPaletteByLuminance, DarkComesFirst) {
    std::uint8_t palette[] = {255, 255, 255, 0, 255, 0, 0, 0, 0, 0, 0, 255};
    SortPaletteByLuminance(palette, 4);
    const std::uint8_t sorted[] = {0, 0, 0, 0, 0, 255, 0, 255, 0, 255, 255, 255};
    EXPECT_TRUE(std::equal(std::begin(sorted), std::end(sorted), palette));
}

TEST(SortPaletteByLuminance, EqualsKeepTheirOrder) {
    std::uint8_t palette[] = {9, 9, 9, 3, 0, 0, 2, 0, 0, 0, 0, 5};  // the last three are 0
    SortPaletteByLuminance(palette, 4);
    const std::uint8_t sorted[] = {3, 0, 0, 2, 0, 0, 0, 0, 5, 9, 9, 9};
    EXPECT_TRUE(std::equal(std::begin(sorted), std::end(sorted), palette));
}

TEST(SortPaletteByLuminance, LeavesWhatIsBehindTheCount) {
    std::uint8_t palette[] = {200, 200, 200, 100, 100, 100, 0, 0, 0};
    SortPaletteByLuminance(palette, 2);
    EXPECT_EQ(palette[0], 100);
    EXPECT_EQ(palette[3], 200);
    EXPECT_EQ(palette[6], 0);
}

TEST(SortPaletteByLuminance, OneEntryOrNoneIsLeftAlone) {
    std::uint8_t palette[] = {200, 1, 2, 0, 0, 0};
    for (const int count : {1, 0, -1}) {
        SortPaletteByLuminance(palette, count);
        EXPECT_EQ(palette[0], 200);
        EXPECT_EQ(palette[3], 0);
    }
}

}  // namespace
}  // namespace tess
