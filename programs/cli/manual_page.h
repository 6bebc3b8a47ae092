// The manual page, made from the rows of the command table.
#pragma once

#include <string>
#include <string_view>

namespace tess {

/// The page as the source that man(1) formats. It carries no date, so that a version has
/// one page.
[[nodiscard]] std::string ManualPage(std::string_view version);

/// `text` so that man(1) shows it as it stands.
[[nodiscard]] std::string ManualText(std::string_view text);

}  // namespace tess
