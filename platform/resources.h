// The resources: dialog templates, strings and binary data, written once in
// resources/. The tables here are made from the same sources as the Windows
// library's resource section, and are there in both builds.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace platform {

/// One control of a template, boxes in dialog units.
struct TemplateControl {
    std::string_view window_class;  ///< "BUTTON", "EDIT", "STATIC", "COMBOBOX", "LISTBOX", ...
    std::string_view text;
    int id;
    std::uint32_t style;
    int x, y, width, height;
};

struct DialogTemplate {
    int id;                 ///< 0 for one that is known by name
    std::string_view name;  ///< empty for one that is known by number
    std::string_view caption;
    int width, height;
    std::span<const TemplateControl> controls;
};

/// Returns the template, or null. Owned by the table, for the program's life.
[[nodiscard]] const DialogTemplate* FindDialogTemplate(int id);
[[nodiscard]] const DialogTemplate* FindDialogTemplate(std::string_view name);

/// Returns the string-table entry, empty when there is none.
[[nodiscard]] std::string_view FindString(int id);

/// Returns the bytes of an RCDATA or BITMAP resource by number or name, empty
/// when there is none. A BITMAP's bytes start with its header, without the file
/// header.
[[nodiscard]] std::span<const std::byte> FindData(int id);
[[nodiscard]] std::span<const std::byte> FindData(std::string_view name);

}  // namespace platform
