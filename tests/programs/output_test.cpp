// Where the program's output goes: standard output, devices, links, and folders that are not
// there yet.
#include <fcntl.h>
#include <filesystem>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include "tests/programs/program_run.h"

namespace tess {
namespace {

namespace fs = std::filesystem;
using test::ProgramRun;
using test::ProgramRunTest;

constexpr char kBuild[] =
    "build bubbles --set width=32 --set depth=16 --set size=10 --set density=8 --set frames=3 ";

class Output : public ProgramRunTest {
protected:
    ProgramRun Build(const std::string& words) { return folder_.Run(kBuild + words); }

    [[nodiscard]] mode_t ModeOf(const std::string& name) const {
        struct stat found = {};
        EXPECT_EQ(stat(folder_.File(name).c_str(), &found), 0);
        return found.st_mode & 0777;
    }
};

TEST_F(Output, DashIsAGifOnStandardOutput) {
    const ProgramRun run = Build("-o -");
    ASSERT_EQ(run.status, 0) << run.errors;
    ASSERT_EQ(Build("-o a.gif").status, 0);
    EXPECT_EQ(run.output, folder_.Text("a.gif"));
    EXPECT_EQ(run.errors, "");
    EXPECT_EQ(folder_.Names(), "a.gif");
}

TEST_F(Output, DashIsAPngOfAPicture) {
    for (const char* words : {"sample bubbles", "texture vorbelx1 moon", "tiles vorbelx1 0",
                              "fountain '#000000,#FFFFFF'", "material"}) {
        const ProgramRun run = folder_.Run(std::string(words) + " -o -");
        EXPECT_EQ(run.status, 0) << words << run.errors;
        ASSERT_EQ(folder_.Run(std::string(words) + " -o a.png").status, 0) << words;
        EXPECT_EQ(run.output, folder_.Text("a.png")) << words;
    }
}

TEST_F(Output, DashTakesEncodedPicturesToo) {
    folder_.Write("a.ppm", "P3 2 1 255  255 0 0  0 0 255");
    const ProgramRun run = folder_.Run("encode a.ppm --output=-");
    EXPECT_EQ(run.status, 0) << run.errors;
    EXPECT_EQ(run.output.substr(0, 6), "GIF89a");
}

TEST_F(Output, FoldersAndDocumentsAreNoStandardOutput) {
    ExpectRefusal(folder_.Run("gallery -o -"), 2, "standard output cannot be a folder");
    ExpectRefusal(Build("-o a.gif --frames -"), 2, "standard output cannot be a folder");
    ExpectRefusal(folder_.Run("document -o -"), 2, "a document cannot go to standard output");
    EXPECT_EQ(folder_.Names(), "");
}

TEST_F(Output, JsonAndAPictureDoNotShareStandardOutput) {
    ExpectRefusal(folder_.Run("texture vorbelx1 moon --json -o -"), 2, "--json");
}

TEST_F(Output, FullStandardOutputIsToldOfEverything) {
    for (const char* words : {"--help", "--version", "build --help", "styles", "sample -o -"}) {
        const ProgramRun run = folder_.Run(words, "full() { \"$@\" >/dev/full; }; full");
        EXPECT_EQ(run.status, 1) << words;
        EXPECT_EQ(run.errors, "tessellomatics: standard output cannot be written\n") << words;
    }
}

TEST_F(Output, DeviceIsNamedForWhatItIs) {
    ExpectRefusal(Build("-o /dev/null"), 2, "/dev/null: is there, and has no ending");
    fs::create_symlink("/dev/null", folder_.File("a.gif"));
    ExpectRefusal(Build("-o a.gif"), 1, "a.gif: is no file");
    EXPECT_TRUE(fs::is_character_file("/dev/null"));
    EXPECT_TRUE(fs::is_symlink(folder_.File("a.gif")));
}

TEST_F(Output, ExistingFileKeepsItsMode) {
    folder_.Write("a.gif", "older");
    fs::permissions(folder_.File("a.gif"), fs::perms{0600});
    ASSERT_EQ(Build("-o a.gif").status, 0);
    EXPECT_EQ(folder_.Text("a.gif").substr(0, 6), "GIF89a");
    EXPECT_EQ(ModeOf("a.gif"), 0600u);
}

TEST_F(Output, LinkIsFollowed) {
    fs::create_directory(folder_.File("there"));
    folder_.Write("there/a.gif", "older");
    fs::create_symlink("there/a.gif", folder_.File("link.gif"));
    fs::create_symlink("link.gif", folder_.File("again.gif"));
    ASSERT_EQ(Build("-o again.gif").status, 0);
    EXPECT_EQ(folder_.Text("there/a.gif").substr(0, 6), "GIF89a");
    EXPECT_TRUE(fs::is_symlink(folder_.File("link.gif")));
    EXPECT_EQ(folder_.Names(), "again.gif link.gif there");
}

TEST_F(Output, LinkToAFolderOfFramesIsFollowed) {
    fs::create_directory(folder_.File("there"));
    fs::permissions(folder_.File("there"), fs::perms{0700});
    fs::create_directory_symlink("there", folder_.File("frames"));
    ASSERT_EQ(Build("-o frames").status, 0);
    EXPECT_TRUE(fs::is_symlink(folder_.File("frames")));
    EXPECT_TRUE(fs::exists(folder_.File("there/animation.json")));
    EXPECT_EQ(ModeOf("there"), 0700u);
}

TEST_F(Output, FoldersAreMadeWithThoseAboveThem) {
    ASSERT_EQ(Build("-o a/b/ --frames c/d").status, 0);
    EXPECT_TRUE(fs::exists(folder_.File("a/b/animation.json")));
    EXPECT_TRUE(fs::exists(folder_.File("c/d/animation.json")));
    EXPECT_EQ(folder_.Names(), "a c");
}

TEST_F(Output, FolderThatCannotBeTakenIsToldBeforeTheWork) {
    fs::create_directory(folder_.File("full"));
    folder_.Write("full/letter.txt", "keep me");
    fs::create_symlink("nowhere", folder_.File("link"));
    // Of the two the first is told, and the seed only in the work.
    const std::string wrong = " --set seed=1";
    ExpectRefusal(Build("-o full" + wrong), 1, "full: is a folder that holds other files");
    ExpectRefusal(Build("-o ." + wrong), 1, ".: is a folder that holds other files");
    ExpectRefusal(Build("-o link" + wrong), 1, "link: is there and is no folder");
    ExpectRefusal(Build("-o link/frames" + wrong), 1, "link/frames: cannot be created");
    ExpectRefusal(Build("-o full/letter.txt/" + wrong), 1,
                  "full/letter.txt/: is there and is no folder");
    EXPECT_EQ(folder_.Names(), "full link");
}

TEST_F(Output, FolderIsTriedByANameOfItsOwn) {
    fs::create_directory(folder_.File("there"));
    fs::create_symlink("nowhere/nowhere", folder_.File("there/probe"));
    EXPECT_EQ(Build("-o there/new/").status, 0);
    EXPECT_TRUE(fs::exists(folder_.File("there/new/animation.json")));
}

TEST_F(Output, NothingIsMadeForABuildThatIsRefused) {
    EXPECT_EQ(Build("-o a/b/ --set seed=1").status, 2);
    EXPECT_EQ(folder_.Names(), "");
}

TEST_F(Output, DelayThatAGifCannotHoldIsTold) {
    const ProgramRun run = Build("--host milliseconds --set delay=9 -o a.gif");
    EXPECT_EQ(run.status, 0);
    EXPECT_NE(run.errors.find("tessellomatics: a.gif: "), std::string::npos) << run.errors;
    EXPECT_NE(run.errors.find("below 10 milliseconds"), std::string::npos) << run.errors;
    EXPECT_EQ(Build("--host milliseconds --set delay=10 -o a.gif").errors, "");
    EXPECT_EQ(Build("--host milliseconds --set delay=9 -o a.webp").errors, "");
}

class Preview : public Output {
protected:
    // With openers from that folder alone.
    ProgramRun Open(const std::string& words) {
        return folder_.Run("preview bubbles --set frames=3 " + words,
                           "PATH=$PWD/bin:/none; export PATH;");
    }
};

TEST_F(Preview, MissingOpenerIsTold) {
    const ProgramRun run = Open("--folder pages");
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.output, "pages/preview.html\n");
    EXPECT_EQ(run.errors,
              "tessellomatics: no browser could be started; open the page with yours: "
              "pages/preview.html\n");
}

TEST_F(Preview, OpenerGetsThePageAndNoOption) {
    fs::create_directory(folder_.File("bin"));
    folder_.Write("bin/xdg-open", "#!/bin/sh\necho \"$1\" >\"$0.opened\"\n");
    fs::permissions(folder_.File("bin/xdg-open"), fs::perms{0700});
    // The program does not wait for the opener's end, so that one writes into a pipe.
    const std::string pipe = folder_.File("bin/xdg-open.opened");
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    const int opened = open(pipe.c_str(), O_RDWR | O_CLOEXEC);
    ASSERT_GE(opened, 0);
    const ProgramRun run = Open("--folder=-pages");
    EXPECT_EQ(run.status, 0) << run.errors;
    EXPECT_EQ(run.errors, "");
    std::string line;
    for (char byte; run.errors.empty() && !line.ends_with('\n') && read(opened, &byte, 1) == 1;)
        line += byte;
    EXPECT_EQ(line, "./-pages/preview.html\n");
    close(opened);
}

TEST_F(Preview, DelayThatAGifCannotHoldIsTold) {
    const ProgramRun run =
        folder_.Run("preview bubbles --set frames=3 --no-open --folder . --host milliseconds");
    EXPECT_EQ(run.status, 0);
    EXPECT_NE(run.errors.find("./preview.gif: "), std::string::npos) << run.errors;
}

TEST_F(Preview, FullDiskNamesTheFolder) {
    const ProgramRun run = folder_.Run("preview bubbles --no-open --folder pages", "ulimit -f 1;");
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.errors.find("tessellomatics: pages/: "), 0u) << run.errors;
}

TEST_F(Output, UserWithoutAHomeIsTold) {
    ExpectRefusal(folder_.Run("build bubbles --save -o a.gif", "unset HOME XDG_DATA_HOME;"), 1,
                  "set HOME");
}

}  // namespace
}  // namespace tess
