#include "host/frame_folder.h"

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <utility>

#include "host/bmp_file.h"
#include "tests/host/sample_animations.h"
#include "tests/support/gif_reader.h"
#include "tests/support/scratch_folder.h"

namespace tess {
namespace {

namespace fs = std::filesystem;
using test::AddFrame;
using test::StartAnimation;

std::string TextOf(const std::string& path) {
    std::ifstream file(path);
    return {std::istreambuf_iterator<char>(file), {}};
}

class FrameFolderTest : public ::testing::Test {
protected:
    FrameFolderTest() {
        StartAnimation(animation_, 2, 2, 3);
        AddFrame(animation_, 4, -1, {1, 2, 3, 4});
        AddFrame(animation_, 6, 5, {5, 2, 3, 4});
    }

    test::ScratchFolder scratch_;
    std::string place_ = scratch_.File("frames");
    Animation animation_;
};

TEST_F(FrameFolderTest, EachFrameIsItsBlockBehindAFileHeader) {
    ASSERT_EQ(WriteFrameFolder(animation_, place_), FileResult::Written);
    const auto bytes = test::ReadFileBytes(place_ + "/frame_00001.bmp");
    // 14 + 40 + 16 table entries of 4 + 2 rows of 4
    ASSERT_EQ(bytes.size(), 126u);
    EXPECT_EQ(bytes[0], 'B');
    EXPECT_EQ(bytes[1], 'M');
    EXPECT_EQ(bytes[2], 126);     // file size
    EXPECT_EQ(bytes[10], 118);    // where the pixels begin
    EXPECT_EQ(bytes[118], 0x34);  // the bottom row
    EXPECT_EQ(bytes[122], 0x52);
}

TEST_F(FrameFolderTest, DescriptionTellsWhatPicturesDoNot) {
    animation_.HasComment = true;
    animation_.Comment = "two \"frames\"";
    ASSERT_EQ(WriteFrameFolder(animation_, place_), FileResult::Written);
    const std::string text = TextOf(place_ + "/animation.json");
    EXPECT_NE(text.find("\"width\": 2,\n  \"height\": 2,\n  \"depth\": 3,"), std::string::npos);
    EXPECT_NE(text.find("\"comment\": \"two \\\"frames\\\"\""), std::string::npos);
    EXPECT_NE(text.find("\"#0A141E\""), std::string::npos);  // entry 1 of the palette
    EXPECT_NE(text.find("\"delay\": 6,\n      \"transparent_index\": 5"), std::string::npos);
}

TEST_F(FrameFolderTest, NoCommentIsNull) {
    ASSERT_EQ(WriteFrameFolder(animation_, place_), FileResult::Written);
    EXPECT_NE(TextOf(place_ + "/animation.json").find("\"comment\": null"), std::string::npos);
}

TEST_F(FrameFolderTest, TrailingSlashMeansTheSameFolder) {
    ASSERT_EQ(WriteFrameFolder(animation_, place_ + "/"), FileResult::Written);
    EXPECT_TRUE(fs::exists(place_ + "/frame_00000.bmp"));
}

TEST_F(FrameFolderTest, OlderAnimationIsReplacedWhole) {
    ASSERT_EQ(WriteFrameFolder(animation_, place_), FileResult::Written);
    Animation shorter;
    StartAnimation(shorter, 1, 1, 1);
    AddFrame(shorter, 4, -1, {1});
    ASSERT_EQ(WriteFrameFolder(shorter, place_), FileResult::Written);
    EXPECT_FALSE(fs::exists(place_ + "/frame_00001.bmp"));
    EXPECT_EQ(std::distance(fs::directory_iterator(scratch_.Path()), {}), 1);
}

TEST_F(FrameFolderTest, FolderWithOtherFilesIsLeftAsItIs) {
    fs::create_directory(place_);
    std::ofstream(place_ + "/letter.txt") << "keep me";
    EXPECT_EQ(WriteFrameFolder(animation_, place_), FileResult::ForeignFolder);
    EXPECT_EQ(TextOf(place_ + "/letter.txt"), "keep me");
    EXPECT_EQ(std::distance(fs::directory_iterator(scratch_.Path()), {}), 1);
}

TEST_F(FrameFolderTest, TryFindsWhatWritingWouldFail) {
    EXPECT_EQ(TryFrameFolder(place_), FileResult::Written);
    EXPECT_EQ(TryFrameFolder(scratch_.File("none/none/frames/")), FileResult::Written);
    EXPECT_TRUE(fs::is_empty(scratch_.Path()));
    ASSERT_EQ(WriteFrameFolder(animation_, place_), FileResult::Written);
    EXPECT_EQ(TryFrameFolder(place_), FileResult::Written);
    std::ofstream(place_ + "/letter.txt") << "keep me";
    const std::string file = place_ + "/letter.txt";
    for (const auto& [path, result] : {std::pair{place_, FileResult::ForeignFolder},
                                       {file, FileResult::NotAFolder},
                                       {file + "/frames", FileResult::CannotCreate}}) {
        EXPECT_EQ(TryFrameFolder(path), result) << path;
        EXPECT_EQ(WriteFrameFolder(animation_, path), result) << path;
    }
}

TEST_F(FrameFolderTest, DotBehindTheNameMeansTheSameFolder) {
    const std::string path = scratch_.File("none/frames/.");
    ASSERT_EQ(TryFrameFolder(path), FileResult::Written);
    ASSERT_EQ(WriteFrameFolder(animation_, path), FileResult::Written);
    EXPECT_TRUE(fs::exists(scratch_.File("none/frames/animation.json")));
    EXPECT_EQ(std::distance(fs::directory_iterator(scratch_.File("none")), {}), 1);
}

TEST_F(FrameFolderTest, FolderThatTheProgramIsInIsNotReplaced) {
    const fs::path before = fs::current_path();
    fs::create_directory(place_);
    fs::current_path(place_);
    for (const std::string& path : {std::string("."), place_}) {
        EXPECT_EQ(TryFrameFolder(path), FileResult::FolderInUse);
        EXPECT_EQ(WriteFrameFolder(animation_, path), FileResult::FolderInUse);
    }
    fs::current_path(before);
    EXPECT_TRUE(fs::is_empty(place_));
}

TEST_F(FrameFolderTest, FolderThatCannotBeMadeIsTold) {
    std::ofstream(scratch_.File("file")) << "no folder";
    EXPECT_EQ(WriteFrameFolder(animation_, scratch_.File("file/frames")), FileResult::CannotCreate);
}

TEST_F(FrameFolderTest, FoldersAboveItAreMade) {
    ASSERT_EQ(WriteFrameFolder(animation_, scratch_.File("none/none/frames/")),
              FileResult::Written);
    EXPECT_TRUE(fs::exists(scratch_.File("none/none/frames/animation.json")));
}

TEST_F(FrameFolderTest, LockFailureLeavesNothing) {
    FrameListFree(&animation_.Frames);
    animation_.Frames.Count = 1;  // of records that cannot be locked
    EXPECT_NE(WriteFrameFolder(animation_, place_), FileResult::Written);
    EXPECT_TRUE(fs::is_empty(scratch_.Path()));
    animation_.Frames.Count = 0;
}

}  // namespace
}  // namespace tess
