#include "fills/fountain.h"

#include <cstring>
#include <gtest/gtest.h>

namespace tess::test {

namespace {

Fountain MakeFountain(FountainPreset preset) {
    Fountain fountain;
    std::memset(&fountain, 0xCC, sizeof fountain);
    InitFountain(&fountain, preset);
    return fountain;
}

TEST(InitFountain, HeadSaysWhatTheRecordIs) {
    const Fountain fountain = MakeFountain(FountainPreset::Plain);
    const unsigned char expected[] = {'Q', 'R', 'V', 'N', 'F', 'O', 'U', 'N', 1, 0,
                                      0,   4,   73,  2,   0,   0,   0,   0,   0, 0};
    EXPECT_EQ(std::memcmp(&fountain, expected, sizeof expected), 0);
    EXPECT_TRUE(HasFountainMagic(fountain));
}

TEST(InitFountain, PlainRunsFromBlackToWhiteWithoutMarkers) {
    const Fountain fountain = MakeFountain(FountainPreset::Plain);
    EXPECT_EQ(ColorWord{fountain.Start}, 0u);
    EXPECT_EQ(ColorWord{fountain.End}, 0xFFFFFFFFu);
    EXPECT_EQ(int{fountain.Count}, 0);
    EXPECT_EQ(int{fountain.Selected}, 0);
}

TEST(InitFountain, OneGreyHasItsMarkerInTheMiddle) {
    const Fountain fountain = MakeFountain(FountainPreset::OneGrey);
    EXPECT_EQ(int{fountain.Count}, 1);
    EXPECT_EQ(MarkerPosition(fountain.Markers[0]), 128);
    EXPECT_EQ(MarkerColor(fountain.Markers[0]), 0x808080u);
}

TEST(InitFountain, SevenColorsStandEvery32) {
    const Fountain fountain = MakeFountain(FountainPreset::SevenColors);
    EXPECT_EQ(int{fountain.Count}, 7);
    for (int i = 0; i < 7; ++i)
        EXPECT_EQ(MarkerPosition(fountain.Markers[i]), 32 * (i + 1));
    EXPECT_EQ(MarkerColor(fountain.Markers[0]), 0xFF0000u);  // blue
    EXPECT_EQ(MarkerColor(fountain.Markers[6]), 0xCC0099u);
    EXPECT_EQ(FountainMarker{fountain.Markers[7]}, 0u);
}

TEST(Fountain, FieldsStandAtTheirOffsets) {
    // The byte at 304 + 4 i is the position of marker i.
    Fountain fountain = MakeFountain(FountainPreset::SevenColors);
    fountain.Flags = 0x01020304;
    const auto* bytes = reinterpret_cast<const unsigned char*>(&fountain);
    EXPECT_EQ(bytes[16], 4);
    EXPECT_EQ(bytes[289], 7);
    EXPECT_EQ(bytes[297], 0xFF);
    EXPECT_EQ(bytes[304], 0x20);
    EXPECT_EQ(bytes[304 + 4 * 6], 0xE0);
}

TEST(FountainMarkerPixels, AreCutToWholeColumns) {
    Fountain fountain = MakeFountain(FountainPreset::Plain);
    fountain.Count = 2;
    fountain.Markers[0] = MakeMarker(1, 0);
    fountain.Markers[1] = MakeMarker(255, 0);
    std::int32_t positions[kFountainMarkers];
    FountainMarkerPixels(fountain, 100, positions);
    EXPECT_EQ(positions[0], 0);  // 100 / 255
    EXPECT_EQ(positions[1], 100);
    EXPECT_EQ(positions[2], 0);
}

TEST(FountainMarkerPixels, CountBeyondTheRecordReadsItsMarkersAlone) {
    Fountain fountain = MakeFountain(FountainPreset::Plain);
    fountain.Count = 1000;
    fountain.Markers[63] = MakeMarker(51, 0);
    std::int32_t positions[kFountainMarkers];
    FountainMarkerPixels(fountain, 10, positions);
    EXPECT_EQ(positions[63], 2);
    fountain.Count = -5;
    FountainMarkerPixels(fountain, 10, positions);
    EXPECT_EQ(positions[63], 0);
}

}  // namespace

}  // namespace tess::test
