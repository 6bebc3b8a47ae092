// Columns of the tables that the commands print.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace tess {

/// The text (UTF-8) with blanks behind it up to `width` characters; a longer one stays as
/// it is.
[[nodiscard]] std::string Padded(std::string_view text, std::size_t width);

}  // namespace tess
