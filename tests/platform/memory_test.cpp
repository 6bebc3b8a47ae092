#include "platform/memory.h"

#include <algorithm>
#include <cstring>
#include <gtest/gtest.h>
#include <limits>

#include "platform/block_guards.h"

namespace {

using platform::LockedBlock;
using platform::OwnedBlock;

class Memory : public testing::Test {
protected:
    void TearDown() override {
        platform::SetMemoryLimit(0);
        platform::FailAllocation(0);
    }
    static bool IsZero(const unsigned char* bytes, std::size_t count) {
        return std::all_of(bytes, bytes + count, [](unsigned char byte) { return byte == 0; });
    }
};

TEST_F(Memory, NewBlockIsZeroAndAtLeastAsLargeAsAsked) {
    const OwnedBlock block(platform::AllocateBlock(1000));
    ASSERT_TRUE(block);
    EXPECT_GE(platform::BlockSize(block.Get()), 1000u);
    const LockedBlock<unsigned char> bytes(block.Get());
    EXPECT_TRUE(IsZero(bytes, 1000));
}

TEST_F(Memory, EmptyBlockCanBeLocked) {
    const OwnedBlock block(platform::AllocateBlock(0));
    ASSERT_TRUE(block);
    const LockedBlock<unsigned char> bytes(block.Get());
    EXPECT_TRUE(bytes);
}

TEST_F(Memory, NullHandleIsHarmless) {
    EXPECT_EQ(platform::LockBlock(nullptr), nullptr);
    EXPECT_EQ(platform::BlockSize(nullptr), 0u);
    EXPECT_EQ(platform::ResizeBlock(nullptr, 10), nullptr);
    platform::UnlockBlock(nullptr);
    platform::FreeBlock(nullptr);
}

TEST_F(Memory, LocksNestAndKeepTheBytesInPlace) {
    const OwnedBlock block(platform::AllocateBlock(16));
    void* outer = platform::LockBlock(block.Get());
    void* inner = platform::LockBlock(block.Get());
    EXPECT_EQ(inner, outer);
    platform::UnlockBlock(block.Get());
    static_cast<char*>(outer)[15] = 'x';
    EXPECT_EQ(static_cast<char*>(platform::LockBlock(block.Get()))[15], 'x');
    platform::UnlockBlock(block.Get());
    platform::UnlockBlock(block.Get());
}

TEST_F(Memory, GrowingKeepsTheOldBytesAndZeroesTheNew) {
    OwnedBlock block(platform::AllocateBlock(100));
    std::memset(LockedBlock<char>(block.Get()), 'x', 100);
    block.Reset(platform::ResizeBlock(block.Release(), 5000));
    ASSERT_TRUE(block);
    const LockedBlock<unsigned char> bytes(block.Get());
    EXPECT_EQ(std::count(bytes.Get(), bytes + 100, 'x'), 100);
    EXPECT_TRUE(IsZero(bytes + 100, 4900));
}

TEST_F(Memory, BytesBehindAShrunkenBlockAreZeroWhenItGrowsAgain) {
    OwnedBlock block(platform::AllocateBlock(5000));
    std::memset(LockedBlock<char>(block.Get()), 'x', 5000);
    block.Reset(platform::ResizeBlock(block.Release(), 100));
    const std::size_t kept = platform::BlockSize(block.Get());
    block.Reset(platform::ResizeBlock(block.Release(), 5000));
    const LockedBlock<unsigned char> bytes(block.Get());
    EXPECT_TRUE(IsZero(bytes + kept, 5000 - kept));
}

TEST_F(Memory, LimitTurnsTooMuchIntoANullHandle) {
    const std::size_t live = platform::CurrentMemoryUse().live_bytes;
    platform::SetMemoryLimit(live + 5000);
    const OwnedBlock first(platform::AllocateBlock(4000));
    EXPECT_TRUE(first);
    EXPECT_EQ(platform::AllocateBlock(4000), nullptr);
    EXPECT_EQ(platform::ResizeBlock(first.Get(), 6000), nullptr);
    EXPECT_GE(platform::BlockSize(first.Get()), 4000u);
    EXPECT_LT(platform::BlockSize(first.Get()), 6000u);
}

TEST_F(Memory, WhatFitsBelowTheLimitCanBeAskedWithoutAllocating) {
    const platform::MemoryUse use = platform::CurrentMemoryUse();
    platform::SetMemoryLimit(use.live_bytes + 5000);
    EXPECT_TRUE(platform::HasMemoryFor(0));
    EXPECT_TRUE(platform::HasMemoryFor(5000));
    EXPECT_FALSE(platform::HasMemoryFor(5001));
    EXPECT_EQ(platform::CurrentMemoryUse().allocations, use.allocations);
}

TEST_F(Memory, MoreThanAnyMachineHasDoesNotFit) {
    EXPECT_FALSE(platform::HasMemoryFor(std::numeric_limits<std::size_t>::max() / 2));
}

TEST_F(Memory, HugeBlockIsRefused) {
    EXPECT_EQ(platform::AllocateBlock(std::numeric_limits<std::size_t>::max() - 100), nullptr);
}

TEST_F(Memory, AskedAllocationFailsAndNoOther) {
    platform::FailAllocation(2);
    const OwnedBlock first(platform::AllocateBlock(10));
    const OwnedBlock second(platform::AllocateBlock(10));
    const OwnedBlock third(platform::AllocateBlock(10));
    EXPECT_TRUE(first);
    EXPECT_FALSE(second);
    EXPECT_TRUE(third);
}

TEST_F(Memory, AllLaterAllocationsFailToo) {
    platform::FailAllocation(1, true);
    EXPECT_EQ(platform::AllocateBlock(10), nullptr);
    EXPECT_EQ(platform::AllocateBlock(10), nullptr);
    platform::FailAllocation(0);
    EXPECT_TRUE(OwnedBlock(platform::AllocateBlock(10)));
}

TEST_F(Memory, FailedResizeLeavesTheBlockAsItWas) {
    const OwnedBlock block(platform::AllocateBlock(10));
    std::memset(LockedBlock<char>(block.Get()), 'x', 10);
    platform::FailAllocation(1);
    EXPECT_EQ(platform::ResizeBlock(block.Get(), 1000), nullptr);
    EXPECT_EQ(LockedBlock<char>(block.Get())[9], 'x');
}

TEST_F(Memory, UseIsCountedUpAndDown) {
    const platform::MemoryUse before = platform::CurrentMemoryUse();
    {
        const OwnedBlock block(platform::AllocateBlock(1000));
        const platform::MemoryUse during = platform::CurrentMemoryUse();
        EXPECT_EQ(during.live_blocks, before.live_blocks + 1);
        EXPECT_GE(during.live_bytes, before.live_bytes + 1000);
        EXPECT_EQ(during.allocations, before.allocations + 1);
    }
    EXPECT_EQ(platform::CurrentMemoryUse().live_bytes, before.live_bytes);
    EXPECT_EQ(platform::CurrentMemoryUse().live_blocks, before.live_blocks);
}

TEST_F(Memory, PeakStaysUntilItIsReset) {
    platform::ResetPeakMemory();
    const std::size_t live = platform::CurrentMemoryUse().live_bytes;
    platform::FreeBlock(platform::AllocateBlock(1000));
    EXPECT_GE(platform::CurrentMemoryUse().peak_bytes, live + 1000);
    platform::ResetPeakMemory();
    EXPECT_EQ(platform::CurrentMemoryUse().peak_bytes, live);
}

TEST_F(Memory, WorkArrayIsZeroAndKnowsItsSize) {
    platform::WorkArray<int> numbers(100);
    ASSERT_TRUE(numbers);
    EXPECT_EQ(numbers.size(), 100u);
    EXPECT_EQ(std::count(numbers.begin(), numbers.end(), 0), 100);
}

TEST_F(Memory, WorkArrayOfTooManyRecordsIsFalse) {
    const platform::WorkArray<double> numbers(std::numeric_limits<std::size_t>::max() / 8 + 2);
    EXPECT_FALSE(numbers);
    EXPECT_EQ(numbers.size(), 0u);
}

TEST_F(Memory, MovedWorkArrayIsFreedOnce) {
    const std::size_t blocks = platform::CurrentMemoryUse().live_blocks;
    {
        platform::WorkArray<int> first(10);
        first[3] = 7;
        platform::WorkArray<int> second(std::move(first));
        EXPECT_EQ(second[3], 7);
        platform::WorkArray<int> third(5);
        third = std::move(second);
        EXPECT_EQ(third[3], 7);
        EXPECT_EQ(platform::CurrentMemoryUse().live_blocks, blocks + 1);
    }
    EXPECT_EQ(platform::CurrentMemoryUse().live_blocks, blocks);
}

}  // namespace
