// Blocks of bytes in a document: two upper-case hexadecimal digits a byte.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <span>

namespace tess {

void WriteHexadecimal(std::span<const std::uint8_t> bytes, std::FILE* stream);

/// Reads pairs of digits, of either case, over `bytes` until the text or the bytes
/// end; what the text does not reach stays as it is, and half a pair at its end is
/// dropped. Returns false at any other character.
[[nodiscard]] bool ReadHexadecimal(const char* text, std::span<std::uint8_t> bytes);

}  // namespace tess
