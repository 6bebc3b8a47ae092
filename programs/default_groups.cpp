#include "programs/default_groups.h"

#include "platform/files.h"

namespace tess {

namespace {

constexpr const char* kGroupExtensions[] = {".mtx", ".fft"};

bool HasGroups(const std::string& folder) {
    for (const char* extension : kGroupExtensions) {
        if (!platform::FilesIn(folder, extension).empty()) return true;
    }
    return false;
}

}  // namespace

std::string ProvidedGroupFolder() {
    std::string own = platform::ModuleFolder() + "groups/";
    if (HasGroups(own)) return own;
    return platform::ModuleFolder() + "../share/tessellomatics/groups/";
}

bool CopyProvidedGroups() {
    const std::string folder = ProvidedGroupFolder();
    bool is_done = true;
    for (const char* extension : kGroupExtensions) {
        for (const std::string& name : platform::FilesIn(folder, extension)) {
            const std::string target = platform::PluginFile(name.c_str());
            if (platform::FileExists(target)) continue;
            is_done = platform::CopyFileTo(folder + name, target) != 0 && is_done;
        }
    }
    return is_done;
}

}  // namespace tess
