#include "platform/files.h"

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <gtest/gtest.h>
#include <string>

#include "platform/file_calls.h"
#include "platform/file_system.h"
#include "tests/support/scratch_folder.h"

namespace {

namespace fs = std::filesystem;

class Files : public testing::Test {
protected:
    void TearDown() override {
        platform::SetUserFolder("");
        platform::SetPluginFolder("");
    }

    std::string PathOf(const char* name) const { return (folder_ / name).string(); }
    void Write(const char* name, const char* text) const {
        std::FILE* file = platform::OpenFile(PathOf(name), "wb");
        ASSERT_NE(file, nullptr);
        std::fputs(text, file);
        std::fclose(file);
    }
    std::string Read(const char* name) const {
        std::FILE* file = platform::OpenFile(PathOf(name), "rb");
        if (file == nullptr) return "(none)";
        char bytes[100];
        const std::size_t count = std::fread(bytes, 1, sizeof bytes, file);
        std::fclose(file);
        return {bytes, count};
    }
    std::ptrdiff_t FileCount() const {
        return std::distance(fs::directory_iterator(folder_), fs::directory_iterator());
    }
    /// Joins steps as the system does.
    static std::string Joined(std::initializer_list<std::string> steps) {
        std::string path;
        for (const std::string& step : steps) {
            path += path.empty() ? step : platform::kPathSeparator + step;
        }
        return path;
    }

    const tess::test::ScratchFolder scratch_;
    const fs::path folder_ = scratch_.Path();
};

TEST_F(Files, UserFileIsInTheMakersFolder) {
    platform::SetUserFolder("base");
    EXPECT_EQ(platform::UserFile("vorbelx1.ini"),
              Joined({"base", "Quorvenstadtholme", "vorbelx1.ini"}));
}

TEST_F(Files, PluginFileIsInThePluginsFolderInsideIt) {
    platform::SetUserFolder("base");
    EXPECT_EQ(platform::PluginFile("preview.gif"),
              Joined({"base", "Quorvenstadtholme", "Tessellomatics 1", "preview.gif"}));
}

TEST_F(Files, SeparatorIsAddedOnlyWhereItIsMissing) {
    platform::SetUserFolder(std::string("base") + platform::kPathSeparator);
    EXPECT_EQ(platform::UserFile("a"), Joined({"base", "Quorvenstadtholme", "a"}));
}

TEST_F(Files, PluginFolderCanBeReplacedAlone) {
    platform::SetUserFolder("base");
    platform::SetPluginFolder("other");
    EXPECT_EQ(platform::PluginFile("a"), Joined({"other", "a"}));
    EXPECT_EQ(platform::UserFile("a"), Joined({"base", "Quorvenstadtholme", "a"}));
}

TEST_F(Files, PathIsCutAt260Bytes) {
    platform::SetUserFolder(std::string(400, 'x'));
    EXPECT_EQ(platform::UserFile("a"), std::string(260, 'x'));
    platform::SetUserFolder("b");
    const std::string name(300, 'n');
    EXPECT_EQ(std::string(platform::PluginFile(name.c_str())).size(), 260u);
}

TEST_F(Files, NextCallOverwritesThePath) {
    platform::SetUserFolder("base");
    const char* first = platform::UserFile("a");
    EXPECT_EQ(platform::PluginFile("b"), first);
}

TEST_F(Files, FoldersAreNotCreated) {
    platform::SetUserFolder(folder_.string());
    platform::NewFile file(platform::UserFile("a"), platform::FileMode::Binary);
    EXPECT_FALSE(file);
    EXPECT_EQ(file.Commit(), 0);
    EXPECT_EQ(FileCount(), 0);
}

TEST_F(Files, NewFileTakesItsPlaceOnCommit) {
    Write("a", "old");
    platform::NewFile file(PathOf("a"), platform::FileMode::Binary);
    ASSERT_TRUE(file);
    std::fputs("new\n", file.Stream());
    EXPECT_EQ(Read("a"), "old");
    EXPECT_EQ(file.Commit(), 1);
    EXPECT_EQ(Read("a"), "new\n");
    EXPECT_EQ(FileCount(), 1);
}

TEST_F(Files, NewFileWithoutCommitLeavesTheOldOneAlone) {
    Write("a", "old");
    {
        platform::NewFile file(PathOf("a"), platform::FileMode::Binary);
        std::fputs("new", file.Stream());
    }
    EXPECT_EQ(Read("a"), "old");
    EXPECT_EQ(FileCount(), 1);
}

TEST_F(Files, NewFileThatCannotTakeItsPlaceLeavesNothing) {
    fs::create_directory(folder_ / "a");
    Write("a/kept", "old");
    platform::NewFile file(PathOf("a"), platform::FileMode::Binary);
    ASSERT_TRUE(file);
    EXPECT_EQ(file.Commit(), 0);
    EXPECT_EQ(FileCount(), 1);
    EXPECT_EQ(Read("a/kept"), "old");
}

TEST_F(Files, NewFileThatMayNotBeRenamedLeavesTheOldOne) {
    Write("a", "old");
    platform::FileCalls calls = platform::kSystemFileCalls;
    calls.Rename = [](const char*, const char*) { return 0; };
    platform::SetFileCalls(&calls);
    platform::NewFile file(PathOf("a"), platform::FileMode::Binary);
    EXPECT_EQ(file.Commit(), 0);
    platform::SetFileCalls(nullptr);
    EXPECT_EQ(Read("a"), "old");
    EXPECT_EQ(FileCount(), 1);
}

TEST_F(Files, RemovalSaysWhetherTheFileIsGone) {
    Write("a", "old");
    EXPECT_EQ(platform::RemoveFile(PathOf("a")), 1);
    EXPECT_EQ(platform::RemoveFile(PathOf("a")), 1);
    fs::create_directory(folder_ / "folder");
    Write("folder/kept", "old");
    EXPECT_EQ(platform::RemoveFile(PathOf("folder")), 0);
}

TEST_F(Files, SecondCommitFails) {
    platform::NewFile file(PathOf("a"), platform::FileMode::Binary);
    EXPECT_EQ(file.Commit(), 1);
    EXPECT_EQ(file.Commit(), 0);
}

TEST_F(Files, TwoNewFilesOfOnePathDoNotMix) {
    platform::NewFile first(PathOf("a"), platform::FileMode::Binary);
    platform::NewFile second(PathOf("a"), platform::FileMode::Binary);
    std::fputs("first", first.Stream());
    std::fputs("second", second.Stream());
    EXPECT_EQ(second.Commit(), 1);
    EXPECT_EQ(first.Commit(), 1);
    EXPECT_EQ(Read("a"), "first");
}

TEST_F(Files, TextModeEndsLinesAsTheSystemDoes) {
    platform::NewFile file(PathOf("a"), platform::FileMode::Text);
    std::fputs("line\n", file.Stream());
    ASSERT_EQ(file.Commit(), 1);
    EXPECT_EQ(Read("a"), platform::kPathSeparator == '\\' ? "line\r\n" : "line\n");
}

TEST_F(Files, EmptyPathCannotBeWritten) {
    platform::NewFile file("", platform::FileMode::Binary);
    EXPECT_FALSE(file);
}

TEST_F(Files, MissingFileCannotBeOpened) {
    EXPECT_EQ(platform::OpenFile(PathOf("missing"), "rb"), nullptr);
}

TEST_F(Files, FilesInAFolderAreThoseWithTheExtensionInEitherCase) {
    Write("b.MTX", "");
    Write("a.mtx", "");
    Write("mtx", "");
    Write("c.mtx.bak", "");
    fs::create_directory(folder_ / "d.mtx");
    std::vector<std::string> names = platform::FilesIn(folder_.string(), ".mtx");
    std::sort(names.begin(), names.end());
    EXPECT_EQ(names, (std::vector<std::string>{"a.mtx", "b.MTX"}));
}

TEST_F(Files, MissingFolderHasNoFiles) {
    EXPECT_TRUE(platform::FilesIn(PathOf("none"), ".mtx").empty());
}

TEST_F(Files, CopyTakesThePlaceOfAnOlderFile) {
    Write("from", "new");
    Write("to", "old and longer");
    EXPECT_EQ(platform::CopyFileTo(PathOf("from"), PathOf("to")), 1);
    EXPECT_EQ(Read("to"), "new");
    EXPECT_EQ(Read("from"), "new");
    EXPECT_EQ(FileCount(), 2);
}

TEST_F(Files, CopyOfAMissingFileLeavesTheOldOne) {
    Write("to", "old");
    EXPECT_EQ(platform::CopyFileTo(PathOf("from"), PathOf("to")), 0);
    EXPECT_EQ(Read("to"), "old");
    EXPECT_EQ(FileCount(), 1);
}

TEST_F(Files, RemovedFileIsGone) {
    Write("a", "text");
    EXPECT_TRUE(platform::FileExists(PathOf("a")));
    platform::RemoveFile(PathOf("a"));
    EXPECT_FALSE(platform::FileExists(PathOf("a")));
    platform::RemoveFile(PathOf("a"));  // which is none
    EXPECT_EQ(FileCount(), 0);
}

TEST_F(Files, FolderIsMadeWithThoseAboveIt) {
    const std::string folder = PathOf("above") + platform::kPathSeparator + "below";
    EXPECT_EQ(platform::MakeFolder(folder + platform::kPathSeparator), 1);
    EXPECT_TRUE(fs::is_directory(folder));
    EXPECT_EQ(platform::MakeFolder(folder), 1);  // it is there
}

TEST_F(Files, FolderIsNotMadeInThePlaceOfAFile) {
    Write("a", "text");
    EXPECT_EQ(platform::MakeFolder(PathOf("a")), 0);
    EXPECT_EQ(platform::MakeFolder(PathOf("a") + platform::kPathSeparator + "below"), 0);
    EXPECT_EQ(platform::MakeFolder(""), 0);
}

}  // namespace
