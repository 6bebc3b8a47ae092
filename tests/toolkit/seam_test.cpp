#include "toolkit/seam.h"

#include <gtest/gtest.h>

#include "tests/support/image_bytes.h"

namespace tess::test {

namespace {

PictureSeams SeamsOf(int width, const std::vector<std::uint32_t>& levels) {
    std::vector<std::uint32_t> pixels;
    for (const std::uint32_t level : levels)
        pixels.push_back(level * 0x010101);
    const platform::OwnedBlock picture(ImageOf(width, pixels));
    const LockedImage image(picture.Get());
    return MeasureSeams(image);
}

TEST(Seams, AreTheStepsFromTheLastLineToTheFirst) {
    const PictureSeams seams = SeamsOf(4, {0, 10, 30, 60, 0, 10, 30, 60});
    EXPECT_EQ(seams.Columns.Seam, 60.0);
    EXPECT_EQ(seams.Columns.Mean, 20.0);
    EXPECT_EQ(seams.Columns.Largest, 20.0);  // the steps of 10 and 30 touch the ends
    EXPECT_EQ(seams.Rows.Seam, 0.0);
    EXPECT_FALSE(JoinsItself(seams));
}

TEST(Seams, AreMeansOverLinesAndChannels) {
    const platform::OwnedBlock picture(ImageOf(2, {0x000000, 0x0000FF, 0x000000, 0x000000}));
    const LockedImage image(picture.Get());
    EXPECT_EQ(MeasureSeams(image).Columns.Seam, 255.0 / 6);
}

TEST(Seams, AWaveOfTheWholeWidthJoins) {
    EXPECT_TRUE(JoinsItself(SeamsOf(8, {0, 10, 20, 30, 40, 30, 20, 10})));
}

TEST(Seams, ABorderOfItsOwnIsNoStepOfTheInside) {
    EXPECT_FALSE(JoinsItself(SeamsOf(8, {100, 101, 100, 101, 100, 101, 100, 0})));
}

TEST(Seams, OneColorJoinsAtAnySize) {
    EXPECT_TRUE(JoinsItself(SeamsOf(3, {7, 7, 7, 7, 7, 7})));
    EXPECT_TRUE(JoinsItself(SeamsOf(1, {7})));
}

}  // namespace

}  // namespace tess::test
