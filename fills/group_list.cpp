#include "fills/group_list.h"

#include <string_view>

#include "platform/files.h"

namespace tess {

namespace {

std::string Folder() {
    return std::string(platform::FolderOf(platform::PluginFile("x")));
}

}  // namespace

std::vector<std::string> GroupNames(const char* extension) {
    std::vector<std::string> names = platform::FilesIn(Folder(), extension);
    for (std::string& name : names)
        name.resize(name.find('.'));
    std::erase(names, "");
    return names;
}

std::string GroupPath(const char* file) {
    // Dialogs give extensions in capitals, which not every system takes for the same.
    std::string path = platform::PluginFile(file);
    if (!platform::FileExists(path)) {
        const std::vector<std::string> same = platform::FilesIn(Folder(), file);
        for (const std::string& name : same) {
            if (name.size() == std::string_view(file).size())
                path = platform::PluginFile(name.c_str());
        }
    }
    return path;
}

void KeepGroupBackup(const std::string& path) {
    const std::string backup = path + ".bak";
    // The old backup goes as the copy takes its place, so that there is always one.
    if (platform::CopyFileTo(path, backup) == 0 && !platform::FileExists(path))
        platform::RemoveFile(backup);
}

}  // namespace tess
