#include "controls/arrow_strip.h"

#include <gtest/gtest.h>

#include "controls/direction_picker.h"
#include "platform/resources.h"

namespace tess::test {

namespace {

/// Which way a shape points: the half with the head has more dark pixels. Returns the
/// signs in x and y.
std::pair<int, int> PointingOf(const BitmapFile& strip, int index) {
    int right = 0, below = 0;
    for (int y = 0; y < kArrowPitch; ++y) {
        for (int x = 0; x < kArrowPitch; ++x) {
            const int place = index * kArrowPitch + x;
            if (RedOf(BlendedPixel(strip, place, y, 0xFFFFFF)) >= 128) continue;
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
        BitmapFile strip;
        ASSERT_TRUE(OpenBitmapFile(platform::FindData(layout->ArrowStrip), &strip));
        for (std::size_t i = 0; i < layout->Cells.size(); ++i) {
            const std::pair away{layout->Cells[i].Left / 25 - 1, layout->Cells[i].Top / 25 - 1};
            EXPECT_EQ(PointingOf(strip, static_cast<int>(i)), away) << tag << " " << i;
        }
    }
}

TEST(ArrowStrip, TwoWaysAreLeftThenRightAndAxesPointBothWays) {
    BitmapFile strip;
    ASSERT_TRUE(OpenBitmapFile(platform::FindData(7106), &strip));
    EXPECT_EQ(PointingOf(strip, 0), std::pair(-1, 0));
    EXPECT_EQ(PointingOf(strip, 1), std::pair(1, 0));
    ASSERT_TRUE(OpenBitmapFile(platform::FindData(7110), &strip));
    EXPECT_EQ(PointingOf(strip, 0), std::pair(0, 0));
    EXPECT_EQ(PointingOf(strip, 1), std::pair(0, 0));
}

TEST(ArrowStrip, EachPickerHasAPictureForEachCell) {
    for (const char* tag : {"SDWDIR", "SCRL4D", "SCRL2D", "SCRLHV"}) {
        const PickerLayout* layout = FindPickerLayout(tag);
        BitmapFile strip;
        ASSERT_TRUE(OpenBitmapFile(platform::FindData(layout->ArrowStrip), &strip));
        EXPECT_EQ(strip.Width, static_cast<int>(layout->Cells.size()) * kArrowPitch);
        EXPECT_EQ(strip.Height, kArrowPitch);
        EXPECT_EQ(strip.BitCount, 32);
    }
}

TEST(ArrowStrip, ShownPictureLeavesTheMarginOut) {
    BitmapFile strip;
    ASSERT_TRUE(OpenBitmapFile(platform::FindData(7105), &strip));
    const ArrowPicture picture = BlendArrow(strip, 2, MakeColor(212, 208, 200));
    const ColorWord color = BlendedPixel(strip, 2 * 24 + 2 + 7, 2 + 10, MakeColor(212, 208, 200));
    const std::uint8_t* bytes = picture.Bytes + (10 * kArrowSize + 7) * 4;
    EXPECT_EQ(MakeColor(bytes[2], bytes[1], bytes[0]), color);
}

}  // namespace

}  // namespace tess::test
