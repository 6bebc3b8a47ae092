#include "shell/configuration.h"

#include "pipeline/remapping.h"
#include "tests/shell/main_dialog_fixture.h"

namespace tess::test {

namespace {

class ConfigurationTest : public MainDialogTest {
protected:
    /// Reads a file of this text over the variables.
    void Read(const std::string& text) {
        WriteAll(ConfigurationPath(), text);
        ReadConfiguration();
    }
    static std::uint32_t ValueOf(std::string_view name) {
        for (const ConfigKey& key : ConfigurationTable()) {
            if (key.Name == name) return *static_cast<std::uint32_t*>(key.Value);
        }
        ADD_FAILURE() << "no key " << name;
        return 0;
    }
};

TEST_F(ConfigurationTest, TableHas304RowsAndStartsWithTheGeneralKeys) {
    EXPECT_EQ(ConfigurationTable().size(), 304u);
    EXPECT_STREQ(ConfigurationTable()[0].Name, "AddDescriptiveCommentBlock");
    EXPECT_STREQ(ConfigurationTable()[26].Name, "VersionNumber");
    EXPECT_STREQ(ConfigurationTable()[27].Name, "Style000Background");
    EXPECT_STREQ(ConfigurationTable()[303].Name, "Style019Width");
}

TEST_F(ConfigurationTest, StyleNumbersFollowTheFileAndNotTheEffectList) {
    std::string last;
    for (std::size_t i = 27; i < ConfigurationTable().size(); ++i) {
        const std::string prefix = std::string(ConfigurationTable()[i].Name).substr(0, 8);
        EXPECT_GE(prefix, last);
        last = prefix;
    }
}

TEST_F(ConfigurationTest, NewInstallationOpensWithGridlockAndItsDefaults) {
    EXPECT_EQ(MainEffect, 5u);
    EXPECT_EQ(MainPalette, 6u);
    EXPECT_EQ(MainDelay, 4u);
    EXPECT_EQ(DitherContrast, 20u);
    EXPECT_EQ(ValueOf("Style016Frames"), 64u);
}

TEST_F(ConfigurationTest, BlanksAndDoubledEqualSignsReadTheSame) {
    for (const char* line : {"MainDelay=7\n", "MainDelay = 7\n", "MainDelay  ==  7\r\n"}) {
        MainDelay = 0;
        Read(line);
        EXPECT_EQ(MainDelay, 7u) << line;
    }
}

TEST_F(ConfigurationTest, BeginningOfAKeySetsTheFirstThatBeginsWithIt) {
    Read("Main = 9\n");
    EXPECT_EQ(MainDelay, 9u);
}

TEST_F(ConfigurationTest, EmptyNameSetsTheFirstRow) {
    Read("= 0\n");
    EXPECT_EQ(AddDescriptiveCommentBlock, 0u);
}

TEST_F(ConfigurationTest, UnknownKeysCommentsAndSectionsAreSkipped) {
    Read(";MainDelay = 8\n[PlugIn]\nNoSuchKey = 3\nMainDither = 1\n");
    EXPECT_EQ(MainDelay, 4u);
    EXPECT_EQ(MainDither, 1u);
}

TEST_F(ConfigurationTest, WriteOnlyKeysAreNotRead) {
    Read("PatchLevel = 77\nVersionNumber = 78\n");
    EXPECT_EQ(ValueOf("PatchLevel"), 1u);
    EXPECT_EQ(ValueOf("VersionNumber"), 512u);
}

TEST_F(ConfigurationTest, ShiftReadsNothing) {
    platform::HoldShift(true);
    Read("MainDelay = 7\n");
    EXPECT_EQ(MainDelay, 4u);
}

TEST_F(ConfigurationTest, TextIsHeldIn260Bytes) {
    Read("CurrentFileName = " + std::string(400, 'x') + "\n");
    EXPECT_EQ(std::string(CurrentFileName), std::string(260 - 18, 'x'));
}

TEST_F(ConfigurationTest, WhatWasWrittenReadsBack) {
    MainDelay = 11;
    std::snprintf(CurrentFileName, sizeof CurrentFileName, "garden wall.qv1");
    WriteConfiguration();
    MainDelay = 4;
    CurrentFileName[0] = '\0';
    ReadConfiguration();
    EXPECT_EQ(MainDelay, 11u);
    EXPECT_STREQ(CurrentFileName, "garden wall.qv1");
}

TEST_F(ConfigurationTest, FileBeginsWithItsCommentAndSection) {
    WriteConfiguration();
    std::string text = ReadAll(ConfigurationPath());
    std::erase(text, '\r');
    EXPECT_TRUE(
        text.starts_with(";Quorvenstadtholme animtion plugin configuration file\n"
                         ";Edit this at your own risk\n"
                         ";Last updated "));
    // The 24 characters of the time, and what follows them.
    EXPECT_EQ(text.substr(96 + 24, 33), "\n;\n[PlugIn]\nAddDescriptiveComment");
}

TEST_F(ConfigurationTest, MissingFolderIsNoFailure) {
    platform::SetUserFolder(PathOf("missing"));
    WriteConfiguration();
    ReadConfiguration();
    EXPECT_EQ(MainDelay, 4u);
    EXPECT_FALSE(std::filesystem::exists(PathOf("missing")));
}

}  // namespace

}  // namespace tess::test
