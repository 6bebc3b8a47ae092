// The layout of a ".mtx" file, all numbers little-endian: a head, then the elements
// back to back, each a head of its own and a picture's whole block. Used by the
// reader and writer and by the program that makes the default group.
#pragma once

#include <cstdint>
#include <cstring>

namespace tess {

inline constexpr char kMatrixGroupMagic[] = "QRVNMTXf";
inline constexpr int kMatrixGroupMagicBytes = 8;
inline constexpr char kMatrixElementMagic[] = "MTXi";
inline constexpr int kMatrixElementMagicBytes = 4;

#pragma pack(push, 1)
struct MatrixGroupHead {
    char Magic[kMatrixGroupMagicBytes];
    std::uint32_t Time;  ///< of writing, in seconds since 1970
    std::uint8_t Reserved12[790];
    std::uint32_t VersionMajor;   ///< 16
    std::uint32_t VersionMinor;   ///< 0
    std::uint32_t VersionLetter;  ///< "a"
    std::uint32_t Reserved814;
    std::int32_t Count;       ///< of elements
    std::uint32_t Writeable;  ///< 0 for a group that the dialog does not change
    std::uint8_t Reserved826[256];
};
struct MatrixElementHead {
    char Magic[kMatrixElementMagicBytes];
    std::uint32_t Bytes;  ///< of the block that follows
    std::uint8_t Reserved8[64];
};
#pragma pack(pop)
static_assert(sizeof(MatrixGroupHead) == 1082);
static_assert(sizeof(MatrixElementHead) == 72);

[[nodiscard]] inline MatrixGroupHead MakeMatrixGroupHead(std::uint32_t time, int count,
                                                         bool writeable) {
    MatrixGroupHead head{};
    std::memcpy(head.Magic, kMatrixGroupMagic, sizeof head.Magic);
    head.Time = time;
    head.VersionMajor = 16;
    head.VersionLetter = 'a';
    head.Count = count;
    head.Writeable = writeable ? 1 : 0;
    return head;
}

[[nodiscard]] inline MatrixElementHead MakeMatrixElementHead(std::uint32_t bytes) {
    MatrixElementHead head{};
    std::memcpy(head.Magic, kMatrixElementMagic, sizeof head.Magic);
    head.Bytes = bytes;
    return head;
}

}  // namespace tess
