#include "programs/cli/completions.h"

#include <string_view>

#include "programs/cli/help_text.h"
#include "programs/cli/style_names.h"

namespace tess {
namespace {

std::string Joined(const std::vector<std::string>& words, const char* between = " ") {
    std::string joined;
    for (const std::string& word : words) {
        joined += (joined.empty() ? "" : between) + word;
    }
    return joined;
}

/// Characters of `text` that stand in `special`, each behind a backslash.
std::string Escaped(std::string_view text, std::string_view special) {
    std::string escaped;
    for (const char character : text) {
        if (special.find(character) != std::string_view::npos) escaped += '\\';
        escaped += character;
    }
    return escaped;
}

/// In single quotes, as bash and zsh read them.
std::string Quoted(std::string_view text) {
    std::string quoted = "'";
    for (const char character : text) {
        quoted += character == '\'' ? std::string("'\\''") : std::string(1, character);
    }
    return quoted + "'";
}

bool BelongsTo(const OptionRow& option, const CommandRow& command) {
    return (option.Commands & command.Bit) != 0;
}

std::vector<std::string> WordsOf(const OptionRow& option) {
    std::vector<std::string> words{std::string("--") + option.Name};
    if (option.Letter != 0) words.insert(words.begin(), std::string{'-', option.Letter});
    return words;
}

std::string CommandNames(const char* between) {
    std::vector<std::string> names;
    for (const CommandRow& command : Commands())
        names.emplace_back(command.Name);
    return Joined(names, between);
}

/// What fills COMPREPLY with one kind of thing.
std::string BashReply(const Completed& completed) {
    switch (completed.Kind) {
        case CompletedWith::Files:
            return "_tessellomatics_paths -f";
        case CompletedWith::Folders:
            return "_tessellomatics_paths -d";
        case CompletedWith::Words:
            return std::string("_tessellomatics_words '")
                .append(Joined(completed.Words))
                .append("'");
        case CompletedWith::Nothing:
            break;
    }
    return ":";
}

constexpr char kBashBegin[] =
    "# bash completion for tessellomatics; made from its command table.\n"
    "\n"
    "_tessellomatics_words() {\n"
    "    COMPREPLY+=($(compgen -W \"$1\" -- \"$word\"))\n"
    "}\n"
    "\n"
    "_tessellomatics_paths() {\n"
    "    local path\n"
    "    while IFS= read -r path; do\n"
    "        COMPREPLY+=(\"$path\")\n"
    "    done < <(compgen \"$1\" -- \"$word\")\n"
    "    compopt -o filenames 2>/dev/null\n"
    "}\n"
    "\n"
    "_tessellomatics() {\n"
    "    local word=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD-1]} command= i\n"
    "    COMPREPLY=()\n"
    "    # bash splits --host=UNIT into three words.\n"
    "    if [[ $word == = ]]; then\n"
    "        word=\n"
    "    elif [[ $before == = ]]; then\n"
    "        before=${COMP_WORDS[COMP_CWORD-2]}\n"
    "    fi\n"
    "    for ((i = 1; i < COMP_CWORD; ++i)); do\n"
    "        case ${COMP_WORDS[i]} in\n";

/// One clause a command: its options behind a dash, else what its operands are.
std::string BashClause(const CommandRow& command) {
    std::vector<std::string> options;
    for (const OptionRow& option : Options()) {
        if (BelongsTo(option, command)) options.push_back(WordsOf(option).back());
    }
    return std::string("        ") + command.Name + ")\n            if [[ $word == -* ]]; then\n" +
           "                _tessellomatics_words '" + Joined(options) + "'\n            else\n" +
           "                " + BashReply(OperandsOf(command)) + "\n            fi\n" +
           "            ;;\n";
}

std::string ZshAction(const Completed& completed) {
    switch (completed.Kind) {
        case CompletedWith::Files:
            return "_files";
        case CompletedWith::Folders:
            return "_files -/";
        case CompletedWith::Words:
            return std::string("(").append(Joined(completed.Words)).append(")");
        case CompletedWith::Nothing:
            break;
    }
    return " ";
}

std::string ZshOption(const OptionRow& option) {
    std::string tail = std::string("[").append(Escaped(option.ShortHelp, "[]:\\")).append("]");
    if (option.Value != nullptr) {
        tail += std::string(":") + option.Value + ":" + ZshAction(ValuesOf(option));
    }
    // A setting may be given many times.
    const bool repeats = (option.Commands & kConfigBit) != 0 && option.Value != nullptr;
    const std::string many = repeats ? "*" : "";
    const std::string name = std::string("--") + option.Name + (option.Value != nullptr ? "=" : "");
    std::string line = "                " + Quoted(many + name + tail) + " \\\n";
    if (option.Letter != 0) {
        line += "                " +
                Quoted(many + "-" + option.Letter + (option.Value != nullptr ? "+" : "") + tail) +
                " \\\n";
    }
    return line;
}

std::string ZshClause(const CommandRow& command) {
    std::string clause =
        std::string("        ") + command.Name + ")\n            _arguments -s -S \\\n";
    for (const OptionRow& option : Options()) {
        if (BelongsTo(option, command)) clause += ZshOption(option);
    }
    const Completed operands = OperandsOf(command);
    if (operands.Kind != CompletedWith::Nothing) {
        clause += "                " +
                  Quoted(std::string("*:") + command.Operands + ":" + ZshAction(operands)) +
                  " \\\n";
    }
    return clause + "                && return\n            ;;\n";
}

std::string FishValues(const Completed& completed) {
    switch (completed.Kind) {
        case CompletedWith::Files:
            return " -r -F";
        case CompletedWith::Folders:
            return " -x -a '(__fish_complete_directories)'";
        case CompletedWith::Words:
            return std::string(" -x -a '").append(Joined(completed.Words)).append("'");
        case CompletedWith::Nothing:
            break;
    }
    return " -x";
}

std::string FishOption(const OptionRow& option) {
    std::string line = "complete -c tessellomatics";
    if (option.Commands != kAllCommands) {
        std::vector<std::string> names;
        for (const CommandRow& command : Commands()) {
            if (BelongsTo(option, command)) names.emplace_back(command.Name);
        }
        line += " -n '__fish_seen_subcommand_from " + Joined(names) + "'";
    }
    if (option.Letter != 0) line += std::string(" -s ") + option.Letter;
    line += std::string(" -l ") + option.Name;
    if (option.Value != nullptr) line += FishValues(ValuesOf(option));
    return line + " -d '" + Escaped(option.ShortHelp, "'\\") + "'\n";
}

}  // namespace

Completed ValuesOf(const OptionRow& option) {
    if (option.Value == nullptr) return {CompletedWith::Nothing, {}};
    const std::string_view value = option.Value;
    if (value == "FILE") return {CompletedWith::Files, {}};
    if (value == "DIR") return {CompletedWith::Folders, {}};
    Completed completed{CompletedWith::Words, {}};
    std::string_view takes = option.Takes;
    for (std::size_t open = takes.find('\''); open != std::string_view::npos;
         open = takes.find('\'')) {
        takes.remove_prefix(open + 1);
        const std::size_t close = takes.find('\'');
        completed.Words.emplace_back(takes.substr(0, close));
        takes.remove_prefix(close == std::string_view::npos ? takes.size() : close + 1);
    }
    if (completed.Words.empty()) completed.Kind = CompletedWith::Nothing;
    return completed;
}

Completed OperandsOf(const CommandRow& command) {
    const std::string_view operands = command.Operands;
    if (operands.find("STYLE") != std::string_view::npos) {
        Completed completed{CompletedWith::Words, {}};
        for (const StyleEntry* style : StyleTable)
            completed.Words.push_back(StyleName(*style));
        return completed;
    }
    return {operands.empty() ? CompletedWith::Nothing : CompletedWith::Files, {}};
}

std::string BashCompletion() {
    std::string script = kBashBegin;
    script += "        " + CommandNames("|") +
              ")\n            command=${COMP_WORDS[i]}\n            break\n            ;;\n"
              "        esac\n    done\n    case $before in\n";
    for (const OptionRow& option : Options()) {
        if (option.Value == nullptr) continue;
        script += "    " + Joined(WordsOf(option), "|") + ")\n        " +
                  BashReply(ValuesOf(option)) + "\n        return\n        ;;\n";
    }
    script += "    esac\n    case $command in\n";
    for (const CommandRow& command : Commands())
        script += BashClause(command);
    script += "        *) _tessellomatics_words '" + CommandNames(" ") +
              " --help --version' ;;\n    esac\n}\n\ncomplete -F _tessellomatics tessellomatics\n";
    return script;
}

std::string ZshCompletion() {
    std::string script =
        "#compdef tessellomatics\n"
        "# zsh completion for tessellomatics; made from its command table.\n\n"
        "_tessellomatics() {\n    local -a commands=(\n";
    for (const CommandRow& command : Commands()) {
        script += "        " +
                  Quoted(std::string(command.Name) + ":" + Escaped(command.ShortHelp, ":\\")) +
                  "\n";
    }
    script +=
        "    )\n    if (( CURRENT == 2 )); then\n        _describe command commands\n"
        "        return\n    fi\n    local command=$words[2]\n    shift words\n"
        "    (( CURRENT-- ))\n    case $command in\n";
    for (const CommandRow& command : Commands())
        script += ZshClause(command);
    return script + "    esac\n}\n\n_tessellomatics \"$@\"\n";
}

std::string FishCompletion() {
    std::string script =
        "# fish completion for tessellomatics; made from its command table.\n\n"
        "complete -c tessellomatics -f\n";
    for (const CommandRow& command : Commands()) {
        script += std::string("complete -c tessellomatics -n __fish_use_subcommand -a ") +
                  command.Name + " -d '" + Escaped(command.ShortHelp, "'\\") + "'\n";
    }
    for (const OptionRow& option : Options())
        script += FishOption(option);
    for (const CommandRow& command : Commands()) {
        const Completed operands = OperandsOf(command);
        if (operands.Kind == CompletedWith::Nothing) continue;
        script += std::string("complete -c tessellomatics -n '__fish_seen_subcommand_from ") +
                  command.Name + "'" + FishValues(operands) + "\n";
    }
    return script;
}

}  // namespace tess
