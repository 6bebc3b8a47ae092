// What the shells complete on a command line of the program, made from the rows of the
// command table and of the style table.
#pragma once

#include <string>
#include <vector>

#include "programs/cli/command_table.h"

namespace tess {

/// A script for each shell, to be put where it looks for such.
[[nodiscard]] std::string BashCompletion();
[[nodiscard]] std::string ZshCompletion();
[[nodiscard]] std::string FishCompletion();

/// What can stand in the place of an option's value or of an operand.
enum class CompletedWith { Nothing, Files, Folders, Words };
struct Completed {
    CompletedWith Kind;
    std::vector<std::string> Words;
};
/// The words are those that the row quotes in its `Takes`.
[[nodiscard]] Completed ValuesOf(const OptionRow& option);
/// A STYLE has the styles' names.
[[nodiscard]] Completed OperandsOf(const CommandRow& command);

}  // namespace tess
