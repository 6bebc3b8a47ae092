// The file, all numbers little-endian:
//
//   offset 0   "BM"
//   offset 2   file size, 32 bits
//   offset 6   0, 32 bits
//   offset 10  offset of the pixels, 32 bits
//   offset 14  the PackedDib: header, colour table, rows
#include "host/bmp_file.h"

#include <cstdio>

#include "platform/files.h"

namespace tess {
namespace {

constexpr std::size_t kFileHeaderBytes = 14;

void PutNumber(std::uint8_t* place, std::size_t value) {
    for (int i = 0; i < 4; ++i)
        place[i] = static_cast<std::uint8_t>(value >> (8 * i));
}

}  // namespace

FileResult WriteBmpFile(ImageHandle handle, std::string_view path) {
    const LockedImage image(handle);
    if (!image) return FileResult::OutOfMemory;
    const std::size_t pixels_offset = sizeof(PackedDib) + ColorTableBytes(image->BitCount);
    const std::size_t block_bytes = pixels_offset + image->ImageSize;
    std::uint8_t header[kFileHeaderBytes] = {'B', 'M'};
    PutNumber(header + 2, kFileHeaderBytes + block_bytes);
    PutNumber(header + 10, kFileHeaderBytes + pixels_offset);

    platform::NewFile file(path, platform::FileMode::Binary);
    if (!file) return FileResult::CannotCreate;
    if (std::fwrite(header, sizeof header, 1, file.Stream()) != 1 ||
        std::fwrite(image.Get(), block_bytes, 1, file.Stream()) != 1 || file.Commit() == 0) {
        return FileResult::CannotWrite;
    }
    return FileResult::Written;
}

}  // namespace tess
