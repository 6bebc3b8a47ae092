// What values a control takes.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/dialog.h"
#include "shell/style_table.h"

namespace tess {

/// A value as its control's line holds it, or what is wrong with it.
struct LineValue {
    std::string Value;
    std::string Error;
};

/// A whole number that lies in a range.
[[nodiscard]] LineValue NumberBetween(std::string_view text, std::int64_t least, std::int64_t most);

/// What a user has written for control `id`, by its class tag.
[[nodiscard]] LineValue ValueForControl(platform::WindowHandle dialog, int id,
                                        std::string_view text);

/// How many directions a picker with this tag has, 0 for another control.
[[nodiscard]] int PickerCells(std::string_view tag);
/// The same for a parameter of this kind.
[[nodiscard]] int PickerCells(ParameterKind kind);

}  // namespace tess
