#include "controls/hexadecimal.h"

namespace tess {

namespace {

/// The value of a hexadecimal digit, -1 for another character.
int DigitValue(char digit) {
    if (digit >= '0' && digit <= '9') return digit - '0';
    if (digit >= 'A' && digit <= 'F') return digit - 'A' + 10;
    if (digit >= 'a' && digit <= 'f') return digit - 'a' + 10;
    return -1;
}

}  // namespace

std::string Hexadecimal(std::span<const std::uint8_t> bytes) {
    constexpr char kDigits[] = "0123456789ABCDEF";
    std::string text;
    for (const std::uint8_t byte : bytes) {
        text += kDigits[byte >> 4];
        text += kDigits[byte & 15];
    }
    return text;
}

bool ReadHexadecimal(const char* text, std::span<std::uint8_t> bytes) {
    for (std::size_t place = 0;; ++place, text += 2) {
        if (text[0] == '\0') return true;
        const int high = DigitValue(text[0]);
        if (high < 0) return false;
        if (text[1] == '\0') return true;
        const int low = DigitValue(text[1]);
        if (low < 0) return false;
        if (place > bytes.size()) return false;
        if (place < bytes.size()) bytes[place] = static_cast<std::uint8_t>(high << 4 | low);
    }
}

}  // namespace tess
