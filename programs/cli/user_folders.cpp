#include "programs/cli/user_folders.h"

#include <filesystem>
#include <string>
#include <system_error>

#include "platform/files.h"
#include "programs/cli/request.h"
#include "programs/cli/session.h"
#include "programs/default_groups.h"

namespace tess {

int MakeUserFolders() {
    for (const auto path_in : {platform::UserFile, platform::PluginFile}) {
        const std::string folder = path_in("");
        std::error_code error;
        std::filesystem::create_directories(folder, error);
        if (folder.empty() || error) {
            TellUser(folder + ": the folder for saved values cannot be made");
            return kFailed;
        }
    }
    // Without them the groups are read from where they are.
    CopyProvidedGroups();
    return kDone;
}

}  // namespace tess
