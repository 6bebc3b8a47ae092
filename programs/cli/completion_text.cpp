#include "programs/cli/completion_text.h"

#include "programs/cli/completions.h"
#include "programs/cli/style_names.h"

namespace tess {

std::string Joined(const Strings& words, const char* between) {
    std::string joined;
    for (const std::string& word : words) {
        joined += (joined.empty() ? "" : between) + word;
    }
    return joined;
}

std::string Escaped(std::string_view text, std::string_view special) {
    std::string escaped;
    for (const char character : text) {
        if (special.find(character) != std::string_view::npos) escaped += '\\';
        escaped += character;
    }
    return escaped;
}

std::string ShellQuoted(std::string_view text) {
    std::string quoted = "'";
    for (const char character : text) {
        quoted += character == '\'' ? std::string("'\\''") : std::string(1, character);
    }
    return quoted + "'";
}

std::string Filled(std::string_view script, const Strings& parts) {
    std::string filled;
    for (std::size_t i = 0; i < script.size(); ++i) {
        const bool is_part = script[i] == '@' && i + 1 < script.size() && script[i + 1] >= '1' &&
                             script[i + 1] <= '3';
        if (is_part) {
            filled += parts[static_cast<std::size_t>(script[++i] - '1')];
        } else {
            filled += script[i];
        }
    }
    return filled;
}

bool BelongsTo(const OptionRow& option, const CommandRow& command) {
    return (option.Commands & command.Bit) != 0;
}

Strings WordsOf(const OptionRow& option) {
    Strings words{std::string("--") + option.Name};
    if (option.Letter != 0) words.insert(words.begin(), std::string{'-', option.Letter});
    return words;
}

Strings CommandNames() {
    Strings names;
    for (const CommandRow& command : Commands())
        names.emplace_back(command.Name);
    return names;
}

Strings GeneralOptions() {
    Strings words;
    for (const OptionRow& option : Options()) {
        if (option.Commands == kAllCommands) words.push_back(WordsOf(option).back());
    }
    return words;
}

std::string StyleClauses() {
    std::string clauses;
    for (int i = 0; i < kStyleCount; ++i) {
        clauses += Filled("    @1|@2) echo '@3' ;;\n",
                          {StyleName(*StyleTable[i]), std::to_string(i), Joined(KeysOfStyle(i))});
    }
    return clauses;
}

}  // namespace tess
