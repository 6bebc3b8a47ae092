// How both ports turn a control's text into a number.
#pragma once

#include <cstdint>
#include <string_view>

namespace platform {

/// Reads leading blanks, a sign only where `is_signed`, then digits to the end of
/// the text. Returns 0 when it is no number, or does not fit.
[[nodiscard]] std::uint32_t NumberFromText(std::string_view text, bool is_signed);

}  // namespace platform
