// Files and the two per-user folders.
#pragma once

#include <cstddef>
#include <cstdio>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/unfinished_path.h"

namespace platform {

/// The names of the two per-user folders, the second inside the first.
inline constexpr char kMakerFolder[] = "Quorvenstadtholme";
inline constexpr char kPluginFolder[] = "Tessellomatics 1";

/// The path of `name` in the maker's per-user folder, which is in the folder for
/// application data; cut at 260 bytes. Natively that folder is $XDG_DATA_HOME, else
/// ~/.local/share. Empty when it cannot be found. Returns a shared buffer that the
/// next call of either function overwrites. The folders are not created.
[[nodiscard]] const char* UserFile(const char* name);
/// The same in the plug-in's folder inside it.
[[nodiscard]] const char* PluginFile(const char* name);
/// Puts another folder in place of the one for application data ("" ends that).
void SetUserFolder(std::string_view folder);
/// Puts another folder in place of PluginFile's ("" ends that).
void SetPluginFolder(std::string_view folder);

/// The user's folder for documents with a trailing separator; empty when it cannot
/// be found.
[[nodiscard]] std::string DocumentsFolder();

/// The folder of the program or library that this code is in, with a trailing
/// separator; empty when it cannot be found.
[[nodiscard]] std::string ModuleFolder();

/// A path's folder, with its trailing separator; empty for a bare name.
[[nodiscard]] std::string_view FolderOf(std::string_view path);
/// A path's name and extension, without the folder.
[[nodiscard]] std::string_view FileNameOf(std::string_view path);

enum class FileMode { Binary, Text };

/// A file that is written whole or not at all. It is written beside its place,
/// under another name, and takes its place in Commit; without Commit nothing is
/// left of it and an older file stays. Text mode ends lines as the system does. Natively
/// its place is where the links at `path` lead to, and it keeps the permissions of the older
/// file; a device or the like is no place for it.
class NewFile {
public:
    NewFile(std::string_view path, FileMode mode);
    NewFile(const NewFile&) = delete;
    NewFile& operator=(const NewFile&) = delete;
    ~NewFile();

    /// False when it could not be created.
    explicit operator bool() const { return stream_ != nullptr; }
    /// Owned by this.
    [[nodiscard]] std::FILE* Stream() const { return stream_; }
    /// Returns 0 when a write or the renaming failed; nothing is left then.
    [[nodiscard]] int Commit();

private:
    std::string path_;
    std::string temporary_;
    UnfinishedPath unfinished_;
    std::FILE* stream_;
};

/// The names of the files in `folder` that end in `extension` (".mtx"), which is
/// compared without regard to case. Natively by name, on Windows in the folder's order.
[[nodiscard]] std::vector<std::string> FilesIn(std::string_view folder, std::string_view extension);

[[nodiscard]] bool FileExists(std::string_view path);

/// Puts a copy of `from`, whole or not at all, in the place of `to`, which may exist.
/// Returns 0 on failure.
[[nodiscard]] int CopyFileTo(std::string_view from, std::string_view to);

/// Makes the folder of a full path, and those above it, where they are missing. Returns 0
/// when it is not there then.
[[nodiscard]] int MakeFolder(std::string_view path);

/// Removes a file if it is there. Returns 0 when it still is.
int RemoveFile(std::string_view path);

/// Moves a file to where the user can get it back from: the recycle bin, natively
/// the trash in the user's folder for data. Asks and shows nothing. Returns 0 on
/// failure; the file then stays.
[[nodiscard]] int MoveToRecycleBin(std::string_view path);

/// Opens a file as the C library does ("rb", "wb", "r", "w"), with a path in
/// UTF-8 natively and in the ANSI code page on Windows. Returns null on failure.
/// The caller closes it.
[[nodiscard]] std::FILE* OpenFile(std::string_view path, const char* mode);

}  // namespace platform
