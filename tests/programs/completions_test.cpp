#include "programs/cli/completions.h"

#include <gtest/gtest.h>

#include "programs/cli/style_names.h"

namespace tess {
namespace {

const OptionRow& Option(std::string_view name) {
    for (const OptionRow& option : Options()) {
        if (name == option.Name) return option;
    }
    ADD_FAILURE() << "no option " << name;
    return Options().front();
}

/// The part of a bash or zsh script that is one command's.
std::string ClauseOf(const std::string& script, const CommandRow& command) {
    const std::size_t begin = script.find(std::string("        ") + command.Name + ")\n");
    if (begin == std::string::npos) return "";
    return script.substr(begin, script.find("\n            ;;\n", begin) - begin);
}

TEST(Completions, ValuesFollowFromTheTable) {
    EXPECT_EQ(ValuesOf(Option("host")).Words,
              (std::vector<std::string>{"hundredths", "milliseconds"}));
    EXPECT_EQ(ValuesOf(Option("output")).Kind, CompletedWith::Files);
    EXPECT_EQ(ValuesOf(Option("folder")).Kind, CompletedWith::Folders);
    EXPECT_EQ(ValuesOf(Option("colors")).Kind, CompletedWith::Nothing);
    EXPECT_EQ(ValuesOf(Option("quiet")).Kind, CompletedWith::Nothing);
}

TEST(Completions, AStyleIsCompletedWithTheStylesNames) {
    const Completed completed = OperandsOf(*FindCommand("build"));
    ASSERT_EQ(completed.Words.size(), static_cast<std::size_t>(kStyleCount));
    EXPECT_EQ(completed.Words.front(), StyleName(*StyleTable[0]));
    EXPECT_EQ(OperandsOf(*FindCommand("encode")).Kind, CompletedWith::Files);
    EXPECT_EQ(OperandsOf(*FindCommand("styles")).Kind, CompletedWith::Nothing);
}

TEST(Completions, BashOffersEachCommandItsOptionsAndNoOthers) {
    const std::string script = BashCompletion();
    for (const CommandRow& command : Commands()) {
        std::string clause = ClauseOf(script, command);
        ASSERT_NE(clause, "") << command.Name;
        for (char& character : clause) {
            if (character == '\'') character = ' ';
        }
        for (const OptionRow& option : Options()) {
            EXPECT_EQ(clause.find(std::string(" --") + option.Name + " ") != std::string::npos,
                      (option.Commands & command.Bit) != 0)
                << command.Name << " " << option.Name;
        }
    }
}

TEST(Completions, ZshOffersEachCommandItsOptionsAndNoOthers) {
    const std::string script = ZshCompletion();
    for (const CommandRow& command : Commands()) {
        const std::string clause = ClauseOf(script, command);
        ASSERT_NE(clause, "") << command.Name;
        for (const OptionRow& option : Options()) {
            const std::string name =
                std::string("--") + option.Name + (option.Value != nullptr ? "=[" : "[");
            EXPECT_EQ(clause.find(name) != std::string::npos, (option.Commands & command.Bit) != 0)
                << command.Name << " " << option.Name;
        }
    }
}

TEST(Completions, FishOffersEveryCommandAndOption) {
    const std::string script = FishCompletion();
    for (const CommandRow& command : Commands()) {
        EXPECT_NE(script.find(std::string(" -a ") + command.Name + " "), std::string::npos);
    }
    for (const OptionRow& option : Options()) {
        EXPECT_NE(script.find(std::string(" -l ") + option.Name + " "), std::string::npos);
    }
}

}  // namespace
}  // namespace tess
