// The help, made from the rows of the command table.
#pragma once

#include <string>

#include "programs/cli/command_table.h"

namespace tess {

inline constexpr char kProgramCommand[] = "tessellomatics";

/// The help of the program as a whole.
[[nodiscard]] std::string ProgramHelp();
/// The help of one command, with all options that it takes.
[[nodiscard]] std::string CommandHelp(const CommandRow& command);

}  // namespace tess
