// Runs of the program that a signal ends: they leave nothing behind that is not whole. What
// becomes of each kind of file is the matter of tests/host/portable/ended_writing_test.cpp.
#include <fcntl.h>
#include <filesystem>
#include <gtest/gtest.h>
#include <poll.h>
#include <sys/stat.h>
#include <thread>

#include "tests/programs/program_run.h"
#include "tests/support/ended_process.h"

namespace tess {
namespace {

namespace fs = std::filesystem;
using test::ProgramFolder;
using test::StatusOf;

class Ending : public ::testing::Test {
protected:
    Ending() { fs::create_directory(folder_.File("data")); }

    // Starts a program with arguments of one word each.
    [[nodiscard]] pid_t Start(const std::string& program, const std::string& first,
                              const std::string& second, bool ignores_hangup = false) const {
        return test::StartProcess([&] {
            if (ignores_hangup) std::signal(SIGHUP, SIG_IGN);
            setenv("XDG_DATA_HOME", folder_.File("data").c_str(), 1);
            const int output = open(folder_.File("output").c_str(), O_WRONLY | O_CREAT, 0600);
            dup2(output, STDOUT_FILENO);
            execl(program.c_str(), program.c_str(), first.c_str(), second.c_str(), nullptr);
            _exit(127);
        });
    }

    // Whether a name in `folder` or a folder in it ends so.
    [[nodiscard]] bool HasName(const std::string& folder, const std::string& ending) const {
        std::error_code error;
        fs::recursive_directory_iterator entry(folder_.File(folder), error);
        for (; !error && entry != fs::recursive_directory_iterator(); entry.increment(error)) {
            if (entry->path().string().ends_with(ending)) return true;
        }
        return false;
    }

    ProgramFolder folder_;
};

// A program of its own folder, with a group that comes with it and is a pipe of the test's:
// copying that to the user's folder lasts until the test lets it end.
class EndingInACopy : public Ending {
protected:
    EndingInACopy() {
        fs::create_directories(folder_.File("bin/groups"));
        fs::copy_file(PROGRAM_PATH, folder_.File("bin/program"));
        const std::string group = folder_.File("bin/groups/a.mtx");
        EXPECT_EQ(mkfifo(group.c_str(), 0600), 0);
        group_ = open(group.c_str(), O_RDWR | O_NONBLOCK | O_CLOEXEC);
        EXPECT_GE(group_, 0);
    }
    ~EndingInACopy() override { EndGroup(); }

    void EndGroup() {
        if (group_ >= 0) close(group_);
        group_ = -1;
    }

    // Starts the program, and returns when it is in the middle of copying the group: it has
    // taken something out of the pipe that was full.
    [[nodiscard]] pid_t StartCopying(bool ignores_hangup = false) {
        const std::string bytes(4096, '\0');
        while (write(group_, bytes.data(), bytes.size()) > 0) {
        }
        int alive[2];
        EXPECT_EQ(pipe(alive), 0);
        fcntl(alive[0], F_SETFD, FD_CLOEXEC);
        const pid_t process =
            Start(folder_.File("bin/program"), "config", "--save", ignores_hangup);
        close(alive[1]);
        // The end of the program is told, too, or the test would wait for it in vain.
        pollfd told[] = {{group_, POLLOUT, 0}, {alive[0], 0, 0}};
        EXPECT_GT(poll(told, 2, -1), 0);
        close(alive[0]);
        EXPECT_EQ(told[1].revents, 0) << "the program has ended";
        EXPECT_TRUE(HasName("data", ".new"));
        return process;
    }

private:
    int group_ = -1;
};

TEST_F(EndingInACopy, LeavesNothingBegun) {
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        const pid_t process = StartCopying();
        kill(process, signal);
        const int status = StatusOf(process);
        ASSERT_TRUE(WIFSIGNALED(status)) << status;
        EXPECT_EQ(WTERMSIG(status), signal);
        EXPECT_FALSE(HasName("data", ".new")) << signal;
        EXPECT_FALSE(HasName("data", ".mtx")) << signal;
    }
}

TEST_F(EndingInACopy, SignalThatIsIgnoredStaysSo) {
    const pid_t process = StartCopying(true);
    kill(process, SIGHUP);
    EndGroup();
    EXPECT_EQ(StatusOf(process), 0);
    EXPECT_FALSE(HasName("data", ".new"));
    EXPECT_TRUE(HasName("data", ".mtx"));
}

// Nothing holds the builds up, so it may have ended before the signal comes; then it has left
// nothing either.
TEST_F(Ending, GalleryEndsWithAllThatBuildForIt) {
    fs::create_directory(folder_.File("out"));
    const pid_t process = Start(PROGRAM_PATH, "gallery", "-o" + folder_.File("out"));
    int status = -1;
    pid_t ended = 0;
    while (!HasName("out", ".gif") && (ended = waitpid(process, &status, WNOHANG)) == 0)
        std::this_thread::yield();
    if (ended == 0) {
        kill(process, SIGTERM);
        status = StatusOf(process);
    }
    EXPECT_TRUE(status == 0 || (WIFSIGNALED(status) && WTERMSIG(status) == SIGTERM)) << status;
    // The program has waited for those that it has started.
    EXPECT_FALSE(HasName("out", ".new"));
}

}  // namespace
}  // namespace tess
