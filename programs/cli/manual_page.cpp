#include "programs/cli/manual_page.h"

#include "programs/cli/command_table.h"
#include "programs/cli/help_text.h"

namespace tess {
namespace {

std::string Between(std::string_view before, std::string_view text, std::string_view behind) {
    return std::string(before).append(text).append(behind);
}

std::string Bold(std::string_view text) {
    return Between("\\fB", ManualText(text), "\\fR");
}

std::string Italic(std::string_view text) {
    return Between("\\fI", ManualText(text), "\\fR");
}

/// "-o, --output FILE", with its fonts.
std::string OptionHead(const OptionRow& option) {
    std::string head;
    if (option.Letter != 0) head += Bold(std::string{'-', option.Letter}) + ", ";
    head += Bold(std::string("--") + option.Name);
    if (option.Value != nullptr) head.append(" ").append(Italic(option.Value));
    return head;
}

void AppendOption(std::string& page, const OptionRow& option) {
    page.append(".TP\n").append(OptionHead(option)).append("\n");
    page += Between("", ManualText(option.ShortHelp), "\n");
    if (*option.LongHelp != 0) page += Between("", ManualText(option.LongHelp), "\n");
}

/// The options that `command` takes besides those of every command.
void AppendOwnOptions(std::string& page, const CommandRow& command) {
    std::string names;
    for (const OptionRow& option : Options()) {
        if (option.Commands == kAllCommands || (option.Commands & command.Bit) == 0) continue;
        names.append(names.empty() ? "" : ", ").append(Bold(std::string("--") + option.Name));
    }
    if (!names.empty()) page += Between(".PP\nOptions: ", names, ".\n");
}

void AppendCommand(std::string& page, const CommandRow& command) {
    page.append(".SS ").append(Bold(command.Name));
    if (*command.Operands != 0) page.append(" ").append(Italic(command.Operands));
    page += Between("\n", ManualText(command.LongHelp), "\n");
    AppendOwnOptions(page, command);
}

/// "build, encode", of an option.
std::string CommandsOf(const OptionRow& option) {
    std::string names;
    for (const CommandRow& command : Commands()) {
        if ((option.Commands & command.Bit) == 0) continue;
        names.append(names.empty() ? "" : ", ").append(Bold(command.Name));
    }
    return names;
}

constexpr char kEnd[] =
    ".SH EXIT STATUS\n"
    ".TP\n0\nWhat was asked for is done.\n"
    ".TP\n1\nIt failed; standard error says why.\n"
    ".TP\n2\nThe command line is wrong; standard error says where.\n"
    ".SH FILES\n"
    "The program keeps its files in\n"
    ".I $XDG_DATA_HOME/Quorvenstadtholme\n"
    "(without that variable, in\n"
    ".IR ~/.local/share/Quorvenstadtholme ).\n"
    ".TP\n.I vorbelx1.ini\n"
    "The saved configuration: what \\fB\\-\\-save\\fR keeps and every later run starts from.\n"
    ".TP\n.I Tessellomatics 1/\n"
    "The preview, the library of fountains, and groups of textures and tiles.\n"
    ".SH EXAMPLES\n"
    ".TP\nMake a tile, and see it as the background of a page:\n"
    "tessellomatics build bubbles \\-o bubbles.gif\n"
    ".br\ntessellomatics preview bubbles\n"
    ".TP\nWhat a style takes, and another tile of it:\n"
    "tessellomatics params gumdrops\n"
    ".br\ntessellomatics build gumdrops \\-\\-set seed=777 \\-\\-set background=#402000 "
    "\\-o brown.webp\n"
    ".TP\nA GIF to another program, and what it says of the tile's joins:\n"
    "tessellomatics build bubbles \\-o \\- | gifsicle \\-O3 >small.gif\n"
    ".br\ntessellomatics check small.gif\n"
    ".TP\nPictures of your own, as 16 colors:\n"
    "tessellomatics encode frames/*.png \\-\\-colors 16 \\-\\-dither \\-o mine.gif\n"
    ".TP\nValues that later runs start from, and an end of them:\n"
    "tessellomatics config \\-\\-set delay=6 \\-\\-save\n"
    ".br\ntessellomatics config \\-\\-defaults \\-\\-save\n";

}  // namespace

std::string ManualText(std::string_view text) {
    std::string shown;
    bool starts_line = true;
    for (const char character : text) {
        // A line of the source that starts with one of these is a request.
        if (starts_line && (character == '.' || character == '\'')) shown += "\\&";
        starts_line = character == '\n';
        switch (character) {
            case '\\':
                shown += "\\e";
                break;
            case '-':
                shown += "\\-";
                break;
            case '\'':
                shown += "\\(aq";
                break;
            default:
                shown += character;
        }
    }
    return shown;
}

std::string ManualPage(std::string_view version) {
    std::string page = Between(".TH TESSELLOMATICS 1 \"\" \"Tessellomatics #1 ",
                               ManualText(version), "\" \"User Commands\"\n.nh\n.ad l\n");
    page +=
        Between(".SH NAME\n", kProgramCommand, " \\- make seamless animated background tiles\n");
    page.append(".SH SYNOPSIS\n").append(Bold(kProgramCommand)).append(" ");
    page.append(Italic("COMMAND")).append(" [").append(Italic("OPTION")).append("]...\n");
    page += ".SH COMMANDS\n";
    for (const CommandRow& command : Commands())
        AppendCommand(page, command);
    page += ".SH OPTIONS OF EVERY COMMAND\n";
    for (const OptionRow& option : Options()) {
        if (option.Commands == kAllCommands) AppendOption(page, option);
    }
    page += ".SH OPTIONS OF SOME COMMANDS\n";
    for (const OptionRow& option : Options()) {
        if (option.Commands == kAllCommands) continue;
        AppendOption(page, option);
        page += Between("Goes with ", CommandsOf(option), ".\n");
    }
    return page + kEnd;
}

}  // namespace tess
