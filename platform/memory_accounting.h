// What both ports of platform/memory.h count: bytes and blocks in use, the limit,
// and the allocations that a test lets fail.
#pragma once

#include <cstddef>

#include "platform/memory.h"

namespace platform {

/// Says whether the blocks would stay within the limit if the bytes in use changed from
/// `old_bytes` to `new_bytes`.
[[nodiscard]] bool IsWithinLimit(std::size_t old_bytes, std::size_t new_bytes,
                                 std::size_t default_limit);
/// Asks whether an allocation may go ahead that changes the bytes in use from
/// `old_bytes` (0 for a new block) to `new_bytes`. Counts the attempt.
[[nodiscard]] bool MayAllocate(std::size_t old_bytes, std::size_t new_bytes,
                               std::size_t default_limit);
/// Notes an allocation that has succeeded.
void NoteAllocated(std::size_t bytes);
void NoteResized(std::size_t old_bytes, std::size_t new_bytes);
void NoteFreed(std::size_t bytes);

}  // namespace platform
