#include "controls/bitmap_file.h"

#include <gtest/gtest.h>
#include <vector>

namespace tess::test {

namespace {

constexpr int kSide = 24;

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
    put(18, kSide);
    put(22, kSide);
    put(28, bits);
    for (int i = 0; i < kSide * kSide; ++i) {
        const bool is_top_left = i == kSide * (kSide - 1);
        for (const int byte : pixel)
            file.push_back(static_cast<std::byte>(is_top_left ? 0 : byte));
    }
    return file;
}

ColorWord PixelOf(const std::vector<std::byte>& file, int x, int y, ColorWord background) {
    BitmapFile bitmap;
    EXPECT_TRUE(OpenBitmapFile(file, &bitmap));
    return BlendedPixel(bitmap, x, y, background);
}

TEST(BitmapFile, BlendsEachTermByItselfWithTruncation) {
    // 100 x 128 / 255 = 50, 200 x 127 / 255 = 99; 255 x 128 / 255 = 128, 1 x 127 / 255 = 0.
    const auto file = FileOf({255, 0, 100, 128});
    EXPECT_EQ(PixelOf(file, 5, 5, MakeColor(200, 10, 1)), MakeColor(149, 4, 128));
}

TEST(BitmapFile, PictureOf24BitsCoversItsBackground) {
    EXPECT_EQ(PixelOf(FileOf({3, 2, 1}), 5, 5, MakeColor(200, 10, 1)), MakeColor(1, 2, 3));
}

TEST(BitmapFile, RowsCountFromTheTop) {
    const auto file = FileOf({9, 9, 9, 255});
    EXPECT_EQ(PixelOf(file, 0, 0, MakeColor(7, 7, 7)), MakeColor(7, 7, 7));
    EXPECT_EQ(PixelOf(file, 0, kSide - 1, 0), MakeColor(9, 9, 9));
}

TEST(BitmapFile, OutsideThePictureIsBackground) {
    EXPECT_EQ(PixelOf(FileOf({9, 9, 9}), kSide, 0, 5), 5u);
    EXPECT_EQ(PixelOf(FileOf({9, 9, 9}), 0, -1, 5), 5u);
}

TEST(BitmapFile, FileThatIsCutOffOrOfAnotherKindIsRefused) {
    BitmapFile bitmap;
    auto file = FileOf({1, 2, 3, 4});
    file.pop_back();
    EXPECT_FALSE(OpenBitmapFile(file, &bitmap));
    file.resize(53);
    EXPECT_FALSE(OpenBitmapFile(file, &bitmap));
    file = FileOf({1, 2, 3, 4});
    file[28] = std::byte{8};
    EXPECT_FALSE(OpenBitmapFile(file, &bitmap));
    file = FileOf({1, 2, 3, 4});
    file[25] = std::byte{0x80};  // a negative height: the top row would come first
    EXPECT_FALSE(OpenBitmapFile(file, &bitmap));
}

}  // namespace

}  // namespace tess::test
