#include "platform/file_system.h"

#include <windows.h>
#include <shlobj.h>

namespace platform {

const char kPathSeparator = '\\';

std::string ApplicationDataFolder() {
    LPITEMIDLIST item = nullptr;
    if (FAILED(SHGetSpecialFolderLocation(nullptr, CSIDL_APPDATA, &item))) return "";
    char path[MAX_PATH] = "";
    const BOOL is_found = SHGetPathFromIDListA(item, path);
    CoTaskMemFree(item);
    return is_found ? path : "";
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
