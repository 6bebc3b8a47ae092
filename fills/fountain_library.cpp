// FountainLibrary.fll: a header of 80 bytes, then as many entries of 340 bytes as its
// count says, back to back; all numbers little-endian. What a longer file holds behind
// them is not read.

#include "fills/fountain_library.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <ctime>
#include <limits>

#include "platform/files.h"

namespace tess {

namespace {

using platform::WorkArray;
using Bytes = WorkArray<std::uint8_t>;

constexpr std::size_t kHeaderBytes = sizeof(FountainLibraryHeader);
constexpr std::size_t kEntryBytes = sizeof(FountainLibraryEntry);
constexpr std::size_t kMagicBytes = 8;

/// The length of an open file, -1 where it has none that a library could have.
long LengthOf(std::FILE* stream) {
    if (std::fseek(stream, 0, SEEK_END) != 0) return -1;
    const long length = std::ftell(stream);
    return std::fseek(stream, 0, SEEK_SET) == 0 ? length : -1;
}

LibraryState ReadStream(std::FILE* stream, Bytes* bytes) {
    const long length = LengthOf(stream);
    if (length < 0 || length == std::numeric_limits<long>::max()) return LibraryState::Unreadable;
    if (length == 0) return LibraryState::Damaged;
    *bytes = Bytes(static_cast<std::size_t>(length));
    if (!*bytes) return LibraryState::Unreadable;
    return std::fread(bytes->data(), 1, bytes->size(), stream) == bytes->size()
               ? LibraryState::Whole
               : LibraryState::Unreadable;
}

LibraryState ReadBytes(std::string_view path, Bytes* bytes) {
    errno = 0;
    std::FILE* stream = platform::OpenFile(path, "rb");
    if (stream == nullptr) {
        return errno == ENOENT ? LibraryState::Missing : LibraryState::Unreadable;
    }
    const LibraryState state = ReadStream(stream, bytes);
    std::fclose(stream);
    return state;
}

FountainLibraryHeader HeaderOf(const Bytes& bytes) {
    FountainLibraryHeader header;
    std::memcpy(&header, bytes.data(), kHeaderBytes);
    return header;
}

const std::uint8_t* EntryBytes(const Bytes& bytes, std::size_t index) {
    return bytes.data() + kHeaderBytes + index * kEntryBytes;
}

/// Whether the bytes are a header and all the entries that it counts.
bool IsWhole(const Bytes& bytes) {
    if (bytes.size() < kHeaderBytes) return false;
    const FountainLibraryHeader header = HeaderOf(bytes);
    if (std::memcmp(header.Magic, kLibraryHeaderMagic, kMagicBytes) != 0) return false;
    if (header.Count <= 0) return true;
    const auto count = static_cast<std::size_t>(header.Count);
    if (count > (bytes.size() - kHeaderBytes) / kEntryBytes) return false;
    for (std::size_t i = 0; i < count; ++i) {
        if (std::memcmp(EntryBytes(bytes, i), kLibraryEntryMagic, kMagicBytes) != 0) return false;
    }
    return true;
}

LibraryState ReadWhole(std::string_view path, Bytes* bytes) {
    const LibraryState state = ReadBytes(path, bytes);
    if (state != LibraryState::Whole) return state;
    return IsWhole(*bytes) ? LibraryState::Whole : LibraryState::Damaged;
}

FountainLibraryHeader NewHeader() {
    FountainLibraryHeader header{};
    std::memcpy(header.Magic, kLibraryHeaderMagic, kMagicBytes);
    header.Created = static_cast<std::uint32_t>(std::time(nullptr));
    return header;
}

bool Write(std::FILE* stream, const void* bytes, std::size_t count) {
    return count == 0 || std::fwrite(bytes, 1, count, stream) == count;
}

/// Writes the bytes from `start` on, at most `count` of them.
bool WritePart(std::FILE* stream, const Bytes& bytes, std::size_t start, std::size_t count) {
    if (start >= bytes.size() || count == 0) return true;
    return Write(stream, bytes.data() + start, std::min(count, bytes.size() - start));
}

}  // namespace

std::string FountainLibraryPath() {
    return platform::PluginFile(kFountainLibraryFile);
}

FountainLibraryEntry EntryOf(const Fountain& fountain) {
    FountainLibraryEntry entry{};
    std::memcpy(entry.Magic, kLibraryEntryMagic, kMagicBytes);
    entry.Count = fountain.Count;
    entry.Start = fountain.Start;
    entry.End = fountain.End;
    std::memcpy(entry.Markers, fountain.Markers, sizeof entry.Markers);
    return entry;
}

void TakeColors(const FountainLibraryEntry& entry, Fountain* fountain) {
    fountain->Count = entry.Count;
    fountain->Start = entry.Start;
    fountain->End = entry.End;
    std::memcpy(fountain->Markers, entry.Markers, sizeof fountain->Markers);
}

LibraryState ReadFountainLibrary(std::string_view path, FountainLibraryEntries* entries) {
    *entries = {};
    Bytes bytes;
    const LibraryState state = ReadWhole(path, &bytes);
    if (state != LibraryState::Whole) return state;
    const std::int32_t count = HeaderOf(bytes).Count;
    if (count <= 0) return LibraryState::Whole;
    *entries = FountainLibraryEntries(static_cast<std::size_t>(count));
    if (!*entries) return LibraryState::Unreadable;
    std::memcpy(entries->data(), EntryBytes(bytes, 0), entries->size() * kEntryBytes);
    return LibraryState::Whole;
}

int AppendToFountainLibrary(std::string_view path, const Fountain& fountain) {
    FountainLibraryHeader header = NewHeader();
    Bytes old;
    const LibraryState state = ReadWhole(path, &old);
    if (state == LibraryState::Whole) header = HeaderOf(old);
    const bool is_usable = state == LibraryState::Whole || state == LibraryState::Missing;
    if (!is_usable || header.Count < 0) return 0;
    const std::size_t old_entries = static_cast<std::size_t>(header.Count) * kEntryBytes;
    const std::size_t written = kHeaderBytes + old_entries + kEntryBytes;
    ++header.Count;
    const FountainLibraryEntry entry = EntryOf(fountain);
    platform::NewFile file(path, platform::FileMode::Binary);
    if (!file || !Write(file.Stream(), &header, kHeaderBytes) ||
        !WritePart(file.Stream(), old, kHeaderBytes, old_entries) ||
        !Write(file.Stream(), &entry, kEntryBytes) ||
        // What a longer file holds behind its entries stays where it is.
        !WritePart(file.Stream(), old, written, old.size())) {
        return 0;
    }
    return file.Commit();
}

int AppendToFountainLibrary(const Fountain& fountain) {
    return AppendToFountainLibrary(FountainLibraryPath(), fountain);
}

int WriteFountainLibrary(std::string_view path, const FountainLibraryEntry* entries,
                         std::size_t count) {
    if (count == 0) return platform::RemoveFile(path);
    if (count > std::numeric_limits<std::int32_t>::max()) return 0;
    FountainLibraryHeader header = NewHeader();
    header.Count = static_cast<std::int32_t>(count);
    platform::NewFile file(path, platform::FileMode::Binary);
    if (!file || !Write(file.Stream(), &header, kHeaderBytes) ||
        !Write(file.Stream(), entries, count * kEntryBytes)) {
        return 0;
    }
    return file.Commit();
}

}  // namespace tess
