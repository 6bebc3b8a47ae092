// The command `material`, from its words to its files and exit status.
#include <filesystem>
#include <gtest/gtest.h>

#include "programs/cli/material_values.h"
#include "programs/cli/picture_file.h"
#include "tests/programs/program_run.h"
#include "tests/support/image_bytes.h"

namespace tess {
namespace {

using test::ProgramRun;
using test::ProgramRunTest;

class MaterialCommand : public ProgramRunTest {
protected:
    ProgramRun Run(const std::string& words) { return folder_.Run("material " + words); }
    // The pixels of a picture that the program makes with these words.
    std::vector<std::uint32_t> Picture(const std::string& words) {
        const ProgramRun run = Run(words + " -o made.png");
        EXPECT_EQ(run.status, 0) << run.errors;
        std::string error;
        const platform::OwnedBlock picture(ReadPicture(folder_.File("made.png"), &error));
        EXPECT_EQ(error, "");
        return Pixels(picture.Get());
    }
    // A group of one tile, "own.mtx".
    void WriteOwnGroup() {
        EXPECT_EQ(Run("--size 4x4 -o tile.png").status, 0);
        EXPECT_EQ(folder_.Run("tiles ./own --add tile.png").status, 0);
    }
    static std::string Line(const std::string& key, const std::string& value) {
        return key + std::string(15 - key.size(), ' ') + value + "\n";
    }
};

TEST_F(MaterialCommand, ShowsAPlainOneWithoutAFile) {
    const ProgramRun run = Run("");
    EXPECT_EQ(run.status, 0);
    EXPECT_NE(run.output.find(Line("mode", "simple")), std::string::npos);
    EXPECT_NE(run.output.find(Line("start-color", "#404040")), std::string::npos);
    EXPECT_NE(run.output.find(",32:#0000FF,64:#00FFFF,"), std::string::npos);
}

TEST_F(MaterialCommand, WritesAFileThatReadsBack) {
    EXPECT_EQ(Run("--set mode=gradient --set color=#102030 --set rotation=-90 "
                  "--set two-color=no -o a.mtrl")
                  .status,
              0);
    EXPECT_EQ(folder_.Bytes("a.mtrl").size(), 1270u);
    const std::string shown = Run("a.mtrl").output;
    EXPECT_NE(shown.find(Line("mode", "gradient")), std::string::npos);
    EXPECT_NE(shown.find(Line("color", "#102030")), std::string::npos);
    EXPECT_NE(shown.find(Line("rotation", "-90")), std::string::npos);
    EXPECT_NE(shown.find(Line("two-color", "no")), std::string::npos);
}

TEST_F(MaterialCommand, ShowsJson) {
    const std::string shown = Run("--json --set midpoint=7").output;
    EXPECT_NE(shown.find("\"mode\": \"simple\""), std::string::npos);
    EXPECT_NE(shown.find("\"midpoint\": 7"), std::string::npos);
    EXPECT_NE(shown.find("\"two-color\": true"), std::string::npos);
}

TEST_F(MaterialCommand, RendersAtItsSize) {
    EXPECT_EQ(Picture("--set color=#102030 --size 3x2"), std::vector<std::uint32_t>(6, 0x302010));
    EXPECT_EQ(Picture("").size(), 128u * 128u);
}

TEST_F(MaterialCommand, RendersTheExampleOfTheFormatsDescription) {
    constexpr std::uint32_t kStart = 0x302010, kThird = 0x746A5F, kEnd = 0xFFFFFF;
    EXPECT_EQ(Run("--set mode=gradient --set color=#336699 --set gradient-type=rectangular "
                  "--set start-color=#102030 --set end-color=#FFFFFF --set center-x=-20 "
                  "-o a.mtrl --size 1x1")
                  .status,
              0);
    EXPECT_EQ(Picture("a.mtrl --size 4x4"),
              (std::vector<std::uint32_t>{kThird, kThird, kThird, kStart,  //
                                          kEnd, kEnd, kThird, kStart,      //
                                          kThird, kThird, kThird, kStart,  //
                                          kStart, kStart, kStart, kStart}));
}

TEST_F(MaterialCommand, RendersEachModeAsTheCoreDoes) {
    for (int mode = 0; mode < kMaterialModes; ++mode) {
        Material material;
        InitMaterial(&material, 0xC0C0C0);
        material.Mode = static_cast<MaterialMode>(mode);
        const platform::OwnedBlock expected(RenderMaterial(&material, 40, 30));
        EXPECT_EQ(Picture("--size 40x30 --set mode=" + std::to_string(mode)),
                  Pixels(expected.Get()));
    }
}

// The file may come from another machine.
TEST_F(MaterialCommand, TileOfAFileThatIsNotThereIsTheDefaultOneAndTold) {
    WriteOwnGroup();
    EXPECT_EQ(Run("--set mode=tile --set tile-group=own.mtx -o a.mtrl").status, 0);
    std::filesystem::remove(folder_.File("own.mtx"));
    const ProgramRun run = Run("a.mtrl --size 8x8 -o a.png");
    EXPECT_EQ(run.status, 0);
    EXPECT_NE(run.errors.find("own.mtx: has no tile 0; the default tile stands for it\n"),
              std::string::npos)
        << run.errors;
    EXPECT_EQ(Run("a.mtrl --size 8x8 -o b.png --quiet").errors, "");
    EXPECT_EQ(folder_.Bytes("a.png"), folder_.Bytes("b.png"));
}

TEST_F(MaterialCommand, TileThatIsSetMustBeThere) {
    WriteOwnGroup();
    ExpectRefusal(Run("--set tile-group=none"), 2, "tile-group: there is no group 'none'");
    ExpectRefusal(Run("--set tile-group=./none.mtx"), 2, "./none.mtx: cannot be read: No such");
    ExpectRefusal(Run("--set tile-element=1 --set tile-group=own.mtx"), 2,
                  "tile-element: '1' is out of range; own.mtx holds 1 tiles, counted from 0");
    ExpectRefusal(Run("--set mode=tile --set tile-element=3"), 2,
                  "tile-element: there is no tile-group");
    folder_.Write("damaged.mtx", "QRVNMTXf");
    ExpectRefusal(Run("--set tile-group=damaged.mtx"), 2, "is damaged");
}

TEST_F(MaterialCommand, TileGroupIsNamedFromTheRoot) {
    WriteOwnGroup();
    EXPECT_NE(
        Run("--set tile-group=own.mtx").output.find(Line("tile-group", folder_.File("own.mtx"))),
        std::string::npos);
    EXPECT_NE(Run("--set tile-group=own.mtx --set tile-group=").output.find(Line("tile-group", "")),
              std::string::npos);
}

TEST_F(MaterialCommand, FountainIsSetAsItIsShown) {
    const std::string colors = "#102030,25:#FF0000,#FFFFFF";
    EXPECT_NE(Run("--set fountain=" + colors).output.find(Line("fountain", colors)),
              std::string::npos);
    EXPECT_EQ(Run("--set fountain=" + colors + " -o a.mtrl").status, 0);
    EXPECT_NE(Run("a.mtrl --json").output.find("\"fountain\": \"" + colors + "\""),
              std::string::npos);
    const std::string gradient = "--set mode=gradient --set two-color=no --size 9x9 ";
    EXPECT_EQ(Picture(gradient + "a.mtrl"), Picture(gradient + "--set fountain=" + colors));
    EXPECT_NE(Picture(gradient + "a.mtrl"), Picture(gradient));
}

TEST_F(MaterialCommand, RefusesFilesThatAreNone) {
    ExpectRefusal(Run("nosuch.mtrl"), 1, "nosuch.mtrl: cannot be read: No such file or directory");
    Run("-o a.mtrl");
    std::string bytes = folder_.Text("a.mtrl");
    folder_.Write("short.mtrl", bytes.substr(0, 1269));
    ExpectRefusal(Run("short.mtrl -o a.png"), 1, "short.mtrl: is no material, or is cut off");
    bytes[0] = 'X';
    folder_.Write("other.mtrl", bytes);
    ExpectRefusal(Run("other.mtrl"), 1, "other.mtrl: is no material, or is cut off");
}

TEST_F(MaterialCommand, RefusesWrongUse) {
    ExpectRefusal(Run("-o a.gif"), 2, "it takes .png, .bmp or .mtrl");
    ExpectRefusal(Run("--set mode=plain"), 2,
                  "mode: 'plain' is not one of simple, gradient, texture, tile");
    ExpectRefusal(Run("--set rotation=361"), 2, "rotation: '361' is not -360 to 360");
    ExpectRefusal(Run("--set color=red"), 2, "color: 'red' is not a color");
    ExpectRefusal(Run("--set two-color=maybe"), 2, "two-color: 'maybe' is not yes or no");
    ExpectRefusal(Run("--set seed=5"), 2, "unknown key 'seed'");
    ExpectRefusal(Run("--size 64"), 2, "--size: '64' is not");
    ExpectRefusal(Run("--size 64x4097"), 2, "--size: '64x4097' is not");
    ExpectRefusal(Run("-o nosuch/a.mtrl"), 1, "nosuch/a.mtrl");
    ExpectRefusal(Run("--set fountain=#000000"), 2, "fountain: '#000000' has one color");
}

TEST_F(MaterialCommand, DamagedTextureThatCannotBeRenderedIsToldAsSuch) {
    Run("--set mode=texture -o a.mtrl");
    std::string bytes = folder_.Text("a.mtrl");
    bytes[649] = 77;  // the kind
    folder_.Write("a.mtrl", bytes);
    ExpectRefusal(Run("a.mtrl -o a.png"), 1, "cannot be rendered");
    EXPECT_NE(Run("a.mtrl").output.find(Line("texture-type", "77")), std::string::npos);
}

TEST(MaterialValues, EachTakesItsEndsAndNothingBeyond) {
    for (const MaterialValue& row : MaterialValues()) {
        if (row.Kind == MaterialValueKind::Color || row.Kind == MaterialValueKind::Switch) continue;
        Material material;
        InitMaterial(&material, 0);
        for (const int end : {row.Least, row.Most}) {
            EXPECT_EQ(SetMaterialValue(&material, row.Name, std::to_string(end)), "") << row.Name;
            EXPECT_EQ(row.Get(material), end) << row.Name;
        }
        EXPECT_NE(SetMaterialValue(&material, row.Name, std::to_string(std::int64_t{row.Most} + 1)),
                  "")
            << row.Name;
        EXPECT_NE(SetMaterialValue(&material, row.Name, std::to_string(row.Least - 1)), "")
            << row.Name;
        EXPECT_EQ(row.Get(material), row.Most) << row.Name;
    }
}

TEST(MaterialValues, WhatIsShownSetsTheSame) {
    Material material, other;
    InitMaterial(&material, 0x123456);
    InitMaterial(&other, 0);
    material.Gradient.Type = GradientType::Rectangular;
    for (const MaterialValue& row : MaterialValues()) {
        EXPECT_EQ(SetMaterialValue(&other, row.Name, ShownMaterialValue(row, material)), "");
        EXPECT_EQ(row.Get(other), row.Get(material)) << row.Name;
    }
}

}  // namespace
}  // namespace tess
