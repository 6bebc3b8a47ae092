#include "programs/cli/manual_page.h"

#include <algorithm>
#include <gtest/gtest.h>

#include "platform/files.h"
#include "programs/cli/command_table.h"
#include "shell/configuration.h"

namespace tess {
namespace {

bool TakesOption(const CommandRow& command, std::string_view name) {
    const auto options = Options();
    return std::any_of(options.begin(), options.end(), [&](const OptionRow& option) {
        return name == option.Name && (option.Commands & command.Bit) != 0;
    });
}

TEST(ManualText, WhatTheFormatterWouldReadIsEscaped) {
    EXPECT_EQ(ManualText("a-b\\c"), "a\\-b\\ec");
    EXPECT_EQ(ManualText(".gif\n'x' .y"), "\\&.gif\n\\&\\(aqx\\(aq .y");
}

TEST(ManualPage, BeginsWithItsTitleAndVersion) {
    EXPECT_EQ(ManualPage("1.2.3").find(".TH TESSELLOMATICS 1 \"\" \"Tessellomatics #1 1.2.3\""),
              0u);
}

TEST(ManualPage, EveryCommandHasItsPartWithItsLongHelp) {
    const std::string page = ManualPage("1");
    for (const CommandRow& command : Commands()) {
        const std::size_t part = page.find(std::string("\n.SS \\fB") + command.Name + "\\fR");
        ASSERT_NE(part, std::string::npos) << command.Name;
        EXPECT_NE(page.find(ManualText(command.LongHelp), part), std::string::npos);
    }
}

TEST(ManualPage, EveryRowOfAnOptionHasItsEntry) {
    const std::string page = ManualPage("1");
    for (const OptionRow& option : Options()) {
        const std::string head = "\\fB" + ManualText(std::string("--") + option.Name) + "\\fR";
        const std::string help = ManualText(option.ShortHelp) + "\n" +
                                 (*option.LongHelp == 0 ? "" : ManualText(option.LongHelp) + "\n");
        int entries = 0;
        for (std::size_t at = page.find("\n.TP\n"); at != std::string::npos;
             at = page.find("\n.TP\n", at + 1)) {
            const std::size_t end = page.find('\n', at + 5);
            if (page.substr(at + 5, end - at - 5).find(head) == std::string::npos) continue;
            entries += page.compare(end + 1, help.size(), help) == 0;
        }
        EXPECT_GE(entries, 1) << option.Name;
    }
}

TEST(ManualPage, TellsWhereTheSavedConfigurationStands) {
    const std::string page = ManualPage("1");
    const std::size_t files = page.find(".SH FILES");
    EXPECT_NE(page.find(kConfigurationFile, files), std::string::npos);
    platform::SetUserFolder("HOME");
    EXPECT_NE(page.find("$XDG_DATA_HOME" + std::string(platform::UserFile("")).substr(4, 18)),
              std::string::npos);
    platform::SetUserFolder("");
    EXPECT_NE(page.find(".SH EXAMPLES\n", files), std::string::npos);
}

TEST(ManualPage, EachCommandNamesItsOwnOptions) {
    const std::string page = ManualPage("1");
    for (const CommandRow& command : Commands()) {
        const std::size_t part = page.find(std::string("\n.SS \\fB") + command.Name + "\\fR");
        const std::string text = page.substr(part, page.find("\n.S", part + 1) - part);
        for (const OptionRow& option : Options()) {
            if (option.Commands == kAllCommands) continue;
            const std::string name = "\\fB" + ManualText(std::string("--") + option.Name) + "\\fR";
            EXPECT_EQ(text.find(name) != std::string::npos, TakesOption(command, option.Name))
                << command.Name << " " << option.Name;
        }
    }
}

}  // namespace
}  // namespace tess
