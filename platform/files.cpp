#include "platform/files.h"

#include <cstring>
#include <utility>

#include "platform/file_calls.h"
#include "platform/file_system.h"

namespace platform {

namespace {

constexpr std::size_t kLongestPath = 260;  // bytes

std::string user_folder;    // in place of the folder for application data
std::string plugin_folder;  // in place of PluginFile's
char shared_path[kLongestPath + 1];
const FileCalls* file_calls = &kSystemFileCalls;

/// Adds a step to a path, and cuts what is too long.
void Join(std::string* path, std::string_view name) {
    if (!path->empty() && path->back() != kPathSeparator) *path += kPathSeparator;
    *path += name;
    if (path->size() > kLongestPath) path->resize(kLongestPath);
}

std::string MakerFolder() {
    std::string folder = user_folder.empty() ? ApplicationDataFolder() : user_folder;
    if (!folder.empty()) Join(&folder, kMakerFolder);
    return folder;
}

/// Returns the path of `name` in `folder` in the shared buffer.
const char* SharedPath(std::string folder, const char* name) {
    if (!folder.empty()) Join(&folder, name);
    std::memcpy(shared_path, folder.c_str(), folder.size() + 1);
    return shared_path;
}

/// Each new file's temporary name is its own, so that two of the same path do not
/// write into one another.
std::string TemporaryPath(const std::string& path) {
    static unsigned count = 0;
    return path + "." + std::to_string(ProcessNumber()) + "-" + std::to_string(++count) + ".new";
}

}  // namespace

const FileCalls kSystemFileCalls{OpenStream, TakePlaceOf, RemoveFromFolder, ListFolder};

const FileCalls& CurrentFileCalls() {
    return *file_calls;
}

void SetFileCalls(const FileCalls* calls) {
    file_calls = calls != nullptr ? calls : &kSystemFileCalls;
}

const char* UserFile(const char* name) {
    return SharedPath(MakerFolder(), name);
}

const char* PluginFile(const char* name) {
    std::string folder = plugin_folder;
    if (folder.empty()) {
        folder = MakerFolder();
        if (!folder.empty()) Join(&folder, kPluginFolder);
    }
    return SharedPath(std::move(folder), name);
}

void SetUserFolder(std::string_view folder) {
    user_folder = folder;
}

void SetPluginFolder(std::string_view folder) {
    plugin_folder = folder;
}

std::string_view FolderOf(std::string_view path) {
    return path.substr(0, path.find_last_of(kPathSeparators) + 1);
}

std::string_view FileNameOf(std::string_view path) {
    return path.substr(path.find_last_of(kPathSeparators) + 1);
}

NewFile::NewFile(std::string_view path, FileMode mode)
    : path_(PlaceOfFile(std::string(path))),
      temporary_(TemporaryPath(path_)),
      unfinished_(path_.empty() ? "" : temporary_),
      stream_(path_.empty() ? nullptr : OpenFile(temporary_, mode == FileMode::Text ? "w" : "wb")) {
    if (stream_ != nullptr) TakePermissionsOf(path_.c_str(), temporary_.c_str());
}

NewFile::~NewFile() {
    if (stream_ == nullptr) return;
    std::fclose(stream_);
    RemoveFile(temporary_);
}

int NewFile::Commit() {
    std::FILE* stream = std::exchange(stream_, nullptr);
    if (stream == nullptr) return 0;
    const bool is_whole = std::ferror(stream) == 0;
    const bool is_closed = std::fclose(stream) == 0;  // flushes, so it can fail as a write does
    const FileCalls& calls = CurrentFileCalls();
    // It is not forced onto the disk first: after a loss of power the old file may be there,
    // and on some file systems an empty one. Settings and libraries are not worth the wait.
    if (is_whole && is_closed && calls.Rename(temporary_.c_str(), path_.c_str()) != 0) return 1;
    RemoveFile(temporary_);
    return 0;
}

bool FileExists(std::string_view path) {
    std::FILE* stream = OpenFile(path, "rb");
    if (stream == nullptr) return false;
    std::fclose(stream);
    return true;
}

int CopyFileTo(std::string_view from, std::string_view to) {
    std::FILE* source = OpenFile(from, "rb");
    if (source == nullptr) return 0;
    NewFile copy(to, FileMode::Binary);
    bool is_whole = static_cast<bool>(copy);
    char bytes[16384];
    for (std::size_t count; is_whole && (count = std::fread(bytes, 1, sizeof bytes, source)) > 0;) {
        is_whole = std::fwrite(bytes, 1, count, copy.Stream()) == count;
    }
    is_whole = is_whole && std::ferror(source) == 0;
    std::fclose(source);
    return is_whole ? copy.Commit() : 0;
}

std::FILE* OpenFile(std::string_view path, const char* mode) {
    return CurrentFileCalls().Open(std::string(path).c_str(), mode);
}

int RemoveFile(std::string_view path) {
    return CurrentFileCalls().Remove(std::string(path).c_str());
}

std::vector<std::string> FilesIn(std::string_view folder, std::string_view extension) {
    return CurrentFileCalls().List(std::string(folder), extension);
}

}  // namespace platform
