// The two folders of the user that the plug-in keeps its files in.
#pragma once

namespace tess {

/// Makes those that are missing and puts the default groups there, which is the task of
/// an installation, and a command line has none: so it is done as the first values are
/// saved. Returns kDone, or another exit status after telling the user.
[[nodiscard]] int MakeUserFolders();

}  // namespace tess
