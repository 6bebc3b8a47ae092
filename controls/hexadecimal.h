// Blocks of bytes in a document: two upper-case hexadecimal digits a byte.
#pragma once

#include <cstdint>
#include <span>
#include <string>

namespace tess {

[[nodiscard]] std::string Hexadecimal(std::span<const std::uint8_t> bytes);

/// Reads pairs of digits, of either case, over `bytes` up to the text's end; what the text
/// does not reach stays as it is, and half a pair at its end is dropped. One pair more than
/// the bytes take is let pass unread, as readers of these documents have always had a byte to
/// spare. Returns false at any other character, wherever it stands, and at any further pair;
/// `bytes` may have been changed by then.
[[nodiscard]] bool ReadHexadecimal(const char* text, std::span<std::uint8_t> bytes);

}  // namespace tess
