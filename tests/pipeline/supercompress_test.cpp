#include "pipeline/supercompress.h"

#include <algorithm>
#include <cstring>
#include <gtest/gtest.h>
#include <random>

#include "tests/reference/plain_supercompress.h"
#include "tests/support/toy_frames.h"

namespace tess::test {
namespace {

/// A picture that is gone at the end of the test.
struct Held {
    platform::OwnedBlock block;
    LockedImage image;
    explicit Held(ImageHandle handle) : block(handle), image(handle) {}
    [[nodiscard]] bool Equals(const Held& other) const {
        const std::size_t size = platform::BlockSize(block.Get());
        return size == platform::BlockSize(other.block.Get()) &&
               std::memcmp(image.Get(), other.image.Get(), size) == 0;
    }
};

TEST(MarkUnchangedPixels, MarksEqualPixelsAndCopiesTheOthers) {
    const Held last(NewPicture(RowOf({1, 2, 3})));
    const Held frame(NewPicture(RowOf({1, 5, 3})));
    const Held mask(NewPackedDib(3, 1, nullptr, 1));
    MarkUnchangedPixels(last.image, frame.image, mask.image);
    EXPECT_EQ(DibRow(mask.image, 0)[0], 0xA0);
    EXPECT_EQ(GetDibPixel(last.image, 1, 0), 5U);
}

TEST(MarkUnchangedPixels, GivesThePlainVersionsBytes) {
    std::mt19937 random(1);
    const auto draw = [&](int below) {
        return static_cast<int>(random() % static_cast<unsigned>(below));
    };
    for (int run = 0; run < 300; ++run) {
        const auto picture = [&](int width, int height) {
            ToyFrame frame{width, height, {}, 0};
            for (int i = 0; i < width * height; ++i) {
                frame.pixels.push_back(static_cast<ColorWord>(draw(2)) * 0x10101U);
            }
            return frame;
        };
        const bool same_size = draw(3) != 0;
        const int width = draw(40);
        const int height = draw(20);
        const ToyFrame before = same_size ? picture(width, height) : picture(draw(40), draw(20));
        const Held frame(NewPicture(picture(width, height)));
        const Held last(NewPicture(before));
        const Held plain_last(NewPicture(before));
        const Held mask(NewPackedDib(width, height, nullptr, 1));
        const Held plain_mask(NewPackedDib(width, height, nullptr, 1));
        MarkUnchangedPixels(last.image, frame.image, mask.image);
        PlainMarkUnchangedPixels(plain_last.image, frame.image, plain_mask.image);
        ASSERT_TRUE(mask.Equals(plain_mask));
        ASSERT_TRUE(last.Equals(plain_last));
    }
}

class MakeUnchangedTransparentTest : public testing::TestWithParam<int> {};

TEST_P(MakeUnchangedTransparentTest, SetsMaskedPixelsAndTheEntry) {
    const Held image(NewPackedDib(10, 1, nullptr, GetParam()));
    const Held mask(NewPackedDib(10, 1, nullptr, 1));
    SetDibPixel(mask.image, 9, 0, 1);
    MakeUnchangedTransparent(image.image, mask.image, 1, 0x123456);
    EXPECT_EQ(GetDibPixel(image.image, 8, 0), 0U);
    EXPECT_EQ(GetDibPixel(image.image, 9, 0), 1U);
    const std::uint8_t* entry = DibColorTable(image.image.Get()) + 4;
    EXPECT_EQ(MakeColor(entry[2], entry[1], entry[0]), 0x123456U);
}

TEST_P(MakeUnchangedTransparentTest, NoIndexSetsTheHighestAndNoEntry) {
    const Held image(NewPackedDib(10, 1, nullptr, GetParam()));
    const Held mask(NewPackedDib(10, 1, nullptr, 1));
    SetDibPixel(mask.image, 0, 0, 1);
    MakeUnchangedTransparent(image.image, mask.image, -1, 0x123456);
    EXPECT_EQ(GetDibPixel(image.image, 0, 0), (1U << GetParam()) - 1);
    std::uint8_t palette[kPaletteBytes];
    ReadColorTable(image.image, palette);
    EXPECT_EQ(std::count(palette, palette + kPaletteBytes, 0), kPaletteBytes);
}

INSTANTIATE_TEST_SUITE_P(Depths, MakeUnchangedTransparentTest, testing::Values(1, 4, 8));

}  // namespace
}  // namespace tess::test
