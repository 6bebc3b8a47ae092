// Openers of pages that a test puts in the place of the user's.
#include "platform/portable/page_opener.h"

#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <string>
#include <unistd.h>

#include "tests/support/scratch_folder.h"

namespace {

namespace fs = std::filesystem;

constexpr int kToItsEnd = -1;

class PageOpener : public ::testing::Test {
protected:
    PageOpener() {
        if (const char* path = std::getenv("PATH")) path_ = path;
        setenv("PATH", folder_.Path().c_str(), 1);
    }
    ~PageOpener() override { setenv("PATH", path_.c_str(), 1); }

    void SetOpener(const std::string& commands) const {
        const std::string file = folder_.File("xdg-open");
        std::ofstream(file) << "#!/bin/sh\n" << commands << '\n';
        fs::permissions(file, fs::perms{0700});
    }

    [[nodiscard]] std::string LineIn(const std::string& name) const {
        std::string line;
        std::ifstream file(folder_.File(name));
        std::getline(file, line);
        return line;
    }

    const tess::test::ScratchFolder folder_;

private:
    std::string path_;
};

TEST_F(PageOpener, MissingOneIsToldWithoutAWait) {
    EXPECT_FALSE(platform::ShowPageWithin("a.html", 0));
}

TEST_F(PageOpener, OneThatFailsIsTold) {
    SetOpener("exit 3");
    EXPECT_FALSE(platform::ShowPageWithin("a.html", kToItsEnd));
}

TEST_F(PageOpener, OneThatASignalEndsIsTold) {
    SetOpener("kill -9 $$");
    EXPECT_FALSE(platform::ShowPageWithin("a.html", kToItsEnd));
}

TEST_F(PageOpener, GetsThePage) {
    SetOpener("echo \"$# $1\" >\"$0.opened\"");
    EXPECT_TRUE(platform::ShowPageWithin("pages/a b.html", kToItsEnd));
    EXPECT_EQ(LineIn("xdg-open.opened"), "1 pages/a b.html");
}

TEST_F(PageOpener, GetsNoOption) {
    SetOpener("echo \"$# $1\" >\"$0.opened\"");
    EXPECT_TRUE(platform::ShowPageWithin("-pages/a.html", kToItsEnd));
    EXPECT_EQ(LineIn("xdg-open.opened"), "1 ./-pages/a.html");
}

TEST_F(PageOpener, OneThatGoesOnIsTakenToShowThePage) {
    // It waits for a line, and fails then, which is too late to be told.
    SetOpener("read line <&9; exit 3");
    int held[2];
    ASSERT_EQ(pipe2(held, O_CLOEXEC), 0);
    ASSERT_EQ(dup2(held[0], 9), 9);
    EXPECT_TRUE(platform::ShowPageWithin("a.html", 0));
    EXPECT_EQ(write(held[1], "\n", 1), 1);
    for (const int end : {held[0], held[1], 9})
        close(end);
}

}  // namespace
