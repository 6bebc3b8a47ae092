// The groups of textures and of tiles that come with the programs, which an installation
// puts into the user's folder.
#pragma once

#include <string>

namespace tess {

/// The folder of the groups that came with the program, with a trailing separator:
/// "groups" beside it where there is one, as a package lays it, else in "share" beside
/// the folder that the program is in, as the build and an installation lay it.
[[nodiscard]] std::string ProvidedGroupFolder();

/// Copies into the user's folder of the plug-in each of these groups that is not there.
/// Returns false when one could not be copied.
bool CopyProvidedGroups();

}  // namespace tess
