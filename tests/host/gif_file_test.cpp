#include "host/gif_file.h"

#include <filesystem>
#include <gtest/gtest.h>

#include "tests/host/sample_animations.h"
#include "tests/support/gif_reader.h"
#include "tests/support/scratch_folder.h"

namespace tess {
namespace {

using test::AddFrame;
using test::GifFile;
using test::StartAnimation;
using Indexes = std::vector<std::uint8_t>;

class GifFileTest : public ::testing::Test {
protected:
    GifFile Written() {
        const std::string path = folder_.File("animation.gif");
        EXPECT_EQ(WriteGifFile(animation_, path), FileResult::Written);
        std::string error;
        const auto gif = test::ReadGif(test::ReadFileBytes(path), &error);
        EXPECT_TRUE(gif.has_value()) << error;
        return gif.value_or(GifFile{});
    }

    test::ScratchFolder folder_;
    Animation animation_;
};

TEST_F(GifFileTest, FramesReadBackPixelByPixel) {
    StartAnimation(animation_, 3, 2, 3);
    AddFrame(animation_, 4, -1, {0, 1, 2, 3, 4, 5});
    AddFrame(animation_, 4, -1, {7, 6, 5, 4, 3, 2});
    const GifFile gif = Written();
    ASSERT_EQ(gif.frames.size(), 2u);
    EXPECT_EQ(gif.frames[0].indexes, (Indexes{0, 1, 2, 3, 4, 5}));
    EXPECT_EQ(gif.frames[1].indexes, (Indexes{7, 6, 5, 4, 3, 2}));
}

TEST_F(GifFileTest, ScreenHasThePaletteOfTheDepth) {
    StartAnimation(animation_, 3, 2, 3);
    AddFrame(animation_, 4, -1, {0});
    const GifFile gif = Written();
    EXPECT_EQ(gif.width, 3);
    EXPECT_EQ(gif.height, 2);
    EXPECT_EQ(gif.palette, Indexes(animation_.Palette, animation_.Palette + 24));
    EXPECT_TRUE(gif.loops_for_ever);
}

TEST_F(GifFileTest, EveryDepthReadsBack) {
    for (int depth = 1; depth <= 8; ++depth) {
        Animation animation;
        StartAnimation(animation, 2, 1, depth);
        const auto highest = static_cast<std::uint8_t>((1 << depth) - 1);
        AddFrame(animation, 4, -1, {highest, 0});
        const std::string path = folder_.File("depth.gif");
        ASSERT_EQ(WriteGifFile(animation, path), FileResult::Written);
        const auto gif = test::ReadGif(test::ReadFileBytes(path));
        ASSERT_TRUE(gif.has_value()) << depth;
        EXPECT_EQ(gif->depth, depth);
        EXPECT_EQ(gif->frames[0].indexes, (Indexes{highest, 0}));
        EXPECT_TRUE(gif->frames[0].own_table.empty()) << depth;
    }
}

TEST_F(GifFileTest, TransparentIndexSetsItsFlagOnlyWhereThereIsOne) {
    StartAnimation(animation_, 2, 1, 3);
    AddFrame(animation_, 4, -1, {0, 1});
    AddFrame(animation_, 4, 5, {5, 1});
    const GifFile gif = Written();
    EXPECT_EQ(gif.frames[0].control_packed, 4);  // do not dispose
    EXPECT_EQ(gif.frames[1].control_packed, 5);
    EXPECT_EQ(gif.frames[1].transparent_index, 5);
}

TEST_F(GifFileTest, HundredthsAreWrittenAsTheyAre) {
    StartAnimation(animation_, 1, 1, 1);
    AddFrame(animation_, 25, -1, {0});
    EXPECT_EQ(Written().frames[0].delay, 25);
}

TEST_F(GifFileTest, MillisecondsAreDividedByTenAndTheRestIsDropped) {
    StartAnimation(animation_, 1, 1, 1);
    animation_.Unit = DelayUnit::Milliseconds;
    AddFrame(animation_, 49, -1, {0});
    EXPECT_EQ(Written().frames[0].delay, 4);
}

TEST_F(GifFileTest, DelayBeyondTheFieldIsItsLargest) {
    StartAnimation(animation_, 1, 1, 1);
    AddFrame(animation_, 70000, -1, {0});
    EXPECT_EQ(Written().frames[0].delay, 65535);
}

TEST_F(GifFileTest, FrameWithOtherColorsGetsATableOfItsOwn) {
    StartAnimation(animation_, 2, 1, 3);
    AddFrame(animation_, 4, -1, {0, 1});
    AddFrame(animation_, 4, -1, {2, 3});
    test::SetTableEntry(animation_, 1, 3, 200, 100, 50);
    const GifFile gif = Written();
    EXPECT_TRUE(gif.frames[0].own_table.empty());
    ASSERT_EQ(gif.frames[1].own_table.size(), 48u);  // the picture has 4 bits
    EXPECT_EQ(gif.frames[1].own_table[9], 200);
    EXPECT_EQ(gif.frames[1].indexes, (Indexes{2, 3}));
}

TEST_F(GifFileTest, IndexBehindThePaletteIsKeptThroughAnOwnTable) {
    StartAnimation(animation_, 2, 1, 5);
    AddFrame(animation_, 4, -1, {255, 1});
    const GifFile gif = Written();
    EXPECT_EQ(gif.frames[0].own_table.size(), 768u);
    EXPECT_EQ(gif.frames[0].indexes, (Indexes{255, 1}));
}

TEST_F(GifFileTest, CommentIsCutIntoSubBlocks) {
    StartAnimation(animation_, 1, 1, 1);
    AddFrame(animation_, 4, -1, {0});
    animation_.HasComment = true;
    animation_.Comment = std::string(300, 'a') + "end";
    EXPECT_EQ(Written().comment, animation_.Comment);
}

TEST_F(GifFileTest, TrueColorFramesAreRefusedAndNothingIsLeft) {
    StartAnimation(animation_, 1, 1, 24);
    AddFrame(animation_, 4, -1, {0});
    EXPECT_EQ(WriteGifFile(animation_, folder_.File("a.gif")), FileResult::TrueColorInGif);
    EXPECT_TRUE(std::filesystem::is_empty(folder_.Path()));
}

TEST_F(GifFileTest, FolderThatIsNotThereIsTold) {
    StartAnimation(animation_, 1, 1, 1);
    AddFrame(animation_, 4, -1, {0});
    EXPECT_EQ(WriteGifFile(animation_, folder_.File("none/a.gif")), FileResult::CannotCreate);
}

}  // namespace
}  // namespace tess
