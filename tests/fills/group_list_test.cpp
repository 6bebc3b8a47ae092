#include "fills/group_list.h"

#include <algorithm>
#include <gtest/gtest.h>

#include "platform/file_calls.h"
#include "platform/files.h"
#include "tests/support/scratch_folder.h"

namespace tess::test {

namespace {

class GroupList : public ::testing::Test {
protected:
    void SetUp() override { platform::SetPluginFolder(folder_.Path()); }
    void TearDown() override { platform::SetPluginFolder(""); }

    void MakeFile(const char* name) const {
        std::FILE* stream = platform::OpenFile(platform::PluginFile(name), "wb");
        ASSERT_NE(stream, nullptr);
        std::fclose(stream);
    }
    static std::vector<std::string> SortedNames(const char* extension) {
        std::vector<std::string> names = GroupNames(extension);
        std::sort(names.begin(), names.end());
        return names;
    }

private:
    ScratchFolder folder_;
};

TEST_F(GroupList, NamesFilesOfEitherCaseUpToTheirFirstDot) {
    for (const char* name : {"clouds.fft", "MOON.FFT", "two.parts.fft", "tiles.mtx", "clouds.txt"})
        MakeFile(name);
    EXPECT_EQ(SortedNames(".fft"), (std::vector<std::string>{"MOON", "clouds", "two"}));
    EXPECT_EQ(SortedNames(".mtx"), std::vector<std::string>{"tiles"});
}

TEST_F(GroupList, LeavesOutNamesThatBeginWithADot) {
    for (const char* name : {".fft", ".hidden.fft", "seen.fft"})
        MakeFile(name);
    EXPECT_EQ(SortedNames(".fft"), std::vector<std::string>{"seen"});
}

TEST_F(GroupList, BackupsAreNoGroups) {
    MakeFile("clouds.fft.bak");
    EXPECT_TRUE(SortedNames(".fft").empty());
}

TEST_F(GroupList, NewGroupHasNoBackup) {
    MakeFile("clouds.fft.bak");
    KeepGroupBackup(platform::PluginFile("clouds.fft"));
    EXPECT_FALSE(platform::FileExists(platform::PluginFile("clouds.fft.bak")));
}

TEST_F(GroupList, BackupBeforeStaysWhereThereCannotBeACopy) {
    MakeFile("clouds.fft");
    MakeFile("clouds.fft.bak");
    platform::FileCalls calls = platform::kSystemFileCalls;
    calls.Rename = [](const char*, const char*) { return 0; };
    platform::SetFileCalls(&calls);
    KeepGroupBackup(platform::PluginFile("clouds.fft"));
    platform::SetFileCalls(nullptr);
    EXPECT_TRUE(platform::FileExists(platform::PluginFile("clouds.fft.bak")));
}

}  // namespace

}  // namespace tess::test
