#include "platform/text_lines.h"

namespace platform {

bool TextLines::Next(std::span<char> line) {
    std::size_t length = 0;
    while (length + 1 < line.size()) {
        int c = Get();
        if (c == '\r' && Peek() == '\n') c = Get();
        if (c == EOF) break;
        line[length++] = static_cast<char>(c);
        if (c == '\n') break;
    }
    line[length] = '\0';
    return length > 0;
}

int TextLines::Get() {
    if (stream_ != nullptr) return std::getc(stream_);
    if (text_.empty()) return EOF;
    const int c = static_cast<unsigned char>(text_.front());
    text_.remove_prefix(1);
    return c;
}

int TextLines::Peek() {
    if (stream_ == nullptr) return text_.empty() ? EOF : static_cast<unsigned char>(text_.front());
    const int c = std::getc(stream_);
    return c == EOF ? EOF : std::ungetc(c, stream_);
}

}  // namespace platform
