// Sprites kept for a run, for styles whose sprites come again and again: drawing
// and shrinking one costs far more than stamping it. A sprite is a block, be it a
// picture or what a style makes of one.
//
// An open hash table of fixed size. When it is crowded, or its blocks together
// have more than kMostBytes, everything is dropped and it fills anew: a run's
// memory stays bounded, and at worst each sprite is made as often as without it.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <utility>

#include "platform/block_guards.h"

namespace tess {

class SpriteStore {
public:
    static constexpr std::size_t kMostBytes = std::size_t{128} << 20;
    static constexpr std::size_t kMostSprites = 3072;

    /// Returns the sprite of `key`, made by `make()` when it is not here, or null.
    /// Owned by the store, and there until the next call.
    template <class Make>
    [[nodiscard]] platform::MemoryHandle Find(std::uint64_t key, Make make) {
        std::size_t slot = SlotOf(key);
        if (!slots_[slot].sprite) {
            platform::OwnedBlock sprite(make());
            if (!sprite) return nullptr;
            const std::size_t bytes = platform::BlockSize(sprite.Get());
            if (count_ == kMostSprites || bytes_ + bytes > kMostBytes) {
                Clear();
                slot = SlotOf(key);
            }
            slots_[slot] = {key, std::move(sprite)};
            ++count_;
            bytes_ += bytes;
        }
        return slots_[slot].sprite.Get();
    }

    [[nodiscard]] std::size_t Count() const { return count_; }

private:
    static constexpr int kSlotBits = 12;
    static constexpr std::size_t kSlots = std::size_t{1} << kSlotBits;

    struct Slot {
        std::uint64_t key = 0;
        platform::OwnedBlock sprite;
    };

    /// The slot that has `key`, or the empty one where it belongs. There are
    /// always empty ones.
    [[nodiscard]] std::size_t SlotOf(std::uint64_t key) const {
        // Fibonacci hashing (D. Knuth, "The Art of Computer Programming", 6.4).
        std::size_t slot = static_cast<std::size_t>(key * 0x9E3779B97F4A7C15u >> (64 - kSlotBits));
        while (slots_[slot].sprite && slots_[slot].key != key)
            slot = (slot + 1) % kSlots;
        return slot;
    }

    void Clear() {
        for (Slot& slot : slots_)
            slot.sprite.Reset();
        count_ = 0;
        bytes_ = 0;
    }

    std::array<Slot, kSlots> slots_{};
    std::size_t count_ = 0;
    std::size_t bytes_ = 0;
};

}  // namespace tess
