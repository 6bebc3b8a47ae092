// Lets each allocation of an operation fail in turn.
#pragma once

#include <cstddef>
#include <gtest/gtest.h>

#include "platform/memory.h"

namespace tess {

/// Runs `operation`, which returns true when it succeeded and then frees its
/// result, with its first allocation failing, then its second, and so on until
/// none is left to fail. Expects each of these runs to fail and to leave nothing
/// behind. Returns how many there were.
template <class Operation>
std::size_t FailEachAllocation(Operation operation) {
    constexpr std::size_t kEnough = 1000;
    const std::size_t blocks = platform::CurrentMemoryUse().live_blocks;
    for (std::size_t failures = 0; failures < kEnough; ++failures) {
        const std::size_t allocations = platform::CurrentMemoryUse().allocations;
        platform::FailAllocation(failures + 1);
        const bool succeeded = operation();
        platform::FailAllocation(0);
        EXPECT_EQ(platform::CurrentMemoryUse().live_blocks, blocks);
        if (platform::CurrentMemoryUse().allocations - allocations <= failures) {
            EXPECT_TRUE(succeeded);
            return failures;
        }
        EXPECT_FALSE(succeeded) << "with allocation " << failures + 1 << " failing";
    }
    ADD_FAILURE() << "the allocations do not end";
    return kEnough;
}

}  // namespace tess
