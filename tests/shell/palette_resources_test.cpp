// The palettes of the resource set: 853 bytes each, the same colours as the tables.

#include <cstring>
#include <gtest/gtest.h>
#include <string>

#include "pipeline/palette.h"
#include "platform/resources.h"

namespace tess::test {

namespace {

void ExpectPaletteFile(const char* name, int index) {
    const auto file = platform::FindData(name);
    ASSERT_EQ(file.size(), 853u) << name;
    const auto text = [&](std::size_t offset, std::size_t length) {
        return std::string(reinterpret_cast<const char*>(file.data()) + offset, length);
    };
    EXPECT_EQ(text(0, 8), "QRVNRSRC");
    EXPECT_STREQ(text(8, 67).c_str(), "256 colour palette");
    EXPECT_EQ(text(75, 4), "CMAP");
    EXPECT_EQ(text(83, 2), std::string("\0\3", 2));
    std::uint8_t palette[kPaletteBytes];
    BuildFixedPalette(palette, nullptr, index);
    EXPECT_EQ(std::memcmp(file.data() + 85, palette, sizeof palette), 0) << name;
}

TEST(PaletteResources, HoldTheBuiltInTables) {
    ExpectPaletteFile("PALETTE216", 5);
    ExpectPaletteFile("PALETTE256G", 7);
}

}  // namespace

}  // namespace tess::test
