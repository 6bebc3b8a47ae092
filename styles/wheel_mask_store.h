// The masks of Skip Intro's wheels at full brightness, for when the same turn comes
// round again.
//
// It is bounded as SpriteStore is, but what is in it when it is full stays: turns come
// round in one order, so a store that began anew would drop every mask just before it
// is wanted. What there is no room for is made each time. When memory is short all is
// dropped: a mask can be made again, a frame cannot wait.
#pragma once

#include <cstddef>
#include <utility>

#include "platform/block_guards.h"
#include "styles/sprite_store.h"
#include "styles/wheel_mask.h"

namespace tess {

class WheelMaskStore {
public:
    WheelMaskStore() = default;
    /// `most_bytes` is what the masks may have together.
    explicit WheelMaskStore(std::size_t most_bytes) : most_bytes_(most_bytes) {}
    WheelMaskStore(const WheelMaskStore&) = delete;
    WheelMaskStore& operator=(const WheelMaskStore&) = delete;
    ~WheelMaskStore() { DropAll(); }

    /// Makes places for one turn of each wheel. Returns false without memory.
    [[nodiscard]] bool Allocate(int wheels, int spokes) {
        entries_ = platform::WorkArray<Entry>(static_cast<std::size_t>(wheels) *
                                              static_cast<std::size_t>(spokes));
        return static_cast<bool>(entries_);
    }

    /// Returns the mask of wheel number `wheel`, or null. Owned by the store, and there
    /// until the next call. Requires: places for it, and that only the look's tick is
    /// another than in the wheel's earlier calls.
    [[nodiscard]] ImageHandle Find(std::size_t wheel, const WheelLook& look) {
        const auto spokes = static_cast<std::size_t>(look.Spokes);
        Entry& entry = entries_[wheel * spokes + static_cast<std::size_t>(look.Tick) % spokes];
        if (entry.mask != nullptr && IsSameTurn(look, entry.tick)) return entry.mask;
        Drop(entry);
        if (Make(look) == nullptr) return nullptr;
        const std::size_t bytes = platform::BlockSize(unkept_.Get());
        if (bytes_ + bytes > most_bytes_) return unkept_.Get();
        entry = {unkept_.Release(), look.Tick};
        bytes_ += bytes;
        return entry.mask;
    }

    /// The same for a mask that will not be wanted again.
    [[nodiscard]] ImageHandle Make(const WheelLook& look) {
        unkept_.Reset(RenderWheelMask(look));
        if (!unkept_ && DropAll()) unkept_.Reset(RenderWheelMask(look));
        return unkept_.Get();
    }

    /// Frees the masks. Returns whether there was one.
    bool DropAll() {
        const bool had_one = unkept_ || bytes_ != 0;
        unkept_.Reset();
        for (Entry& entry : entries_)
            Drop(entry);
        return had_one;
    }

    /// What the masks that are kept have together.
    [[nodiscard]] std::size_t Bytes() const { return bytes_; }

private:
    struct Entry {
        ImageHandle mask;
        int tick;
    };

    void Drop(Entry& entry) {
        bytes_ -= platform::BlockSize(entry.mask);
        platform::FreeBlock(std::exchange(entry.mask, nullptr));
    }

    platform::WorkArray<Entry> entries_;
    platform::OwnedBlock unkept_;
    std::size_t bytes_ = 0;
    std::size_t most_bytes_ = SpriteStore::kMostBytes;
};

}  // namespace tess
