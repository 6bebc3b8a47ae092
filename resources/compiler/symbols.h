// The names that a resource script may use for numbers.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace resource_compiler {

inline constexpr std::uint32_t kChildVisible = 0x50000000;  ///< WS_CHILD | WS_VISIBLE
inline constexpr std::uint32_t kTabStop = 0x00010000;       ///< WS_TABSTOP
inline constexpr std::uint32_t kGroup = 0x00020000;         ///< WS_GROUP
inline constexpr std::uint32_t kBorder = 0x00800000;        ///< WS_BORDER

/// Returns the value of a style or id by the name that the system's headers give
/// it ("WS_GROUP", "IDOK").
[[nodiscard]] std::optional<std::uint32_t> SymbolValue(std::string_view name);

}  // namespace resource_compiler
