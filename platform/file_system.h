// What the two ports of platform/files.h do differently.
#pragma once

#include <cstdio>
#include <string>
#include <string_view>
#include <vector>

namespace platform {

/// What joins a folder and a name.
extern const char kPathSeparator;
/// What may end a folder in a path.
extern const char* const kPathSeparators;

/// The user's folder for application data, empty when it cannot be found.
[[nodiscard]] std::string ApplicationDataFolder();

/// Opens a file as `fopen` does.
[[nodiscard]] std::FILE* OpenStream(const char* path, const char* mode);

/// Puts `from` in the place of `to`, which may exist. Returns 0 on failure, and
/// then both stay as they are.
[[nodiscard]] int TakePlaceOf(const char* from, const char* to);

/// Removes a file. Returns 0 when it is still there.
[[nodiscard]] int RemoveFromFolder(const char* path);

/// Where a file that is to stand at `path` is written: natively behind the links that stand
/// there. Empty where something stands that no file can replace, such as a device.
[[nodiscard]] std::string PlaceOfFile(const std::string& path);

/// Gives the file at `path` the permissions of `model`, if that is there.
void TakePermissionsOf(const char* model, const char* path);

/// As FilesIn.
[[nodiscard]] std::vector<std::string> ListFolder(const std::string& folder,
                                                  std::string_view extension);

/// A number that no other running process has.
[[nodiscard]] unsigned long ProcessNumber();

}  // namespace platform
