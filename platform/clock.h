// The time of day, for the comment of the configuration file.
#pragma once

#include <string>

namespace platform {

/// The local time in the 24 characters of the C library's `ctime`.
[[nodiscard]] std::string CurrentTimeText();

}  // namespace platform
