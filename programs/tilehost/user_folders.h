// The two folders of the user that the plug-in keeps its files in. It uses them and
// never makes them; an installation does, and so does this host.
#pragma once

namespace tess {

/// Makes those that are missing. Returns false when there is no place for them.
bool MakeUserFolders();

}  // namespace tess
