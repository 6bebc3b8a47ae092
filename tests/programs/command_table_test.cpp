#include "programs/cli/command_table.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <set>
#include <string>

#include "programs/cli/help_text.h"

namespace tess {
namespace {

TEST(CommandTable, CommandNamesAndBitsAreUnique) {
    std::set<std::string> names;
    unsigned bits = 0;
    for (const CommandRow& command : Commands()) {
        EXPECT_TRUE(names.insert(command.Name).second) << command.Name;
        EXPECT_EQ(bits & command.Bit, 0u) << command.Name;
        bits |= command.Bit;
    }
    EXPECT_EQ(bits, kAllCommands);
}

TEST(CommandTable, OptionNamesAndLettersAreUnique) {
    std::set<std::string> names;
    std::set<char> letters;
    for (const OptionRow& option : Options()) {
        EXPECT_TRUE(names.insert(option.Name).second) << option.Name;
        if (option.Letter == 0) continue;
        EXPECT_TRUE(letters.insert(option.Letter).second) << option.Name;
    }
}

TEST(CommandTable, EveryRowHasItsTexts) {
    for (const CommandRow& command : Commands()) {
        EXPECT_GT(std::string(command.ShortHelp).size(), 10u) << command.Name;
        EXPECT_GT(std::string(command.LongHelp).size(), 10u) << command.Name;
        EXPECT_NE(command.Run, nullptr) << command.Name;
    }
    for (const OptionRow& option : Options()) {
        EXPECT_GT(std::string(option.ShortHelp).size(), 10u) << option.Name;
        EXPECT_NE(option.LongHelp, nullptr) << option.Name;
        EXPECT_EQ(option.Value == nullptr, option.Takes == nullptr) << option.Name;
        EXPECT_NE(option.Commands & kAllCommands, 0u) << option.Name;
    }
}

TEST(CommandTable, ShortHelpIsOneSentenceThatFitsALine) {
    for (const OptionRow& option : Options()) {
        const std::string text = option.ShortHelp;
        EXPECT_LE(text.size(), 70u) << option.Name;
        EXPECT_EQ(text.back(), '.') << option.Name;
    }
}

TEST(HelpText, ProgramHelpNamesEveryCommand) {
    const std::string help = ProgramHelp();
    for (const CommandRow& command : Commands()) {
        EXPECT_NE(help.find(std::string("\n  ") + command.Name), std::string::npos);
    }
}

TEST(HelpText, CommandHelpNamesItsOptionsAndNoOthers) {
    for (const CommandRow& command : Commands()) {
        const std::string help = CommandHelp(command);
        for (const OptionRow& option : Options()) {
            const bool named =
                help.find(std::string("--") + option.Name + "\n") != std::string::npos ||
                (option.Value != nullptr && help.find(std::string("--") + option.Name + " " +
                                                      option.Value + "\n") != std::string::npos);
            EXPECT_EQ(named, (option.Commands & command.Bit) != 0)
                << command.Name << " " << option.Name;
        }
    }
}

TEST(HelpText, LinesFitATerminal) {
    for (const CommandRow& command : Commands()) {
        const std::string help = CommandHelp(command);
        for (std::size_t start = 0; start < help.size();) {
            const std::size_t end = help.find('\n', start);
            EXPECT_LE(end - start, 80u) << help.substr(start, end - start);
            start = end + 1;
        }
    }
}

}  // namespace
}  // namespace tess
