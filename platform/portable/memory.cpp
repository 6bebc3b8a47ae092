#include "platform/memory.h"

#include <cstdlib>
#include <cstring>
#include <unistd.h>

#include "platform/memory_accounting.h"

namespace platform {

namespace {

/// What a handle points at. The bytes are a block of their own, so that growing
/// moves them and not the handle.
struct Block {
    void* bytes;
    std::size_t size;
};

Block* FromHandle(MemoryHandle handle) {
    return reinterpret_cast<Block*>(handle);
}

/// Three quarters of the physical memory: beyond that the machine would swap.
std::size_t DefaultLimit() {
    static const std::size_t limit = static_cast<std::size_t>(sysconf(_SC_PHYS_PAGES)) *
                                     static_cast<std::size_t>(sysconf(_SC_PAGESIZE)) / 4 * 3;
    return limit;
}

}  // namespace

MemoryHandle AllocateBlock(std::size_t bytes) {
    if (!MayAllocate(0, bytes, DefaultLimit())) return nullptr;
    auto* block = static_cast<Block*>(std::malloc(sizeof(Block)));
    if (block == nullptr) return nullptr;
    // One byte more keeps an empty block's address unlike null.
    *block = {std::calloc(bytes + 1, 1), bytes};
    if (block->bytes == nullptr) {
        std::free(block);
        return nullptr;
    }
    NoteAllocated(bytes);
    return reinterpret_cast<MemoryHandle>(block);
}

MemoryHandle ResizeBlock(MemoryHandle handle, std::size_t bytes) {
    Block* block = FromHandle(handle);
    if (block == nullptr || !MayAllocate(block->size, bytes, DefaultLimit())) return nullptr;
    void* moved = std::realloc(block->bytes, bytes + 1);
    if (moved == nullptr) return nullptr;
    if (bytes > block->size) {
        std::memset(static_cast<char*>(moved) + block->size, 0, bytes - block->size);
    }
    NoteResized(block->size, bytes);
    *block = {moved, bytes};
    return handle;
}

void FreeBlock(MemoryHandle handle) {
    Block* block = FromHandle(handle);
    if (block == nullptr) return;
    NoteFreed(block->size);
    std::free(block->bytes);
    std::free(block);
}

void* LockBlock(MemoryHandle handle) {
    return handle == nullptr ? nullptr : FromHandle(handle)->bytes;
}

void UnlockBlock(MemoryHandle) {}

std::size_t BlockSize(MemoryHandle handle) {
    return handle == nullptr ? 0 : FromHandle(handle)->size;
}

bool HasMemoryFor(std::size_t bytes) {
    return IsWithinLimit(0, bytes, DefaultLimit());
}

}  // namespace platform
