// The index that remapping gives to a colour, found quickly for many colours of
// one palette. How is told in palette_search.cpp.
#pragma once

#include <cstdint>

#include "pipeline/image_buffers.h"
#include "platform/block_guards.h"

namespace tess {

enum class SearchPrecision {
    Exact,     ///< the answers of NearestColor
    FiveBits,  ///< an equal entry, else NearestColor of the colour's upper five bits
};

class PaletteSearch {
public:
    /// Prepares for the first `count` entries of `palette`. Check before use:
    /// false when the memory could not be had.
    PaletteSearch(const std::uint8_t* palette, int count, SearchPrecision precision);
    explicit operator bool() const { return static_cast<bool>(tables_); }

    /// Returns the index for 0x00BBGGRR; 0 when there are no entries.
    int IndexOf(ColorWord color) {
        std::uint32_t& known = tables_[0].Known[(color * kHashFactor) >> (32 - kKnownBits)];
        if (known >> 8 != color) known = color << 8 | static_cast<std::uint32_t>(Search(color));
        return static_cast<int>(known & 255);
    }

private:
    static constexpr std::uint32_t kHashFactor = 2654435761U;  // 2^32 / golden ratio
    static constexpr int kKnownBits = 14;
    static constexpr int kCoarseBits = 3;  // of a channel, for a coarse cell
    static constexpr int kFineBits = 5;
    static constexpr int kFineCandidates = 31;
    static constexpr int kEqualBits = 10;

    struct Entry {
        int Red, Green, Blue;
    };
    struct CoarseCell {
        std::uint16_t Count;  // 0: not made yet
        std::uint8_t Candidates[kPaletteEntries];
    };
    struct FineCell {
        std::uint8_t Count;  // 0: not made yet; above kFineCandidates: they did not fit
        std::uint8_t Candidates[kFineCandidates];
    };
    struct Tables {
        std::uint32_t Known[1 << kKnownBits];  // colour << 8 | index
        Entry Entries[kPaletteEntries];
        std::uint16_t FirstEqual[1 << kEqualBits];  // index + 1 of an entry; 0: free
        CoarseCell Distinct;                        // the entries unlike all before them
        CoarseCell Coarse[1 << (3 * kCoarseBits)];
        FineCell Fine[1 << (3 * kFineBits)];
        std::uint16_t FastTable[1 << (3 * kFineBits)];  // index + 1; 0: not made yet
    };

    int Search(ColorWord color);
    [[nodiscard]] int FindEqual(ColorWord color) const;
    void NoteEntry(int index, ColorWord color);
    const CoarseCell& CoarseCellOf(ColorWord color);
    int SearchNearest(ColorWord color);
    int SearchFiveBits(ColorWord color);
    [[nodiscard]] int NearestOf(ColorWord color, const std::uint8_t* candidates, int count) const;
    int ListCandidates(ColorWord color, int bits, const CoarseCell& among,
                       std::uint8_t* candidates) const;

    platform::WorkArray<Tables> tables_;
    SearchPrecision precision_;
};

}  // namespace tess
