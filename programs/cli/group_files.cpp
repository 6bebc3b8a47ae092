#include "programs/cli/group_files.h"

#include "fills/group_list.h"
#include "platform/files.h"
#include "programs/cli/values.h"
#include "programs/default_groups.h"

namespace tess {

namespace {

bool EndsIn(const std::string& name, const std::string& extension) {
    return name.size() > extension.size() &&
           PlainName(name.substr(name.size() - extension.size())) == PlainName(extension);
}

}  // namespace

std::string FindGroupFile(const std::string& name, const char* extension) {
    const bool is_path = EndsIn(name, extension) || name.find('/') != std::string::npos;
    if (is_path) return platform::FileExists(name) ? name : "";
    const std::string file = name + extension;
    if (const std::string own = GroupPath(file.c_str()); platform::FileExists(own)) return own;
    const std::string provided = ProvidedGroupFolder() + file;
    return platform::FileExists(provided) ? provided : "";
}

}  // namespace tess
