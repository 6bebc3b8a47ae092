#include <gtest/gtest.h>
#include <vector>

#include "fills/gradient.h"
#include "tests/support/image_bytes.h"

namespace tess::test {

namespace {

constexpr ColorWord kStart = 0x7F000000, kEnd = 0x7F0000FF;  // whole words are kept at the ends

std::vector<ColorWord> RampOf(const Gradient& gradient, int count) {
    const platform::OwnedBlock block(BuildGradientRamp(gradient, count));
    const LockedRamp ramp(block.Get());
    if (!ramp) return {};
    EXPECT_EQ(ramp->Count, static_cast<std::uint32_t>(count));
    return {ramp->Colors(), ramp->Colors() + ramp->Count};
}

Gradient TwoColors(int edge_pad, int midpoint) {
    Gradient gradient{};
    gradient.StartColor = kStart;
    gradient.EndColor = kEnd;
    gradient.EdgePad = edge_pad;
    gradient.Midpoint = midpoint;
    gradient.TwoColor = 1;
    return gradient;
}

std::vector<std::uint32_t> StripOf(const Fountain& fountain, int width) {
    const platform::OwnedBlock strip(RenderFountainImage(fountain, width, 1));
    return Pixels(strip.Get());
}

TEST(GradientRamp, EvenMidpointMixesStepByStep) {
    const auto ramp = RampOf(TwoColors(0, 50), 5);
    // Fifths of 255, with the ends as they are.
    EXPECT_EQ(ramp, (std::vector<ColorWord>{kStart, 51, 102, 153, kEnd}));
}

TEST(GradientRamp, EdgePad45Of256Leaves26Colors) {
    const auto ramp = RampOf(TwoColors(45, 50), 256);
    for (std::size_t i = 0; i < 115; ++i) {
        EXPECT_EQ(ramp[i], kStart);
        EXPECT_EQ(ramp[255 - i], kEnd);
    }
    EXPECT_EQ(ramp[115], 0u);  // mixed, so without its top byte
    EXPECT_EQ(ramp[116], static_cast<ColorWord>(255 / 26));
    EXPECT_EQ(ramp[140], static_cast<ColorWord>(255 * 25 / 26));
}

TEST(GradientRamp, ShiftedMidpointLosesTheRightPad) {
    const auto even = RampOf(TwoColors(45, 50), 256);
    const auto shifted = RampOf(TwoColors(45, 51), 256);
    EXPECT_EQ(even[200], kEnd);
    EXPECT_LT(shifted[200], 0xFFu);
    EXPECT_EQ(shifted.front(), kStart);
    EXPECT_EQ(shifted.back(), kEnd);
}

TEST(GradientRamp, MidpointHasTheEvenMix) {
    const auto ramp = RampOf(TwoColors(0, 25), 256);
    EXPECT_NEAR(static_cast<int>(ramp[63]), 127, 4);
    EXPECT_NEAR(static_cast<int>(ramp[160]), 127 + 128 / 2, 4);
}

TEST(GradientRamp, EvenMixOfAShiftedMidpointStandsWithoutTheLeftPad) {
    // The pad is 114 of 255 positions and the even mix stands at trunc(27 * 0.51) = 13, not
    // 114 further on: the run from it to the end begins there, over the left pad.
    Fountain expected;
    InitFountain(&expected, FountainPreset::Plain);
    expected.Start = kStart;
    expected.End = kEnd;
    expected.Count = 2;
    expected.Markers[0] = MakeMarker(114, kStart);
    expected.Markers[1] = MakeMarker(13, 127);
    auto strip = StripOf(expected, 255);
    const auto ramp = RampOf(TwoColors(45, 51), 255);
    EXPECT_EQ(ramp[12], 0u);
    EXPECT_NEAR(static_cast<int>(ramp[13]), 127, 2);
    strip.front() = kStart;
    strip.back() = kEnd;
    EXPECT_EQ(ramp, strip);
}

TEST(GradientRamp, ColorsInsideAShiftedRampHaveNoTopByte) {
    const auto ramp = RampOf(TwoColors(20, 30), 100);
    for (std::size_t i = 1; i + 1 < ramp.size(); ++i)
        EXPECT_LE(ramp[i], 0xFFu) << i;
}

TEST(GradientRamp, FountainRampIsItsStripAndKeepsItsEnds) {
    Gradient gradient = TwoColors(0, 50);
    gradient.TwoColor = 0;
    InitFountain(&gradient.Ramp, FountainPreset::SevenColors);
    EXPECT_EQ(RampOf(gradient, 100), StripOf(gradient.Ramp, 100));
}

TEST(GradientRamp, FountainRampLiesBetweenThePads) {
    Gradient gradient = TwoColors(10, 50);
    gradient.TwoColor = 0;
    InitFountain(&gradient.Ramp, FountainPreset::SevenColors);
    const auto ramp = RampOf(gradient, 100);
    const auto strip = StripOf(gradient.Ramp, 80);
    EXPECT_EQ(ramp[9], kStart);
    EXPECT_EQ(ramp[10], strip[0]);
    EXPECT_EQ(ramp[89], strip[79]);
    EXPECT_EQ(ramp[90], kEnd);
}

TEST(GradientRamp, OfNoColorsIsEmptyAndNoFailure) {
    Gradient gradient = TwoColors(0, 50);
    for (const int two_colors : {0, 1}) {
        gradient.TwoColor = two_colors;
        const platform::OwnedBlock ramp(BuildGradientRamp(gradient, 0));
        EXPECT_TRUE(static_cast<bool>(ramp));
    }
}

}  // namespace

}  // namespace tess::test
