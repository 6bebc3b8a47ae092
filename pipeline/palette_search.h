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
        if (precision_ == SearchPrecision::FiveBits) return SearchFiveBits(color);
        const FineCell& cell = tables_[0].Fine[CellOf(color, kFineBits)];
        // An unlisted cell's count of 0 becomes the greatest number here.
        if (cell.Count - 1U < kFineCandidates) {
            return NearestOf(color, cell.Candidates, cell.Count);
        }
        return SearchUnlisted(color);
    }

private:
    static constexpr int kCoarseBits = 3;  // of a channel, for a coarse cell
    static constexpr int kFineBits = 5;
    static constexpr unsigned kFineCandidates = 15;
    static constexpr int kKnownBits = 14;
    static constexpr int kEqualBits = 10;

    struct Entry {
        int Red, Green, Blue;
    };
    struct CoarseCell {
        std::uint16_t Count;  // 0: not listed yet
        std::uint8_t Candidates[kPaletteEntries];
    };
    struct FineCell {
        std::uint8_t Count;  // 0: not listed yet; above kFineCandidates: they did not fit
        std::uint8_t Candidates[kFineCandidates];
    };
    struct Tables {
        Entry Entries[kPaletteEntries];
        FineCell Fine[1 << (3 * kFineBits)];
        CoarseCell Coarse[1 << (3 * kCoarseBits)];
        CoarseCell Distinct;                            // the entries unlike all before them
        std::uint32_t Known[1 << kKnownBits];           // colour << 8 | index
        std::uint16_t FirstEqual[1 << kEqualBits];      // index + 1 of an entry; 0: free
        std::uint16_t FastTable[1 << (3 * kFineBits)];  // index + 1; 0: not made yet
    };

    /// The number of the cell of `bits` bits a channel that holds the colour.
    static constexpr std::uint32_t CellOf(ColorWord color, int bits) {
        const int cut = 8 - bits;
        return static_cast<std::uint32_t>(RedOf(color) >> cut) |
               static_cast<std::uint32_t>(GreenOf(color) >> cut) << bits |
               static_cast<std::uint32_t>(BlueOf(color) >> cut) << (2 * bits);
    }

    static constexpr int Distance(int dr, int dg, int db) {
        return 3 * dr * dr + 4 * dg * dg + 2 * db * db;
    }

    [[nodiscard]] int NearestOf(ColorWord color, const std::uint8_t* candidates, int count) const {
        int nearest = candidates[0];
        int least = DistanceTo(nearest, color);
        for (int i = 1; i < count; ++i) {
            const int distance = DistanceTo(candidates[i], color);
            nearest = distance < least ? candidates[i] : nearest;
            least = distance < least ? distance : least;
        }
        return nearest;
    }
    [[nodiscard]] int DistanceTo(int index, ColorWord color) const {
        const Entry& entry = tables_[0].Entries[index];
        const int dr = RedOf(color) - entry.Red;
        const int dg = GreenOf(color) - entry.Green;
        const int db = BlueOf(color) - entry.Blue;
        return Distance(dr, dg, db);
    }

    void NoteEntry(int index, ColorWord color);
    [[nodiscard]] int FindEqual(ColorWord color) const;
    int SearchUnlisted(ColorWord color);
    int SearchCrowded(ColorWord color);
    int SearchFiveBits(ColorWord color);
    const CoarseCell& CoarseCellOf(ColorWord color);
    int ListCandidates(ColorWord color, int bits, const CoarseCell& among,
                       std::uint8_t* candidates) const;

    platform::WorkArray<Tables> tables_;
    SearchPrecision precision_;
};

}  // namespace tess
