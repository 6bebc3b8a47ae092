#include "controls/arrow_strip.h"

#include <gtest/gtest.h>
#include <vector>

#include "controls/direction_picker.h"
#include "platform/resources.h"

namespace tess::test {

namespace {

/// A bitmap file of one picture's width whose pixels are all `pixel` (blue, green,
/// red, and alpha at 32 bits) but for the top left one, which is zero.
std::vector<std::byte> FileOf(const std::vector<int>& pixel) {
    const int bits = static_cast<int>(pixel.size()) * 8;
    std::vector<std::byte> file(54);
    const auto put = [&file](std::size_t at, int value) {
        file[at] = static_cast<std::byte>(value);
    };
    put(0, 'B');
    put(1, 'M');
    put(10, 54);
    put(14, 40);
    put(18, kArrowPitch);
    put(22, kArrowPitch);
    put(28, bits);
    for (int i = 0; i < kArrowPitch * kArrowPitch; ++i) {
        const bool is_top_left = i == kArrowPitch * (kArrowPitch - 1);
        for (const int byte : pixel)
            file.push_back(static_cast<std::byte>(is_top_left ? 0 : byte));
    }
    return file;
}

ColorWord PixelOf(const std::vector<std::byte>& file, int x, int y, ColorWord background) {
    ArrowStrip strip;
    EXPECT_TRUE(OpenArrowStrip(file, &strip));
    return BlendedArrowPixel(strip, x, y, background);
}

TEST(ArrowStrip, BlendsEachTermByItselfWithTruncation) {
    // 100 x 128 / 255 = 50, 200 x 127 / 255 = 99; 255 x 128 / 255 = 128, 1 x 127 / 255 = 0.
    const auto file = FileOf({255, 0, 100, 128});
    EXPECT_EQ(PixelOf(file, 5, 5, MakeColor(200, 10, 1)), MakeColor(149, 4, 128));
}

TEST(ArrowStrip, PictureOf24BitsCoversItsBackground) {
    EXPECT_EQ(PixelOf(FileOf({3, 2, 1}), 5, 5, MakeColor(200, 10, 1)), MakeColor(1, 2, 3));
}

TEST(ArrowStrip, RowsCountFromTheTop) {
    const auto file = FileOf({9, 9, 9, 255});
    EXPECT_EQ(PixelOf(file, 0, 0, MakeColor(7, 7, 7)), MakeColor(7, 7, 7));
    EXPECT_EQ(PixelOf(file, 0, kArrowPitch - 1, 0), MakeColor(9, 9, 9));
}

TEST(ArrowStrip, OutsideTheStripIsBackground) {
    EXPECT_EQ(PixelOf(FileOf({9, 9, 9}), kArrowPitch, 0, 5), 5u);
    EXPECT_EQ(PixelOf(FileOf({9, 9, 9}), 0, -1, 5), 5u);
}

TEST(ArrowStrip, FileThatIsCutOffOrOfAnotherKindIsRefused) {
    ArrowStrip strip;
    auto file = FileOf({1, 2, 3, 4});
    file.pop_back();
    EXPECT_FALSE(OpenArrowStrip(file, &strip));
    file.resize(53);
    EXPECT_FALSE(OpenArrowStrip(file, &strip));
    file = FileOf({1, 2, 3, 4});
    file[28] = std::byte{8};
    EXPECT_FALSE(OpenArrowStrip(file, &strip));
    file = FileOf({1, 2, 3, 4});
    file[25] = std::byte{0x80};  // a negative height: the top row would come first
    EXPECT_FALSE(OpenArrowStrip(file, &strip));
}

/// Which way a shape points: the half with the head has more dark pixels. Returns the
/// signs in x and y.
std::pair<int, int> PointingOf(const ArrowStrip& strip, int index) {
    int right = 0, below = 0;
    for (int y = 0; y < kArrowPitch; ++y) {
        for (int x = 0; x < kArrowPitch; ++x) {
            const int place = index * kArrowPitch + x;
            if (RedOf(BlendedArrowPixel(strip, place, y, 0xFFFFFF)) >= 128) continue;
            right += x < kArrowPitch / 2 ? -1 : 1;
            below += y < kArrowPitch / 2 ? -1 : 1;
        }
    }
    const auto sign = [](int sum) { return sum > 0 ? 1 : sum < 0 ? -1 : 0; };
    return {sign(right), sign(below)};
}

TEST(ArrowStrip, ArrowsOfAGridPointAwayFromItsMiddle) {
    for (const char* tag : {"SDWDIR", "SCRL4D"}) {
        const PickerLayout* layout = FindPickerLayout(tag);
        ArrowStrip strip;
        ASSERT_TRUE(OpenArrowStrip(platform::FindData(layout->ArrowStrip), &strip));
        for (std::size_t i = 0; i < layout->Cells.size(); ++i) {
            const std::pair away{layout->Cells[i].Left / 25 - 1, layout->Cells[i].Top / 25 - 1};
            EXPECT_EQ(PointingOf(strip, static_cast<int>(i)), away) << tag << " " << i;
        }
    }
}

TEST(ArrowStrip, TwoWaysAreLeftThenRightAndAxesPointBothWays) {
    ArrowStrip strip;
    ASSERT_TRUE(OpenArrowStrip(platform::FindData(7106), &strip));
    EXPECT_EQ(PointingOf(strip, 0), std::pair(-1, 0));
    EXPECT_EQ(PointingOf(strip, 1), std::pair(1, 0));
    ASSERT_TRUE(OpenArrowStrip(platform::FindData(7110), &strip));
    EXPECT_EQ(PointingOf(strip, 0), std::pair(0, 0));
    EXPECT_EQ(PointingOf(strip, 1), std::pair(0, 0));
}

TEST(ArrowStrip, EachPickerHasAPictureForEachCell) {
    for (const char* tag : {"SDWDIR", "SCRL4D", "SCRL2D", "SCRLHV"}) {
        const PickerLayout* layout = FindPickerLayout(tag);
        ArrowStrip strip;
        ASSERT_TRUE(OpenArrowStrip(platform::FindData(layout->ArrowStrip), &strip));
        EXPECT_EQ(strip.Width, static_cast<int>(layout->Cells.size()) * kArrowPitch);
        EXPECT_EQ(strip.Height, kArrowPitch);
        EXPECT_EQ(strip.BitCount, 32);
    }
}

TEST(ArrowStrip, ShownPictureLeavesTheMarginOut) {
    ArrowStrip strip;
    ASSERT_TRUE(OpenArrowStrip(platform::FindData(7105), &strip));
    const ArrowPicture picture = BlendArrow(strip, 2, MakeColor(212, 208, 200));
    const ColorWord color =
        BlendedArrowPixel(strip, 2 * 24 + 2 + 7, 2 + 10, MakeColor(212, 208, 200));
    const std::uint8_t* bytes = picture.Bytes + (10 * kArrowSize + 7) * 4;
    EXPECT_EQ(MakeColor(bytes[2], bytes[1], bytes[0]), color);
}

}  // namespace

}  // namespace tess::test
