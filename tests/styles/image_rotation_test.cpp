#include "styles/image_rotation.h"

#include <gtest/gtest.h>

#include "tests/support/allocation_failures.h"
#include "tests/support/image_bytes.h"

namespace tess {

namespace {

constexpr std::uint32_t kGrey = 0x808080;

/// The rotated picture's pixels, row by row.
std::vector<std::uint32_t> Rotated(ImageHandle image, int width, int height) {
    const platform::OwnedBlock source(image);
    const platform::OwnedBlock result(RotateImage45(image, width, height));
    return Pixels(result.Get());
}

TEST(ImageRotation, CornersOutsideTheSourceAreGrey) {
    const auto pixels = Rotated(ImageOf(8, std::vector<std::uint32_t>(64, 0x102030)), 12, 12);
    ASSERT_EQ(pixels.size(), 144u);
    for (const std::size_t corner : {0u, 11u, 132u, 143u})
        EXPECT_EQ(pixels[corner], kGrey);
    EXPECT_NEAR(RedOf(pixels[6 * 12 + 6]), 0x30, 1);  // the weights' sum may fall short of 1
}

TEST(ImageRotation, CentersComeToLieOnEachOther) {
    std::vector<std::uint32_t> source(64, 0);
    source[4 * 8 + 4] = 0xFFFFFF;
    const auto pixels = Rotated(ImageOf(8, source), 10, 6);
    EXPECT_EQ(pixels[3 * 10 + 5], 0xFFFFFFu);
}

TEST(ImageRotation, TurnsAnticlockwiseAsSeen) {
    // What is to the right of the centre comes from below and to the right of it.
    std::vector<std::uint32_t> source(81, 0);
    source[6 * 9 + 6] = 0xFFFFFF;
    const auto pixels = Rotated(ImageOf(9, source), 9, 9);
    EXPECT_GT(RedOf(pixels[4 * 9 + 7]), 180);
    EXPECT_LT(RedOf(pixels[7 * 9 + 4]), 60);
}

TEST(ImageRotation, CoordinatesJustAboveTheSourceCountAsInside) {
    // Pixel (0, 2) of four by four: u = -2, v = 0, so both source coordinates are
    // 1 - 1.4142. They are cut to 0, with weights 1.4142 and -0.4142:
    // 100 x 2 - (20 + 30) x 1.4142 x 0.4142 + 40 x 0.1716 = 177.57.
    const auto pixels = Rotated(ImageOf(2, {100, 20, 30, 40}, 24), 4, 4);
    EXPECT_EQ(RedOf(pixels[8]), 177);
}

TEST(ImageRotation, ChannelOutOfRangeKeepsItsLowBits) {
    // The same place: 200 x 2 - 20 x 1.4142 x 0.4142 = 388.28, and 10 x -0.5858.
    const auto pixels = Rotated(ImageOf(2, {200, 20, 0, 0}, 24), 4, 4);
    EXPECT_EQ(RedOf(pixels[8]), 388 - 256);
    const auto negative = Rotated(ImageOf(2, {0, 10, 0, 0}, 24), 4, 4);
    EXPECT_EQ(RedOf(negative[8]), 256 - 5);
}

TEST(ImageRotation, IndexesAreWeighedAsLevels) {
    const auto colors = Rotated(ImageOf(2, {100, 20, 30, 40}, 24), 4, 4);
    const auto indexes = Rotated(ImageOf(2, {100, 20, 30, 40}, 8), 4, 4);
    ASSERT_EQ(indexes.size(), 16u);
    for (std::size_t i = 0; i < 16; ++i)
        EXPECT_EQ(indexes[i], RedOf(colors[i])) << i;
}

TEST(ImageRotation, EveryFailingAllocationEndsCleanly) {
    const platform::OwnedBlock source(ImageOf(2, {1, 2, 3, 4}));
    const std::size_t allocations = FailEachAllocation([&] {
        const platform::OwnedBlock result(RotateImage45(source.Get(), 3, 3));
        return static_cast<bool>(result);
    });
    EXPECT_EQ(allocations, 1u);
}

}  // namespace

}  // namespace tess
