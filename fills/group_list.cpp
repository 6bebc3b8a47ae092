#include "fills/group_list.h"

#include "platform/files.h"

namespace tess {

std::vector<std::string> GroupNames(const char* extension) {
    std::vector<std::string> names =
        platform::FilesIn(platform::FolderOf(platform::PluginFile("x")), extension);
    for (std::string& name : names)
        name.resize(name.find('.'));
    std::erase(names, "");
    return names;
}

}  // namespace tess
