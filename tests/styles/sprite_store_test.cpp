#include "styles/sprite_store.h"

#include <gtest/gtest.h>
#include <memory>

namespace tess {

namespace {

class SpriteStoreTest : public testing::Test {
protected:
    /// Finds a sprite that tells its key by its first byte, and counts how often
    /// one is made.
    int Find(std::uint64_t key, std::size_t bytes = 1) {
        const platform::MemoryHandle sprite = store_->Find(key, [&] {
            ++made_;
            return Make(key, bytes);
        });
        const platform::LockedBlock<std::uint8_t> locked(sprite);
        return locked ? *locked.Get() : -1;
    }
    static platform::MemoryHandle Make(std::uint64_t key, std::size_t bytes) {
        const platform::MemoryHandle handle = platform::AllocateBlock(bytes);
        const platform::LockedBlock<std::uint8_t> locked(handle);
        if (locked) *locked.Get() = static_cast<std::uint8_t>(key);
        return handle;
    }

    std::unique_ptr<SpriteStore> store_ = std::make_unique<SpriteStore>();
    int made_ = 0;
};

TEST_F(SpriteStoreTest, SpriteIsMadeOnce) {
    EXPECT_EQ(Find(5), 5);
    EXPECT_EQ(Find(6), 6);
    EXPECT_EQ(Find(5), 5);
    EXPECT_EQ(made_, 2);
}

TEST_F(SpriteStoreTest, FailedSpriteIsNotKept) {
    platform::FailAllocation(1);
    EXPECT_EQ(Find(5), -1);
    platform::FailAllocation(0);
    EXPECT_EQ(store_->Count(), 0u);
    EXPECT_EQ(Find(5), 5);
}

TEST_F(SpriteStoreTest, CrowdedStoreBeginsAnew) {
    const std::size_t blocks = platform::CurrentMemoryUse().live_blocks;
    for (std::uint64_t key = 0; key < SpriteStore::kMostSprites; ++key)
        ASSERT_EQ(Find(key << 20 | key % 200), static_cast<int>(key % 200));
    EXPECT_EQ(store_->Count(), SpriteStore::kMostSprites);
    EXPECT_EQ(Find(1), 1);
    EXPECT_EQ(store_->Count(), 1u);
    EXPECT_EQ(platform::CurrentMemoryUse().live_blocks, blocks + 1);
}

TEST_F(SpriteStoreTest, SpritesTogetherStayWithinTheirBytes) {
    const std::size_t bytes = SpriteStore::kMostBytes / 4;
    const std::size_t before = platform::CurrentMemoryUse().live_bytes;
    for (std::uint64_t key = 1; key <= 6; ++key) {
        EXPECT_EQ(Find(key, bytes), static_cast<int>(key));
        EXPECT_LE(platform::CurrentMemoryUse().live_bytes - before, SpriteStore::kMostBytes);
    }
    EXPECT_EQ(made_, 6);
}

TEST_F(SpriteStoreTest, SpritesAreFreedWithTheStore) {
    const std::size_t blocks = platform::CurrentMemoryUse().live_blocks;
    Find(1);
    Find(2);
    store_.reset();
    EXPECT_EQ(platform::CurrentMemoryUse().live_blocks, blocks);
}

}  // namespace

}  // namespace tess
