#include "pipeline/pixel_rows.h"

#include <gtest/gtest.h>
#include <vector>

#include "tests/support/image_bytes.h"
#include "tests/support/sample_pictures.h"

namespace tess {
namespace {

using Bytes = std::vector<std::uint8_t>;

TEST(PixelRows, IndexesAreReadAsPixelsAre) {
    for (const int depth : {1, 4, 8}) {
        const platform::OwnedBlock handle(MakeIndexedPicture(13, 3, depth, 7));
        const LockedImage image(handle.Get());
        Bytes row(13);
        for (int y = 0; y < 3; ++y) {
            ReadIndexRow(image, y, row.data());
            for (int x = 0; x < 13; ++x) {
                EXPECT_EQ(row[static_cast<std::size_t>(x)], GetDibPixel(image, x, y));
            }
        }
    }
}

TEST(PixelRows, IndexesAreWrittenAsPixelsAre) {
    const Bytes row = {0, 255, 17, 128, 3, 94, 200, 1, 254, 33, 12};
    for (const int depth : {1, 4, 8}) {
        for (int width = 1; width <= 11; ++width) {
            const platform::OwnedBlock by_row(NewPackedDib(width, 2, nullptr, depth));
            const platform::OwnedBlock by_pixel(NewPackedDib(width, 2, nullptr, depth));
            WriteIndexRow(LockedImage(by_row.Get()), 1, row.data());
            for (int x = 0; x < width; ++x) {
                SetDibPixel(LockedImage(by_pixel.Get()), x, 1, row[static_cast<std::size_t>(x)]);
            }
            EXPECT_EQ(ImageBytes(by_row.Get()), ImageBytes(by_pixel.Get()))
                << depth << ", " << width;
        }
    }
}

TEST(PixelRows, ColorsAreRedGreenBlue) {
    Bytes row(6);
    const platform::OwnedBlock image(ImageOf(2, {0x030201, 0x060504}));
    ReadColorRow(LockedImage(image.Get()), 0, nullptr, row.data());
    EXPECT_EQ(row, (Bytes{1, 2, 3, 4, 5, 6}));
    const platform::OwnedBlock with_alpha(ImageOf(2, {0xFF030201, 0xEE060504}, 32));
    ReadColorRow(LockedImage(with_alpha.Get()), 0, nullptr, row.data());
    EXPECT_EQ(row, (Bytes{1, 2, 3, 4, 5, 6}));
}

TEST(PixelRows, ColorsOfIndexesComeFromThePalette) {
    const std::uint8_t palette[] = {1, 2, 3, 4, 5, 6};
    Bytes row(6);
    const platform::OwnedBlock image(ImageOf(2, {1, 0}, 1, palette));
    ReadColorRow(LockedImage(image.Get()), 0, palette, row.data());
    EXPECT_EQ(row, (Bytes{4, 5, 6, 1, 2, 3}));
}

TEST(PixelRows, OneColorRowsAreTold) {
    const std::uint8_t row[] = {1, 2, 3, 1, 2, 3, 1, 2, 4};
    EXPECT_TRUE(IsOneColorRow(row, 1));
    EXPECT_TRUE(IsOneColorRow(row, 2));
    EXPECT_FALSE(IsOneColorRow(row, 3));
    EXPECT_FALSE(IsOneColorRow(row, 0));
}

}  // namespace
}  // namespace tess
