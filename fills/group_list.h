// The groups that are in the user's folder.
#pragma once

#include <string>
#include <vector>

namespace tess {

/// The names of the files in PluginFile's folder that end in `extension` (".mtx", of
/// either case), each less everything from its first "."; those that begin with "."
/// are left out.
[[nodiscard]] std::vector<std::string> GroupNames(const char* extension);

}  // namespace tess
