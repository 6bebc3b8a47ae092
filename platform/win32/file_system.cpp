#include "platform/file_system.h"

#include <windows.h>
#include <shellapi.h>
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

int RemoveFromFolder(const char* path) {
    if (DeleteFileA(path)) return 1;
    const DWORD error = GetLastError();
    return error == ERROR_FILE_NOT_FOUND || error == ERROR_PATH_NOT_FOUND ? 1 : 0;
}

std::string PlaceOfFile(const std::string& path) {
    return path;
}

// They come from the folder.
void TakePermissionsOf(const char*, const char*) {}

std::vector<std::string> ListFolder(const std::string& folder, std::string_view extension) {
    std::vector<std::string> names;
    std::string pattern(folder);
    if (!pattern.empty() && pattern.find_last_of(kPathSeparators) != pattern.size() - 1)
        pattern += kPathSeparator;
    pattern += "*";
    WIN32_FIND_DATAA found;
    HANDLE search = FindFirstFileA(pattern.c_str(), &found);
    if (search == INVALID_HANDLE_VALUE) return names;
    do {
        const std::string_view name = found.cFileName;
        const bool is_folder = (found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
        if (is_folder || name.size() < extension.size()) continue;
        const std::string end(name.substr(name.size() - extension.size()));
        if (lstrcmpiA(end.c_str(), std::string(extension).c_str()) == 0) names.emplace_back(name);
    } while (FindNextFileA(search, &found));
    FindClose(search);
    return names;
}

int MoveToRecycleBin(std::string_view path) {
    std::string names(path);
    names += '\0';  // a list of names, which one more zero ends
    SHFILEOPSTRUCTA operation = {};
    operation.wFunc = FO_DELETE;
    operation.pFrom = names.c_str();
    operation.fFlags = FOF_ALLOWUNDO | FOF_NOCONFIRMATION | FOF_SILENT | FOF_NOERRORUI;
    return SHFileOperationA(&operation) == 0 && !operation.fAnyOperationsAborted ? 1 : 0;
}

int MakeFolder(std::string_view path) {
    const std::string folder(path.substr(0, path.find_last_not_of("\\/") + 1));
    SHCreateDirectoryExA(nullptr, folder.c_str(), nullptr);
    const DWORD attributes = GetFileAttributesA(folder.c_str());
    const bool is_folder =
        attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
    return is_folder ? 1 : 0;
}

unsigned long ProcessNumber() {
    return GetCurrentProcessId();
}

}  // namespace platform
