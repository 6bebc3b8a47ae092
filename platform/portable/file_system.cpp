#include "platform/file_system.h"

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <dirent.h>
#include <filesystem>
#include <strings.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

#include "platform/files.h"

namespace platform {

const char kPathSeparator = '/';
const char* const kPathSeparators = "/";

/// $XDG_DATA_HOME, which counts only where it is absolute, else ~/.local/share.
std::string ApplicationDataFolder() {
    const char* data_home = std::getenv("XDG_DATA_HOME");
    if (data_home != nullptr && data_home[0] == '/') return data_home;
    const char* home = std::getenv("HOME");
    if (home == nullptr || home[0] == '\0') return "";
    return std::string(home) + "/.local/share";
}

std::string DocumentsFolder() {
    const char* home = std::getenv("HOME");
    return home == nullptr || home[0] == '\0' ? "" : std::string(home) + "/";
}

std::string ModuleFolder() {
    char path[4096];
    const ssize_t length = readlink("/proc/self/exe", path, sizeof path);
    return length <= 0 ? std::string()
                       : std::string(FolderOf({path, static_cast<std::size_t>(length)}));
}

std::FILE* OpenStream(const char* path, const char* mode) {
    return std::fopen(path, mode);
}

int TakePlaceOf(const char* from, const char* to) {
    return std::rename(from, to) == 0 ? 1 : 0;
}

int RemoveFromFolder(const char* path) {
    return std::remove(path) == 0 || errno == ENOENT ? 1 : 0;
}

std::string PlaceOfFile(const std::string& path) {
    constexpr int kMostLinks = 40;  // as the system follows them
    struct stat found = {};
    if (stat(path.c_str(), &found) == 0 && !S_ISREG(found.st_mode) && !S_ISDIR(found.st_mode)) {
        return "";
    }
    std::string place = path;
    for (int i = 0; i < kMostLinks; ++i) {
        char target[4096];
        const ssize_t length = readlink(place.c_str(), target, sizeof target);
        if (length < 0) return place;
        const std::string next(target, static_cast<std::size_t>(length));
        place = next.starts_with('/') ? next : std::string(FolderOf(place)) + next;
    }
    return path;
}

void TakePermissionsOf(const char* model, const char* path) {
    constexpr mode_t kPermissions = 0777;
    struct stat found = {};
    // Where it fails the file has those of any new one.
    if (stat(model, &found) == 0 && S_ISREG(found.st_mode)) {
        static_cast<void>(chmod(path, found.st_mode & kPermissions));
    }
}

std::vector<std::string> ListFolder(const std::string& folder, std::string_view extension) {
    std::vector<std::string> names;
    DIR* directory = opendir(folder.c_str());
    if (directory == nullptr) return names;
    while (const dirent* entry = readdir(directory)) {
        const std::string_view name = entry->d_name;
        if (entry->d_type == DT_DIR || name.size() < extension.size()) continue;
        const std::string_view end = name.substr(name.size() - extension.size());
        if (strncasecmp(end.data(), extension.data(), extension.size()) == 0)
            names.emplace_back(name);
    }
    closedir(directory);
    std::sort(names.begin(), names.end());
    return names;
}

int MakeFolder(std::string_view path) {
    std::error_code error;
    std::filesystem::create_directories(path, error);
    return !error && std::filesystem::is_directory(path, error) ? 1 : 0;
}

unsigned long ProcessNumber() {
    return static_cast<unsigned long>(getpid());
}

}  // namespace platform
