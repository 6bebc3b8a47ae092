// What is said of a file that cannot be read or written: its path, and the reason that
// the system gives.
#pragma once

#include <string>

namespace tess {

/// Whether a file can be opened and read, as a folder cannot.
[[nodiscard]] bool IsReadable(const std::string& path);

/// "cannot be read: REASON" of a file that could not be opened or read; without the reason
/// when it can be by now.
[[nodiscard]] std::string UnreadableText(const std::string& path);

/// The same behind the path and a colon.
[[nodiscard]] std::string ReadFault(const std::string& path);

/// "PATH: cannot be created: REASON" of a file that could not be written, or "PATH: cannot
/// be written" where one can be begun.
[[nodiscard]] std::string WriteFault(const std::string& path);

}  // namespace tess
