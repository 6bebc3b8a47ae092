// The ANSI code page of the native build.
#pragma once

#include <string>
#include <string_view>

namespace platform {

/// A text of Windows-1252 as UTF-8. The five bytes that the code page leaves open are
/// control characters of the same number, as Windows takes them.
[[nodiscard]] std::string Utf8FromWindows1252(std::string_view text);

}  // namespace platform
