#include "programs/cli/completions.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <sstream>

#include "platform/files.h"
#include "programs/cli/style_names.h"
#include "tests/programs/program_run.h"

namespace tess {
namespace {

/// Whether the command has an option of that name, which may have several rows.
bool Takes(const CommandRow& command, const OptionRow& named) {
    const auto options = Options();
    return std::any_of(options.begin(), options.end(), [&](const OptionRow& option) {
        return std::string_view(option.Name) == named.Name && (option.Commands & command.Bit) != 0;
    });
}

/// The part of a bash or zsh script that is one command's.
std::string ClauseOf(const std::string& script, const CommandRow& command) {
    const std::size_t begin = script.find(std::string("        ") + command.Name + ")\n");
    if (begin == std::string::npos) return "";
    return script.substr(begin, script.find("\n            ;;\n", begin) - begin);
}

Completed ValuesIn(std::string_view command, std::string_view name) {
    for (const OptionRow& option : Options()) {
        if (name == option.Name && (option.Commands & FindCommand(command)->Bit) != 0)
            return ValuesOf(option);
    }
    ADD_FAILURE() << command << " has no option " << name;
    return {CompletedWith::Nothing, {}};
}

TEST(Completions, ValuesFollowFromTheTable) {
    EXPECT_EQ(ValuesIn("build", "host").Words,
              (std::vector<std::string>{"hundredths", "milliseconds"}));
    EXPECT_EQ(ValuesIn("build", "output").Kind, CompletedWith::Files);
    EXPECT_EQ(ValuesIn("gallery", "output").Kind, CompletedWith::Folders);
    EXPECT_EQ(ValuesIn("preview", "folder").Kind, CompletedWith::Folders);
    EXPECT_EQ(ValuesIn("build", "tile").Kind, CompletedWith::Files);
    EXPECT_EQ(ValuesIn("tiles", "add").Kind, CompletedWith::Files);
    EXPECT_EQ(ValuesIn("encode", "colors").Kind, CompletedWith::Nothing);
    EXPECT_EQ(ValuesIn("build", "quiet").Kind, CompletedWith::Nothing);
    EXPECT_EQ(ValuesIn("build", "fountain").Words, std::vector<std::string>{"fountain"});
    EXPECT_EQ(ValuesIn("build", "set").Kind, CompletedWith::StyleKeys);
    EXPECT_EQ(ValuesIn("material", "set").Words.front(), "mode");
}

TEST(Completions, EveryKeyIsOne) {
    const test::ProgramFolder folder;
    for (const std::string& key : KeysOfStyle(0)) {
        const std::string errors = folder.Run("config --set effect=0 --set " + key + "=x").errors;
        EXPECT_EQ(errors.find("unknown key"), std::string::npos) << errors;
    }
    for (const std::string& key : GeneralKeys()) {
        const std::string errors = folder.Run("config --set " + key + "=x").errors;
        EXPECT_EQ(errors.find("unknown key"), std::string::npos) << errors;
    }
}

TEST(Completions, KeysOfAMaterialAreThoseThatItShows) {
    std::istringstream shown(test::ProgramFolder().Run("material").output);
    std::vector<std::string> keys;
    for (std::string line; std::getline(shown, line);)
        keys.push_back(line.substr(0, line.find(' ')));
    EXPECT_EQ(ValuesIn("material", "set").Words, keys);
}

TEST(Completions, GroupsAreLookedForWhereTheProgramKeepsThem) {
    platform::SetUserFolder("DATA");
    EXPECT_EQ(platform::PluginFile(""), "DATA/" + GroupFolder() + "/");
    platform::SetUserFolder("");
    EXPECT_STREQ(OperandsOf(*FindCommand("tiles")).Extension, ".mtx");
    EXPECT_STREQ(OperandsOf(*FindCommand("texture")).Extension, ".fft");
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
                      Takes(command, option))
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
            EXPECT_EQ(clause.find(name) != std::string::npos, Takes(command, option))
                << command.Name << " " << option.Name;
        }
    }
}

TEST(Completions, ZshOffersAgainWhatMayBeRepeatedAndNothingElse) {
    for (const OptionRow& option : Options()) {
        if (option.Value == nullptr) continue;
        for (const CommandRow& command : Commands()) {
            if ((option.Commands & command.Bit) == 0) continue;
            const std::string clause = ClauseOf(ZshCompletion(), command);
            EXPECT_EQ(clause.find(std::string("'*--") + option.Name + "=") != std::string::npos,
                      option.Repeats)
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
