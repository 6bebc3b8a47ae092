#include "styles/quarter_turn.h"

#include <gtest/gtest.h>

#include "tests/support/image_bytes.h"

namespace tess::test {

namespace {

using PixelList = std::vector<std::uint32_t>;

TEST(QuarterTurn, ClockwiseTakesTheTopRowToTheRight) {
    const platform::OwnedBlock image(ImageOf(3, {1, 2, 3, 4, 5, 6}));
    const platform::OwnedBlock turned(RotateImageClockwise(image.Get()));
    EXPECT_EQ(Pixels(turned.Get()), (PixelList{4, 1, 5, 2, 6, 3}));
}

TEST(QuarterTurn, CounterClockwiseTakesTheTopRowToTheLeft) {
    const platform::OwnedBlock image(ImageOf(3, {1, 2, 3, 4, 5, 6}));
    const platform::OwnedBlock turned(RotateImageCounterClockwise(image.Get()));
    EXPECT_EQ(Pixels(turned.Get()), (PixelList{3, 6, 2, 5, 1, 4}));
}

TEST(QuarterTurn, BothWaysInTurnGiveTheSameBytesAtEveryDepth) {
    for (const int depth : {1, 4, 8, 24, 32}) {
        std::uint8_t palette[kPaletteBytes];
        for (int i = 0; i < kPaletteBytes; ++i)
            palette[i] = static_cast<std::uint8_t>(i * 7);
        const platform::OwnedBlock image(
            ImageOf(5, {1, 0, 0, 1, 1, 0, 0, 1, 0, 1}, depth, palette));
        const platform::OwnedBlock turned(RotateImageClockwise(image.Get()));
        EXPECT_EQ(TakeImageBytes(RotateImageCounterClockwise(turned.Get())),
                  ImageBytes(image.Get()))
            << depth;
    }
}

}  // namespace

}  // namespace tess::test
