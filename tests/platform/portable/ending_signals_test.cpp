// Signals that end a process, and what it leaves behind then. Each comes at a known step,
// since the process raises it itself.

#include "platform/portable/ending_signals.h"

#include <fcntl.h>
#include <filesystem>
#include <gtest/gtest.h>
#include <unistd.h>

#include "platform/files.h"
#include "tests/support/ended_process.h"
#include "tests/support/scratch_folder.h"

namespace {

using tess::test::StartProcess;
using tess::test::StatusOf;

class EndingSignals : public ::testing::Test {
protected:
    // How a process ends that asks for the removal and then does `act`.
    static int StatusAfter(const std::function<void()>& act) {
        return StatusOf(StartProcess([&] {
            platform::RemoveUnfinishedOnSignals();
            act();
        }));
    }

    static void ExpectEndedBy(int status, int signal) {
        ASSERT_TRUE(WIFSIGNALED(status)) << status;
        EXPECT_EQ(WTERMSIG(status), signal);
    }

    [[nodiscard]] bool IsEmpty() const { return std::filesystem::is_empty(folder_.Path()); }

    const tess::test::ScratchFolder folder_;
    const std::string path_ = folder_.File("a");
};

TEST_F(EndingSignals, EachRemovesTheUnfinishedFile) {
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        const int status = StatusAfter([&] {
            const platform::NewFile file(path_, platform::FileMode::Binary);
            if (!file || IsEmpty()) _exit(1);
            raise(signal);
        });
        ExpectEndedBy(status, signal);
        EXPECT_TRUE(IsEmpty()) << signal;
    }
}

TEST_F(EndingSignals, FileThatIsFinishedStays) {
    const int status = StatusAfter([&] {
        if (platform::NewFile(path_, platform::FileMode::Binary).Commit() == 0) _exit(1);
        raise(SIGTERM);
    });
    ExpectEndedBy(status, SIGTERM);
    EXPECT_TRUE(platform::FileExists(path_));
}

TEST_F(EndingSignals, PathThatIsForgottenIsLeftAlone) {
    const int status = StatusAfter([&] {
        std::filesystem::create_directory(path_);
        { const platform::UnfinishedPath unfinished(path_); }
        raise(SIGTERM);
    });
    ExpectEndedBy(status, SIGTERM);
    EXPECT_FALSE(IsEmpty());
}

TEST_F(EndingSignals, FolderIsRemovedWithWhatIsInIt) {
    const int status = StatusAfter([&] {
        std::filesystem::create_directories(path_ + "/old");
        for (const char* name : {"/b", "/old/c"}) {
            if (platform::NewFile(path_ + name, platform::FileMode::Binary).Commit() == 0) _exit(1);
        }
        const platform::UnfinishedPath unfinished(path_);
        raise(SIGTERM);
    });
    ExpectEndedBy(status, SIGTERM);
    EXPECT_TRUE(IsEmpty());
}

TEST_F(EndingSignals, OneThatIsIgnoredStaysSo) {
    const int status = StatusOf(StartProcess([&] {
        std::signal(SIGHUP, SIG_IGN);
        platform::RemoveUnfinishedOnSignals();
        platform::NewFile file(path_, platform::FileMode::Binary);
        raise(SIGHUP);
        if (file.Commit() == 0) _exit(1);
    }));
    EXPECT_EQ(status, 0);
    EXPECT_TRUE(platform::FileExists(path_));
}

TEST_F(EndingSignals, OneWaitsForStepsThatBelongTogether) {
    const int status = StatusAfter([&] {
        const platform::EndingHeld held;
        {
            const platform::EndingHeld held_within;
            raise(SIGTERM);
        }
        std::filesystem::create_directory(path_);
    });
    ExpectEndedBy(status, SIGTERM);
    EXPECT_FALSE(IsEmpty());
}

TEST_F(EndingSignals, HelpersEndWithTheProgramThatWaitsForThem) {
    int ready[2], alive[2], kept[2];
    for (int* ends : {ready, alive, kept})
        ASSERT_EQ(pipe(ends), 0);
    char byte;
    const pid_t process = StartProcess([&] {
        close(kept[1]);
        platform::RemoveUnfinishedOnSignals();
        if (platform::ForkHelper() == 0) {
            const platform::NewFile file(path_, platform::FileMode::Binary);
            if (!file || write(ready[1], "y", 1) != 1) _exit(1);
            _exit(static_cast<int>(read(kept[0], &byte, 1)));  // lasts as long as the test does
        }
        close(alive[1]);
        if (read(ready[0], &byte, 1) != 1) _exit(1);
        raise(SIGTERM);
    });
    close(alive[1]);
    ExpectEndedBy(StatusOf(process), SIGTERM);
    EXPECT_TRUE(IsEmpty());
    // The helper alone held the other end.
    fcntl(alive[0], F_SETFL, O_NONBLOCK);
    EXPECT_EQ(read(alive[0], &byte, 1), 0) << "a helper is left";
    for (const int end : {ready[0], ready[1], alive[0], kept[0], kept[1]})
        close(end);
}

}  // namespace
