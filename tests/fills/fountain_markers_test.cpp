#include "fills/fountain_markers.h"

#include <gtest/gtest.h>
#include <vector>

namespace tess::test {

namespace {

constexpr platform::PixelSize kClient = kFountainButtonSize;

Fountain WithPositions(const std::vector<int>& positions) {
    Fountain fountain;
    InitFountain(&fountain, FountainPreset::Plain);
    for (const int position : positions)
        fountain.Markers[fountain.Count++] = MakeMarker(position, 0x111111);
    return fountain;
}

/// The position that is found from `position` on, -1 for none.
int Free(const std::vector<int>& taken, int position) {
    return FindFreeMarkerPosition(WithPositions(taken), &position) != 0 ? position : -1;
}

std::vector<int> Range(int first, int last) {
    std::vector<int> range;
    for (int i = first; i <= last; ++i)
        range.push_back(i);
    return range;
}

TEST(FountainGeometry, StripTrackAndHandlesStandWhereTheySay) {
    EXPECT_EQ(StripBox(kClient), (FountainBox{8, 16, 189, 46}));
    EXPECT_EQ(TrackBox(kClient), (FountainBox{8, 3, 189, 11}));
    EXPECT_EQ(LeftHandleBox(kClient), (FountainBox{3, 4, 13, 10}));
    EXPECT_EQ(RightHandleBox(kClient), (FountainBox{184, 4, 194, 10}));
    EXPECT_EQ(MarkerBox(50), (FountainBox{45, 4, 55, 10}));
    EXPECT_EQ(MarkerTriangle(50), (FountainTriangle{{45, 55, 50}, {4, 4, 9}}));
}

TEST(FountainGeometry, MarkersStandInTheColumnsOfTheStrip) {
    std::int32_t columns[kFountainMarkers];
    MarkerColumns(WithPositions({1, 128, 255}), kClient, columns);
    EXPECT_EQ(columns[0], 8);
    EXPECT_EQ(columns[1], 8 + 90);
    EXPECT_EQ(columns[2], 8 + 181);
}

TEST(FountainGeometry, HandleLiesOverAMarkerAndThatOverTheTrack) {
    const Fountain fountain = WithPositions({5, 100});
    EXPECT_EQ(HitFountain(fountain, kClient, 10, 6).Part, FountainPart::StartHandle);
    EXPECT_EQ(HitFountain(fountain, kClient, 14, 6).Part, FountainPart::Marker);
    EXPECT_EQ(HitFountain(fountain, kClient, 78, 6).Marker, 1);
    EXPECT_EQ(HitFountain(fountain, kClient, 78, 3).Part, FountainPart::Track);
    EXPECT_EQ(HitFountain(fountain, kClient, 78, 10).Part, FountainPart::Track);
    EXPECT_EQ(HitFountain(fountain, kClient, 78, 11).Part, FountainPart::None);
    EXPECT_EQ(HitFountain(fountain, kClient, 78, 16).Part, FountainPart::Strip);
    EXPECT_EQ(HitFountain(fountain, kClient, 189, 20).Part, FountainPart::None);
    EXPECT_EQ(HitFountain(fountain, kClient, 193, 9).Part, FountainPart::EndHandle);
}

TEST(FountainGeometry, OutlineIsHeldToTheStrip) {
    EXPECT_EQ(OutlineColumn(kClient, -30), 9);
    EXPECT_EQ(OutlineColumn(kClient, 8), 9);
    EXPECT_EQ(OutlineColumn(kClient, 100), 100);
    EXPECT_EQ(OutlineColumn(kClient, 500), 189);
}

TEST(FountainGeometry, DroppedAtTheStripsLeftEdgeIsPositionOne) {
    EXPECT_EQ(DropPosition(kClient, 8), 1);
    EXPECT_EQ(DropPosition(kClient, -300), 1);
    EXPECT_EQ(DropPosition(kClient, 98), 126);  // trunc(90 / 181 * 255)
    EXPECT_EQ(DropPosition(kClient, 189), 255);
    EXPECT_EQ(TrackPosition(kClient, 8), 0);
}

TEST(CompareMarkers, EmptySlotStandsBehindAllOthers) {
    EXPECT_LT(CompareMarkers(0x01FFFFFF, 0xFF000000), 0);
    EXPECT_GT(CompareMarkers(0xFF000000, 0x01FFFFFF), 0);
    EXPECT_EQ(CompareMarkers(0x20123456, 0x20654321), 0);
    EXPECT_GT(CompareMarkers(0, 0xFF000000), 0);
    EXPECT_LT(CompareMarkers(0xFF000000, 0), 0);
    EXPECT_EQ(CompareMarkers(0, 0), 0);
}

TEST(SortMarkers, EqualsKeepTheirOrder) {
    Fountain fountain = WithPositions({});
    const FountainMarker words[] = {0x80000001, 0x20000002, 0x80000003, 0, 0x20000004, 0x80000005};
    for (const FountainMarker word : words)
        fountain.Markers[fountain.Count++] = word;
    SortMarkers(&fountain, fountain.Count);
    const FountainMarker sorted[] = {0x20000002, 0x20000004, 0x80000001, 0x80000003, 0x80000005, 0};
    for (int i = 0; i < 6; ++i)
        EXPECT_EQ(FountainMarker{fountain.Markers[i]}, sorted[i]) << i;
}

TEST(RemoveMarker, LeavesAnEmptySlotAtTheEnd) {
    Fountain fountain = WithPositions({10, 20, 30});
    RemoveMarker(&fountain, 0);
    EXPECT_EQ(int{fountain.Count}, 2);
    EXPECT_EQ(MarkerPosition(fountain.Markers[0]), 20);
    EXPECT_EQ(MarkerPosition(fountain.Markers[1]), 30);
    EXPECT_EQ(FountainMarker{fountain.Markers[2]}, 0u);
}

TEST(RemoveMarker, LosesNoMarkerAtPositionZero) {
    Fountain fountain = WithPositions({10, 0});
    RemoveMarker(&fountain, 0);
    EXPECT_EQ(FountainMarker{fountain.Markers[0]}, 0x00111111u);
    EXPECT_EQ(FountainMarker{fountain.Markers[1]}, 0u);
}

TEST(FreeMarkerPosition, IsTheAskedOneWhereNoMarkerHoldsIt) {
    EXPECT_EQ(Free({}, 0), 0);
    EXPECT_EQ(Free({10, 30}, 20), 20);
}

TEST(FreeMarkerPosition, FromAHighOneTheSearchGoesDown) {
    EXPECT_EQ(Free({255}, 255), 254);
    EXPECT_EQ(Free(Range(201, 255), 240), 200);
    EXPECT_EQ(Free(Range(63, 100), 100), 62);
}

TEST(FreeMarkerPosition, BelowItTriesTheOneBefore) {
    EXPECT_EQ(Free({40}, 40), 39);
    EXPECT_EQ(Free({1}, 1), 0);
    EXPECT_EQ(Free({0}, 0), 1);
}

TEST(FreeMarkerPosition, SearchThatWouldStepToAndFroWithoutEndFindsNone) {
    EXPECT_EQ(Free({62, 63}, 63), -1);
    EXPECT_EQ(Free({62, 63}, 62), 61);
    EXPECT_EQ(Free({61, 62, 63}, 62), -1);
    EXPECT_EQ(Free({39, 40}, 40), -1);
    EXPECT_EQ(Free({0, 1}, 0), -1);
    EXPECT_EQ(Free({0, 1}, 1), -1);
}

TEST(FreeMarkerPosition, SixtyFourMarkersLeaveNone) {
    EXPECT_EQ(Free(Range(1, 64), 200), -1);
    EXPECT_EQ(Free(Range(1, 63), 200), 200);
}

}  // namespace

}  // namespace tess::test
