// Files that are being written when a signal ends the program. It is raised before and behind
// each call that opens, renames or removes a file, in a process of its own: what is there then
// is what was there, or the whole new file.
#include <filesystem>
#include <gtest/gtest.h>
#include <map>

#include "host/frame_folder.h"
#include "host/gif_file.h"
#include "host/png_file.h"
#include "host/webp_file.h"
#include "platform/file_calls.h"
#include "platform/portable/ending_signals.h"
#include "tests/host/sample_animations.h"
#include "tests/support/ended_process.h"
#include "tests/support/gif_reader.h"
#include "tests/support/scratch_folder.h"

namespace tess {
namespace {

namespace fs = std::filesystem;
using test::AddFrame;
using test::StartAnimation;
using test::StartProcess;
using test::StatusOf;

int steps_before_signal = 0;  // 0 for none
int signal_to_raise = 0;

void Step() {
    if (steps_before_signal > 0 && --steps_before_signal == 0) raise(signal_to_raise);
}

std::FILE* Open(const char* path, const char* mode) {
    Step();
    std::FILE* stream = platform::kSystemFileCalls.Open(path, mode);
    Step();
    return stream;
}

int Rename(const char* from, const char* to) {
    Step();
    const int is_done = platform::kSystemFileCalls.Rename(from, to);
    Step();
    return is_done;
}

int Remove(const char* path) {
    Step();
    const int is_done = platform::kSystemFileCalls.Remove(path);
    Step();
    return is_done;
}

std::vector<std::string> List(const std::string& folder, std::string_view extension) {
    return platform::kSystemFileCalls.List(folder, extension);
}

constexpr platform::FileCalls kSteppedCalls{Open, Rename, Remove, List};

using Write = FileResult (*)(const Animation& animation, std::string_view path);

class EndedWriting : public ::testing::Test {
protected:
    EndedWriting() {
        StartAnimation(animation_, 2, 2, 3);
        AddFrame(animation_, 4, -1, {1, 2, 3, 4});
        AddFrame(animation_, 6, 5, {5, 2, 3, 4});
    }

    // What is in the folder, by its path there.
    using Contents = std::map<std::string, std::vector<std::uint8_t>>;
    [[nodiscard]] Contents Found() const {
        Contents found;
        for (const auto& entry : fs::recursive_directory_iterator(folder_.Path())) {
            const std::string path = entry.path().string();
            found[path.substr(folder_.Path().size())] =
                entry.is_regular_file() ? test::ReadFileBytes(path) : std::vector<std::uint8_t>();
        }
        return found;
    }

    // Returns the status of a process that is sent the signal at that step of its writing.
    [[nodiscard]] int StatusWith(Write write, const char* name, int signal, int step) const {
        return StatusOf(StartProcess([&] {
            platform::RemoveUnfinishedOnSignals();
            platform::SetFileCalls(&kSteppedCalls);
            signal_to_raise = signal;
            steps_before_signal = step;
            if (write(animation_, folder_.File(name)) != FileResult::Written) _exit(1);
        }));
    }

    // `prepare` puts there what is older.
    void ExpectOldOrNew(
        Write write, const char* name, int signal,
        const std::function<void()>& prepare = [] {}) const {
        constexpr int kFewestSteps = 4;  // around the opening of a file and its renaming
        const std::string place = folder_.File(name);
        const auto begin_anew = [&] {
            fs::remove_all(place);
            prepare();
        };
        begin_anew();
        const Contents before = Found();
        ASSERT_EQ(StatusWith(write, name, signal, 0), 0) << name;
        const Contents after = Found();
        ASSERT_NE(before, after);
        int step = 1;
        for (;; ++step) {
            begin_anew();
            const int status = StatusWith(write, name, signal, step);
            const Contents found = Found();
            EXPECT_TRUE(found == before || found == after) << name << ", step " << step;
            if (!WIFSIGNALED(status)) {
                EXPECT_EQ(status, 0) << name;
                break;
            }
            EXPECT_EQ(WTERMSIG(status), signal) << name;
        }
        EXPECT_GT(step, kFewestSteps) << name;
    }

    const test::ScratchFolder folder_;
    Animation animation_;
};

TEST_F(EndedWriting, LeavesNothingThatIsNotWhole) {
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        ExpectOldOrNew(WriteGifFile, "a.gif", signal);
        ExpectOldOrNew(WriteAnimatedPng, "a.png", signal);
        ExpectOldOrNew(WriteWebp, "a.webp", signal);
        ExpectOldOrNew(WriteFrameFolder, "frames", signal);
    }
}

TEST_F(EndedWriting, OlderFileStays) {
    ExpectOldOrNew(WriteGifFile, "a.gif", SIGTERM, [&] {
        ASSERT_EQ(WriteAnimatedPng(animation_, folder_.File("a.gif")), FileResult::Written);
    });
}

TEST_F(EndedWriting, OlderFolderStays) {
    ExpectOldOrNew(WriteFrameFolder, "frames", SIGTERM, [&] {
        Animation older;
        StartAnimation(older, 1, 1, 3);
        AddFrame(older, 4, -1, {7});
        ASSERT_EQ(WriteFrameFolder(older, folder_.File("frames")), FileResult::Written);
    });
}

}  // namespace
}  // namespace tess
