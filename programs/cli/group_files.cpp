#include "programs/cli/group_files.h"

#include <filesystem>
#include <system_error>

#include "platform/files.h"
#include "platform/letter_case.h"
#include "programs/cli/file_faults.h"
#include "programs/cli/values.h"
#include "programs/default_groups.h"

namespace tess {
namespace {

namespace fs = std::filesystem;

bool IsFile(const std::string& path) {
    std::error_code error;
    return fs::exists(path, error) && !fs::is_directory(path, error);
}

bool HasFolder(const std::string& name) {
    return name.find('/') != std::string::npos;
}

std::string WithExtension(const std::string& name, std::string_view extension) {
    return EndsIn(name, extension) ? name : name + std::string(extension);
}

// The file with that name in whatever case, with its folder; empty when there is none.
std::string FindInFolder(const std::string& folder, std::string_view file) {
    std::string found;
    for (const std::string& name : platform::FilesIn(folder, file)) {
        if (name == file) return folder + name;
        if (name.size() == file.size()) found = folder + name;
    }
    return found;
}

}  // namespace

bool EndsIn(std::string_view name, std::string_view extension) {
    return name.size() > extension.size() &&
           platform::IsSameName(name.substr(name.size() - extension.size()), extension);
}

std::string UserGroupFolder() {
    const std::string folder = platform::UserFile(platform::kPluginFolder);
    return folder.empty() ? "" : folder + "/";
}

std::string FindGroupFile(const std::string& name, std::string_view extension) {
    if (name.empty()) return "";
    if (HasFolder(name)) {
        if (IsFile(name)) return name;
        const std::string path = WithExtension(name, extension);
        return IsFile(path) ? path : "";
    }
    if (EndsIn(name, extension) && IsFile(name)) return name;
    return FindGroupNamed(WithExtension(name, extension));
}

std::string GroupFault(const std::string& name, std::string_view extension) {
    if (HasFolder(name)) return ReadFault(name);
    const std::string fault = "there is no group " + ShownText(name);
    const bool is_listed = extension == kTileGroupExtension;
    return is_listed ? fault + "; 'tessellomatics tiles' lists the groups" : fault;
}

std::string FindGroupNamed(std::string_view file) {
    const std::string own = FindInFolder(UserGroupFolder(), file);
    return own.empty() ? FindInFolder(ProvidedGroupFolder(), file) : own;
}

std::string NewGroupFile(const std::string& name, std::string_view extension) {
    const std::string_view last = platform::FileNameOf(name);
    if (last.empty() || last.starts_with('.')) return "";
    const std::string file = WithExtension(name, extension);
    return HasFolder(name) ? file : UserGroupFolder() + file;
}

std::string PathFromRoot(const std::string& path) {
    std::error_code error;
    const fs::path whole = fs::absolute(path, error);
    // ".." behind a link leads elsewhere than its letters do. The file's own name stays, which
    // may be a link's: by it the group is known.
    const fs::path folder = error ? fs::path() : fs::canonical(whole.parent_path(), error);
    return error ? path : (folder / whole.filename()).string();
}

}  // namespace tess
