#include "platform/memory_accounting.h"

#include <algorithm>

namespace platform {

namespace {

struct Accounts {
    MemoryUse use{};
    std::size_t limit = 0;  // 0: the port's default
    std::size_t failure_countdown = 0;
    bool fail_all_later = false;
};
Accounts accounts;

/// True when a test wants this allocation to fail.
bool IsToFail() {
    if (accounts.failure_countdown == 0) return false;
    if (accounts.failure_countdown > 1) {
        --accounts.failure_countdown;
        return false;
    }
    if (!accounts.fail_all_later) accounts.failure_countdown = 0;
    return true;
}

}  // namespace

bool IsWithinLimit(std::size_t old_bytes, std::size_t new_bytes, std::size_t default_limit) {
    const std::size_t limit = accounts.limit != 0 ? accounts.limit : default_limit;
    const std::size_t others = accounts.use.live_bytes - old_bytes;
    return others <= limit && new_bytes <= limit - others;
}

bool MayAllocate(std::size_t old_bytes, std::size_t new_bytes, std::size_t default_limit) {
    ++accounts.use.allocations;
    return !IsToFail() && IsWithinLimit(old_bytes, new_bytes, default_limit);
}

void NoteAllocated(std::size_t bytes) {
    ++accounts.use.live_blocks;
    NoteResized(0, bytes);
}

void NoteResized(std::size_t old_bytes, std::size_t new_bytes) {
    accounts.use.live_bytes += new_bytes - old_bytes;
    accounts.use.peak_bytes = std::max(accounts.use.peak_bytes, accounts.use.live_bytes);
}

// A block that the host made, another program, was never counted here.
void NoteFreed(std::size_t bytes) {
    if (accounts.use.live_blocks > 0) --accounts.use.live_blocks;
    accounts.use.live_bytes -= std::min(bytes, accounts.use.live_bytes);
}

MemoryUse CurrentMemoryUse() {
    return accounts.use;
}

void ResetPeakMemory() {
    accounts.use.peak_bytes = accounts.use.live_bytes;
}

void SetMemoryLimit(std::size_t bytes) {
    accounts.limit = bytes;
}

void FailAllocation(std::size_t countdown, bool and_all_later) {
    accounts.failure_countdown = countdown;
    accounts.fail_all_later = and_all_later;
}

}  // namespace platform
