#include "programs/cli/values.h"

#include <cctype>
#include <charconv>
#include <cstdio>

namespace tess {
namespace {

bool IsUpper(char c) {
    return std::isupper(static_cast<unsigned char>(c)) != 0;
}

bool IsDigit(char c) {
    return std::isdigit(static_cast<unsigned char>(c)) != 0;
}

bool IsNameCharacter(char c) {
    return std::isalnum(static_cast<unsigned char>(c)) != 0;
}

char Lower(char c) {
    return static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
}

// All of `digits` as an unsigned number, the largest where they say more.
std::optional<std::uint64_t> ReadDigits(std::string_view digits, int base) {
    std::uint64_t value = 0;
    const char* end = digits.data() + digits.size();
    const auto [stop, error] = std::from_chars(digits.data(), end, value, base);
    if (digits.empty() || stop != end) return std::nullopt;
    if (error == std::errc::result_out_of_range) return ~std::uint64_t{0};
    return error == std::errc() ? std::optional(value) : std::nullopt;
}

}  // namespace

std::optional<std::int64_t> ParseNumber(std::string_view text) {
    constexpr std::int64_t kLargest = 0x7FFFFFFFFFFFFFFF;
    const bool is_negative = text.starts_with('-');
    if (is_negative || text.starts_with('+')) text.remove_prefix(1);
    const bool is_hexadecimal = text.starts_with("0x") || text.starts_with("0X");
    if (is_hexadecimal) text.remove_prefix(2);
    const auto value = ReadDigits(text, is_hexadecimal ? 16 : 10);
    if (!value) return std::nullopt;
    const std::int64_t number =
        *value > std::uint64_t{kLargest} ? kLargest : static_cast<std::int64_t>(*value);
    return is_negative ? -number : number;
}

std::optional<std::uint32_t> ReadColor(std::string_view text) {
    if (text.starts_with('#')) {
        const auto rgb = text.size() == 7 ? ReadDigits(text.substr(1), 16) : std::nullopt;
        if (!rgb) return std::nullopt;
        const auto value = static_cast<std::uint32_t>(*rgb);
        return (value & 0xFF) << 16 | (value & 0xFF00) | value >> 16;
    }
    const auto number = ParseNumber(text);
    if (!number || *number < 0 || *number > 0xFFFFFFFF) return std::nullopt;
    return static_cast<std::uint32_t>(*number);
}

std::optional<bool> ReadSwitch(std::string_view text) {
    const std::string name = PlainName(text);
    if (name == "yes" || name == "on" || name == "true" || name == "1") return true;
    if (name == "no" || name == "off" || name == "false" || name == "0") return false;
    return std::nullopt;
}

std::string PlainName(std::string_view text) {
    std::string plain;
    for (const char c : text) {
        if (IsNameCharacter(c)) plain += Lower(c);
    }
    return plain;
}

std::string DashedName(std::string_view text) {
    std::string dashed;
    char before = 0;
    for (const char c : text) {
        const bool starts_word = IsUpper(c) || (IsDigit(c) && !IsDigit(before));
        const bool follows_word = !dashed.empty() && dashed.back() != '-';
        if (follows_word && (starts_word || !IsNameCharacter(c))) dashed += '-';
        if (IsNameCharacter(c)) dashed += Lower(c);
        before = c;
    }
    return dashed;
}

std::string ShownText(std::string_view text) {
    constexpr std::size_t kMost = 60;
    std::string shown("'");
    for (const char c : text.substr(0, kMost))
        shown += static_cast<unsigned char>(c) < ' ' || c == 127 ? '?' : c;
    return shown + (text.size() > kMost ? "...'" : "'");
}

std::string ColorText(std::uint32_t color) {
    char text[8];
    std::snprintf(text, sizeof text, "#%02X%02X%02X", color & 0xFF, color >> 8 & 0xFF,
                  color >> 16 & 0xFF);
    return text;
}

}  // namespace tess
