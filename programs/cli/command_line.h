// From the words of a command line to a request.
//
// The first word that is no option names the command. An option with a value takes
// it behind "=" or as the next word; letters take it at once too ("-oFILE"). What
// follows "--" are operands.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "programs/cli/request.h"

namespace tess {

/// Fills `request` from the words behind the program's name. Returns the text of
/// what is wrong, empty when nothing is.
[[nodiscard]] std::string ParseCommandLine(std::span<const std::string_view> words,
                                           Request* request);

}  // namespace tess
