#include "styles/wheel_mask.h"

#include <gtest/gtest.h>
#include <vector>

#include "platform/block_guards.h"

namespace tess::test {

namespace {

/// The grey levels of a wheel's mask, row by row.
std::vector<int> Levels(const WheelLook& look) {
    const platform::OwnedBlock block(RenderWheelMask(look));
    const LockedImage mask(block.Get());
    std::vector<int> levels;
    if (!mask) return levels;
    for (int y = 0; y < mask->Height; ++y) {
        for (int x = 0; x < mask->Width; ++x)
            levels.push_back(RedOf(GetDibPixel(mask, x, y)));
    }
    return levels;
}

TEST(WheelMask, IsASquareOfItsSize) {
    EXPECT_EQ(Levels({100, 37, 20, 0, 255}).size(), 37u * 37u);
}

TEST(WheelMask, LastSpokeLeadsTheBlackOneAndTurnsClockwise) {
    // Eight spokes as large as the tile: rows 12 to 17 at column 32 lie on the upper
    // one. Its grey is 0 at tick 0, and then that of the spoke before it.
    const auto upper = [](int tick) { return Levels({64, 64, 8, tick, 255})[14 * 64 + 32]; };
    EXPECT_EQ(upper(0), 0);
    EXPECT_EQ(upper(1), 7 * 255 / 8);
    EXPECT_EQ(upper(2), 6 * 255 / 8);
    EXPECT_EQ(upper(8), 0);
}

TEST(WheelMask, PeakScalesTheGreysWithTwoCuts) {
    // 7 * 255 / 8 = 223, and 223 * 100 / 255 = 87.
    EXPECT_EQ(Levels({64, 64, 8, 1, 100})[14 * 64 + 32], 87);
}

TEST(WheelMask, PeakZeroIsBlackAllOver) {
    for (const int level : Levels({64, 40, 12, 5, 0}))
        EXPECT_EQ(level, 0);
}

TEST(WheelMask, FourSpokesInASmallWheelAreThirtyOneCanvasPixelsThick) {
    // Tile four times the wheel: 31 * 4 / 4. Spoke 1 points right and crosses column
    // 52 of 64 with a grey of 63.
    const std::vector<int> levels = Levels({256, 64, 4, 0, 255});
    int sum = 0;
    for (std::size_t y = 0; y < 64; ++y)
        sum += levels[y * 64 + 52];
    EXPECT_NEAR(sum / 63.0, 31 / 4.0, 0.3);
}

TEST(WheelMask, SmallWheelsSpokesAreFourCanvasPixelsThickAtLeast) {
    // Sixty spokes: 2 * 4 * size / tile size, so 8, 4, and 2 raised to 4.
    EXPECT_NE(Levels({48, 48, 60, 3, 255}), Levels({96, 48, 60, 3, 255}));
    EXPECT_EQ(Levels({192, 48, 60, 3, 255}), Levels({96, 48, 60, 3, 255}));
}

TEST(WheelMask, TurnsThatCountAsTheSameHaveTheSameBytes) {
    int same = 0;
    for (const int spokes : {6, 8, 12, 20}) {
        for (int tick = 0; tick < spokes; ++tick) {
            for (const int turns : {1, 5, 30}) {
                const WheelLook look{64, 48, spokes, tick, 255};
                const int later_tick = tick + turns * spokes;
                if (!IsSameTurn(look, later_tick)) continue;
                EXPECT_EQ(Levels(look), Levels({64, 48, spokes, later_tick, 255}));
                ++same;
            }
        }
    }
    EXPECT_GT(same, 0);
}

TEST(WheelMask, TicksWithinATurnAreNotTheSame) {
    EXPECT_FALSE(IsSameTurn({64, 48, 20, 3, 255}, 4));
    EXPECT_TRUE(IsSameTurn({64, 48, 20, 3, 255}, 3));
}

}  // namespace

}  // namespace tess::test
