// The bitmap file, all numbers little-endian:
//
//   offset 0    "BM"
//   offset 10   32 bits: where the pixels start
//   offset 14   the 40 bytes of the header: at 18 the width, at 22 the height (above
//               0: the bottom row comes first), at 28 the bit count, at 30 the
//               compression, 0
//
// Rows are filled up to a multiple of 4 bytes. A pixel is blue, green, red, and at
// 32 bits alpha.

#include "controls/bitmap_file.h"

#include <cstring>

namespace tess {

namespace {

constexpr std::size_t kHeaderEnd = 54;

template <class Number>
Number ReadAt(std::span<const std::byte> file, std::size_t offset) {
    Number number;
    std::memcpy(&number, file.data() + offset, sizeof number);
    return number;
}

int Blend(int channel, int background, int alpha) {
    return channel * alpha / 255 + background * (255 - alpha) / 255;
}

}  // namespace

bool OpenBitmapFile(std::span<const std::byte> file, BitmapFile* bitmap) {
    if (file.size() < kHeaderEnd || std::memcmp(file.data(), "BM", 2) != 0) return false;
    const auto start = ReadAt<std::uint32_t>(file, 10);
    const auto width = ReadAt<std::int32_t>(file, 18);
    const auto height = ReadAt<std::int32_t>(file, 22);
    const int bits = ReadAt<std::uint16_t>(file, 28);
    const bool is_plain = ReadAt<std::uint32_t>(file, 30) == 0;
    constexpr int kLargest = 32767;
    if (width < 1 || width > kLargest || height < 1 || height > kLargest) return false;
    if (!is_plain || (bits != 24 && bits != 32)) return false;
    const std::uint64_t bytes = std::uint64_t{static_cast<std::uint32_t>(Stride(width, bits))} *
                                static_cast<std::uint32_t>(height);
    if (start + bytes > file.size()) return false;
    *bitmap = {reinterpret_cast<const std::uint8_t*>(file.data()) + start, width, height, bits};
    return true;
}

ColorWord BlendedPixel(const BitmapFile& bitmap, int x, int y, ColorWord background) {
    if (x < 0 || x >= bitmap.Width || y < 0 || y >= bitmap.Height) return background;
    const std::ptrdiff_t row = bitmap.Height - 1 - y;
    const std::uint8_t* pixel =
        bitmap.Pixels + row * Stride(bitmap.Width, bitmap.BitCount) + x * (bitmap.BitCount / 8);
    const int alpha = bitmap.BitCount == 32 ? pixel[3] : 255;
    return MakeColor(Blend(pixel[2], RedOf(background), alpha),
                     Blend(pixel[1], GreenOf(background), alpha),
                     Blend(pixel[0], BlueOf(background), alpha));
}

}  // namespace tess
