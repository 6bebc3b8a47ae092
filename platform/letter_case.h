// Names that a user or a file writes in small letters or in large ones.
#pragma once

#include <string_view>

namespace platform {

/// Whether two texts differ in nothing but the case of ASCII letters.
[[nodiscard]] bool IsSameName(std::string_view one, std::string_view other);

}  // namespace platform
