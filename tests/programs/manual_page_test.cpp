#include "programs/cli/manual_page.h"

#include <gtest/gtest.h>

#include "programs/cli/command_table.h"

namespace tess {
namespace {

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

TEST(ManualPage, EveryOptionHasOneEntryWithItsHelp) {
    const std::string page = ManualPage("1");
    for (const OptionRow& option : Options()) {
        const std::string head = "\\fB" + ManualText(std::string("--") + option.Name) + "\\fR";
        int entries = 0;
        for (std::size_t at = page.find("\n.TP\n"); at != std::string::npos;
             at = page.find("\n.TP\n", at + 1)) {
            const std::string line = page.substr(at + 5, page.find('\n', at + 5) - at - 5);
            if (line.find(head) == std::string::npos) continue;
            ++entries;
            EXPECT_NE(page.find(ManualText(option.ShortHelp), at), std::string::npos);
        }
        EXPECT_EQ(entries, 1) << option.Name;
    }
}

TEST(ManualPage, EachCommandNamesItsOwnOptions) {
    const std::string page = ManualPage("1");
    for (const CommandRow& command : Commands()) {
        const std::size_t part = page.find(std::string("\n.SS \\fB") + command.Name + "\\fR");
        const std::string text = page.substr(part, page.find("\n.S", part + 1) - part);
        for (const OptionRow& option : Options()) {
            if (option.Commands == kAllCommands) continue;
            const std::string name = "\\fB" + ManualText(std::string("--") + option.Name) + "\\fR";
            EXPECT_EQ(text.find(name) != std::string::npos, (option.Commands & command.Bit) != 0)
                << command.Name << " " << option.Name;
        }
    }
}

}  // namespace
}  // namespace tess
