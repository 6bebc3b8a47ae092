#include "platform/memory.h"

#include <windows.h>
#include <limits>

#include "platform/memory_accounting.h"

namespace platform {

namespace {

constexpr std::size_t kNoLimit = std::numeric_limits<std::size_t>::max();

HGLOBAL ToGlobal(MemoryHandle handle) {
    return reinterpret_cast<HGLOBAL>(handle);
}
MemoryHandle FromGlobal(HGLOBAL block) {
    return reinterpret_cast<MemoryHandle>(block);
}

}  // namespace

MemoryHandle AllocateBlock(std::size_t bytes) {
    if (!MayAllocate(0, bytes, kNoLimit)) return nullptr;
    // A block of no bytes would be a discarded one, which cannot be locked.
    HGLOBAL block = GlobalAlloc(GHND, bytes == 0 ? 1 : bytes);
    if (block != nullptr) NoteAllocated(GlobalSize(block));
    return FromGlobal(block);
}

MemoryHandle ResizeBlock(MemoryHandle handle, std::size_t bytes) {
    const std::size_t old_size = BlockSize(handle);
    if (handle == nullptr || !MayAllocate(old_size, bytes, kNoLimit)) return nullptr;
    HGLOBAL block =
        GlobalReAlloc(ToGlobal(handle), bytes == 0 ? 1 : bytes, GMEM_MOVEABLE | GMEM_ZEROINIT);
    if (block != nullptr) NoteResized(old_size, GlobalSize(block));
    return FromGlobal(block);
}

void FreeBlock(MemoryHandle handle) {
    if (handle == nullptr) return;
    NoteFreed(BlockSize(handle));
    GlobalFree(ToGlobal(handle));
}

void* LockBlock(MemoryHandle handle) {
    return handle == nullptr ? nullptr : GlobalLock(ToGlobal(handle));
}

void UnlockBlock(MemoryHandle handle) {
    if (handle != nullptr) GlobalUnlock(ToGlobal(handle));
}

std::size_t BlockSize(MemoryHandle handle) {
    return handle == nullptr ? 0 : GlobalSize(ToGlobal(handle));
}

bool HasMemoryFor(std::size_t bytes) {
    MEMORYSTATUSEX status{};
    status.dwLength = sizeof status;
    // What this process may still commit, in memory and page file.
    if (GlobalMemoryStatusEx(&status) != 0 && bytes > status.ullAvailPageFile) return false;
    return IsWithinLimit(0, bytes, kNoLimit);
}

}  // namespace platform
