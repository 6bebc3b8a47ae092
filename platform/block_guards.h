// Guards over memory blocks: what owns one, what locks one, and a work array
// that is both.
#pragma once

#include <cstddef>
#include <limits>
#include <type_traits>
#include <utility>

#include "platform/memory.h"

namespace platform {

/// Owns a block and frees it at the end of its scope.
class OwnedBlock {
public:
    OwnedBlock() = default;
    explicit OwnedBlock(MemoryHandle handle) : handle_(handle) {}
    OwnedBlock(OwnedBlock&& other) noexcept : handle_(other.Release()) {}
    OwnedBlock& operator=(OwnedBlock&& other) noexcept {
        Reset(other.Release());
        return *this;
    }
    ~OwnedBlock() { FreeBlock(handle_); }

    [[nodiscard]] MemoryHandle Get() const { return handle_; }
    explicit operator bool() const { return handle_ != nullptr; }

    /// Gives the block to the caller.
    [[nodiscard]] MemoryHandle Release() { return std::exchange(handle_, nullptr); }
    void Reset(MemoryHandle handle = nullptr) {
        if (handle != handle_) FreeBlock(std::exchange(handle_, handle));
    }

private:
    MemoryHandle handle_ = nullptr;
};

/// Locks a block for a scope, seen as a `T`. False when it could not be locked.
/// Owns nothing: the handle stays the caller's.
template <class T>
class LockedBlock {
public:
    explicit LockedBlock(MemoryHandle handle)
        : handle_(handle), data_(static_cast<T*>(LockBlock(handle))) {}
    LockedBlock(const LockedBlock&) = delete;
    LockedBlock& operator=(const LockedBlock&) = delete;
    ~LockedBlock() {
        if (data_ != nullptr) UnlockBlock(handle_);
    }

    explicit operator bool() const { return data_ != nullptr; }
    [[nodiscard]] T* Get() const { return data_; }
    T* operator->() const { return data_; }
    operator T*() const { return data_; }  // a locked block stands for what is in it

private:
    MemoryHandle handle_;
    T* data_;
};

/// A zero-filled array of `count` plain records that lives for a scope. False
/// when the memory could not be had. Everything whose size depends on the user's
/// settings is allocated here or as a block, never through `new`, so that too
/// much ends in an ordinary failure.
template <class T>
class WorkArray {
    static_assert(std::is_trivially_copyable_v<T>);

public:
    WorkArray() = default;
    // A record may be a pointer: NOLINTBEGIN(bugprone-sizeof-expression)
    explicit WorkArray(std::size_t count)
        : block_(count > std::numeric_limits<std::size_t>::max() / sizeof(T)
                     ? nullptr
                     : AllocateBlock(count * sizeof(T))),
          data_(static_cast<T*>(LockBlock(block_.Get()))),
          size_(data_ != nullptr ? count : 0) {}
    // NOLINTEND(bugprone-sizeof-expression)
    WorkArray(WorkArray&& other) noexcept
        : block_(std::move(other.block_)),
          data_(std::exchange(other.data_, nullptr)),
          size_(std::exchange(other.size_, 0)) {}
    WorkArray& operator=(WorkArray&& other) noexcept {
        if (this != &other) {
            if (data_ != nullptr) UnlockBlock(block_.Get());
            block_ = std::move(other.block_);
            data_ = std::exchange(other.data_, nullptr);
            size_ = std::exchange(other.size_, 0);
        }
        return *this;
    }
    ~WorkArray() {
        if (data_ != nullptr) UnlockBlock(block_.Get());
    }

    explicit operator bool() const { return data_ != nullptr; }
    [[nodiscard]] std::size_t size() const { return size_; }
    [[nodiscard]] T* data() { return data_; }
    [[nodiscard]] const T* data() const { return data_; }
    T& operator[](std::size_t index) { return data_[index]; }
    const T& operator[](std::size_t index) const { return data_[index]; }
    T* begin() { return data_; }
    T* end() { return data_ + size_; }
    const T* begin() const { return data_; }
    const T* end() const { return data_ + size_; }

private:
    OwnedBlock block_;
    T* data_ = nullptr;
    std::size_t size_ = 0;
};

}  // namespace platform
