// The groups that are in the user's folder.
#pragma once

#include <string>
#include <vector>

namespace tess {

/// The names of the files in PluginFile's folder that end in `extension` (".mtx", of
/// either case), each less everything from its first "."; those that begin with "."
/// are left out.
[[nodiscard]] std::vector<std::string> GroupNames(const char* extension);

/// The path of a group's file in that folder, which names it in whatever case; as it is
/// given where there is no such file.
[[nodiscard]] std::string GroupPath(const char* file);

/// Copies a group's file to PATH.bak, for when it is written anew. Without a copy the
/// backup before stays; a group that is new has none.
void KeepGroupBackup(const std::string& path);

}  // namespace tess
