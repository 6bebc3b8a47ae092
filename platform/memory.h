// Moveable blocks of memory: what every picture and record that travels lives
// in. On Windows they are the system's own global blocks, since the host reads
// them through their handles; natively they are ours, and honour a limit that
// turns "too much" into a null handle before the machine starts to swap.
#pragma once

#include <cstddef>
#include <cstdint>

namespace platform {

struct MemoryBlock;  // never defined: a handle is only passed around
using MemoryHandle = MemoryBlock*;

/// Returns a new zero-filled block of `bytes` bytes, or null.
[[nodiscard]] MemoryHandle AllocateBlock(std::size_t bytes);

/// Grows or shrinks `block`; new bytes are zero. Returns the block's handle,
/// which may be another, or null, and then `block` stays as it was.
/// Requires: `block` is not locked.
[[nodiscard]] MemoryHandle ResizeBlock(MemoryHandle block, std::size_t bytes);

/// Frees `block`, which may be null.
void FreeBlock(MemoryHandle block);

/// Returns the block's bytes, which stay in place until the matching
/// UnlockBlock, or null (for a null handle, too). Locks nest.
[[nodiscard]] void* LockBlock(MemoryHandle block);
void UnlockBlock(MemoryHandle block);

/// Returns the size in bytes as the system reports it: at least what was asked
/// for; 0 for null.
[[nodiscard]] std::size_t BlockSize(MemoryHandle block);

/// What the blocks now use.
struct MemoryUse {
    std::size_t live_bytes;
    std::size_t peak_bytes;  ///< the largest `live_bytes` since ResetPeakMemory
    std::size_t live_blocks;
    std::size_t allocations;  ///< AllocateBlock and ResizeBlock calls so far, failed ones too
};
[[nodiscard]] MemoryUse CurrentMemoryUse();
void ResetPeakMemory();

/// Sets how many bytes all blocks together may hold. Default, and again with 0:
/// natively three quarters of the physical memory; on Windows unlimited, as the
/// system decides.
void SetMemoryLimit(std::size_t bytes);

/// Says whether further blocks of `bytes` bytes together could be had now. Work that
/// would run for long before it came to the limit asks first.
[[nodiscard]] bool HasMemoryFor(std::size_t bytes);

/// For tests: lets the allocation with number `countdown` from now on fail (1
/// is the next), and with `and_all_later` every one after it. 0 ends it.
void FailAllocation(std::size_t countdown, bool and_all_later = false);

}  // namespace platform
