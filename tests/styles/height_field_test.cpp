#include "styles/height_field.h"

#include <gtest/gtest.h>

#include "pipeline/image_scaling.h"
#include "platform/memory.h"
#include "tests/support/image_bytes.h"

namespace tess::test {

namespace {

using PixelList = std::vector<std::uint32_t>;

PixelList Normalized(const PixelList& pixels) {
    const platform::OwnedBlock field(ImageOf(static_cast<int>(pixels.size()), pixels));
    EXPECT_TRUE(NormalizeHeights(field.Get()));
    return Pixels(field.Get());
}

TEST(NormalizeHeights, LowestBecomesZeroAndOthersAreStretchedByWholeHundredths) {
    // 25500 / 63 is 404, so 63 becomes 63 x 404 / 100 = 254.
    EXPECT_EQ(Normalized({10, 73, 11, 41}), (PixelList{0, 254, 4, 125}));
}

TEST(NormalizeHeights, OtherBytesAreCleared) {
    EXPECT_EQ(Normalized({0x123400, 0xFFFFFF}), (PixelList{0, 255}));
}

TEST(NormalizeHeights, UniformFieldBecomesZeroAndStaysSo) {
    EXPECT_EQ(Normalized({0, 0, 0}), (PixelList{0, 0, 0}));
    EXPECT_EQ(Normalized({77, 77}), (PixelList{0, 0}));
}

/// The field of twice the size, by the rules as they are told for source pixels.
ImageHandle MirroredByRules(ImageHandle tile) {
    const LockedImage source(tile);
    const int width = source->Width, height = source->Height, a = width / 2, b = height / 2;
    platform::OwnedBlock field(NewPackedDib(2 * width, 2 * height, nullptr, 24));
    {
        const LockedImage image(field.Get());
        for (int y = 0; y < height; ++y) {
            for (int x = 0; x < width; ++x) {
                const std::uint32_t pixel = GetDibPixel(source, x, y);
                const int other_x = x < a ? a - 1 - x : 2 * width - 1 - (x - a);
                const int other_y = y < b ? b - 1 - y : 2 * height - 1 - (y - b);
                for (const int to_x : {a + x, other_x}) {
                    for (const int to_y : {b + y, other_y})
                        SetDibPixel(image, to_x, to_y, pixel);
                }
            }
        }
    }
    return field.Release();
}

PixelList RandomPixels(int count) {
    PixelList pixels;
    std::uint32_t state = 1;
    for (int i = 0; i < count; ++i) {
        state = state * 1664525 + 1013904223;
        pixels.push_back(state >> 8);
    }
    return pixels;
}

TEST(MirrorTile, IsTheHalvedFieldOfMirrorImagesAtEvenAndOddSizes) {
    for (const auto& [width, height] : {std::pair{16, 16}, {17, 17}, {20, 9}}) {
        const platform::OwnedBlock tile(ImageOf(width, RandomPixels(width * height)));
        const platform::OwnedBlock field(MirroredByRules(tile.Get()));
        EXPECT_EQ(TakeImageBytes(MirrorTile(tile.Get())),
                  TakeImageBytes(ScaleImagePercent(field.Get(), 50, 50)))
            << width;
    }
}

TEST(MirrorTile, FailingScalerLeavesTheLargeField) {
    const platform::OwnedBlock tile(ImageOf(16, RandomPixels(256)));
    platform::FailAllocation(2);
    const platform::OwnedBlock mirrored(MirrorTile(tile.Get()));
    platform::FailAllocation(0);
    const platform::OwnedBlock field(MirroredByRules(tile.Get()));
    EXPECT_EQ(ImageBytes(mirrored.Get()), ImageBytes(field.Get()));
}

}  // namespace

}  // namespace tess::test
