#include "controls/control_line.h"

#include <cstdlib>
#include <cstring>
#include <limits>

#include "controls/hexadecimal.h"
#include "platform/letter_case.h"

namespace tess {

namespace {

constexpr std::size_t kTagLength = 6;

bool BeginsWithTag(const char* line, const char* tag) {
    return platform::IsSameName({line, strnlen(line, kTagLength)}, {tag, kTagLength});
}

}  // namespace

const char* FindLineValue(const char* line, const char* tag) {
    if (!BeginsWithTag(line, tag)) return nullptr;
    const char* value = std::strchr(line, '=');
    if (value == nullptr) return nullptr;
    return value + std::strspn(value, "= ");
}

int FindLineId(const char* line) {
    return std::strlen(line) < kTagLength ? 0 : ReadNumber(line + kTagLength);
}

void WriteBlockLine(const char* tag, int id, std::span<const std::uint8_t> block,
                    std::FILE* stream) {
    std::fprintf(stream, "%s%d=%s\n", tag, id, Hexadecimal(block).c_str());
}

std::int32_t ReadNumber(const char* text) {
    const long long value = std::strtoll(text, nullptr, 10);
    using Limits = std::numeric_limits<std::int32_t>;
    if (value < Limits::min()) return Limits::min();
    if (value > std::numeric_limits<std::uint32_t>::max()) return Limits::max();
    return static_cast<std::int32_t>(value);
}

}  // namespace tess
