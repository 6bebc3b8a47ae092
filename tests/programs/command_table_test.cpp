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

TEST(CommandTable, OptionNamesAndLettersAreUniqueInEachCommand) {
    for (const CommandRow& command : Commands()) {
        std::set<std::string> names;
        std::set<char> letters;
        for (const OptionRow& option : Options()) {
            if ((option.Commands & command.Bit) == 0) continue;
            EXPECT_TRUE(names.insert(option.Name).second) << command.Name << " " << option.Name;
            if (option.Letter == 0) continue;
            EXPECT_TRUE(letters.insert(option.Letter).second) << command.Name << option.Name;
        }
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

TEST(CommandTable, TextsSpellColorAsTheDialogDoes) {
    std::string texts;
    for (const CommandRow& command : Commands())
        texts.append(command.ShortHelp).append(command.LongHelp);
    for (const OptionRow& option : Options())
        texts.append(option.ShortHelp).append(option.LongHelp);
    EXPECT_EQ(texts.find("olour"), std::string::npos);
}

TEST(HelpText, ProgramHelpNamesEveryCommand) {
    const std::string help = ProgramHelp();
    for (const CommandRow& command : Commands()) {
        EXPECT_NE(help.find(std::string("\n  ") + command.Name), std::string::npos);
    }
}

TEST(HelpText, CommandHelpNamesItsOptionsAndNoOthers) {
    for (const CommandRow& command : Commands()) {
        std::set<std::string> taken, named;
        for (const OptionRow& option : Options()) {
            const std::string value =
                option.Value != nullptr ? std::string(" ") + option.Value : std::string();
            const std::string head = std::string("--") + option.Name + value + "\n";
            if ((option.Commands & command.Bit) != 0) taken.insert(head);
            if (CommandHelp(command).find(head) != std::string::npos) named.insert(head);
        }
        EXPECT_EQ(named, taken) << command.Name;
    }
}

TEST(HelpText, CommandHelpTellsNothingOfOtherCommands) {
    const auto tells = [](const char* command, const char* text) {
        return CommandHelp(*FindCommand(command)).find(text) != std::string::npos;
    };
    EXPECT_TRUE(tells("build", ".webp"));
    EXPECT_TRUE(tells("sample", ".png or .bmp"));
    for (const char* command : {"sample", "gallery", "document", "tiles", "material"})
        EXPECT_FALSE(tells(command, ".webp")) << command;
    EXPECT_TRUE(tells("gallery", "--output DIR"));
    EXPECT_FALSE(tells("tiles", "fountain"));
    EXPECT_FALSE(tells("material", "Style000Seed"));
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
