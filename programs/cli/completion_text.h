// What the scripts of all shells are put together with. Each script knows the command by the
// first word that is no option, since a style may be called as a command is, and the style by
// the first word behind it that is one.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "programs/cli/command_table.h"

namespace tess {

using Strings = std::vector<std::string>;

[[nodiscard]] std::string Joined(const Strings& words, const char* between = " ");
/// Characters of `text` that stand in `special`, each behind a backslash.
[[nodiscard]] std::string Escaped(std::string_view text, std::string_view special);
/// In single quotes, as bash and zsh read them.
[[nodiscard]] std::string ShellQuoted(std::string_view text);
/// `script` with `parts` in the places of "@1" to "@3".
[[nodiscard]] std::string Filled(std::string_view script, const Strings& parts);

[[nodiscard]] bool BelongsTo(const OptionRow& option, const CommandRow& command);
/// "-o", where it has a letter, and "--output".
[[nodiscard]] Strings WordsOf(const OptionRow& option);
[[nodiscard]] Strings CommandNames();
/// The options that every command takes.
[[nodiscard]] Strings GeneralOptions();
/// The clauses of a `case` that prints a style's keys, as bash and zsh have it.
[[nodiscard]] std::string StyleClauses();

}  // namespace tess
