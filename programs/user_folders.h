// The two folders of the user that the plug-in keeps its files in. It uses them and never
// makes them; an installation does, and so do the programs.
#pragma once

namespace tess {

/// Makes those that are missing and puts the default groups there. Returns false when there
/// is no place for the folders; groups that cannot be copied are read from where they are.
[[nodiscard]] bool MakeUserFolders();

}  // namespace tess
