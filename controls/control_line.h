// One control's line in a document: the six letters of its class tag, its id,
// "=", and the value.
#pragma once

#include <cstdint>

namespace tess {

/// Returns the value in `line`: what follows "=" and any further "=" and blanks.
/// Null when the line does not begin with `tag` (case does not count) or has no
/// "=". Points into `line`.
[[nodiscard]] const char* FindLineValue(const char* line, const char* tag);

/// The control id in `line`: the number from its seventh character on, 0 when
/// there is none.
[[nodiscard]] int FindLineId(const char* line);

/// A number as `atoi` reads it, held in the 32 bits where `atoi` leaves the result
/// open.
[[nodiscard]] std::int32_t ReadNumber(const char* text);

}  // namespace tess
