// Configurations and documents on the command line.
#include <algorithm>
#include <filesystem>
#include <gtest/gtest.h>

#include "controls/spinner.h"
#include "platform/resources.h"
#include "shell/configuration.h"
#include "shell/style_table.h"
#include "tests/programs/program_run.h"
#include "tests/support/gif_reader.h"

namespace tess {
namespace {

using test::ProgramRun;
using test::ProgramRunTest;

constexpr char kSmall[] = " --set width=32 --set depth=16 --set size=10 --set density=8";

class SavedValuesTest : public ProgramRunTest {
protected:
    // The configuration that a run with these words would save, line by line.
    std::string Config(const std::string& words) { return Output("config " + words); }
    static bool Holds(const std::string& text, const std::string& line) {
        return text.find("\n" + line + "\n") != std::string::npos;
    }
    void WriteDocument(const std::string& words) {
        ASSERT_EQ(Output("document -o a.qv1 " + words), "");
    }
};

// A value that a row of the table takes and that is not its start value: as a user writes
// it, and as the configuration holds it.
struct OtherValue {
    std::string written, held;
    explicit OtherValue(std::string value) : written(value), held(std::move(value)) {}
    OtherValue(std::string text, std::string index)
        : written(std::move(text)), held(std::move(index)) {}
};

OtherValue ValueFor(const ConfigKey& row) {
    if (row.IsText()) return OtherValue("some.text");
    for (const StyleEntry* style : StyleTable) {
        for (const StyleParameter& parameter : style->Parameters) {
            if (parameter.Key == nullptr || std::string(parameter.Key) != row.Name) continue;
            if (parameter.Kind == ParameterKind::ChoiceList && parameter.Start != 0) {
                const std::string items = parameter.Detail;
                return {items.substr(0, items.find(';')), "0"};
            }
            if (parameter.Kind != ParameterKind::Spinner)
                return OtherValue(parameter.Start == 1 ? "0" : "1");
            SpinnerRange range{0, 0, 0};
            for (const auto& control :
                 platform::FindDialogTemplate(style->PanelTemplate)->controls) {
                if (control.id == parameter.ControlId + kCompanionOffset) {
                    ReadSpinnerRange(control.text, &range);
                }
            }
            return OtherValue(std::to_string(range.minimum + 1));
        }
    }
    return OtherValue(*static_cast<const std::uint32_t*>(row.Value) == 1 ? "0" : "1");
}

TEST_F(SavedValuesTest, ConfigurationOfANewInstallationIsTheFilesText) {
    const std::string text = Config("");
    EXPECT_TRUE(
        text.starts_with(";Quorvenstadtholme animtion plugin configuration file\n"
                         ";Edit this at your own risk\n;Last updated "));
    EXPECT_TRUE(Holds(text, "[PlugIn]\nAddDescriptiveCommentBlock = 1"));
    EXPECT_TRUE(Holds(text, "FirstRun = 1"));
    EXPECT_TRUE(Holds(text, "Style000Seed = 10632"));
    EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 5 + 304);
}

TEST_F(SavedValuesTest, EveryKeyOfTheTableCanBeSet) {
    std::string words, lines;
    for (const ConfigKey& row : ConfigurationTable()) {
        words +=
            std::string(" --set ").append(row.Name).append("='").append(ValueFor(row).written) +=
            "'";
        lines += std::string(row.Name).append(" = ").append(ValueFor(row).held).append("\n");
    }
    const std::string text = Config(words);
    EXPECT_EQ(text.substr(text.find("[PlugIn]\n") + 9), lines);
}

TEST_F(SavedValuesTest, ConfigurationFileSetsWhatItHoldsInItsPlaceAmongTheSettings) {
    folder_.Write("a.ini", "[PlugIn]\r\nStyle000Seed = 777\r\nStyle000Width==99\r\n");
    const std::string text = Config("--set Style000Seed=555 --config a.ini --set Style000Width=88");
    EXPECT_TRUE(Holds(text, "Style000Seed = 777"));
    EXPECT_TRUE(Holds(text, "Style000Width = 88"));
}

TEST_F(SavedValuesTest, ConfigurationFileIsReadAsTheDialogReadsIt) {
    folder_.Write("a.ini", "Main = 9\nNoSuchKey = 3\n= 0\nVersionNumber = 7\nMainEffect=99\n");
    const std::string text = Config("--config a.ini");
    EXPECT_TRUE(Holds(text, "MainDelay = 9"));
    EXPECT_TRUE(Holds(text, "AddDescriptiveCommentBlock = 0"));
    EXPECT_TRUE(Holds(text, "VersionNumber = 512"));
    EXPECT_TRUE(Holds(text, "MainEffect = 99"));
}

TEST_F(SavedValuesTest, ConfigurationFileReachesTheControls) {
    folder_.Write("a.ini",
                  "Style000Seed = 777\nStyle000FillColor1 = 255\nStyle000Inverse = 1\n"
                  "Style000Width = 32\nStyle001Scroll = 3\nMainEffect = 1\n");
    ASSERT_EQ(Run("sample -o a.bmp --config a.ini").status, 0);
    ASSERT_EQ(Run("sample bubbles -o b.bmp --set seed=777 --set fill-color-1=#FF0000 --set "
                  "inverse=yes --set width=32")
                  .status,
              0);
    EXPECT_EQ(folder_.Bytes("a.bmp"), folder_.Bytes("b.bmp"));
}

TEST_F(SavedValuesTest, PrintedConfigurationReadsBackToItself) {
    folder_.Write("a.ini", Config("--set Style000Seed=777 --set CurrentFileName='garden wall'"));
    const std::string text = Config("--config a.ini");
    const std::string written = folder_.Text("a.ini");
    EXPECT_EQ(text.substr(text.find("[PlugIn]")), written.substr(written.find("[PlugIn]")));
}

TEST_F(SavedValuesTest, TextOfMoreThanOneLineIsRefused) {
    ExpectRefusal(Run("config --set OpenPath=\"$(printf 'a\\nMainDelay=7')\""), 2, "OpenPath");
    ExpectRefusal(Run("config --set OpenPath=" + std::string(260, 'x')), 2, "259 bytes");
}

TEST_F(SavedValuesTest, UnreadableFilesAreTold) {
    for (const char* command : {"config", "sample -o s.bmp", "document -o d.qv1"}) {
        ExpectRefusal(Run(std::string(command) + " --config none.ini"), 1,
                      "none.ini: cannot be read: No such file or directory");
        ExpectRefusal(Run(std::string(command) + " --config ."), 1,
                      ".: cannot be read: Is a directory");
        ExpectRefusal(Run(std::string(command) + " --document none.qv1"), 1,
                      "none.qv1: There has been an error opening the requested file.");
        ExpectRefusal(Run(std::string(command) + " --document ."), 1, ".: There has been an error");
    }
    EXPECT_EQ(folder_.Names(), "");
}

TEST_F(SavedValuesTest, FileThatIsNoConfigurationIsWarnedOf) {
    folder_.Write("passwd", "root:x:0:0:root:/root:/bin/bash\n\n= 3\nStyle000Seed\n");
    const ProgramRun run = Run("sample bubbles -o s.bmp --config passwd");
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.errors, "tessellomatics: passwd: holds no line of a configuration\n");
    EXPECT_EQ(Run("config --config passwd --quiet").errors, "");
    folder_.Write("a.ini", "Main = 9\n");
    EXPECT_EQ(Run("config --config a.ini").errors, "");
}

TEST_F(SavedValuesTest, ConfigTakesEverySettingThatARunTakes) {
    EXPECT_EQ(Run("fountain '#000000,#FFFFFF' -o a.mtrl").status, 0);
    const std::string text = Config(
        "--set effect=fountain --fountain fountain=a.mtrl --tile vorbelx1:5 "
        "--set fountain='#000000,#FFFFFF'");
    EXPECT_TRUE(Holds(text, "Style008Matrix = 5"));
}

TEST_F(SavedValuesTest, SavedValuesAreWhereTheNextRunStarts) {
    Config("--set Style000Seed=777 --set Style004Frames=9 --save");
    EXPECT_TRUE(Holds(Config(""), "Style000Seed = 777"));
    Output("sample bubbles -o s.bmp --set seed=888 --save");
    const std::string text = Config("");
    EXPECT_TRUE(Holds(text, "Style000Seed = 888"));
    EXPECT_TRUE(Holds(text, "Style004Frames = 9"));
    EXPECT_TRUE(Holds(text, "MainEffect = 1"));
}

TEST_F(SavedValuesTest, NothingIsSavedWithoutSave) {
    Config("--set Style000Seed=777 --save");
    Output("sample bubbles -o s.bmp --set seed=888");
    Output("document -o a.qv1 --set Style000Seed=888");
    Output("build bubbles -o a.gif --set seed=888 --set frames=2" + std::string(kSmall));
    EXPECT_TRUE(Holds(Config("--set Style000Seed=888"), "Style000Seed = 888"));
    EXPECT_TRUE(Holds(Config(""), "Style000Seed = 777"));
}

TEST_F(SavedValuesTest, NothingIsSavedOfARunThatIsRefused) {
    Config("--set Style000Seed=777 --save");
    EXPECT_EQ(Run("config --set Style000Seed=888 --set Style000Width=1 --save").status, 2);
    EXPECT_EQ(Run("config --set Style000Seed=888 --document none.qv1 --save").status, 1);
    EXPECT_TRUE(Holds(Config(""), "Style000Seed = 777"));
}

TEST_F(SavedValuesTest, DefaultsPassOverWhatWasSaved) {
    Config("--set Style000Seed=777 --save");
    EXPECT_TRUE(Holds(Config("--defaults"), "Style000Seed = 10632"));
    EXPECT_TRUE(Holds(Config("--defaults --save"), "Style000Seed = 10632"));
    EXPECT_TRUE(Holds(Config(""), "Style000Seed = 10632"));
}

TEST_F(SavedValuesTest, SaveMakesTheFoldersAndOtherRunsMakeNone) {
    const std::string here = "XDG_DATA_HOME=$PWD/data; export XDG_DATA_HOME;";
    EXPECT_EQ(Run("config", here).status, 0);
    EXPECT_EQ(folder_.Names(), "");
    EXPECT_EQ(Run("config --save", here).status, 0);
    EXPECT_TRUE(
        std::filesystem::is_regular_file(folder_.File("data/Quorvenstadtholme/vorbelx1.ini")));
    EXPECT_TRUE(
        std::filesystem::is_directory(folder_.File("data/Quorvenstadtholme/Tessellomatics 1")));
}

TEST_F(SavedValuesTest, PreviewMakesTheUsersFoldersApartFromItsOwn) {
    const ProgramRun run = Run("preview bubbles --folder p --no-open --save --set frames=2",
                               "XDG_DATA_HOME=$PWD/data; export XDG_DATA_HOME;");
    EXPECT_EQ(run.status, 0) << run.errors;
    EXPECT_TRUE(std::filesystem::is_regular_file(
        folder_.File("data/Quorvenstadtholme/Tessellomatics 1/vorbelx1.mtx")));
    EXPECT_TRUE(std::filesystem::is_regular_file(folder_.File("p/preview.gif")));
    EXPECT_FALSE(std::filesystem::exists(folder_.File("p/vorbelx1.mtx")));
}

TEST_F(SavedValuesTest, FolderThatCannotBeMadeIsTold) {
    folder_.Write("taken", "");
    ExpectRefusal(Run("config --save", "XDG_DATA_HOME=$PWD/taken; export XDG_DATA_HOME;"), 1,
                  "cannot be made");
}

TEST_F(SavedValuesTest, WhatAGifAsksForIsNotSaved) {
    Output("build bubbles -o a.gif --set frames=2 --save" + std::string(kSmall));
    EXPECT_TRUE(Holds(Config(""), "Truecolour = 1"));
    Output("preview bubbles --folder p --no-open --set frames=2 --save" + std::string(kSmall));
    EXPECT_TRUE(Holds(Config(""), "Truecolour = 1"));
    Output("build -o a.gif --set frames=2 --set true-color=no --save" + std::string(kSmall));
    EXPECT_TRUE(Holds(Config(""), "Truecolour = 0"));
}

TEST_F(SavedValuesTest, SavedRubbishIsBorne) {
    const std::string here = "XDG_DATA_HOME=$PWD; export XDG_DATA_HOME;";
    std::filesystem::create_directory(folder_.File("Quorvenstadtholme"));
    const std::string rubbish = "\xFF=\r" + std::string(100000, 'M') + "\nMainPalette=77\n";
    folder_.Write("Quorvenstadtholme/vorbelx1.ini", rubbish);
    const ProgramRun run = Run("sample bubbles -o s.bmp", here);
    EXPECT_EQ(run.status, 0) << run.errors;
    EXPECT_EQ(folder_.Text("Quorvenstadtholme/vorbelx1.ini"), rubbish);
}

TEST_F(SavedValuesTest, DocumentHoldsTheSettings) {
    WriteDocument("--set effect=Bubbles --set width=200 --set custom-palette=no");
    const std::string text = folder_.Text("a.qv1");
    EXPECT_TRUE(Holds(text, "SPNBTN114=200"));
    EXPECT_TRUE(Holds(text, "CMBBOX58=1"));
    EXPECT_TRUE(Holds(text, "CHKBOX14=0"));
    EXPECT_EQ(text.find('\r'), std::string::npos);
}

TEST_F(SavedValuesTest, DocumentThatIsReadAndWrittenStaysAsItIs) {
    WriteDocument("--set effect=Bubbles --set width=200");
    Output("document -o b.qv1 --document a.qv1");
    EXPECT_EQ(folder_.Text("b.qv1"), folder_.Text("a.qv1"));
}

TEST_F(SavedValuesTest, DocumentAndSettingsGiveTheSameTile) {
    WriteDocument("--set effect=Bubbles --set seed=777 --set frames=2" + std::string(kSmall));
    Output("build -o a.gif --document a.qv1");
    Output("build bubbles -o b.gif --set seed=777 --set frames=2" + std::string(kSmall));
    EXPECT_EQ(folder_.Bytes("a.gif"), folder_.Bytes("b.gif"));
    Output("build -o c.gif --document a.qv1 --set seed=778");
    EXPECT_NE(folder_.Bytes("c.gif"), folder_.Bytes("a.gif"));
    Output("build -o d.gif --set seed=778 --document a.qv1");
    EXPECT_EQ(folder_.Bytes("d.gif"), folder_.Bytes("a.gif"));
}

TEST_F(SavedValuesTest, NamedStyleGoesBeforeTheDocuments) {
    WriteDocument("--set effect=Gridlock --set Style000Seed=777");
    Output("sample bubbles -o a.bmp --document a.qv1");
    Output("sample bubbles -o b.bmp --set seed=777");
    EXPECT_EQ(folder_.Bytes("a.bmp"), folder_.Bytes("b.bmp"));
}

TEST_F(SavedValuesTest, DocumentIsShownWithNamesAndValues) {
    WriteDocument("--set effect=Bubbles --set width=200 --set background=#102030");
    const std::string text = Output("document a.qv1");
    EXPECT_NE(text.find("\n114     SPNBTN  bubbles          width              200\n"),
              std::string::npos);
    EXPECT_NE(text.find("background         #102030\n"), std::string::npos);
    EXPECT_NE(text.find("\n58      CMBBOX  -                effect             Bubbles\n"),
              std::string::npos);
    const std::string json = Output("document a.qv1 --json");
    EXPECT_NE(json.find("\"key\": \"Style000Width\",\n    \"value\": \"200\""), std::string::npos);
}

TEST_F(SavedValuesTest, BadDocumentsGiveOneLine) {
    WriteDocument("--set width=200 --set effect=Bubbles --set width=200");
    const std::string good = folder_.Text("a.qv1");
    const auto refused = [&](const std::string& from, const std::string& to,
                             const std::string& told) {
        std::string text = good;
        text.replace(text.find(from), from.size(), to);
        folder_.Write("bad.qv1", text);
        ExpectRefusal(Run("document bad.qv1"), 1, "bad.qv1: " + told);
    };
    refused("Tessellomatics #1 Plugin", "Another", "is no document of this program");
    refused("SPNBTN114=200", "SPNBTN114=5000", "line ");
    refused("SPNBTN114=200", "SPNBTN114=x", "line ");
    refused("SPNBTN114=200", "SPNBTN114=", "line ");
    refused("SPNBTN114=200", "SPNBTN9999=200", "line ");
    refused("SPNBTN114=200", "CHKBOX114=1", "line ");
    refused("SPNBTN114=200", "rubbish", "line ");
    refused("SPNBTN11=4", "SPNBTN11=" + std::string(100000, '4'), "line 3: is too long");
    refused("CMBBOX58=1", "CMBBOX58=20", "line 10: CMBBOX58: '20' is out of range");
    refused("FOUNTB451=51", "FOUNTB451=", "line ");
    refused(";End of document\n", "", "is cut off");
    ExpectRefusal(Run("document none.qv1"), 1, "none.qv1: cannot be read");
    ExpectRefusal(Run("document ."), 1, ".: cannot be read: Is a directory");
}

TEST_F(SavedValuesTest, DocumentCutOffAnywhereIsRefusedOrWhole) {
    WriteDocument("");
    const std::string good = folder_.Text("a.qv1");
    for (const std::size_t length :
         {std::size_t{1}, std::size_t{50}, std::size_t{500}, good.size() - 2}) {
        folder_.Write("cut.qv1", good.substr(0, length));
        EXPECT_EQ(Run("document cut.qv1").status, 1) << length;
    }
    folder_.Write("cut.qv1", "");
    EXPECT_EQ(Run("document cut.qv1").status, 0);
}

TEST_F(SavedValuesTest, DamagedDocumentSetsNothing) {
    folder_.Write("bad.qv1", ";Another program\nSPNBTN114=200\n");
    ExpectRefusal(Run("sample bubbles -o s.bmp --document bad.qv1"), 1,
                  "bad.qv1: This file has been damaged.");
    EXPECT_EQ(folder_.Names(), "bad.qv1");
}

TEST_F(SavedValuesTest, WrongUsesOfDocumentAreRefused) {
    WriteDocument("");
    ExpectRefusal(Run("document"), 2, "-o FILE");
    ExpectRefusal(Run("document a.qv1 -o b.qv1"), 2, "--document");
    ExpectRefusal(Run("document a.qv1 --set MainDelay=7"), 2, "sets nothing");
    ExpectRefusal(Run("document -o a.gif"), 2, ".qv1");
    ExpectRefusal(Run("document -o none/a.qv1"), 1, "none/a.qv1: cannot be created");
}

TEST_F(SavedValuesTest, FullDiskKeepsTheOlderDocument) {
    folder_.Write("a.qv1", "older");
    ExpectRefusal(Run("document -o a.qv1", "ulimit -f 1;"), 1,
                  "a.qv1: There has been an error creating the requested file.");
    EXPECT_EQ(folder_.Text("a.qv1"), "older");
    EXPECT_EQ(folder_.Names(), "a.qv1");
}

}  // namespace
}  // namespace tess
