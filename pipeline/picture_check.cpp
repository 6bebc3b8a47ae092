#include "pipeline/picture_check.h"

#include <cstring>
#include <limits>

namespace tess {

namespace {

bool IsKnownBitCount(int bits) {
    return bits == 1 || bits == 4 || bits == 8 || bits == 24 || bits == 32;
}

}  // namespace

bool IsWholePicture(const void* block, std::size_t bytes) {
    if (block == nullptr || bytes < sizeof(PackedDib)) return false;
    PackedDib head;
    std::memcpy(&head, block, sizeof head);
    if (head.HeaderSize != sizeof head || head.Planes != 1 || head.Compression != 0) return false;
    if (head.Width < 1 || head.Height < 1 || !IsKnownBitCount(head.BitCount)) return false;
    // A shorter table would move the rows, which are looked for behind a full one.
    const std::size_t table = ColorTableBytes(head.BitCount);
    const bool has_full_table = head.ColorsUsed == 0 || head.ColorsUsed == table / 4;
    if (table != 0 && !has_full_table) return false;
    // Reckoned as NewPackedDib does, so that what it would not make is not taken either.
    const std::int64_t stride = ((std::int64_t{head.Width} * head.BitCount + 31) >> 5) << 2;
    if (stride > std::numeric_limits<std::int32_t>::max() / head.Height) return false;
    return bytes - sizeof head >= table + static_cast<std::size_t>(stride * head.Height);
}

bool IsWholePicture(ImageHandle image) {
    const platform::LockedBlock<const void> block(image);
    return IsWholePicture(block.Get(), platform::BlockSize(image));
}

}  // namespace tess
