#include "host/seams.h"

#include <gtest/gtest.h>
#include <vector>

#include "tests/support/image_bytes.h"

namespace tess {
namespace {

using Frame = std::vector<std::uint8_t>;

/// A grey frame of the given values, row by row.
Frame Grey(std::initializer_list<int> values) {
    Frame frame;
    for (const int value : values)
        frame.insert(frame.end(), 3, static_cast<std::uint8_t>(value));
    return frame;
}

SeamFigures Measure(int width, int height, std::initializer_list<Frame> frames) {
    SeamMeter meter(width, height);
    EXPECT_TRUE(meter);
    for (const Frame& frame : frames)
        meter.AddFrame(frame.data());
    return meter.Figures();
}

TEST(Seams, ColumnsAreSteppedFromLeftToRightAndJoinedAround) {
    const JoinFigures columns = Measure(5, 1, {Grey({0, 10, 40, 50, 45})}).Columns;
    EXPECT_DOUBLE_EQ(columns.Join, 45);
    EXPECT_DOUBLE_EQ(columns.InsideMean, 20);  // (30 + 10) / 2
    EXPECT_DOUBLE_EQ(columns.InsideMost, 30);
}

TEST(Seams, RowsAreSteppedFromTopToBottomAndJoinedAround) {
    const JoinFigures rows = Measure(2, 3, {Grey({0, 0, 10, 30, 10, 70})}).Rows;
    EXPECT_DOUBLE_EQ(rows.Join, 40);        // (10 + 70) / 2
    EXPECT_DOUBLE_EQ(rows.InsideMean, 20);  // (20 + 20) / 2
    EXPECT_DOUBLE_EQ(rows.InsideMost, 20);
}

TEST(Seams, FramesAreSteppedInTimeAndTheLastIsJoinedToTheFirst) {
    const JoinFigures frames = Measure(1, 1, {Grey({0}), Grey({10}), Grey({30})}).Frames;
    EXPECT_DOUBLE_EQ(frames.Join, 30);
    EXPECT_DOUBLE_EQ(frames.InsideMean, 15);
    EXPECT_DOUBLE_EQ(frames.InsideMost, 20);
}

TEST(Seams, HighestStepInsideIsEachFramesOwn) {
    // The edge stands in another column in each frame.
    const JoinFigures columns =
        Measure(5, 1, {Grey({0, 0, 60, 60, 60}), Grey({0, 0, 0, 80, 80})}).Columns;
    EXPECT_DOUBLE_EQ(columns.InsideMost, 70);
    EXPECT_DOUBLE_EQ(columns.Join, 70);
}

TEST(Seams, BorderOfThePicturesOwnIsNoStepOfTheInside) {
    const JoinFigures columns = Measure(5, 1, {Grey({0, 100, 101, 100, 100})}).Columns;
    EXPECT_DOUBLE_EQ(columns.InsideMost, 1);
    EXPECT_DOUBLE_EQ(columns.InsideMean, 1);
    EXPECT_TRUE(HasSeam(columns));
    EXPECT_DOUBLE_EQ(Measure(3, 1, {Grey({0, 100, 100})}).Columns.InsideMost, 100);
}

TEST(Seams, PictureIsMeasuredAsItsPixelsAre) {
    SeamMeter meter(2, 2);
    ASSERT_TRUE(meter);
    const platform::OwnedBlock picture(ImageOf(2, {0x000000, 0x0000FF, 0x000000, 0x000000}));
    const LockedImage image(picture.Get());
    meter.AddPicture(image);
    EXPECT_DOUBLE_EQ(meter.Figures().Columns.Join, 255.0 / 6);
    EXPECT_DOUBLE_EQ(meter.Figures().Rows.Join, 255.0 / 6);
}

TEST(Seams, ChannelsCountAlike) {
    const JoinFigures columns = Measure(2, 1, {{0, 0, 0, 30, 60, 0}}).Columns;
    EXPECT_DOUBLE_EQ(columns.InsideMost, 30);
}

TEST(Seams, OneFrameOfOnePixelJoinsItself) {
    const SeamFigures figures = Measure(1, 1, {Grey({200})});
    EXPECT_DOUBLE_EQ(figures.Columns.Join, 0);
    EXPECT_DOUBLE_EQ(figures.Rows.InsideMean, 0);
    EXPECT_DOUBLE_EQ(figures.Frames.Join, 0);
    EXPECT_FALSE(HasSeam(figures.Frames));
}

TEST(Seams, JoinIsASeamWhenItIsMuchRougherThanTheRoughestStepInside) {
    EXPECT_FALSE(HasSeam({15, 5, 10}));
    EXPECT_TRUE(HasSeam({15.1, 5, 10}));
    EXPECT_FALSE(HasSeam({1.0, 0, 0}));  // one level is no seam in a flat picture
    EXPECT_TRUE(HasSeam({1.1, 0, 0}));
}

TEST(Seams, PeriodicPictureHasNoneAndACutOutOfItHas) {
    Frame wave, cut;
    for (int x = 0; x < 64; ++x) {
        const int phase = x % 64;
        const auto value = static_cast<std::uint8_t>(phase < 32 ? 4 * phase : 4 * (64 - phase));
        wave.insert(wave.end(), 3, value);
        if (x < 40) cut.insert(cut.end(), 3, value);
    }
    EXPECT_FALSE(HasSeam(Measure(64, 1, {wave}).Columns));
    EXPECT_TRUE(HasSeam(Measure(40, 1, {cut}).Columns));
}

}  // namespace
}  // namespace tess
