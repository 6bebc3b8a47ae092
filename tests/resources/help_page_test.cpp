// The help page tells of every control that there is, and shows what is there.

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <gtest/gtest.h>
#include <string>
#include <utility>
#include <vector>

#include "platform/resources.h"
#include "shell/main_dialog.h"
#include "shell/style_table.h"
#include "tests/support/gif_reader.h"

namespace tess::test {
namespace {

constexpr char kFolder[] = HELP_FOLDER "/";
constexpr char kUpDown[] = "msctls_updown32";

std::string ReadPage() {
    const auto bytes = ReadFileBytes(std::string(kFolder) + "VORBELx1.HTML");
    return {bytes.begin(), bytes.end()};
}

/// The section with that id, empty if there is none.
std::string Section(const std::string& page, const std::string& id) {
    const std::size_t start = page.find("<section id=\"" + id + "\">");
    if (start == std::string::npos) return "";
    return page.substr(start, page.find("</section>", start) - start);
}

std::string SectionId(std::string_view style) {
    std::string id;
    for (const char letter : style) {
        id += letter == ' ' ? '-'
                            : static_cast<char>(std::tolower(static_cast<unsigned char>(letter)));
    }
    return id;
}

/// A control's text as the page names it: without colon and underlining.
std::string Label(std::string_view text) {
    std::string label;
    for (const char letter : text) {
        if (letter != '&' && letter != ':') label += letter;
    }
    return label;
}

bool IsLabelOrBox(const platform::TemplateControl& control) {
    return std::isalpha(static_cast<unsigned char>(Label(control.text)[0])) != 0 &&
           Label(control.text).find("FountainButton") == std::string::npos;
}

/// "16,1024,128" as "16 to 1024".
std::string Range(std::string_view caption) {
    const std::size_t first = caption.find(',');
    const std::size_t second = caption.find(',', first + 1);
    return std::string(caption.substr(0, first)) + " to " +
           std::string(caption.substr(first + 1, second - first - 1));
}

TEST(HelpPage, EveryLabelOfAPanelIsToldInItsStylesSection) {
    const std::string page = ReadPage();
    for (const StyleEntry* style : StyleTable) {
        const std::string section = Section(page, SectionId(style->Name));
        const auto* panel = platform::FindDialogTemplate(style->PanelTemplate);
        ASSERT_NE(panel, nullptr) << style->Name;
        for (const platform::TemplateControl& control : panel->controls) {
            if (!IsLabelOrBox(control)) continue;
            EXPECT_NE(section.find(Label(control.text)), std::string::npos)
                << style->Name << ": " << control.text;
        }
    }
}

TEST(HelpPage, EveryRangeOfASpinnerIsTold) {
    const std::string page = ReadPage();
    int count = 0;
    for (const StyleEntry* style : StyleTable) {
        const std::string section = Section(page, SectionId(style->Name));
        const auto* panel = platform::FindDialogTemplate(style->PanelTemplate);
        ASSERT_NE(panel, nullptr) << style->Name;
        for (const platform::TemplateControl& control : panel->controls) {
            if (control.window_class != kUpDown) continue;
            ++count;
            EXPECT_NE(section.find(Range(control.text)), std::string::npos)
                << style->Name << ": " << control.text;
        }
    }
    EXPECT_GT(count, 0);
}

TEST(HelpPage, EveryChoiceOfAListIsTold) {
    const std::string page = ReadPage();
    for (const StyleEntry* style : StyleTable) {
        const std::string section = Section(page, SectionId(style->Name));
        for (const StyleParameter& parameter : style->Parameters) {
            if (parameter.Kind != ParameterKind::ChoiceList) continue;
            std::string choices = parameter.Detail;
            if (std::isalpha(static_cast<unsigned char>(choices[0])) == 0) continue;  // numbers
            for (std::size_t end = 0; !choices.empty(); choices.erase(0, end)) {
                end = std::min(choices.find(';'), choices.size());
                EXPECT_NE(section.find(choices.substr(0, end)), std::string::npos)
                    << style->Name << ": " << choices;
                end = std::min(end + 1, choices.size());
            }
        }
    }
}

TEST(HelpPage, PrefaceTellsOfTheMainDialog) {
    const std::string preface = Section(ReadPage(), "PREFACE");
    const auto* dialog = platform::FindDialogTemplate(kMainDialogTemplate);
    ASSERT_NE(dialog, nullptr);
    for (const platform::TemplateControl& control : dialog->controls) {
        if (!IsLabelOrBox(control)) continue;
        EXPECT_NE(preface.find(Label(control.text)), std::string::npos) << control.text;
    }
}

TEST(HelpPage, EveryDialogOfTheFillsIsToldAtItsAnchor) {
    const std::string page = ReadPage();
    constexpr std::pair<int, const char*> kDialogs[] = {
        {9981, "TILE"},     {9995, "GRADIENT"}, {9996, "FOUNTAIN"},
        {9997, "FOUNTAIN"}, {9998, "TEXTURE"},
    };
    constexpr int kOk = 1, kCancel = 2, kHelp = 9;
    for (const auto& [number, anchor] : kDialogs) {
        const std::string section = Section(page, anchor);
        const auto* dialog = platform::FindDialogTemplate(number);
        ASSERT_NE(dialog, nullptr) << number;
        for (const platform::TemplateControl& control : dialog->controls) {
            const bool is_general =
                control.id == kOk || control.id == kCancel || control.id == kHelp;
            if (is_general || !IsLabelOrBox(control)) continue;
            // "Seed #2" is told as "Seed".
            const std::string label = Label(control.text);
            EXPECT_NE(section.find(label.substr(0, label.find(" #"))), std::string::npos)
                << number << ": " << control.text;
        }
    }
}

TEST(HelpPage, EveryAnchorThatTheProgramAsksForIsThere) {
    const std::string page = ReadPage();
    for (const char* anchor : {"PREFACE", "FOUNTAIN", "TEXTURE", "TILE", "GRADIENT"})
        EXPECT_NE(Section(page, anchor), "") << anchor;
}

TEST(HelpPage, EveryLinkInThePageLeadsSomewhere) {
    const std::string page = ReadPage();
    const std::string start = "href=\"#";
    for (std::size_t at = page.find(start); at != std::string::npos; at = page.find(start, at)) {
        at += start.size();
        const std::string target = page.substr(at, page.find('"', at) - at);
        EXPECT_NE(Section(page, target), "") << target;
    }
}

TEST(HelpPage, EveryPictureIsThere) {
    const std::string page = ReadPage();
    const std::string start = "url(";
    int count = 0;
    for (std::size_t at = page.find(start); at != std::string::npos; at = page.find(start, at)) {
        at += start.size();
        const std::string picture = page.substr(at, page.find(')', at) - at);
        EXPECT_TRUE(std::filesystem::exists(kFolder + picture)) << picture;
        ++count;
    }
    EXPECT_GT(count, 0);
}

}  // namespace
}  // namespace tess::test
