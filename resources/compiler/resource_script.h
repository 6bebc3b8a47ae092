// What a resource script holds, once read, and how to read one.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace resource_compiler {

struct Control {
    std::string window_class;
    std::string text;
    int id = 0;
    std::uint32_t style = 0;
    int x = 0, y = 0, width = 0, height = 0;
};

/// A resource is known by its number, or by its name (upper case), and then its
/// number is 0.
struct ResourceName {
    int id = 0;
    std::string name;
    bool operator==(const ResourceName&) const = default;
};

struct Dialog {
    ResourceName key;
    std::string caption;
    int width = 0, height = 0;
    std::vector<Control> controls;
};

struct StringEntry {
    int id = 0;
    std::string text;
};

/// An RCDATA, BITMAP or CURSOR resource.
struct DataFile {
    ResourceName key;
    std::string path;
    bool is_bitmap = false;  ///< its file header is left out
};

struct ResourceScript {
    std::vector<Dialog> dialogs;
    std::vector<StringEntry> strings;
    std::vector<DataFile> data;
    std::vector<DataFile> cursors;   ///< the Windows resource section's alone: no table has them
    std::vector<std::string> files;  ///< every script that was read
};

/// Reads the script at `path` and what it includes. Returns false with
/// "file:line: what is wrong" in `error`.
[[nodiscard]] bool ReadResourceScript(const std::string& path, ResourceScript* script,
                                      std::string* error);

}  // namespace resource_compiler
