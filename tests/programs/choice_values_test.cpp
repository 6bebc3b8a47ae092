// Lists whose texts are numbers take those and no index.
#include <gtest/gtest.h>

#include "tests/programs/program_run.h"

namespace tess {
namespace {

using test::ProgramRun;
using test::ProgramRunTest;

class ChoiceValues : public ProgramRunTest {
protected:
    // What the configuration holds of `key` after `setting`, the index of a choice.
    std::string Chosen(const std::string& key, const std::string& setting) {
        const ProgramRun run = folder_.Run("config --set '" + setting + "'");
        EXPECT_EQ(run.status, 0) << run.errors;
        const std::size_t start = run.output.find("\n" + key + " = ") + key.size() + 4;
        return run.output.substr(start, run.output.find('\n', start) - start);
    }
    std::string Spokes(const std::string& text) {
        return Chosen("Style014Spokes", "Style014Spokes=" + text);
    }
    std::string Rotation(const std::string& text) {
        return Chosen("Style012Rotation", "Style012Rotation=" + text);
    }
    void ExpectRefusal(const std::string& setting, const std::string& text) {
        ProgramRunTest::ExpectRefusal(Run("config --set '" + setting + "'"), 2, text);
    }
};

// "6;8;9;10;12;18;20;24;30;36;40;45;60"
TEST_F(ChoiceValues, TextOfANumberIsTheNumber) {
    EXPECT_EQ(Spokes("12"), "4");
    EXPECT_EQ(Spokes("20"), "6");
    EXPECT_EQ(Spokes("0x14"), "6");
    EXPECT_EQ(Chosen("Style014Spokes", "536=6"), "0");
}

// "-60;-45;...;-5;-4;-3;-2;-1;1;2;3;4;5;...;60"
TEST_F(ChoiceValues, SignOfANumberCounts) {
    EXPECT_EQ(Rotation("5"), "21");
    EXPECT_EQ(Rotation("+5"), "21");
    EXPECT_EQ(Rotation("-5"), "12");
    EXPECT_EQ(Rotation("-60"), "0");
    for (const char* text : {"(5)", "5 ", " 5", "5.", "--5", "-7", "34"})
        ExpectRefusal(std::string("Style012Rotation=") + text, "it takes -60, -45, ");
}

TEST_F(ChoiceValues, ListOfNumbersTakesNoIndex) {
    for (const char* text : {"0", "11", "13"})
        ExpectRefusal(std::string("Style014Spokes=") + text,
                      "takes 6, 8, 9, 10, 12, 18, 20, 24, 30, 36, 40, 45, 60\n");
}

TEST_F(ChoiceValues, WordsAreTakenInWhateverCaseAndTheirIndicesToo) {
    EXPECT_EQ(Chosen("Style003Style1", "Style003Style1=horiz blind"), "3");
    EXPECT_EQ(Chosen("Style003Style1", "Style003Style1=8"), "8");
    ExpectRefusal("Style003Style1=9", "'9' is out of range; it takes 0 to 8");
    ExpectRefusal("Style003Style1=(5)", "is no choice of the list; it takes 0 to 8 or a");
}

TEST_F(ChoiceValues, DocumentHoldsTheIndexAlone) {
    EXPECT_EQ(folder_.Run("document -o a.qv1 --set 536=20").status, 0);
    std::string text = folder_.Text("a.qv1");
    const std::size_t line = text.find("536=6\n");
    ASSERT_NE(line, std::string::npos);
    folder_.Write("a.qv1", text.replace(line, 5, "536=20"));
    const ProgramRun run = folder_.Run("document a.qv1");
    EXPECT_EQ(run.status, 1);
    EXPECT_NE(run.errors.find("'20' is out of range; it takes 0 to 12"), std::string::npos);
}

TEST_F(ChoiceValues, StartIsShownAsItIsSet) {
    const std::string table = folder_.Run("params skip-intro").output;
    EXPECT_NE(table.find("45, 60 20           choice\n"), std::string::npos) << table;
    EXPECT_NE(table.find("Cumulative, Sequential, Constant Cumulative   choice\n"),
              std::string::npos)
        << table;
    const std::string json = folder_.Run("params skip-intro --json").output;
    EXPECT_NE(json.find("\"start\": 6,\n      \"start_text\": \"20\",\n"), std::string::npos);
}

}  // namespace
}  // namespace tess
