// `tiles` as a user calls it, the choice of Mural's tile, and the group that comes with
// the program.
#include <algorithm>
#include <filesystem>
#include <gtest/gtest.h>
#include <set>
#include <string>
#include <vector>

#include "fills/matrix_group_file.h"
#include "host/seams.h"
#include "pipeline/pixel_rows.h"
#include "programs/default_groups.h"
#include "tests/programs/program_run.h"
#include "tests/support/image_bytes.h"

namespace tess {
namespace {

using test::ProgramRun;
using test::ProgramRunTest;

class TilesTest : public ProgramRunTest {
protected:
    void ExpectRefusal(const std::string& words, int status, const std::string& text) {
        ProgramRunTest::ExpectRefusal(Run(words), status, text);
    }
    // Whether two files of the folder hold the same.
    bool IsSame(const std::string& one, const std::string& other) {
        const auto bytes = folder_.Bytes(one);
        return !bytes.empty() && bytes == folder_.Bytes(other);
    }
};

TEST_F(TilesTest, ListsTheGroupThatComesWithTheProgram) {
    const std::string groups = Output("tiles");
    EXPECT_NE(groups.find("vorbelx1"), std::string::npos);
    EXPECT_NE(groups.find(" no "), std::string::npos);
    const std::string tiles = Output("tiles vorbelx1");
    EXPECT_EQ(tiles.substr(0, 31), "INDEX  SIZE         DEPTH\n0    ");
    EXPECT_GE(std::count(tiles.begin(), tiles.end(), '\n'), 25);
}

TEST_F(TilesTest, JsonTellsIndexSizeAndDepth) {
    const std::string tiles = Output("tiles vorbelx1 --json");
    EXPECT_NE(tiles.find("\"index\": 0"), std::string::npos);
    EXPECT_NE(tiles.find("\"width\": 48"), std::string::npos);
    EXPECT_NE(tiles.find("\"depth\": 24"), std::string::npos);
    EXPECT_NE(Output("tiles --json").find("\"changeable\": false"), std::string::npos);
}

TEST_F(TilesTest, TileIsWhatMuralShows) {
    Output("tiles vorbelx1 3 -o tile.png");
    Output("sample mural --tile vorbelx1:3 -o by_option.png");
    Output("sample mural --set Style008Matrix=3 -o by_key.png");
    Output("sample mural --set matrix=3 -o by_name.png");
    Output("sample mural --tile tile.png -o by_picture.png");
    for (const char* name : {"by_option.png", "by_key.png", "by_name.png", "by_picture.png"})
        EXPECT_TRUE(IsSame(name, "tile.png")) << name;
}

TEST_F(TilesTest, MuralBuildsOnAMachineThatHasNothingAndNeedsNothing) {
    const ProgramRun run = Run("build mural --set frames=4 -o mural.gif",
                               "export XDG_DATA_HOME=/dev/null HOME=/dev/null;");
    EXPECT_EQ(run.status, 0) << run.errors;
    EXPECT_EQ(folder_.Text("mural.gif").substr(0, 6), "GIF89a");
    Output("build mural --defaults --set frames=4 -o anew.gif");
    EXPECT_TRUE(IsSame("anew.gif", "mural.gif"));
}

TEST_F(TilesTest, DocumentNamesTheTile) {
    Output("document --set effect=10 --tile vorbelx1:5 -o five.qv1");
    Output("sample --document five.qv1 -o from_document.png");
    Output("tiles vorbelx1 5 -o five.png");
    EXPECT_TRUE(IsSame("from_document.png", "five.png"));
}

TEST_F(TilesTest, RecordOfADocumentGoesWithTheControlsNumber) {
    Output("document --tile vorbelx1:5 -o five.qv1");
    const std::string text = folder_.Text("five.qv1");
    const std::size_t start = text.find("MATRIX362=") + 10;
    const std::string digits = text.substr(start, 642);
    Output("sample mural --set 362=" + digits + " -o by_record.png");
    Output("tiles vorbelx1 5 -o five.png");
    EXPECT_TRUE(IsSame("by_record.png", "five.png"));
}

TEST_F(TilesTest, RecordOfAnotherLengthOrOtherCharactersIsRefused) {
    const std::string digits(642, '0');
    for (const std::string& wrong : {digits + "00", digits.substr(2), digits.substr(1) + "g"}) {
        ExpectRefusal("sample mural --set 362=" + wrong + " -o by_record.png", 2,
                      "is no block of 321 bytes");
    }
}

TEST_F(TilesTest, ConfigurationFileNamesTheTile) {
    folder_.Write("mine.ini", "[PlugIn]\nStyle008Matrix = 5\n");
    Output("sample mural --config mine.ini -o from_file.png");
    Output("tiles vorbelx1 5 -o five.png");
    EXPECT_TRUE(IsSame("from_file.png", "five.png"));
}

TEST_F(TilesTest, GroupThatAConfigurationNamesAndIsNotThereIsTold) {
    folder_.Write("gone.ini", "MatrixLibrary = gone.mtx\nStyle008Matrix = 3\n");
    const ProgramRun run = Run("sample mural --config gone.ini -o made.png");
    EXPECT_EQ(run.status, 0);
    EXPECT_NE(run.errors.find("gone.mtx: has no tile 3; the default tile stands for it"),
              std::string::npos)
        << run.errors;
    Output("config --config gone.ini --save");
    EXPECT_NE(Run("sample mural -o next.png").errors.find("gone.mtx: has no tile 3"),
              std::string::npos);
    EXPECT_TRUE(IsSame("next.png", "made.png"));
}

TEST_F(TilesTest, SavedTileIsTheNextRuns) {
    Output("sample mural --tile vorbelx1:5 --save -o first.png");
    Output("sample mural -o next.png");
    EXPECT_TRUE(IsSame("first.png", "next.png"));
    EXPECT_NE(Output("config").find("Style008Matrix = 5\n"), std::string::npos);
}

TEST_F(TilesTest, OwnGroupIsMadeChangedAndUsed) {
    Output("tiles vorbelx1 2 -o two.png");
    Output("tiles vorbelx1 3 -o three.png");
    Output("tiles mine --add two.png --add three.png");
    EXPECT_NE(Output("tiles mine").find("1      84 x 72      24\n"), std::string::npos);
    Output("tiles mine 0 --remove -o taken.png");
    EXPECT_TRUE(IsSame("taken.png", "two.png"));
    Output("sample mural --tile mine:0 -o sample.png");
    EXPECT_TRUE(IsSame("sample.png", "three.png"));
    EXPECT_NE(Output("tiles").find("mine                 1      yes"), std::string::npos);
}

TEST_F(TilesTest, TileIsToldWithItsSizeAndFile) {
    const std::string told = Output("tiles vorbelx1 3");
    EXPECT_TRUE(told.starts_with("tile 3 of vorbelx1: 84 x 72 pixels of 24 bits\nin ")) << told;
    EXPECT_TRUE(told.ends_with("groups/vorbelx1.mtx\n")) << told;
    const std::string json = Output("tiles vorbelx1 3 --json -o three.png");
    for (const char* part : {"\"index\": 3", "\"width\": 84", "\"depth\": 24", "vorbelx1.mtx\""})
        EXPECT_NE(json.find(part), std::string::npos) << json;
    EXPECT_EQ(folder_.Text("three.png").substr(1, 3), "PNG");
}

TEST_F(TilesTest, ColumnsStandBelowEachOtherForEveryName) {
    Output("tiles vorbelx1 2 -o two.png");
    Output("tiles Grün --add two.png");
    EXPECT_NE(Output("tiles").find("\nGrün                 1      yes"), std::string::npos);
}

TEST_F(TilesTest, GroupMayBeAFileAnywhere) {
    Output("tiles vorbelx1 2 -o two.png");
    Output("tiles ./own.mtx --add two.png");
    Output("sample mural --tile own.mtx:0 -o sample.png");
    EXPECT_TRUE(IsSame("sample.png", "two.png"));
    EXPECT_EQ(folder_.Names(), "own.mtx sample.png two.png");
}

TEST_F(TilesTest, NewGroupGetsItsEnding) {
    Output("tiles vorbelx1 2 -o two.png");
    Output("tiles ./own --add two.png");
    Output("tiles ./own --add two.png");
    EXPECT_NE(Output("tiles ./own").find("\n1 "), std::string::npos);
    EXPECT_EQ(folder_.Names(), "own.mtx own.mtx.bak two.png");
}

TEST_F(TilesTest, NewGroupNeedsAName) {
    Output("tiles vorbelx1 2 -o two.png");
    ExpectRefusal("tiles '' --add two.png", 2, "'' is empty");
    for (const char* name : {".", ".mtx", "./", "..", ".hidden"})
        ExpectRefusal(std::string("tiles ") + name + " --add two.png", 2, "is no name for a group");
    ExpectRefusal("tiles no/own --add two.png", 1, "no/own.mtx: cannot be created: No such file");
    EXPECT_EQ(folder_.Names(), "two.png");
}

TEST_F(TilesTest, TileOfADocumentIsFoundFromAnyFolder) {
    Output("tiles vorbelx1 2 -o two.png");
    Output("tiles ./own --add two.png");
    Output("document --set effect=mural --tile own.mtx:0 -o own.qv1");
    const ProgramRun run = Run("sample --document ../own.qv1 -o ../made.png", "mkdir x && cd x &&");
    EXPECT_EQ(run.errors, "");
    EXPECT_TRUE(IsSame("made.png", "two.png"));
}

TEST_F(TilesTest, TileThatIsGoneIsToldBeforeTheDefaultOneIsBuilt) {
    Output("tiles vorbelx1 2 -o two.png");
    Output("tiles ./own --add two.png");
    Output("document --set effect=mural --tile own.mtx:0 -o own.qv1");
    std::filesystem::remove(folder_.File("own.mtx"));
    for (const char* words : {"sample --document own.qv1 -o a.png",
                              "build --document own.qv1 --set frames=2 -o a.gif"}) {
        const ProgramRun run = Run(words);
        EXPECT_EQ(run.status, 0);
        EXPECT_NE(run.errors.find("own.mtx: has no tile 0; the default tile stands for it\n"),
                  std::string::npos)
            << run.errors;
        EXPECT_EQ(Run(std::string(words) + " --quiet").errors, "");
    }
    EXPECT_EQ(Run("sample bubbles --document own.qv1 -o a.png").errors, "");
}

TEST_F(TilesTest, IndexBehindTheGroupIsToldWithItsCount) {
    ExpectRefusal("sample mural --tile vorbelx1:99 -o x.png", 2, "'99' is out of range; vorbelx1");
    ExpectRefusal("sample mural --set matrix=99 -o x.png", 2, "holds 37 tiles");
    ExpectRefusal("tiles vorbelx1 99 -o x.png", 2, "which holds 37");
    ExpectRefusal("tiles vorbelx1 -1 -o x.png", 2, "");
}

TEST_F(TilesTest, WhatIsNotThereIsTold) {
    ExpectRefusal("sample mural --tile nothing:0 -o x.png", 2, "there is no group 'nothing'");
    ExpectRefusal("sample mural --tile nothing -o x.png", 2, "GROUP:INDEX or a picture");
    ExpectRefusal("sample mural --tile nothing.png -o x.png", 1,
                  "nothing.png: cannot be read: No such file or directory");
    ExpectRefusal("tiles nothing", 1, "there is no group 'nothing'");
    ExpectRefusal("tiles nothing 0 --remove", 1, "there is no group 'nothing'");
}

TEST_F(TilesTest, ProtectedAndDamagedGroupsAreNotChanged) {
    Output("tiles vorbelx1 2 -o two.png");
    ExpectRefusal("tiles vorbelx1 --add two.png", 1, "cannot be changed");
    ExpectRefusal("tiles vorbelx1 0 --remove", 1, "cannot be changed");
    folder_.Write("damaged.mtx", "QRVNMTXf");
    ExpectRefusal("tiles damaged.mtx", 1, "is damaged");
    ExpectRefusal("tiles damaged.mtx --add two.png", 1, "is damaged");
    EXPECT_EQ(folder_.Text("damaged.mtx"), "QRVNMTXf");
}

TEST_F(TilesTest, TileThatCannotBeWrittenIsNotTakenOut) {
    Output("tiles vorbelx1 2 -o two.png");
    Output("tiles ./own --add two.png");
    const auto group = folder_.Bytes("own.mtx");
    ProgramRunTest::ExpectRefusal(
        Run("tiles ./own 0 --remove -o -", "full() { \"$@\" >/dev/full; }; full"), 1,
        "standard output cannot be written");
    ExpectRefusal("tiles ./own 0 --remove -o none/a.png", 1, "none/a.png");
    EXPECT_EQ(folder_.Bytes("own.mtx"), group);
}

TEST_F(TilesTest, PictureThatIsTooLargeOrNoneIsRefusedAndTheGroupStays) {
    std::string large = "P6 513 513 255\n";
    large.resize(large.size() + 3 * 513 * 513);
    folder_.Write("large.ppm", large);
    ExpectRefusal("tiles mine --add large.ppm", 1, "too large");
    ExpectRefusal("tiles mine --add none.png", 1,
                  "none.png: cannot be read: No such file or directory");
    ExpectRefusal("tiles mine", 1, "there is no group");
}

TEST_F(TilesTest, DocumentTakesNoPictureAsTile) {
    Output("tiles vorbelx1 2 -o two.png");
    ExpectRefusal("document --tile two.png -o x.qv1", 2, "names a tile by its group");
}

TEST_F(TilesTest, WrongUseIsTold) {
    ExpectRefusal("tiles vorbelx1 -o x.png", 2, "-o FILE");
    ExpectRefusal("tiles vorbelx1 --remove", 2, "--remove");
    ExpectRefusal("tiles --add x.png", 2, "--add");
}

class DefaultTiles : public ::testing::Test {
protected:
    DefaultTiles() {
        EXPECT_EQ(ReadMatrixGroup(ProvidedGroupFolder() + "vorbelx1.mtx", &group_),
                  GroupReading::Whole);
    }
    MatrixGroup group_;
};

TEST_F(DefaultTiles, AreAtLeast24AndNotToBeChanged) {
    EXPECT_GE(group_.Count(), 24);
    EXPECT_FALSE(group_.IsWriteable);
}

TEST_F(DefaultTiles, AreAllDifferent) {
    std::set<std::vector<std::uint8_t>> tiles;
    for (int i = 0; i < group_.Count(); ++i)
        tiles.insert(ImageBytes(group_.Element(i)));
    EXPECT_EQ(tiles.size(), static_cast<std::size_t>(group_.Count()));
}

TEST_F(DefaultTiles, JoinThemselvesNoMoreRoughlyThanTheyRunInside) {
    for (int i = 0; i < group_.Count(); ++i) {
        const LockedImage image(group_.Element(i));
        ASSERT_TRUE(image);
        SeamMeter meter(image->Width, image->Height);
        ASSERT_TRUE(meter);
        meter.AddPicture(image);
        const SeamFigures figures = meter.Figures();
        EXPECT_LE(figures.Columns.Join, figures.Columns.InsideMost) << i;
        EXPECT_LE(figures.Rows.Join, figures.Rows.InsideMost) << i;
    }
}

TEST_F(DefaultTiles, AreNoLargerThan128AndNotOfOneColor) {
    for (int i = 0; i < group_.Count(); ++i) {
        const LockedImage image(group_.Element(i));
        EXPECT_LE(std::max(image->Width, image->Height), 128) << i;
        const auto pixels = Pixels(group_.Element(i));
        EXPECT_GT(std::set(pixels.begin(), pixels.end()).size(), 4u) << i;
    }
}

}  // namespace
}  // namespace tess
