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
enum class CompletedWith {
    Nothing,
    Files,
    Folders,
    Words,
    Keys,         ///< the words, each before "=" and a value
    StyleKeys,    ///< the same, and besides those of the style on the line
    KeysOfFiles,  ///< the words, each before "=" and a file
    Groups,       ///< the words, the user's groups of tiles or textures, and files
};
struct Completed {
    CompletedWith Kind;
    std::vector<std::string> Words;
    const char* Extension = "";  ///< of a group's file, ".mtx"
};
/// Words are those that the row quotes in its `Takes`.
[[nodiscard]] Completed ValuesOf(const OptionRow& option);
/// A STYLE has the styles' names.
[[nodiscard]] Completed OperandsOf(const CommandRow& command);

/// The keys of --set that every style has.
[[nodiscard]] std::vector<std::string> GeneralKeys();
/// Those of one style.
[[nodiscard]] std::vector<std::string> KeysOfStyle(int style);

/// Where the user's groups are, below the folder for the user's data.
[[nodiscard]] std::string GroupFolder();

}  // namespace tess
