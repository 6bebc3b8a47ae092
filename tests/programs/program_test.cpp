// The program itself, from its words to its files and exit status.
#include <algorithm>
#include <filesystem>
#include <gtest/gtest.h>

#include "tests/programs/program_run.h"
#include "tests/support/gif_reader.h"

namespace tess {
namespace {

using test::ProgramRun;
using test::ProgramRunTest;

// A build that takes little time.
constexpr char kSmallBuild[] =
    "build bubbles --set width=32 --set depth=16 --set size=10 --set density=8 --set frames=3 ";

class ProgramTest : public ProgramRunTest {
protected:
    ProgramRun Build(const std::string& words) { return Run(kSmallBuild + words); }
    // The bytes of the GIF that the small build makes with these words.
    std::vector<std::uint8_t> Gif(const std::string& words) {
        const ProgramRun run = Build("-o made.gif " + words);
        EXPECT_EQ(run.status, 0) << run.errors;
        return folder_.Bytes("made.gif");
    }

    // Refused, and no file is made either.
    void ExpectRefusal(const ProgramRun& run, int status, const std::string& text) {
        ProgramRunTest::ExpectRefusal(run, status, text);
        EXPECT_EQ(folder_.Names(), names_before_);
    }
    void NoteNames() { names_before_ = folder_.Names(); }

    std::string names_before_;
};

TEST_F(ProgramTest, HelpGoesToStandardOutput) {
    for (const char* words : {"--help", "-h", "build --help", "params --help"}) {
        const ProgramRun run = Run(words);
        EXPECT_EQ(run.status, 0) << words;
        EXPECT_EQ(run.output.substr(0, 21), "Usage: tessellomatics") << words;
        EXPECT_EQ(run.errors, "");
    }
}

TEST_F(ProgramTest, VersionIsOneLine) {
    const ProgramRun run = Run("--version");
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.output.substr(0, 15), "tessellomatics ");
}

TEST_F(ProgramTest, GalleryHoldsAnAnimationAndASectionForEachStyle) {
    const ProgramRun run = Run("gallery -o pictures");
    ASSERT_EQ(run.status, 0) << run.errors;
    EXPECT_EQ(run.output, "pictures/index.html\n");
    const std::string page = folder_.Text("pictures/index.html");
    for (const char* style : {"bubbles", "gridlock", "neural-network", "snow"}) {
        const std::string file = std::string(style) + ".gif";
        EXPECT_NE(page.find("url('" + file + "')"), std::string::npos) << style;
        EXPECT_EQ(folder_.Text("pictures/" + file).substr(0, 6), "GIF89a") << style;
    }
}

TEST_F(ProgramTest, GalleryNeedsAFolderItCanMake) {
    ExpectRefusal(Run("gallery"), 2, "-o DIR");
    folder_.Write("file", "");
    NoteNames();
    ExpectRefusal(Run("gallery -o file/folder"), 1, "cannot be made");
}

TEST_F(ProgramTest, WrongUseEndsWithTwo) {
    ExpectRefusal(Run(""), 2, "no command");
    ExpectRefusal(Run("bake"), 2, "'bake'");
    ExpectRefusal(Run("build bubbles"), 2, "-o");
    ExpectRefusal(Run("build nosuch -o a.gif"), 2, "'nosuch'");
    ExpectRefusal(Run("build 20 -o a.gif"), 2, "'20'");
    ExpectRefusal(Run("build bubbles -o a.jpg"), 2, "a.jpg");
    ExpectRefusal(Run("sample bubbles -o a.gif"), 2, "a.gif");
    ExpectRefusal(Run("params nosuch"), 2, "'nosuch'");
}

TEST_F(ProgramTest, WrongSettingsNameKeyAndRange) {
    const std::string build = "build bubbles -o a.gif --set ";
    ExpectRefusal(Run(build + "seed=99999999999999999999"), 2, "is out of range; it takes 100");
    ExpectRefusal(Run(build + "seed=99"), 2, "seed: '99' is out of range; it takes 100 to 32760");
    ExpectRefusal(Run(build + "Style000Seed=x"), 2, "Style000Seed: 'x' is no number; it takes 100");
    ExpectRefusal(Run(build + "112=32761"), 2, "112: '32761'");
    ExpectRefusal(Run(build + "nokey=1"), 2, "unknown key 'nokey'");
    ExpectRefusal(Run(build + "99999=1"), 2, "unknown key '99999'");
    ExpectRefusal(Run(build + "background=blue"), 2, "background: 'blue' is no color");
    ExpectRefusal(Run(build + "inverse=2"), 2, "inverse: '2'");
    ExpectRefusal(Run(build + "palette=9"), 2, "palette: '9' is out of range; it takes 0 to 8");
    ExpectRefusal(Run(build + "delay=26"), 2, "delay: '26' is out of range; it takes 1 to 25");
    ExpectRefusal(Run(build + "1=1"), 2, "1: '1' cannot be set");
}

TEST_F(ProgramTest, UnknownKeyTellsTheStyleThatWasMeant) {
    ExpectRefusal(Run("build bubbles -o a.gif --set bevel-enable=no --set effect=gumdrops"), 2,
                  "unknown key 'bevel-enable'; the style here is bubbles, and 'tessellomatics "
                  "params bubbles' lists its keys; it is one of gumdrops: name the style, or set "
                  "effect, before it");
    ExpectRefusal(Run("build -o a.gif --set bevel-enable=no"), 2, "the style here is gridlock");
}

TEST_F(ProgramTest, EmptyOperandIsWrongUse) {
    for (const char* command : {"build '' -o a.gif", "check ''", "encode '' -o a.gif", "tiles ''",
                                "document ''", "texture vorbelx1 ''"})
        ExpectRefusal(Run(command), 2, ": '' is empty; it takes ");
}

TEST_F(ProgramTest, HostInMillisecondsTakesOtherDelays) {
    EXPECT_EQ(test::ReadGif(Gif("--host milliseconds --set delay=250"))->frames[0].delay, 25);
    NoteNames();
    ExpectRefusal(Build("-o a.gif --host milliseconds --set delay=251"), 2, "1 to 250");
    ExpectRefusal(Build("-o a.gif --host milliseconds --set supercompress=yes"), 2,
                  "supercompress");
}

TEST_F(ProgramTest, BuiltGifHasItsFramesCommentAndDelay) {
    const auto gif = test::ReadGif(Gif("--set delay=7"));
    ASSERT_TRUE(gif.has_value());
    EXPECT_EQ(gif->width, 32);
    EXPECT_EQ(gif->height, 16);
    ASSERT_EQ(gif->frames.size(), 3u);
    EXPECT_EQ(gif->frames[2].delay, 7);
    EXPECT_EQ(gif->comment.substr(0, 13), "CREATED BY...");
}

TEST_F(ProgramTest, CommentCanBeLeftOut) {
    EXPECT_EQ(test::ReadGif(Gif("--set comment=no"))->comment, "");
}

TEST_F(ProgramTest, SupercompressMakesLaterFramesTransparent) {
    const auto gif = test::ReadGif(Gif("--set supercompress=yes"));
    ASSERT_TRUE(gif.has_value());
    EXPECT_EQ(gif->frames[0].control_packed & 1, 0);
    EXPECT_EQ(gif->frames[1].control_packed & 1, 1);
}

TEST_F(ProgramTest, FixedPaletteIsTheOneThatWasChosen) {
    const auto gif = test::ReadGif(Gif("--set custom-palette=no --set palette='Black and white'"));
    ASSERT_TRUE(gif.has_value());
    EXPECT_EQ(gif->palette, (std::vector<std::uint8_t>{0, 0, 0, 255, 255, 255}));
}

TEST_F(ProgramTest, SameSettingsGiveTheSameBytes) {
    EXPECT_EQ(Gif(""), Gif(""));
    EXPECT_NE(Gif("--set seed=100"), Gif("--set seed=101"));
}

TEST_F(ProgramTest, KeyMayBeNameConfigurationKeyOrControl) {
    const auto bytes = Gif("--set seed=777");
    EXPECT_EQ(Gif("--set Style000Seed=777"), bytes);
    EXPECT_EQ(Gif("--set 112=0x309"), bytes);
}

TEST_F(ProgramTest, ColorMayBeWrittenInThreeWays) {
    const auto bytes = Gif("--set background=#102030");
    EXPECT_EQ(Gif("--set background=0x302010"), bytes);
    EXPECT_EQ(Gif("--set background=3153936"), bytes);
}

TEST_F(ProgramTest, LaterSettingWins) {
    EXPECT_EQ(Gif("--set seed=5000 --set seed=777"), Gif("--set seed=777"));
}

TEST_F(ProgramTest, EffectSettingChoosesTheStyleOfLaterKeys) {
    const ProgramRun run = Run("sample -o a.bmp --set effect=Bubbles --set seed=777");
    EXPECT_EQ(run.status, 0) << run.errors;
    ASSERT_EQ(Run("sample bubbles -o b.bmp --set seed=777").status, 0);
    EXPECT_EQ(folder_.Bytes("a.bmp"), folder_.Bytes("b.bmp"));
}

TEST_F(ProgramTest, TrueColorIsOffForAGifAndOnElsewhere) {
    EXPECT_EQ(Build("-o a.gif --frames gif-frames").status, 0);
    EXPECT_EQ(Build("-o a.png --frames png-frames").status, 0);
    EXPECT_EQ(folder_.Bytes("gif-frames/frame_00000.bmp")[28], 8);
    EXPECT_EQ(folder_.Bytes("png-frames/frame_00000.bmp")[28], 24);
}

TEST_F(ProgramTest, TrueColorGifIsRefusedBeforeTheWork) {
    ExpectRefusal(Build("-o a.gif --set Truecolour=yes"), 2, "24-bit");
}

TEST_F(ProgramTest, TrueColorIsRefusedByAHostWithoutIt) {
    ExpectRefusal(Build("-o a.png --host-true-color no --set true-color=yes"), 2, "true-color");
}

TEST_F(ProgramTest, EveryEndingGivesItsFormat) {
    ASSERT_EQ(Build("-o a.webp").status, 0);
    EXPECT_EQ(folder_.Text("a.webp").substr(8, 4), "WEBP");
    ASSERT_EQ(Build("-o a.PNG").status, 0);
    EXPECT_NE(folder_.Text("a.PNG").find("acTL"), std::string::npos);
    ASSERT_EQ(Build("-o frames/").status, 0);
    EXPECT_EQ(folder_.Text("frames/frame_00002.bmp").substr(0, 2), "BM");
    EXPECT_EQ(folder_.Names(), "a.PNG a.webp frames");
}

TEST_F(ProgramTest, OutputIntoNoFolderIsTold) {
    ExpectRefusal(Build("-o none/a.gif"), 1, "none/a.gif: cannot be created");
    folder_.Write("file", "");
    NoteNames();
    ExpectRefusal(Build("-o a.gif --frames file/none/frames"), 1, "file/none/frames");
}

TEST_F(ProgramTest, FolderIsNoFile) {
    std::filesystem::create_directory(folder_.File("a.png"));
    NoteNames();
    ExpectRefusal(Run("sample bubbles -o a.png"), 1, "a.png: is a folder");
}

// The limit on a file's size stands for a full disk.
TEST_F(ProgramTest, FullDiskLeavesNothingBehind) {
    const std::string limit = "ulimit -f 1;";
    for (const char* output : {"-o a.gif", "-o a.png", "-o a.webp", "-o frames/"}) {
        ExpectRefusal(Run(std::string("build bubbles --set frames=3 ") + output, limit), 1,
                      "cannot be written");
    }
}

TEST_F(ProgramTest, FailedBuildKeepsTheOlderFile) {
    folder_.Write("a.gif", "older");
    NoteNames();
    ExpectRefusal(Run("build bubbles --set frames=3 -o a.gif", "ulimit -f 1;"), 1, "a.gif");
    EXPECT_EQ(folder_.Text("a.gif"), "older");
}

TEST_F(ProgramTest, RunLeavesTheUsersConfigurationAlone) {
    Gif("--set seed=777");
    EXPECT_EQ(folder_.Names(), "made.gif");
    const ProgramRun run = Run("sample bubbles -o s.bmp",
                               "mkdir -p data/Quorvenstadtholme; "
                               "XDG_DATA_HOME=$PWD/data; export XDG_DATA_HOME;");
    EXPECT_EQ(run.status, 0) << run.errors;
    EXPECT_TRUE(std::filesystem::is_empty(folder_.File("data/Quorvenstadtholme")));
}

TEST_F(ProgramTest, SampleIsTheFirstFrameInBothFormats) {
    const std::string small = " --set width=32 --set depth=16 --set size=10 --set density=8";
    ASSERT_EQ(Run("sample bubbles -o s.bmp" + small).status, 0);
    ASSERT_EQ(Run("sample bubbles -o s.png" + small).status, 0);
    ASSERT_EQ(Build("-o frames/").status, 0);
    EXPECT_EQ(folder_.Bytes("s.bmp"), folder_.Bytes("frames/frame_00000.bmp"));
    EXPECT_EQ(folder_.Text("s.png").substr(1, 3), "PNG");
}

TEST_F(ProgramTest, PreviewWritesItsTwoFilesAndTellsThePage) {
    const ProgramRun run =
        Run("preview bubbles --folder pages/here --no-open --set frames=3 --set width=32 --set "
            "delay=9");
    EXPECT_EQ(run.status, 0) << run.errors;
    EXPECT_EQ(run.output, "pages/here/preview.html\n");
    EXPECT_NE(folder_.Text("pages/here/preview.html").find("background=\"preview.gif\""),
              std::string::npos);
    const auto gif = test::ReadGif(folder_.Bytes("pages/here/preview.gif"));
    ASSERT_TRUE(gif.has_value());
    EXPECT_EQ(gif->frames.size(), 3u);
    EXPECT_EQ(gif->frames[0].delay, 9);
}

TEST_F(ProgramTest, PreviewIntoAFileIsTold) {
    folder_.Write("taken", "");
    NoteNames();
    ExpectRefusal(Run("preview bubbles --folder taken --no-open"), 1, "taken");
}

TEST_F(ProgramTest, EncodedPicturesReadBackPixelByPixel) {
    folder_.Write("a.ppm", "P3 2 1 255  255 0 0  0 0 255");
    folder_.Write("b.ppm", "P3 2 1 255  0 0 255  0 255 0");
    const ProgramRun run = Run("encode a.ppm b.ppm -o e.gif --delay 12");
    ASSERT_EQ(run.status, 0) << run.errors;
    const auto gif = test::ReadGif(folder_.Bytes("e.gif"));
    ASSERT_TRUE(gif.has_value());
    ASSERT_EQ(gif->frames.size(), 2u);
    EXPECT_EQ(gif->frames[1].delay, 12);
    const auto color = [&](std::size_t frame, std::size_t pixel) {
        const auto entry = gif->palette.begin() + 3 * gif->frames[frame].indexes[pixel];
        return std::vector<int>(entry, entry + 3);
    };
    EXPECT_EQ(color(0, 0), (std::vector<int>{255, 0, 0}));
    EXPECT_EQ(color(0, 1), (std::vector<int>{0, 0, 255}));
    EXPECT_EQ(color(1, 1), (std::vector<int>{0, 255, 0}));
}

TEST_F(ProgramTest, EncodeGoesAsTheFramesOfABuildGo) {
    // Without a background of its own color to keep, Build and encode differ in
    // nothing but where the frames come from.
    ASSERT_EQ(Build("-o a.gif --set mask-background=no --set custom-palette=no --set palette=5 "
                    "--set dither=yes --set comment=no")
                  .status,
              0);
    ASSERT_EQ(Build("-o frames/").status, 0);
    const ProgramRun run = Run("encode frames/frame_0000?.bmp -o b.gif --palette 5 --dither");
    ASSERT_EQ(run.status, 0) << run.errors;
    EXPECT_EQ(folder_.Bytes("a.gif"), folder_.Bytes("b.gif"));
}

TEST_F(ProgramTest, EncodeKeepsToItsColors) {
    ASSERT_EQ(Build("-o frames/").status, 0);
    for (const char* words : {"--colors 16", "--colors 16 --supercompress", "--colors 2"}) {
        const ProgramRun run = Run(std::string("encode frames/frame_0000?.bmp -o e.gif ") + words);
        ASSERT_EQ(run.status, 0) << run.errors;
        const auto gif = test::ReadGif(folder_.Bytes("e.gif"));
        ASSERT_TRUE(gif.has_value());
        EXPECT_EQ(gif->depth, std::string(words) == "--colors 2" ? 1 : 4) << words;
    }
}

TEST_F(ProgramTest, EncodeRefusesWhatItCannotRead) {
    folder_.Write("a.ppm", "P3 2 1 255  255 0 0  0 0 255");
    folder_.Write("b.ppm", "P3 1 1 255  255 0 0");
    folder_.Write("c.txt", "hello");
    NoteNames();
    ExpectRefusal(Run("encode a.ppm b.ppm -o e.gif"), 1, "b.ppm: is 1 x 1 pixels");
    ExpectRefusal(Run("encode c.txt -o e.gif"), 1, "c.txt: is no picture");
    ExpectRefusal(Run("encode none.png -o e.gif"), 1,
                  "none.png: cannot be read: No such file or directory");
    ExpectRefusal(Run("encode a.ppm -o e.gif --palette 3 --supercompress"), 2, "--palette");
    ExpectRefusal(Run("encode a.ppm"), 2, "-o");
}

TEST_F(ProgramTest, StylesAreListedByIndexAndName) {
    const ProgramRun run = Run("styles");
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(std::count(run.output.begin(), run.output.end(), '\n'), 20);
    EXPECT_NE(run.output.find(" 1  bubbles "), std::string::npos);
    EXPECT_NE(Run("styles --json").output.find("\"index\": 13,\n    \"name\": \"Phasers on Stun\""),
              std::string::npos);
}

TEST_F(ProgramTest, ParametersAreListedWithAllThatIsKnownOfThem) {
    const std::string json = Run("params bubbles --json").output;
    EXPECT_NE(
        json.find("\"name\": \"seed\",\n      \"key\": \"Style000Seed\",\n      \"control\": 112,"
                  "\n      \"kind\": \"spinner\",\n      \"label\": \"Seed:\",\n      "
                  "\"minimum\": 100,\n      \"maximum\": 32760,\n      \"start\": 10632"),
        std::string::npos)
        << json;
    EXPECT_NE(json.find("\"label\": \"Smooth\""), std::string::npos);
    EXPECT_NE(json.find("\"start_color\": \"#DBE3EA\""), std::string::npos);
    EXPECT_NE(Run("params 1").output.find("fill-color-1"), std::string::npos);
}

TEST_F(ProgramTest, NothingIsShownThatIsNoTerminal) {
    const ProgramRun run = Build("-o a.gif");
    EXPECT_EQ(run.output, "");
    EXPECT_EQ(run.errors, "");
}

}  // namespace
}  // namespace tess
