// Where the groups of textures and of tiles are that the command line names.
#pragma once

#include <string>

namespace tess {

/// Returns the path of the group that the user calls `name`: a path to a file with
/// `extension` (".fft"), or the name of a group in the user's folder, or of one that
/// came with the program. Empty when there is none.
[[nodiscard]] std::string FindGroupFile(const std::string& name, const char* extension);

/// The folder of the groups that came with the program, with a trailing separator:
/// beside the folder that the program is in, as the build and an installation lay it.
[[nodiscard]] std::string ProvidedGroupFolder();

}  // namespace tess
