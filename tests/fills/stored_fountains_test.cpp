// The stored fountains among the resources.
#include <cstring>
#include <gtest/gtest.h>

#include "fills/fountain.h"
#include "platform/resources.h"

namespace tess::test {

namespace {

constexpr const char* kNames[] = {"(100+170)", "(100+190)", "(100+206)", "(100+351)", "(100+396)"};

Fountain Stored(const char* name) {
    Fountain fountain{};
    const auto bytes = platform::FindData(name);
    EXPECT_EQ(bytes.size(), sizeof fountain) << name;
    if (bytes.size() == sizeof fountain) std::memcpy(&fountain, bytes.data(), sizeof fountain);
    return fountain;
}

TEST(StoredFountains, AreWholeRecordsWithoutFlagsAndEnd) {
    for (const char* name : kNames) {
        const Fountain fountain = Stored(name);
        EXPECT_TRUE(HasFountainMagic(fountain));
        EXPECT_EQ(std::uint32_t{fountain.Version}, 0x02006101u);
        EXPECT_EQ(std::uint32_t{fountain.Size}, 585u);
        EXPECT_EQ(std::uint32_t{fountain.Flags}, 0u);
        EXPECT_EQ(ColorWord{fountain.End}, 0u);
    }
}

TEST(StoredFountains, AreNotFoundByNumber) {
    for (const int id : {270, 290, 306, 451, 496})
        EXPECT_TRUE(platform::FindData(id).empty());
}

TEST(StoredFountains, FirstThreeHoldTheSevenColors) {
    Fountain fresh;
    InitFountain(&fresh, FountainPreset::SevenColors);
    for (int i = 0; i < 3; ++i) {
        const Fountain fountain = Stored(kNames[i]);
        EXPECT_EQ(int{fountain.Count}, 7);
        EXPECT_EQ(ColorWord{fountain.Start}, 0u);
        EXPECT_EQ(std::memcmp(fountain.Markers, fresh.Markers, sizeof fresh.Markers), 0);
    }
}

TEST(StoredFountains, LastTwoHaveTheirOwnColors) {
    const Fountain clouds = Stored(kNames[3]), rug = Stored(kNames[4]);
    EXPECT_EQ(int{clouds.Count}, 4);
    EXPECT_EQ(ColorWord{clouds.Start}, 0x999966u);
    EXPECT_EQ(FountainMarker{clouds.Markers[3]}, 0xD0C1F0E1u);
    EXPECT_EQ(int{rug.Count}, 6);
    EXPECT_EQ(ColorWord{rug.Start}, 0xF00078u);
    EXPECT_EQ(FountainMarker{rug.Markers[5]}, 0xE8FF84C1u);
}

}  // namespace

}  // namespace tess::test
