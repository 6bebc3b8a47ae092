// How a group of textures or tiles may be called, with each command that takes one.
#include <filesystem>
#include <gtest/gtest.h>

#include "programs/cli/group_files.h"
#include "programs/default_groups.h"
#include "tests/programs/program_run.h"

namespace tess {
namespace {

using test::ProgramRun;
using test::ProgramRunTest;

constexpr char kUserGroups[] = "data/Quorvenstadtholme/Tessellomatics 1";

class GroupNames : public ProgramRunTest {
protected:
    GroupNames() {
        std::filesystem::create_directories(folder_.File(kUserGroups));
        for (const char* extension : {".mtx", ".fft"}) {
            const std::string provided = ProvidedGroupFolder() + "vorbelx1" + extension;
            const auto own = std::string(kUserGroups) + "/Mine" + extension;
            std::filesystem::copy(provided, folder_.File(own));
            std::filesystem::copy(provided, folder_.File(std::string("here") + extension));
        }
    }
    ProgramRun Run(const std::string& words) {
        return folder_.Run(words, "XDG_DATA_HOME=$PWD/data");
    }
    // Runs every command on the group that it calls `name`, with the extension where the
    // name is to have one.
    void ExpectEach(const std::string& name, bool has_extension, bool is_there) {
        const std::string tiles = name + (has_extension ? ".mtx" : "");
        const std::string textures = name + (has_extension ? ".fft" : "");
        const std::string commands[] = {
            "tiles " + tiles,
            "tiles " + tiles + " 3",
            "sample mural --tile " + tiles + ":3 -o made.bmp",
            "material --set tile-element=3 --set mode=tile --set tile-group=" + tiles,
            "texture " + textures,
            "texture " + textures + " 3 -o made.bmp",
        };
        for (const std::string& words : commands) {
            const ProgramRun run = Run(words);
            EXPECT_EQ(run.status == 0, is_there) << words << ": " << run.errors;
            EXPECT_EQ(run.errors.find(name) != std::string::npos, !is_there) << run.errors;
        }
    }
};

TEST_F(GroupNames, EverySpellingGoesWithEveryCommand) {
    for (const bool has_extension : {false, true}) {
        for (const char* name : {"vorbelx1", "VORBELX1", "mine", "MINE", "./here"})
            ExpectEach(name, has_extension, true);
    }
    ExpectEach("here", true, true);
}

TEST_F(GroupNames, WhatIsNotThereIsToldByEveryCommand) {
    for (const bool has_extension : {false, true}) {
        for (const char* name : {"nothing", "./nothing", "./vorbelx1", "mi", "nothing/"})
            ExpectEach(name, has_extension, false);
    }
    ExpectEach("here", false, false);
    std::filesystem::create_directory(folder_.File("folder.mtx"));
    EXPECT_EQ(Run("tiles ./folder.mtx").status, 1);
}

TEST_F(GroupNames, EachCommandTakesTheSameTile) {
    EXPECT_EQ(Run("tiles VORBELX1 3 -o tile.png").status, 0);
    EXPECT_EQ(Run("sample mural --tile vorbelx1.MTX:3 -o mural.png").status, 0);
    EXPECT_EQ(Run("material --set tile-group=Vorbelx1 --set tile-element=3 --set mode=tile "
                  "--size 84x72 -o material.png")
                  .status,
              0);
    const auto tile = folder_.Bytes("tile.png");
    EXPECT_FALSE(tile.empty());
    EXPECT_EQ(folder_.Bytes("mural.png"), tile);
    EXPECT_EQ(folder_.Bytes("material.png"), tile);
}

TEST_F(GroupNames, UsersOwnGoesBeforeTheProvidedOne) {
    EXPECT_NE(Run("tiles vorbelx1 0").output.find(ProvidedGroupFolder().substr(0, 8)),
              std::string::npos);
    std::filesystem::copy(folder_.File("here.mtx"),
                          folder_.File(std::string(kUserGroups) + "/VORBELX1.MTX"));
    EXPECT_NE(Run("tiles vorbelx1 0").output.find("Tessellomatics 1/VORBELX1.MTX"),
              std::string::npos);
    // A file of that name in the folder where the program is run is nearer still.
    std::filesystem::copy(folder_.File("here.mtx"), folder_.File("vorbelx1.mtx"));
    EXPECT_NE(Run("tiles vorbelx1.mtx 0").output.find("in vorbelx1.mtx\n"), std::string::npos);
    EXPECT_NE(Run("tiles vorbelx1 0").output.find("Tessellomatics 1/"), std::string::npos);
}

TEST_F(GroupNames, PathThatGoesBackBehindALinkIsThatOfTheFile) {
    std::filesystem::create_directories(folder_.File("real/sub"));
    std::filesystem::copy(folder_.File("here.mtx"), folder_.File("real/tiles.mtx"));
    std::filesystem::create_directory_symlink("real/sub", folder_.File("link"));
    ExpectRefusal(Run("sample mural --tile link/../here.mtx:3 -o made.png"), 2, "link/../here.mtx");
    const ProgramRun run = Run("sample mural --tile link/../tiles.mtx:3 -o made.png");
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.errors, "");
    EXPECT_EQ(Run("tiles here.mtx 3 -o tile.png").status, 0);
    EXPECT_EQ(folder_.Bytes("made.png"), folder_.Bytes("tile.png"));
    EXPECT_EQ(Run("material --set tile-group=link/../tiles.mtx").status, 0);
}

TEST_F(GroupNames, LinkToAGroupKeepsItsName) {
    std::filesystem::create_directory(folder_.File("real"));
    std::filesystem::create_symlink("../here.mtx", folder_.File("real/mine.mtx"));
    EXPECT_NE(Run("material --set tile-group=./real/mine").output.find("/real/mine.mtx\n"),
              std::string::npos);
}

TEST_F(GroupNames, PathThatATileDoesNotHoldIsRefused) {
    const std::string folder(200, 'a'), name(100, 'b');
    std::filesystem::create_directory(folder_.File(folder));
    const std::string path = folder + "/" + name + ".mtx";
    std::filesystem::copy(folder_.File("here.mtx"), folder_.File(path));
    ExpectRefusal(Run("sample mural --tile " + path + ":3 -o made.png"), 2, "' is too long a path");
    ExpectRefusal(Run("material --set tile-group=" + path), 2, "' is too long a path");
}

TEST_F(GroupNames, SpellingOfTheCaseGoesBeforeOthers) {
    folder_.Write(std::string(kUserGroups) + "/MINE.mtx", "other");
    EXPECT_EQ(Run("tiles Mine").status, 0);
    EXPECT_EQ(Run("tiles MINE").status, 1);
}

TEST(GroupFiles, EndingCountsInEitherCaseBehindAName) {
    EXPECT_TRUE(EndsIn("a.MTX", ".mtx"));
    EXPECT_FALSE(EndsIn(".mtx", ".mtx"));
    EXPECT_FALSE(EndsIn("a-mtx", ".mtx"));
}

}  // namespace
}  // namespace tess
