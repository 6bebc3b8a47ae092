// Lines of a text file or of a text in memory, with the line ends of either system.
#pragma once

#include <cstddef>
#include <cstdio>
#include <span>
#include <string_view>

namespace platform {

/// Reads lines as `fgets` does of a file in text mode: a line ends with LF, CR LF
/// counts as LF, and what does not fit into the buffer is read as a line of its own.
/// Unlike text mode on Windows it takes no character for the end of the file, so
/// that both builds read the same of the same bytes.
class TextLines {
public:
    /// Owns nothing. Requires: `stream` was opened in binary mode.
    explicit TextLines(std::FILE* stream) : stream_(stream) {}
    explicit TextLines(std::string_view text) : text_(text) {}

    /// Reads the next line with its LF and a NUL behind it. Returns false when there
    /// is none left. Requires: `line` has room for two characters.
    bool Next(std::span<char> line);

private:
    int Get();
    int Peek();

    std::FILE* stream_ = nullptr;
    std::string_view text_;
};

}  // namespace platform
