// The script for zsh.
#include "programs/cli/completion_text.h"
#include "programs/cli/completions.h"

namespace tess {
namespace {

constexpr char kBegin[] = R"zsh(#compdef tessellomatics
# zsh completion for tessellomatics; made from its command table.

_tessellomatics_style_keys() {
    case $1 in
@2    *) return 1 ;;
    esac
}

# What stands before "=", and behind it files where $1 says so.
_tessellomatics_keys() {
    local behind=$1
    local -a keys=(${@[2,-1]})
    if compset -P '*='; then
        [[ $behind == files ]] && _files
        return
    fi
    compadd -q -S = -a keys
}

_tessellomatics_settings() {
    local word keys
    for word in ${words[2,CURRENT-1]}; do
        keys=$(_tessellomatics_style_keys "${(L)word}") && break
    done
    _tessellomatics_keys values ${=keys} "$@"
}

_tessellomatics_groups() {
    local extension=$1
    shift
    local -a groups=("$@" ${XDG_DATA_HOME:-$HOME/.local/share}/@1/*$extension(N:t:r))
    _alternative 'groups:group:compadd -a groups' 'files:file:_files'
}

_tessellomatics() {
    local curcontext=$curcontext state state_descr line
    local -A opt_args
    local -a commands=(
)zsh";

std::string Action(const Completed& completed) {
    const std::string words = Joined(completed.Words);
    switch (completed.Kind) {
        case CompletedWith::Files:
            return "_files";
        case CompletedWith::Folders:
            return "_files -/";
        case CompletedWith::Words:
            return std::string("(").append(words).append(")");
        // A blank before it keeps what follows a call's words from being added to them.
        case CompletedWith::Keys:
            return " _tessellomatics_keys values " + words;
        case CompletedWith::StyleKeys:
            return " _tessellomatics_settings " + words;
        case CompletedWith::KeysOfFiles:
            return " _tessellomatics_keys files " + words;
        case CompletedWith::Groups:
            return Filled(" _tessellomatics_groups @1 @2", {completed.Extension, words});
        case CompletedWith::Nothing:
            break;
    }
    return " ";
}

std::string Option(const OptionRow& option) {
    std::string tail = std::string("[").append(Escaped(option.ShortHelp, "[]:\\")).append("]");
    if (option.Value != nullptr) {
        tail += Filled(":@1:@2", {Escaped(option.Value, ":"), Action(ValuesOf(option))});
    }
    const std::string many = option.Repeats ? "*" : "";
    const std::string name = std::string("--") + option.Name + (option.Value != nullptr ? "=" : "");
    std::string line = "                " + ShellQuoted(many + name + tail) + " \\\n";
    if (option.Letter != 0) {
        line +=
            "                " +
            ShellQuoted(many + "-" + option.Letter + (option.Value != nullptr ? "+" : "") + tail) +
            " \\\n";
    }
    return line;
}

std::string Clause(const CommandRow& command) {
    std::string clause =
        std::string("        ") + command.Name + ")\n            _arguments -s -S \\\n";
    for (const OptionRow& option : Options()) {
        if (BelongsTo(option, command)) clause += Option(option);
    }
    const Completed operands = OperandsOf(command);
    if (operands.Kind != CompletedWith::Nothing) {
        clause += "                " +
                  ShellQuoted(std::string("*:") + command.Operands + ":" + Action(operands)) +
                  " \\\n";
    }
    return clause + "                && return\n            ;;\n";
}

}  // namespace

std::string ZshCompletion() {
    std::string script = Filled(kBegin, {Escaped(GroupFolder(), " "), StyleClauses()});
    for (const CommandRow& command : Commands()) {
        script += "        " +
                  ShellQuoted(std::string(command.Name) + ":" + Escaped(command.ShortHelp, ":\\")) +
                  "\n";
    }
    script += "    )\n    _arguments -C -s -S \\\n";
    for (const OptionRow& option : Options()) {
        if (option.Commands == kAllCommands) script += Option(option);
    }
    script +=
        "                '(-): :->command' '(-)*:: :->rest' && return\n"
        "    if [[ $state == command ]]; then\n"
        "        _describe command commands\n        return\n    fi\n"
        "    case $words[1] in\n";
    for (const CommandRow& command : Commands())
        script += Clause(command);
    return script + "    esac\n}\n\n_tessellomatics \"$@\"\n";
}

}  // namespace tess
