#include "programs/user_folders.h"

#include <string>

#include "platform/files.h"
#include "programs/default_groups.h"

namespace tess {

bool MakeUserFolders() {
    for (const auto path_in : {platform::UserFile, platform::PluginFile}) {
        if (platform::MakeFolder(path_in("")) == 0) return false;
    }
    CopyProvidedGroups();
    return true;
}

}  // namespace tess
