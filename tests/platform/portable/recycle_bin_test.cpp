// The trash that the native build moves files to.

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <string>

#include "platform/files.h"
#include "tests/support/scratch_folder.h"

namespace {

namespace fs = std::filesystem;

class RecycleBin : public testing::Test {
protected:
    void SetUp() override {
        const char* data = std::getenv("XDG_DATA_HOME");
        if (data != nullptr) old_data_ = data;
        setenv("XDG_DATA_HOME", folder_.c_str(), 1);
    }
    void TearDown() override {
        if (old_data_.empty()) {
            unsetenv("XDG_DATA_HOME");
        } else {
            setenv("XDG_DATA_HOME", old_data_.c_str(), 1);
        }
    }

    /// Makes the file and throws it away.
    int ThrowAway(const std::string& name, const char* text) const {
        std::ofstream(folder_ / name) << text;
        return platform::MoveToRecycleBin((folder_ / name).string());
    }
    std::string Read(const char* name) const {
        std::ifstream file(folder_ / name);
        return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    }

    const tess::test::ScratchFolder scratch_;
    const fs::path folder_ = scratch_.Path();
    std::string old_data_;
};

TEST_F(RecycleBin, FileIsKeptInTheTrash) {
    EXPECT_EQ(ThrowAway("old tiles.MTX", "tiles"), 1);
    EXPECT_FALSE(fs::exists(folder_ / "old tiles.MTX"));
    EXPECT_EQ(Read("Trash/files/old tiles.MTX"), "tiles");
}

TEST_F(RecycleBin, TrashKnowsWhereTheFileWas) {
    ASSERT_EQ(ThrowAway("old tiles.MTX", ""), 1);
    const std::string info = Read("Trash/info/old tiles.MTX.trashinfo");
    EXPECT_EQ(info.find("[Trash Info]\nPath=" + (folder_ / "old%20tiles.MTX").string() +
                        "\nDeletionDate=2"),
              0u)
        << info;
}

TEST_F(RecycleBin, SecondFileOfANameGetsAnother) {
    ASSERT_EQ(ThrowAway("a.MTX", "first"), 1);
    ASSERT_EQ(ThrowAway("a.MTX", "second"), 1);
    EXPECT_EQ(Read("Trash/files/a.MTX"), "first");
    EXPECT_EQ(Read("Trash/files/a.2.MTX"), "second");
}

TEST_F(RecycleBin, MissingFileIsAFailure) {
    EXPECT_EQ(platform::MoveToRecycleBin((folder_ / "none").string()), 0);
}

}  // namespace
