#include "platform/control_number.h"

namespace platform {

std::uint32_t NumberFromText(std::string_view text, bool is_signed) {
    std::size_t at = 0;
    while (at < text.size() && (text[at] == ' ' || (text[at] >= '\t' && text[at] <= '\r')))
        ++at;
    const bool is_negative = is_signed && at < text.size() && text[at] == '-';
    if (is_signed && at < text.size() && (text[at] == '-' || text[at] == '+')) ++at;
    if (at == text.size()) return 0;
    const std::uint64_t largest = !is_signed    ? 0xFFFFFFFFu
                                  : is_negative ? 0x80000000u
                                                : 0x7FFFFFFFu;
    std::uint64_t value = 0;
    for (; at < text.size(); ++at) {
        if (text[at] < '0' || text[at] > '9') return 0;
        value = value * 10 + static_cast<std::uint64_t>(text[at] - '0');
        if (value > largest) return 0;
    }
    return static_cast<std::uint32_t>(is_negative ? 0 - value : value);
}

}  // namespace platform
