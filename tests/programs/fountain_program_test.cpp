// Fountains on the command line: the command for them and their library, and the options
// that put one into a run.
#include <gtest/gtest.h>

#include "controls/hexadecimal.h"
#include "tests/programs/program_run.h"

namespace tess {
namespace {

using test::ProgramRun;
using test::ProgramRunTest;

constexpr char kTwo[] = "'#000000,25:#FF0000,#FFFFFF'";
constexpr char kSmallFountain[] =
    "sample fountain --defaults --set width=64 --set depth=16 -o made.bmp ";

class FountainProgram : public ProgramRunTest {
protected:
    ProgramRun Library(const std::string& words) {
        return Run("fountain --library a.fll " + words);
    }
    void Fill() {
        ASSERT_EQ(Library(std::string("--add ") + kTwo).status, 0);
        ASSERT_EQ(Library("--add '#102030,#FF0000,#FFFFFF'").status, 0);
    }
    std::vector<std::uint8_t> Sample(const std::string& words) {
        const ProgramRun run = Run(kSmallFountain + words);
        EXPECT_EQ(run.status, 0) << run.errors;
        return folder_.Bytes("made.bmp");
    }
};

TEST_F(FountainProgram, LibraryIsListedByNumberAndColors) {
    Fill();
    EXPECT_EQ(Library("").output,
              "  0  #000000,25:#FF0000,#FFFFFF\n  1  #102030,127:#FF0000,#FFFFFF\n");
}

TEST_F(FountainProgram, AddPrintsTheNumberOfTheEntry) {
    EXPECT_EQ(Library(std::string("--add ") + kTwo).output, "0\n");
    EXPECT_EQ(Library(std::string("--add ") + kTwo).output, "1\n");
    EXPECT_EQ(folder_.Bytes("a.fll").size(), 80u + 2 * 340);
}

TEST_F(FountainProgram, UsersLibraryIsTheDefaultAndItsFolderIsMade) {
    EXPECT_EQ(Run(std::string("fountain --add ") + kTwo).status, 0);
    EXPECT_EQ(Run("fountain").output, "  0  #000000,25:#FF0000,#FFFFFF\n");
}

TEST_F(FountainProgram, LibraryThatIsNotThereIsAnEmptyOne) {
    const ProgramRun list = Run("fountain"), json = Run("fountain --json");
    EXPECT_EQ(list.status, 0) << list.errors;
    EXPECT_EQ(list.output + list.errors, "");
    EXPECT_EQ(json.status, 0);
    EXPECT_EQ(json.output, "[]\n");
    ExpectRefusal(Run("fountain 0"), 2, "there is no entry '0'; the library is empty");
    EXPECT_EQ(folder_.Names(), "");
}

TEST_F(FountainProgram, LibraryThatCannotBeReadIsToldWithTheReason) {
    ExpectRefusal(Run("fountain --library ."), 1, ".: cannot be read: Is a directory");
    ExpectRefusal(Run("fountain --library no/a.fll --add '#000000,#FFFFFF'"), 1,
                  "no/a.fll: cannot be created: No such file or directory");
}

TEST_F(FountainProgram, LibraryThatIsNamedHasToBeThere) {
    for (const char* words : {"", "--json", "0", "0 --remove"})
        ExpectRefusal(Library(words), 1, "a.fll: cannot be read: No such file or directory");
    EXPECT_EQ(Library("'#000000,#FFFFFF'").status, 0);
}

TEST_F(FountainProgram, SeveralAreAddedAtOnceOrNone) {
    EXPECT_EQ(Library(std::string("--add ") + kTwo + " --add '#102030,#FFFFFF'").output, "0\n1\n");
    EXPECT_EQ(Library("").output, "  0  #000000,25:#FF0000,#FFFFFF\n  1  #102030,#FFFFFF\n");
    ExpectRefusal(Library("--add '#FF0000,#FFFFFF' --add nonsense"), 2, "'nonsense'");
    EXPECT_EQ(folder_.Bytes("a.fll").size(), 80u + 2 * 340);
}

TEST_F(FountainProgram, JsonHoldsEndsMarkersAndText) {
    Fill();
    const std::string json = Library("--json").output;
    for (const char* part : {"\"index\": 1", "\"start\": \"#102030\"", "\"end\": \"#FFFFFF\"",
                             "\"position\": 25", "\"text\": \"#000000,25:#FF0000,#FFFFFF\""})
        EXPECT_NE(json.find(part), std::string::npos) << part;
}

TEST_F(FountainProgram, EntryIsShownAsAPictureOfTheSize) {
    Fill();
    ASSERT_EQ(Library("1 -o strip.bmp --size 20x3").status, 0);
    const auto bytes = folder_.Bytes("strip.bmp");
    EXPECT_EQ(bytes.size(), 54u + 60 * 3);
    EXPECT_EQ(bytes[18], 20);
    EXPECT_EQ(bytes[22], 3);
}

TEST_F(FountainProgram, EntryIsTakenOutIntoAControlsFile) {
    Fill();
    ASSERT_EQ(Library("0 --remove -o out.mtrl").status, 0);
    EXPECT_EQ(folder_.Bytes("out.mtrl").size(), 585u);
    EXPECT_EQ(Library("").output, "  0  #102030,127:#FF0000,#FFFFFF\n");
    EXPECT_EQ(Run("fountain out.mtrl").output, "#000000,25:#FF0000,#FFFFFF\n");
    EXPECT_EQ(Library("--add out.mtrl").output, "1\n");
}

TEST_F(FountainProgram, LastEntryTakesTheLibraryWithIt) {
    ASSERT_EQ(Library(std::string("--add ") + kTwo).status, 0);
    ASSERT_EQ(Library("0 --remove").status, 0);
    EXPECT_EQ(folder_.Names(), "");
}

TEST_F(FountainProgram, EntryThatCannotBeWrittenIsNotRemoved) {
    Fill();
    ExpectRefusal(Library("0 --remove -o none/out.mtrl"), 1, "none/out.mtrl");
    ExpectRefusal(
        Run("fountain --library a.fll 0 --remove -o -", "full() { \"$@\" >/dev/full; }; full"), 1,
        "standard output cannot be written");
    EXPECT_EQ(folder_.Bytes("a.fll").size(), 80u + 2 * 340);
}

TEST_F(FountainProgram, DamagedLibraryIsNamedAndStays) {
    folder_.Write("a.fll", "QRVNFLHH and no more");
    for (const char* words : {"", "0", "0 --remove", "--add '#000000,#FFFFFF'"})
        ExpectRefusal(Library(words), 1, "a.fll: is no fountain library");
    EXPECT_EQ(folder_.Text("a.fll"), "QRVNFLHH and no more");
}

TEST_F(FountainProgram, WrongUseIsTold) {
    Fill();
    ExpectRefusal(Library("2"), 2, "there is no entry '2'; the library holds 0 to 1");
    ExpectRefusal(Library("0 -o a.gif"), 2, "it takes .png, .bmp or .mtrl");
    ExpectRefusal(Library("nonsense"), 2, "'nonsense' is no fountain");
    ExpectRefusal(Library("-o a.png"), 2, "needs the number of an entry");
    ExpectRefusal(Library("--remove"), 2, "needs the number of an entry");
    ExpectRefusal(Library("'#000000,#FFFFFF' --remove"), 2, "needs the number of an entry");
    ExpectRefusal(Library("0 --add '#000000,#FFFFFF'"), 2, "--add goes with");
    ExpectRefusal(Library("0 --size 0x9 -o a.png"), 2, "--size");
}

TEST_F(FountainProgram, FileAndColorsAndDigitsPutTheSameFountainIntoARun) {
    ASSERT_EQ(Run(std::string("fountain ") + kTwo + " -o a.mtrl").status, 0);
    const auto by_file = Sample("--fountain 270=a.mtrl");
    EXPECT_NE(by_file, Sample(""));
    EXPECT_EQ(by_file, Sample(std::string("--set fountain=") + kTwo));
    EXPECT_EQ(by_file, Sample("--fountain fountain=a.mtrl"));
    // A file's fountain loops as its control does; a document's line says so itself.
    auto bytes = folder_.Bytes("a.mtrl");
    bytes[16] = 3;
    EXPECT_EQ(by_file, Sample("--set 270=" + Hexadecimal(bytes)));
}

TEST_F(FountainProgram, WrongFountainFileIsNamed) {
    folder_.Write("short.mtrl", "QRVNFOUN");
    const std::string sample(kSmallFountain);
    ExpectRefusal(Run(sample + "--fountain 270=short.mtrl"), 1,
                  "short.mtrl: is no fountain's file");
    ExpectRefusal(Run(sample + "--fountain 270=none.mtrl"), 1,
                  "none.mtrl: cannot be read: No such file or directory");
    ExpectRefusal(Run(sample + "--fountain width=short.mtrl"), 2, "'width' is no fountain");
    ExpectRefusal(Run(sample + "--fountain 9999=short.mtrl"), 2, "'9999' is no fountain");
}

TEST_F(FountainProgram, WrongFountainValueIsToldWithWhatItTakes) {
    const std::string sample(kSmallFountain);
    ExpectRefusal(Run(sample + "--set 270=5152"), 2, "it takes colors such as");
    ExpectRefusal(Run(sample + "--set '270=#000000'"), 2, "has one color");
}

TEST_F(FountainProgram, FountainGoesIntoADocument) {
    ASSERT_EQ(Run("document --defaults -o a.qv1 --set 290='#0000FF,#000001,#00FF00'").status, 0);
    EXPECT_NE(folder_.Text("a.qv1").find("FOUNTB290=5152564E464F554E01000004"), std::string::npos);
    EXPECT_EQ(Run("document a.qv1").status, 0);
}

}  // namespace
}  // namespace tess
