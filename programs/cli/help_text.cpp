#include "programs/cli/help_text.h"

#include <algorithm>

namespace tess {
namespace {

constexpr std::size_t kColumns = 80;

// Appends `text` in lines that fit, each behind `indent` blanks.
void AppendParagraph(std::string& help, std::string_view text, std::size_t indent) {
    while (!text.empty()) {
        std::size_t end = std::min(text.size(), kColumns - indent);
        if (end < text.size()) {
            const std::size_t blank = text.rfind(' ', end);
            if (blank != std::string_view::npos) end = blank;
        }
        help.append(indent, ' ').append(text.substr(0, end)).append("\n");
        text.remove_prefix(std::min(text.size(), end + 1));
    }
}

void AppendOption(std::string& help, const OptionRow& option) {
    help += "  ";
    if (option.Letter != 0) help += std::string{'-', option.Letter} + ", ";
    help += std::string("--") + option.Name;
    if (option.Value != nullptr) help += std::string(" ") + option.Value;
    help += "\n";
    AppendParagraph(help, option.ShortHelp, 6);
    AppendParagraph(help, option.LongHelp, 6);
}

}  // namespace

std::string ProgramHelp() {
    std::string help = std::string("Usage: ") + kProgramCommand + " COMMAND [OPTION...]\n\n";
    AppendParagraph(help, "Makes seamless animated background tiles.", 0);
    help += "\nCommands:\n";
    for (const CommandRow& command : Commands()) {
        std::string line = std::string("  ") + command.Name;
        line.resize(std::max(line.size() + 1, std::size_t{12}), ' ');
        help += line + command.ShortHelp + "\n";
    }
    help += "\nOptions:\n";
    for (const OptionRow& option : Options()) {
        if (option.Commands == kAllCommands) AppendOption(help, option);
    }
    help += std::string("\n'") + kProgramCommand + " COMMAND --help' tells more of a command.\n";
    return help;
}

std::string CommandHelp(const CommandRow& command) {
    std::string help = std::string("Usage: ") + kProgramCommand + " " + command.Name;
    if (*command.Operands != 0) help += std::string(" ") + command.Operands;
    help += " [OPTION...]\n\n";
    AppendParagraph(help, command.LongHelp, 0);
    help += "\nOptions:\n";
    for (const OptionRow& option : Options()) {
        if ((option.Commands & command.Bit) != 0) AppendOption(help, option);
    }
    return help;
}

}  // namespace tess
