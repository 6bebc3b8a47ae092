#include "platform/file_system.h"

#include <windows.h>
#include <shlobj.h>

#include "platform/files.h"
#include "platform/win32/module.h"

namespace platform {

namespace {

/// One of the system's folders for the user, empty when it cannot be found.
std::string SpecialFolder(int folder) {
    LPITEMIDLIST item = nullptr;
    if (FAILED(SHGetSpecialFolderLocation(nullptr, folder, &item))) return "";
    char path[MAX_PATH] = "";
    const BOOL is_found = SHGetPathFromIDListA(item, path);
    CoTaskMemFree(item);
    return is_found ? path : "";
}

}  // namespace

const char kPathSeparator = '\\';
const char* const kPathSeparators = "\\/:";

std::string ApplicationDataFolder() {
    return SpecialFolder(CSIDL_APPDATA);
}

std::string DocumentsFolder() {
    std::string folder = SpecialFolder(CSIDL_PERSONAL);
    if (!folder.empty() && folder.back() != kPathSeparator) folder += kPathSeparator;
    return folder;
}

std::string ModuleFolder() {
    char path[MAX_PATH] = "";
    const DWORD length = GetModuleFileNameA(Module(), path, sizeof path);
    return std::string(FolderOf({path, length}));
}

std::FILE* OpenStream(const char* path, const char* mode) {
    return std::fopen(path, mode);
}

int TakePlaceOf(const char* from, const char* to) {
    return MoveFileExA(from, to, MOVEFILE_REPLACE_EXISTING) ? 1 : 0;
}

void RemoveFile(const char* path) {
    DeleteFileA(path);
}

unsigned long ProcessNumber() {
    return GetCurrentProcessId();
}

}  // namespace platform
