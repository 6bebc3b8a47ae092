// The script for fish.
#include "programs/cli/completion_text.h"
#include "programs/cli/completions.h"
#include "programs/cli/style_names.h"

namespace tess {
namespace {

constexpr char kBegin[] = R"fish(# fish completion for tessellomatics; made from its command table.

function __tessellomatics_command
    for word in (commandline -opc)[2..]
        string match -q -- '-*' $word; and continue
        echo $word
        return
    end
end

function __tessellomatics_needs_command
    set -l command (__tessellomatics_command)
    test -z "$command"
end

function __tessellomatics_is
    set -l command (__tessellomatics_command)
    contains -- "$command" $argv
end

function __tessellomatics_style_keys
    for word in (commandline -opc)[3..]
        switch (string lower -- $word)
@2        end
    end
end

function __tessellomatics_settings
    string match -q -- '*=*' (commandline -ct); and return
    printf '%s=\n' $argv (__tessellomatics_style_keys)
end

function __tessellomatics_groups
    set -l data $XDG_DATA_HOME
    test -n "$data"; or set data $HOME/.local/share
    printf '%s\n' $argv[2..]
    for path in $data/@1/*$argv[1]
        string replace -r -- '.*/(.*)\.[^.]*$' '$1' $path
    end
end

complete -c tessellomatics -f
)fish";

std::string Quoted(std::string_view text) {
    return std::string("'").append(Escaped(text, "'\\")).append("'");
}

std::string Values(const Completed& completed) {
    const std::string words = Joined(completed.Words);
    const std::string keys = Joined(completed.Words, "= ") + "=";
    switch (completed.Kind) {
        case CompletedWith::Files:
            return " -r -F";
        case CompletedWith::Folders:
            return " -x -a '(__fish_complete_directories)'";
        case CompletedWith::Words:
            return Filled(" -x -a '@1'", {words});
        case CompletedWith::Keys:
            return Filled(" -x -a '@1'", {keys});
        case CompletedWith::StyleKeys:
            return Filled(" -x -a '(__tessellomatics_settings @1)'", {words});
        case CompletedWith::KeysOfFiles:
            return Filled(" -r -F -a '@1'", {keys});
        case CompletedWith::Groups:
            return Filled(" -F -a '(__tessellomatics_groups @1 @2)'", {completed.Extension, words});
        case CompletedWith::Nothing:
            break;
    }
    return " -x";
}

std::string Option(const OptionRow& option) {
    std::string line = "complete -c tessellomatics";
    if (option.Commands != kAllCommands) {
        Strings names;
        for (const CommandRow& command : Commands()) {
            if (BelongsTo(option, command)) names.emplace_back(command.Name);
        }
        line += Filled(" -n '__tessellomatics_is @1'", {Joined(names)});
    }
    if (option.Letter != 0) line += std::string(" -s ") + option.Letter;
    line += std::string(" -l ") + option.Name;
    if (option.Value != nullptr) line += Values(ValuesOf(option));
    return line + " -d " + Quoted(option.ShortHelp) + "\n";
}

std::string StyleCases() {
    std::string cases;
    for (int i = 0; i < kStyleCount; ++i) {
        cases += Filled(
            "            case @1 @2\n                printf '%s\\n' @3\n                return\n",
            {StyleName(*StyleTable[i]), std::to_string(i), Joined(KeysOfStyle(i))});
    }
    return cases;
}

}  // namespace

std::string FishCompletion() {
    std::string script = Filled(kBegin, {Escaped(GroupFolder(), " "), StyleCases()});
    for (const CommandRow& command : Commands()) {
        script +=
            Filled("complete -c tessellomatics -n __tessellomatics_needs_command -a @1 -d @2\n",
                   {command.Name, Quoted(command.ShortHelp)});
    }
    for (const OptionRow& option : Options())
        script += Option(option);
    for (const CommandRow& command : Commands()) {
        const Completed operands = OperandsOf(command);
        if (operands.Kind == CompletedWith::Nothing) continue;
        script += Filled("complete -c tessellomatics -n '__tessellomatics_is @1'@2\n",
                         {command.Name, Values(operands)});
    }
    return script;
}

}  // namespace tess
