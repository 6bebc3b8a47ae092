// One control's line in a document: the six letters of its class tag, its id,
// "=", and the value.
#pragma once

#include <cstdint>
#include <cstdio>
#include <span>

namespace tess {

/// Returns the value in `line`: what follows "=" and any further "=" and blanks.
/// Null when the line does not begin with `tag` (case does not count) or has no
/// "=". Points into `line`.
[[nodiscard]] const char* FindLineValue(const char* line, const char* tag);

/// The control id in `line`: the number from its seventh character on, 0 when
/// there is none.
[[nodiscard]] int FindLineId(const char* line);

/// Writes the line of a control whose value is a block.
void WriteBlockLine(const char* tag, int id, std::span<const std::uint8_t> block,
                    std::FILE* stream);

/// A number as `atoi` reads it. Where `atoi` leaves the result open, an unsigned
/// number of 32 bits keeps its bits, so that all that was written as one reads back;
/// any other is held at the nearest number.
[[nodiscard]] std::int32_t ReadNumber(const char* text);

}  // namespace tess
