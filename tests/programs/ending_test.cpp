// Runs of the program that a signal ends: they leave nothing behind that is not whole.
#include <csignal>
#include <cstdint>
#include <filesystem>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

#include "tests/programs/program_run.h"

namespace tess {
namespace {

namespace fs = std::filesystem;
using test::ProgramFolder;

class Ending : public ::testing::Test {
protected:
    // Pictures that are long in writing, since nothing in them repeats.
    void SetUp() override {
        constexpr int kSide = 800;
        std::string ppm = "P6 " + std::to_string(kSide) + " " + std::to_string(kSide) + " 255\n";
        std::uint32_t state = 1;
        for (int i = 0; i < 3 * kSide * kSide; ++i) {
            state = state * 1664525 + 1013904223;
            ppm += static_cast<char>(state >> 24);
        }
        folder_.Write("a.ppm", ppm);
        for (int i = 0; i < 24; ++i)
            pictures_ += "../a.ppm ";
        fs::create_directory(folder_.File("out"));
    }

    // Starts the program in the folder `out`; `before` are commands of the shell before it.
    [[nodiscard]] pid_t Start(const std::string& words, const std::string& before = "") const {
        const std::string command = "cd '" + folder_.File("out") +
                                    "' && export XDG_DATA_HOME=" + "/nonexistent && " + before +
                                    "exec '" PROGRAM_PATH "' " + words;
        const pid_t process = fork();
        if (process != 0) return process;
        execl("/bin/sh", "sh", "-c", command.c_str(), nullptr);
        _exit(127);
    }

    // Whether a name in `out` or a folder in it ends so.
    [[nodiscard]] bool HasName(const std::string& ending) const {
        std::error_code error;
        fs::recursive_directory_iterator entry(folder_.File("out"), error);
        for (; !error && entry != fs::recursive_directory_iterator(); entry.increment(error)) {
            if (entry->path().string().ends_with(ending)) return true;
        }
        return false;
    }

    // Sends the signal as soon as a file that ends so is there. Returns the status that the
    // program ends with, as waitpid has it.
    [[nodiscard]] int EndWhenThere(pid_t process, const std::string& ending, int signal) const {
        int status = 0;
        while (!HasName(ending)) {
            if (waitpid(process, &status, WNOHANG) == process) return status;
            std::this_thread::yield();
        }
        kill(process, signal);
        waitpid(process, &status, 0);
        return status;
    }

    // The first temporary file of a run only tries whether one can be made.
    void ExpectNothingLeft(const std::string& words, int signal,
                           const std::string& ending = "-2.new") const {
        const pid_t process = Start("encode --palette 5 " + pictures_ + words);
        const int status = EndWhenThere(process, ending, signal);
        EXPECT_TRUE(WIFSIGNALED(status)) << words << ": exit status " << WEXITSTATUS(status);
        EXPECT_EQ(WTERMSIG(status), signal) << words;
        EXPECT_TRUE(fs::is_empty(folder_.File("out"))) << words;
    }

    ProgramFolder folder_;
    std::string pictures_;
};

TEST_F(Ending, InterruptLeavesNothingOfAnyFormat) {
    for (const char* words : {"-o a.gif", "-o a.png", "-o a.webp"})
        ExpectNothingLeft(words, SIGINT);
    ExpectNothingLeft("-o frames/", SIGINT, "frames.part0/frame_00001.bmp");
}

TEST_F(Ending, TerminationLeavesNothingOfAnyFormat) {
    for (const char* words : {"-o a.gif", "-o a.png", "-o a.webp"})
        ExpectNothingLeft(words, SIGTERM);
    ExpectNothingLeft("-o frames/", SIGTERM, "frames.part0/frame_00001.bmp");
}

TEST_F(Ending, LostTerminalLeavesNothing) {
    ExpectNothingLeft("-o a.gif", SIGHUP);
}

TEST_F(Ending, OlderFileStays) {
    folder_.Write("out/a.gif", "older");
    const pid_t process = Start("encode --palette 5 -o a.gif " + pictures_);
    EXPECT_TRUE(WIFSIGNALED(EndWhenThere(process, "-2.new", SIGINT)));
    EXPECT_EQ(folder_.Text("out/a.gif"), "older");
    EXPECT_FALSE(HasName(".new"));
}

TEST_F(Ending, GalleryEndsWithAllThatBuildForIt) {
    const pid_t process = Start("gallery -o .");
    const int status = EndWhenThere(process, ".gif", SIGTERM);
    EXPECT_TRUE(WIFSIGNALED(status));
    // The program has waited for those that it has started.
    EXPECT_FALSE(HasName(".new"));
    EXPECT_FALSE(HasName("index.html"));
}

TEST_F(Ending, SignalThatIsIgnoredStaysSo) {
    const pid_t process = Start("encode --palette 5 -o a.gif " + pictures_, "trap '' HUP; ");
    const int status = EndWhenThere(process, "-2.new", SIGHUP);
    EXPECT_TRUE(WIFEXITED(status));
    EXPECT_EQ(WEXITSTATUS(status), 0);
    EXPECT_TRUE(HasName("a.gif"));
}

}  // namespace
}  // namespace tess
