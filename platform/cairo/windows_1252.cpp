#include "platform/cairo/windows_1252.h"

namespace platform {
namespace {

/// Bytes 0x80 to 0x9F; the others are their own code points.
constexpr char16_t kUpperControls[32] = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

void AppendUtf8(std::string& text, char32_t code) {
    if (code < 0x80) {
        text += static_cast<char>(code);
        return;
    }
    if (code < 0x800) {
        text += static_cast<char>(0xC0 | code >> 6);
    } else {
        text += static_cast<char>(0xE0 | code >> 12);
        text += static_cast<char>(0x80 | (code >> 6 & 0x3F));
    }
    text += static_cast<char>(0x80 | (code & 0x3F));
}

}  // namespace

std::string Utf8FromWindows1252(std::string_view text) {
    std::string converted;
    for (const char character : text) {
        const auto byte = static_cast<unsigned char>(character);
        AppendUtf8(converted, byte >= 0x80 && byte < 0xA0 ? kUpperControls[byte - 0x80] : byte);
    }
    return converted;
}

}  // namespace platform
