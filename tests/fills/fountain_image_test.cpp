#include <gtest/gtest.h>

#include "fills/fountain.h"
#include "fills/gradient.h"
#include "tests/support/allocation_failures.h"
#include "tests/support/image_bytes.h"

namespace tess::test {

namespace {

std::vector<std::uint32_t> StripOf(const Fountain& fountain, int width, int height = 1) {
    const platform::OwnedBlock strip(RenderFountainImage(fountain, width, height));
    return Pixels(strip.Get());
}

std::vector<std::uint32_t> RunOf(ColorWord first, ColorWord second, int width) {
    const platform::OwnedBlock strip(DrawLinearGradient(first, second, width, 1, 90, nullptr));
    return Pixels(strip.Get());
}

Fountain Plain() {
    Fountain fountain;
    InitFountain(&fountain, FountainPreset::Plain);
    return fountain;
}

TEST(FountainImage, WithoutMarkersAndColorsIsBlackAtAnySize) {
    const Fountain fountain{};
    for (const int size : {1, 2, 100}) {
        for (const std::uint32_t pixel : StripOf(fountain, size, size))
            EXPECT_EQ(pixel, 0u);
    }
}

TEST(FountainImage, IsMadeOfRunsFromMarkerToMarker) {
    Fountain fountain = Plain();
    fountain.Count = 1;
    fountain.Markers[0] = MakeMarker(51, 0x0000FF);
    std::vector<std::uint32_t> expected = RunOf(0, 0x0000FF, 20);
    const std::vector<std::uint32_t> rest = RunOf(0x0000FF, 0xFFFFFF, 80);
    expected.insert(expected.end(), rest.begin(), rest.end());
    EXPECT_EQ(StripOf(fountain, 100), expected);
}

TEST(FountainImage, LoopedEndsInItsStartAndIgnoresItsEnd) {
    Fountain fountain = Plain();
    fountain.Count = 1;
    fountain.Markers[0] = MakeMarker(128, 0xFFFFFF);
    fountain.Flags = kFountainLooped;
    const auto looped = StripOf(fountain, 256);
    EXPECT_LT(RedOf(looped.front()), 8);
    EXPECT_LT(RedOf(looped.back()), 8);
    fountain.End = 0x123456;
    EXPECT_EQ(StripOf(fountain, 256), looped);
}

TEST(FountainImage, MarkerAtTheVeryEndLeavesNoLastRun) {
    Fountain fountain = Plain();
    fountain.Count = 1;
    fountain.Markers[0] = MakeMarker(255, 0x0000FF);
    EXPECT_EQ(StripOf(fountain, 100), RunOf(0, 0x0000FF, 100));
}

TEST(FountainImage, MarkersOnOneColumnMakeAHardStep) {
    Fountain fountain = Plain();
    fountain.Start = 0x000000;
    fountain.End = 0x0000FF;
    fountain.Count = 2;
    fountain.Markers[0] = MakeMarker(102, 0x000000);
    fountain.Markers[1] = MakeMarker(102, 0x0000FF);
    const auto strip = StripOf(fountain, 10);
    EXPECT_EQ(strip[3], 0x000000u);
    EXPECT_EQ(strip[4], 0x0000FFu);
}

TEST(FountainImage, MarkerOutOfOrderTakesTheNextRunBackToItself) {
    Fountain fountain = Plain();
    fountain.Count = 2;
    fountain.Markers[0] = MakeMarker(204, 0x0000FF);  // column 80
    fountain.Markers[1] = MakeMarker(51, 0x00FF00);   // column 20, behind it: no run of its own
    auto expected = RunOf(0, 0x0000FF, 80);
    expected.resize(20);
    const auto rest = RunOf(0x00FF00, 0xFFFFFF, 80);  // over what was drawn there
    expected.insert(expected.end(), rest.begin(), rest.end());
    EXPECT_EQ(StripOf(fountain, 100), expected);
}

TEST(FountainImage, MarkersOutOfOrderStayInsideThePicture) {
    Fountain fountain = Plain();
    fountain.Count = 100000;
    for (int i = 0; i < kFountainMarkers; ++i)
        fountain.Markers[i] = MakeMarker(i % 2 == 0 ? 255 : 3, 0x00FF00);
    EXPECT_EQ(StripOf(fountain, 50).size(), 50u);
}

TEST(FountainImage, ColorsStayTheSameDownAColumn) {
    Fountain fountain;
    InitFountain(&fountain, FountainPreset::SevenColors);
    const auto strip = StripOf(fountain, 256, 16);
    EXPECT_EQ(strip.size(), 256u * 16);
    int different = 0;
    for (std::size_t i = 256; i < strip.size(); ++i)
        different += strip[i] != strip[i % 256] ? 1 : 0;
    EXPECT_EQ(different, 0);
}

TEST(FountainImage, EveryFailingAllocationEndsInNull) {
    Fountain fountain;
    InitFountain(&fountain, FountainPreset::SevenColors);
    const std::size_t failures = FailEachAllocation([&fountain] {
        const platform::OwnedBlock image(RenderFountainImage(fountain, 64, 2));
        return static_cast<bool>(image);
    });
    EXPECT_GT(failures, 8u);
}

}  // namespace

}  // namespace tess::test
