#include "programs/tilehost/user_folders.h"

#include <windows.h>
#include <string>

#include "platform/files.h"

namespace tess {
namespace {

bool MakeFolder(const std::string& path) {
    return CreateDirectoryA(path.c_str(), nullptr) || GetLastError() == ERROR_ALREADY_EXISTS;
}

// Without the separator that UserFile and PluginFile put before a name.
std::string FolderOf(const char* file) {
    const std::string path = file;
    return path.substr(0, path.find_last_of('\\'));
}

}  // namespace

bool MakeUserFolders() {
    const std::string makers = FolderOf(platform::UserFile("x"));
    const std::string plugins = FolderOf(platform::PluginFile("x"));
    return !makers.empty() && MakeFolder(makers) && MakeFolder(plugins);
}

}  // namespace tess
