#include "styles/wheel_mask_store.h"

#include <gtest/gtest.h>

#include "tests/support/image_bytes.h"

namespace tess::test {

namespace {

constexpr int kSpokes = 10;  // whose turns are all the same

class WheelMaskStoreTest : public testing::Test {
protected:
    static WheelLook Look(int tick) { return {20, 20, kSpokes, tick, 255}; }
    static std::size_t BytesOfAMask() {
        const platform::OwnedBlock mask(RenderWheelMask(Look(0)));
        return platform::BlockSize(mask.Get());
    }
    /// Finds the masks of two turns. Returns how many allocations the second takes.
    static std::size_t AllocationsOfASecondTurn(WheelMaskStore& store) {
        std::size_t before = 0;
        for (int tick = 0; tick < 2 * kSpokes; ++tick) {
            if (tick == kSpokes) before = platform::CurrentMemoryUse().allocations;
            EXPECT_EQ(ImageBytes(store.Find(0, Look(tick))),
                      TakeImageBytes(RenderWheelMask(Look(tick))));
        }
        return platform::CurrentMemoryUse().allocations - before;
    }
    static std::size_t AllocationsOfAMask() {
        const std::size_t before = platform::CurrentMemoryUse().allocations;
        TakeImageBytes(RenderWheelMask(Look(0)));
        return platform::CurrentMemoryUse().allocations - before;
    }
};

TEST_F(WheelMaskStoreTest, SecondTurnMakesNothing) {
    WheelMaskStore store;
    ASSERT_TRUE(store.Allocate(1, kSpokes));
    // The comparison's own masks are all that is made.
    EXPECT_EQ(AllocationsOfASecondTurn(store), kSpokes * AllocationsOfAMask());
    EXPECT_EQ(store.Bytes(), kSpokes * BytesOfAMask());
}

TEST_F(WheelMaskStoreTest, FullStoreKeepsWhatItHasAndMakesTheRest) {
    WheelMaskStore store(4 * BytesOfAMask() + 1);
    ASSERT_TRUE(store.Allocate(1, kSpokes));
    EXPECT_EQ(AllocationsOfASecondTurn(store), (kSpokes + (kSpokes - 4)) * AllocationsOfAMask());
    EXPECT_EQ(store.Bytes(), 4 * BytesOfAMask());
}

TEST_F(WheelMaskStoreTest, MasksGiveWayToOneThatFindsNoMemory) {
    WheelMaskStore store;
    ASSERT_TRUE(store.Allocate(1, kSpokes));
    ASSERT_NE(store.Find(0, Look(0)), nullptr);
    const std::size_t blocks = platform::CurrentMemoryUse().live_blocks;
    platform::FailAllocation(1);
    EXPECT_NE(store.Find(0, Look(1)), nullptr);
    platform::FailAllocation(0);
    EXPECT_EQ(platform::CurrentMemoryUse().live_blocks, blocks);
    EXPECT_EQ(store.Bytes(), BytesOfAMask());
}

TEST_F(WheelMaskStoreTest, WithoutAnythingToDropAFailureStands) {
    WheelMaskStore store;
    ASSERT_TRUE(store.Allocate(1, kSpokes));
    platform::FailAllocation(1);
    EXPECT_EQ(store.Find(0, Look(1)), nullptr);
    platform::FailAllocation(0);
    EXPECT_FALSE(store.DropAll());
}

TEST_F(WheelMaskStoreTest, MasksAreFreedWithTheStore) {
    const std::size_t blocks = platform::CurrentMemoryUse().live_blocks;
    {
        WheelMaskStore store;
        ASSERT_TRUE(store.Allocate(2, kSpokes));
        EXPECT_NE(store.Find(0, Look(0)), nullptr);
        EXPECT_NE(store.Find(1, Look(3)), nullptr);
        EXPECT_NE(store.Make(Look(4)), nullptr);
    }
    EXPECT_EQ(platform::CurrentMemoryUse().live_blocks, blocks);
}

}  // namespace

}  // namespace tess::test
