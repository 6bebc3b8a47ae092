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
    static std::string CommentOf(std::size_t length) {
        std::string comment(length, 'x');
        comment[0] = ';';
        return comment;
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

TEST_F(ConfigurationTest, EmptyLineSetsTheFirstRowToZero) {
    Read("MainDither = 1\n\n");
    EXPECT_EQ(AddDescriptiveCommentBlock, 0u);
}

TEST_F(ConfigurationTest, LineIsCutAtItsFirstControlCharacter) {
    std::snprintf(CurrentFileName, sizeof CurrentFileName, "old.qv1");
    Read("MainDelay\t= 7\nCurrentFileName = new\x1A.qv1\nMainDither = 1\n");
    EXPECT_EQ(MainDelay, 0u);
    EXPECT_STREQ(CurrentFileName, "new");
    EXPECT_EQ(MainDither, 1u);
}

TEST_F(ConfigurationTest, TextKeepsItsBlanksAndLettersOfAnyAlphabet) {
    Read("CurrentFileName = = two  words =\xFC.qv1 \n");
    EXPECT_STREQ(CurrentFileName, "= two  words =\xFC.qv1 ");
}

TEST_F(ConfigurationTest, NamesAreComparedByteForByte) {
    Read("maindelay = 7\nMainDelayx = 8\n");
    EXPECT_EQ(MainDelay, 4u);
}

TEST_F(ConfigurationTest, WhatIsNoNumberIsZeroAndOtherNumbersAreHeld) {
    Read("MainDelay = x7\nMainDepth = 12abc\nMainSteps = -3\nMainRolling = 99999999999\n");
    EXPECT_EQ(MainDelay, 0u);
    EXPECT_EQ(ValueOf("MainDepth"), 12u);
    EXPECT_EQ(ValueOf("MainSteps"), 4294967293u);
    EXPECT_EQ(ValueOf("MainRolling"), 2147483647u);
}

TEST_F(ConfigurationTest, LineBeyond260BytesIsReadInPieces) {
    // The comment ends with the buffer: what follows is a line of its own.
    Read(CommentOf(260) + "MainDelay = 7\n");
    EXPECT_EQ(MainDelay, 7u);
    Read(CommentOf(260) + "\n");  // and so is the line end
    EXPECT_EQ(AddDescriptiveCommentBlock, 0u);
}

TEST_F(ConfigurationTest, EitherLineEndCountsAsOneCharacter) {
    for (const char* line_end : {"\n", "\r\n"}) {
        AddDescriptiveCommentBlock = 1;
        Read(CommentOf(259) + line_end);
        EXPECT_EQ(AddDescriptiveCommentBlock, 1u);
    }
}

TEST_F(ConfigurationTest, LastLineNeedsNoLineEnd) {
    Read("MainDelay = 7");
    EXPECT_EQ(MainDelay, 7u);
}

TEST_F(ConfigurationTest, EveryRowIsANumberOrAText) {
    for (const ConfigKey& key : ConfigurationTable())
        EXPECT_NE(key.IsNumber(), key.IsText()) << key.Name;
}

TEST_F(ConfigurationTest, EveryReadableRowIsFoundByItsWholeName) {
    std::string text;
    std::uint32_t number = 1000;
    for (const ConfigKey& key : ConfigurationTable())
        text += std::string(key.Name) + " = " + std::to_string(number++) + "\n";
    ReadConfigurationText(text);
    number = 1000;
    for (const ConfigKey& key : ConfigurationTable()) {
        const std::uint32_t expected = number++;
        if (key.IsNumber() && key.IsReadable()) {
            EXPECT_EQ(*static_cast<std::uint32_t*>(key.Value), expected) << key.Name;
        }
    }
}

TEST_F(ConfigurationTest, EveryNumberOf32BitsReadsBack) {
    for (const std::uint32_t number : {0u, 0x7FFFFFFFu, 0x80000000u, 0xFFFFFFFFu}) {
        MainEffect = number;
        WriteConfiguration();
        MainEffect = 5;
        ReadConfiguration();
        EXPECT_EQ(MainEffect, number);
    }
}

TEST_F(ConfigurationTest, ReadingLeavesTheFileAsItWas) {
    const std::string text = "rubbish\r\n" + CommentOf(1000);
    Read(text);
    EXPECT_EQ(ReadAll(ConfigurationPath()), text);
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
