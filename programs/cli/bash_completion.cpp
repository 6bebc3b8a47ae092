// The script for bash.
#include "programs/cli/completion_text.h"
#include "programs/cli/completions.h"

namespace tess {
namespace {

constexpr char kBegin[] = R"bash(# bash completion for tessellomatics; made from its command table.

_tessellomatics_words() {
    COMPREPLY+=($(compgen -W "$1" -- "$word"))
}

_tessellomatics_paths() {
    local path
    while IFS= read -r path; do
        COMPREPLY+=("$path")
    done < <(compgen "$1" -- "$word")
    compopt -o filenames 2>/dev/null
}

# What stands before "=", and behind it files where $2 says so.
_tessellomatics_keys() {
    if [[ $word == *=* ]]; then
        word=${word#*=}
        [[ $2 != files ]] || _tessellomatics_paths -f
    else
        COMPREPLY+=($(compgen -S = -W "$1" -- "$word"))
        compopt -o nospace 2>/dev/null
    fi
}

_tessellomatics_groups() {
    local path
    _tessellomatics_words "$1"
    for path in "${XDG_DATA_HOME:-$HOME/.local/share}/@1"/*"$2"; do
        path=${path##*/}
        path=${path%"$2"}
        [[ $path == '*' || $path != "$word"* ]] || COMPREPLY+=("$path")
    done
    _tessellomatics_paths -f
}

_tessellomatics_style_keys() {
    case $1 in
@2    *) return 1 ;;
    esac
}

_tessellomatics() {
    local word before= command= style_keys= i
    local -a line=()
    COMPREPLY=()
    # bash splits --host=UNIT into three words.
    for ((i = 1; i <= COMP_CWORD; ++i)); do
        if ((i > 1)) && [[ ${COMP_WORDS[i]} == = || ${COMP_WORDS[i-1]} == = ]]; then
            line[${#line[@]}-1]+=${COMP_WORDS[i]}
        else
            line+=("${COMP_WORDS[i]}")
        fi
    done
    local last=$((${#line[@]} - 1))
    word=${line[last]}
    ((last == 0)) || before=${line[last-1]}
    if [[ $word == --*=* ]]; then
        before=${word%%=*}
        word=${word#*=}
    fi
    for ((i = 0; i < last; ++i)); do
        if [[ -n $command ]]; then
            style_keys=$(_tessellomatics_style_keys "${line[i],,}") && break
        elif [[ ${line[i]} != -* ]]; then
            command=${line[i]}
        fi
    done
    case $command in
)bash";

/// What fills COMPREPLY with one kind of thing.
std::string Reply(const Completed& completed) {
    const std::string words = Joined(completed.Words);
    switch (completed.Kind) {
        case CompletedWith::Files:
            return "_tessellomatics_paths -f";
        case CompletedWith::Folders:
            return "_tessellomatics_paths -d";
        case CompletedWith::Words:
            return Filled("_tessellomatics_words '@1'", {words});
        case CompletedWith::Keys:
            return Filled("_tessellomatics_keys '@1' values", {words});
        case CompletedWith::StyleKeys:
            return Filled("_tessellomatics_keys \"$style_keys @1\" values", {words});
        case CompletedWith::KeysOfFiles:
            return Filled("_tessellomatics_keys '@1' files", {words});
        case CompletedWith::Groups:
            return Filled("_tessellomatics_groups '@1' @2", {words, completed.Extension});
        case CompletedWith::Nothing:
            break;
    }
    return ":";
}

/// One clause a command: an option's values, its options behind a dash, else its operands.
std::string Clause(const CommandRow& command) {
    Strings options;
    std::string values;
    for (const OptionRow& option : Options()) {
        if (!BelongsTo(option, command)) continue;
        options.push_back(WordsOf(option).back());
        if (option.Value == nullptr) continue;
        values += Filled("            @1) @2 ;;\n",
                         {Joined(WordsOf(option), "|"), Reply(ValuesOf(option))});
    }
    std::string clause =
        Filled("        @1)\n            case $before in\n@2", {command.Name, values});
    return clause + Filled(
                        "            *)\n                if [[ $word == -* ]]; then\n"
                        "                    _tessellomatics_words '@1'\n"
                        "                else\n                    @2\n                fi\n"
                        "                ;;\n            esac\n            ;;\n",
                        {Joined(options), Reply(OperandsOf(command))});
}

}  // namespace

std::string BashCompletion() {
    std::string script = Filled(kBegin, {GroupFolder(), StyleClauses()});
    for (const CommandRow& command : Commands())
        script += Clause(command);
    return script + Filled(
                        "        '') _tessellomatics_words '@1 @2' ;;\n    esac\n}\n\n"
                        "complete -F _tessellomatics tessellomatics\n",
                        {Joined(CommandNames()), Joined(GeneralOptions())});
}

}  // namespace tess
