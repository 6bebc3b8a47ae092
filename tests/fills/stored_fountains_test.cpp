// The stored fountains among the resources.
#include <cstring>
#include <gtest/gtest.h>
#include <vector>

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

using Markers = std::vector<FountainMarker>;
Markers MarkersOf(const Fountain& fountain) {
    Markers markers;
    for (int i = 0; i < fountain.Count; ++i)
        markers.push_back(fountain.Markers[i]);
    return markers;
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
    EXPECT_EQ(ColorWord{clouds.Start}, 0x999966u);
    EXPECT_EQ(MarkersOf(clouds), (Markers{0x2799CC99, 0x62669966, 0x9C66FFCC, 0xD0C1F0E1}));
    EXPECT_EQ(ColorWord{rug.Start}, 0xF00078u);
    EXPECT_EQ(MarkersOf(rug),
              (Markers{0x13FF99CC, 0x363E001F, 0x5AFF99CC, 0x83FFF0F8, 0xB26A0035, 0xE8FF84C1}));
}

}  // namespace

}  // namespace tess::test
