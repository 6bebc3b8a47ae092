// Where the groups of textures and of tiles are that the command line names.
#pragma once

#include <string>

namespace tess {

/// Returns the path of the group that the user calls `name`: a path to a file with
/// `extension` (".fft"), or the name of a group in the user's folder, or of one that
/// came with the program. Empty when there is none.
[[nodiscard]] std::string FindGroupFile(const std::string& name, const char* extension);

}  // namespace tess
