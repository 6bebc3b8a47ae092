// Blocks of bytes in a document: two upper-case hexadecimal digits a byte.
#pragma once

#include <cstdint>
#include <span>
#include <string>

namespace tess {

[[nodiscard]] std::string Hexadecimal(std::span<const std::uint8_t> bytes);

/// Reads pairs of digits, of either case, over `bytes` until the text or the bytes
/// end; what the text does not reach stays as it is, and half a pair at its end is
/// dropped. Returns false at any other character.
[[nodiscard]] bool ReadHexadecimal(const char* text, std::span<std::uint8_t> bytes);

}  // namespace tess
