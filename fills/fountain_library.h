// The fountain library, FountainLibrary.fll: colours that the user keeps for later.
// docs/formats/fountain.md holds the layout.
//
// The file is written whole or not at all, beside its place; one that is damaged is
// refused and stays as it is.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "fills/fountain.h"
#include "platform/block_guards.h"

namespace tess {

inline constexpr char kFountainLibraryFile[] = "FountainLibrary.fll";
/// The path of the user's library.
[[nodiscard]] std::string FountainLibraryPath();

inline constexpr char kLibraryHeaderMagic[] = "QRVNFLHH";
inline constexpr char kLibraryEntryMagic[] = "QRVNFLHE";

#pragma pack(push, 1)
struct FountainLibraryHeader {
    char Magic[8];          ///< kLibraryHeaderMagic
    std::uint32_t Created;  ///< the low 32 bits of the C library's time
    std::int32_t Count;     ///< entries in the file
    std::uint8_t Reserved[64];
};
/// The colours of a fountain. Whether it is looped is the matter of the control that
/// takes them.
struct FountainLibraryEntry {
    char Magic[8];  ///< kLibraryEntryMagic
    std::int32_t Count;
    ColorWord Start, End;
    FountainMarker Markers[kFountainMarkers];
    std::uint8_t Reserved[64];
};
#pragma pack(pop)
static_assert(sizeof(FountainLibraryHeader) == 80 && sizeof(FountainLibraryEntry) == 340);

[[nodiscard]] FountainLibraryEntry EntryOf(const Fountain& fountain);
/// Overwrites count, start, end and markers of `fountain` with those of an entry.
void TakeColors(const FountainLibraryEntry& entry, Fountain* fountain);

enum class LibraryState {
    Whole,
    Missing,     ///< there is no such file
    Unreadable,  ///< it is there and cannot be read, or memory for it cannot be had
    Damaged,     ///< short, with a wrong magic, or with fewer entries than its count
};

using FountainLibraryEntries = platform::WorkArray<FountainLibraryEntry>;

/// Reads the entries of a library in the file's order. A library whose count is at or
/// below 0 has none.
[[nodiscard]] LibraryState ReadFountainLibrary(std::string_view path,
                                               FountainLibraryEntries* entries);

/// Adds the colours as the last entry of a library, which is made where there is none.
/// Returns 1, or 0 with the file as it was.
[[nodiscard]] int AppendToFountainLibrary(std::string_view path, const Fountain& fountain);
/// The same for the user's library.
[[nodiscard]] int AppendToFountainLibrary(const Fountain& fountain);

/// Puts a library of `count` entries in the place of the file; without any the file is
/// removed. Returns 1, or 0 with the file as it was.
[[nodiscard]] int WriteFountainLibrary(std::string_view path, const FountainLibraryEntry* entries,
                                       std::size_t count);

}  // namespace tess
