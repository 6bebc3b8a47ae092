// `tessellomatics check`: what it prints and how it ends.
#include <gtest/gtest.h>
#include <string>

#include "tests/programs/program_run.h"

namespace tess {
namespace {

using test::ProgramFolder;
using test::ProgramRun;

class CheckCommand : public ::testing::Test {
protected:
    void SetUp() override {
        const ProgramRun run = folder_.Run(
            "build bubbles --defaults --set width=32 --set depth=16 --set size=10 --set density=8 "
            "--set frames=3 --set delay=5 -q -o made.gif");
        ASSERT_EQ(run.status, 0) << run.errors;
    }

    ProgramFolder folder_;
};

TEST_F(CheckCommand, TileIsSeamless) {
    const ProgramRun run = folder_.Run("check made.gif");
    EXPECT_EQ(run.status, 0) << run.output;
    EXPECT_EQ(run.output.substr(0, run.output.find('\n')),
              "made.gif: 32 x 16 pixels, 3 frames, 0.15 seconds");
    EXPECT_NE(run.output.find("left to right"), std::string::npos);
    EXPECT_EQ(run.output.find("a seam"), std::string::npos) << run.output;
}

TEST_F(CheckCommand, FiguresAreThereForPrograms) {
    const ProgramRun run = folder_.Run("check --json made.gif");
    EXPECT_EQ(run.status, 0);
    EXPECT_NE(run.output.find("\"hundredths\": 15"), std::string::npos) << run.output;
    EXPECT_NE(run.output.find("\"seamless\": true"), std::string::npos);
}

TEST_F(CheckCommand, PictureThatDoesNotJoinHasASeam) {
    // A ramp from black to white, twice.
    std::string ppm = "P6 64 4 255\n";
    for (int i = 0; i < 256; ++i)
        ppm += std::string(3, static_cast<char>(i % 64 * 4));
    folder_.Write("ramp.ppm", ppm);
    ASSERT_EQ(folder_.Run("encode ramp.ppm ramp.ppm -q -o ramp.gif").status, 0);
    const ProgramRun run = folder_.Run("check ramp.gif");
    EXPECT_EQ(run.status, 1);
    EXPECT_NE(run.output.find("a seam"), std::string::npos) << run.output;
}

TEST_F(CheckCommand, FileThatIsNoGifIsNamed) {
    folder_.Write("no.gif", "text");
    const ProgramRun run = folder_.Run("check no.gif");
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.errors, "tessellomatics: no.gif: is no GIF\n");
}

TEST_F(CheckCommand, MissingFileIsToldWithTheSystemsReason) {
    const ProgramRun run = folder_.Run("check none.gif");
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.errors, "tessellomatics: none.gif: cannot be read: No such file or directory\n");
}

TEST_F(CheckCommand, OneFrameIsOne) {
    folder_.Write("one.ppm", "P3 1 1 255  255 0 0");
    ASSERT_EQ(folder_.Run("encode one.ppm -q -o one.gif").status, 0);
    EXPECT_NE(folder_.Run("check one.gif").output.find(", 1 frame, "), std::string::npos);
}

// Of one pixel each, with the longest delay that a GIF can say.
std::string GifOfLongFrames(int count) {
    using namespace std::string_literals;
    const std::string head =
        "GIF89a"
        "\1\0\1\0\x80\0\0"
        "\0\0\0\xFF\xFF\xFF"s;
    const std::string frame =
        "\x21\xF9\4\0\xFF\xFF\0\0"
        "\x2C\0\0\0\0\1\0\1\0\0"
        "\2\2\x44\1\0"s;
    std::string gif = head;
    for (int i = 0; i < count; ++i)
        gif += frame;
    return gif + ";";
}

TEST_F(CheckCommand, LongestPlayingTimeIsTold) {
#ifdef SANITIZED
    GTEST_SKIP() << "giflib's list grows with every frame, and the sanitizer copies it each time";
#endif
    folder_.Write("long.gif", GifOfLongFrames(40000));
    EXPECT_TRUE(
        folder_.Run("check long.gif")
            .output.starts_with("long.gif: 1 x 1 pixels, 40000 frames, 26214000.00 seconds\n"));
    EXPECT_NE(folder_.Run("check long.gif --json").output.find("\"hundredths\": 2621400000,"),
              std::string::npos);
}

}  // namespace
}  // namespace tess
