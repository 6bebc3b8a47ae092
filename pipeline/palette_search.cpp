// Nearest-colour search by cells of the colour cube.
//
// - The cube is cut into 8 x 8 x 8 coarse and 32 x 32 x 32 fine cells. A cell
//   lists its candidates: the entries that are nearest to some colour of the cell,
//   and perhaps a few more. No colour of the cell is farther from its nearest
//   entry than the least of the entries' farthest distances to the cell, so an
//   entry whose nearest distance to the cell is greater can neither win nor tie.
// - Candidates stand in the order of the palette and a later one wins only when it
//   is strictly nearer, so the lowest index wins ties as in NearestColor. Entries
//   equal to an earlier one never win and are left out from the start.
// - Cells are listed when first asked for, a fine cell from its coarse one's list.
// - A fine cell with too many candidates uses the coarse list, behind a table of
//   the colours answered lately, one place for each hash. Each place always holds
//   a true answer: black's to begin with.
//
// With five bits of precision an equal entry is found by an open hash table, and
// the table over the upper five bits of the channels is filled as it is asked for.
#include "pipeline/palette_search.h"

#include <algorithm>
#include <iterator>
#include <limits>

#include "pipeline/palette.h"

namespace tess {

namespace {

/// How far `value` is from the nearest and the farthest of low..high.
constexpr int NearestReach(int value, int low, int high) {
    return std::max({low - value, value - high, 0});
}
constexpr int FarthestReach(int value, int low, int high) {
    return std::max(high - value, value - low);
}

constexpr std::uint32_t kHashFactor = 2654435761U;  // 2^32 / golden ratio

/// The upper `bits` bits of the colour's hash.
constexpr std::uint32_t HashOf(ColorWord color, int bits) {
    return (color * kHashFactor) >> (32 - bits);
}

}  // namespace

PaletteSearch::PaletteSearch(const std::uint8_t* palette, int count, SearchPrecision precision)
    : tables_(1), precision_(precision) {
    if (!tables_) return;
    Tables& tables = tables_[0];
    count = std::min(count, kPaletteEntries);
    for (int i = 0; i < count; ++i) {
        const std::uint8_t* entry = palette + std::ptrdiff_t{3} * i;
        tables.Entries[i] = {entry[0], entry[1], entry[2]};
        NoteEntry(i, MakeColor(entry[0], entry[1], entry[2]));
    }
    const int black = NearestColor(0, 0, 0, palette, count);
    std::fill(std::begin(tables.Known), std::end(tables.Known), static_cast<std::uint32_t>(black));
}

/// Requires: called for the entries in the order of the palette.
void PaletteSearch::NoteEntry(int index, ColorWord color) {
    Tables& tables = tables_[0];
    std::uint32_t place = HashOf(color, kEqualBits);
    while (tables.FirstEqual[place] != 0) {
        const Entry& other = tables.Entries[tables.FirstEqual[place] - 1];
        if (MakeColor(other.Red, other.Green, other.Blue) == color) return;
        place = (place + 1) & ((1 << kEqualBits) - 1);
    }
    tables.FirstEqual[place] = static_cast<std::uint16_t>(index + 1);
    tables.Distinct.Candidates[tables.Distinct.Count++] = static_cast<std::uint8_t>(index);
}

int PaletteSearch::FindEqual(ColorWord color) const {
    const Tables& tables = tables_[0];
    std::uint32_t place = HashOf(color, kEqualBits);
    while (tables.FirstEqual[place] != 0) {
        const int index = tables.FirstEqual[place] - 1;
        const Entry& entry = tables.Entries[index];
        if (MakeColor(entry.Red, entry.Green, entry.Blue) == color) return index;
        place = (place + 1) & ((1 << kEqualBits) - 1);
    }
    return -1;
}

const PaletteSearch::CoarseCell& PaletteSearch::CoarseCellOf(ColorWord color) {
    CoarseCell& cell = tables_[0].Coarse[CellOf(color, kCoarseBits)];
    if (cell.Count == 0) {
        cell.Count = static_cast<std::uint16_t>(
            ListCandidates(color, kCoarseBits, tables_[0].Distinct, cell.Candidates));
    }
    return cell;
}

/// For a colour of a fine cell without a list, or with one that does not fit.
int PaletteSearch::SearchUnlisted(ColorWord color) {
    if (tables_[0].Distinct.Count == 0) return 0;
    FineCell& cell = tables_[0].Fine[CellOf(color, kFineBits)];
    if (cell.Count != 0) return SearchCrowded(color);
    std::uint8_t candidates[kPaletteEntries];
    const int count = ListCandidates(color, kFineBits, CoarseCellOf(color), candidates);
    const int kept = std::min(count, static_cast<int>(kFineCandidates));
    cell.Count = static_cast<std::uint8_t>(kept < count ? kept + 1 : kept);
    std::copy_n(candidates, kept, cell.Candidates);
    return NearestOf(color, candidates, count);
}

int PaletteSearch::SearchCrowded(ColorWord color) {
    std::uint32_t& known = tables_[0].Known[HashOf(color, kKnownBits)];
    if (known >> 8 != color) {
        const CoarseCell& coarse = CoarseCellOf(color);
        const int index = NearestOf(color, coarse.Candidates, coarse.Count);
        known = color << 8 | static_cast<std::uint32_t>(index);
    }
    return static_cast<int>(known & 255);
}

int PaletteSearch::SearchFiveBits(ColorWord color) {
    if (tables_[0].Distinct.Count == 0) return 0;
    const int equal = FindEqual(color);
    if (equal >= 0) return equal;
    std::uint16_t& place = tables_[0].FastTable[CellOf(color, kFineBits)];
    if (place == 0) {
        const ColorWord upper = color & 0xF8F8F8;
        const CoarseCell& coarse = CoarseCellOf(upper);
        place = static_cast<std::uint16_t>(NearestOf(upper, coarse.Candidates, coarse.Count) + 1);
    }
    return place - 1;
}

/// Lists the candidates of the cell of `bits` bits a channel around `color`.
/// Requires: `among` lists those of a cell that holds this one. Returns how many.
int PaletteSearch::ListCandidates(ColorWord color, int bits, const CoarseCell& among,
                                  std::uint8_t* candidates) const {
    const int span = (1 << (8 - bits)) - 1;
    const int red = RedOf(color) & ~span;
    const int green = GreenOf(color) & ~span;
    const int blue = BlueOf(color) & ~span;
    int nearest_distances[kPaletteEntries];
    int limit = std::numeric_limits<int>::max();
    for (int i = 0; i < among.Count; ++i) {
        const Entry& entry = tables_[0].Entries[among.Candidates[i]];
        nearest_distances[i] = Distance(NearestReach(entry.Red, red, red + span),
                                        NearestReach(entry.Green, green, green + span),
                                        NearestReach(entry.Blue, blue, blue + span));
        limit = std::min(limit, Distance(FarthestReach(entry.Red, red, red + span),
                                         FarthestReach(entry.Green, green, green + span),
                                         FarthestReach(entry.Blue, blue, blue + span)));
    }
    int count = 0;
    for (int i = 0; i < among.Count; ++i) {
        if (nearest_distances[i] <= limit) candidates[count++] = among.Candidates[i];
    }
    return count;
}

}  // namespace tess
