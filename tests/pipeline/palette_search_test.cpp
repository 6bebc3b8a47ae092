#include "pipeline/palette_search.h"

#include <array>
#include <gtest/gtest.h>

#include "tests/reference/plain_palette.h"
#include "tests/support/allocation_failures.h"
#include "tests/support/sample_pictures.h"

namespace tess {
namespace {

using Palette = std::array<std::uint8_t, kPaletteBytes>;

int PlainIndex(ColorWord color, const Palette& palette, int count) {
    return plain::NearestColor(RedOf(color), GreenOf(color), BlueOf(color), palette.data(), count);
}

/// The answer with five bits: an equal entry, else that of the upper bits.
int PlainFiveBits(ColorWord color, const Palette& palette, int count) {
    const int index = PlainIndex(color, palette, count);
    const std::uint8_t* entry = palette.data() + std::ptrdiff_t{3} * index;
    const bool equal = count > 0 && MakeColor(entry[0], entry[1], entry[2]) == color;
    return equal ? index : PlainIndex(color & 0xF8F8F8, palette, count);
}

/// Colours all over the cube, and around each entry.
template <class Check>
void ForManyColors(const Palette& palette, Check check) {
    for (ColorWord i = 0; i < 3000; ++i)
        check((i * 2654435761U) >> 8);
    for (std::size_t i = 0; i < kPaletteEntries; ++i) {
        const int nudge = static_cast<int>(i % 5) - 2;
        check(MakeColor(palette[3 * i], palette[3 * i + 1], palette[3 * i + 2]));
        check(MakeColor(palette[3 * i] + nudge, palette[3 * i + 1], palette[3 * i + 2] - nudge));
    }
}

TEST(PaletteSearch, AgreesWithThePlainSearch) {
    for (std::uint32_t seed = 0; seed < 60; ++seed) {
        Palette palette;
        MakePalette(palette.data(), seed);
        const int count = seed % 3 == 0 ? 256 : static_cast<int>(seed * 37 % 257);
        PaletteSearch search(palette.data(), count, SearchPrecision::Exact);
        ASSERT_TRUE(search);
        ForManyColors(palette, [&](ColorWord color) {
            EXPECT_EQ(search.IndexOf(color), PlainIndex(color, palette, count));
        });
    }
}

TEST(PaletteSearch, AgreesWithThePlainSearchAtFiveBits) {
    for (std::uint32_t seed = 0; seed < 60; ++seed) {
        Palette palette;
        MakePalette(palette.data(), seed);
        const int count = seed % 3 == 0 ? 256 : static_cast<int>(seed * 37 % 257);
        PaletteSearch search(palette.data(), count, SearchPrecision::FiveBits);
        ASSERT_TRUE(search);
        ForManyColors(palette, [&](ColorWord color) {
            EXPECT_EQ(search.IndexOf(color), PlainFiveBits(color, palette, count));
        });
    }
}

TEST(PaletteSearch, TieAtTheCornerOfACellGoesToTheLowerIndex) {
    // (7, 7, 7) ends a fine cell and is as far from either entry.
    const Palette palette{14, 14, 14, 0, 0, 0};
    PaletteSearch search(palette.data(), 2, SearchPrecision::Exact);
    ASSERT_TRUE(search);
    EXPECT_EQ(search.IndexOf(0x070707), 0);
    EXPECT_EQ(search.IndexOf(0x070706), 1);
}

TEST(PaletteSearch, CrowdedCellsAgreeColorByColor) {
    Palette palette;  // 256 entries within two cells
    for (std::size_t i = 0; i < kPaletteEntries; ++i) {
        palette[3 * i] = static_cast<std::uint8_t>(100 + i % 7);
        palette[3 * i + 1] = static_cast<std::uint8_t>(40 + i / 7 % 7);
        palette[3 * i + 2] = static_cast<std::uint8_t>(200 + i / 49);
    }
    PaletteSearch search(palette.data(), kPaletteEntries, SearchPrecision::Exact);
    ASSERT_TRUE(search);
    for (int red = 96; red < 112; ++red) {
        for (int green = 36; green < 52; ++green) {
            for (int blue = 192; blue < 212; ++blue) {
                const ColorWord color = MakeColor(red, green, blue);
                EXPECT_EQ(search.IndexOf(color), PlainIndex(color, palette, kPaletteEntries));
            }
        }
    }
}

TEST(PaletteSearch, NoEntriesGiveZero) {
    const Palette palette{};
    for (const int count : {0, -1}) {
        PaletteSearch exact(palette.data(), count, SearchPrecision::Exact);
        PaletteSearch five_bits(palette.data(), count, SearchPrecision::FiveBits);
        EXPECT_EQ(exact.IndexOf(0x123456), 0);
        EXPECT_EQ(five_bits.IndexOf(0x123456), 0);
    }
}

TEST(PaletteSearch, MissingMemoryIsTold) {
    const Palette palette{};
    EXPECT_EQ(
        FailEachAllocation([&] {
            return static_cast<bool>(PaletteSearch(palette.data(), 256, SearchPrecision::Exact));
        }),
        1U);
}

}  // namespace
}  // namespace tess
