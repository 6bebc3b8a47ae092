#include "tests/support/random_pictures.h"

#include <cstring>
#include <random>

namespace tess::test {

ImageHandle RandomPicture(int width, int height, int bits, std::uint32_t seed) {
    std::mt19937 draw(seed);
    std::uint8_t palette[kPaletteBytes];
    for (std::uint8_t& entry : palette)
        entry = static_cast<std::uint8_t>(draw());
    platform::OwnedBlock picture(NewPackedDib(width, height, palette, bits));
    const LockedImage image(picture.Get());
    if (!image) return nullptr;
    // Half of the pictures have hard edges: runs of black and white.
    const bool hard = (seed & 1) != 0;
    std::uint32_t value = 0;
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            if (!hard) {
                value = static_cast<std::uint32_t>(draw());
            } else if (draw() % 4 == 0) {
                value = ~value;
            }
            SetDibPixel(image, x, y, value);
        }
    }
    return picture.Release();
}

ImageHandle FlatPicture(int width, int height, int bits, int level) {
    platform::OwnedBlock picture(NewPackedDib(width, height, nullptr, bits));
    const LockedImage image(picture.Get());
    if (!image) return nullptr;
    const auto value = static_cast<std::uint32_t>(level) * 0x01010101U;
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x)
            SetDibPixel(image, x, y, value);
    }
    return picture.Release();
}

std::string Difference(ImageHandle one, ImageHandle other) {
    const LockedImage a(one);
    const LockedImage b(other);
    if (!a || !b) return "a picture is missing";
    if (std::memcmp(a.Get(), b.Get(), sizeof(PackedDib)) != 0) return "the headers differ";
    if (std::memcmp(DibColorTable(a), DibColorTable(b), ColorTableBytes(a->BitCount)) != 0) {
        return "the colour tables differ";
    }
    const int stride = Stride(a->Width, a->BitCount);
    for (int y = 0; y < a->Height; ++y) {
        const std::uint8_t* row = DibRow(a.Get(), y);
        const std::uint8_t* other_row = DibRow(b.Get(), y);
        for (int i = 0; i < stride; ++i) {
            if (row[i] != other_row[i]) {
                return "row " + std::to_string(y) + ", byte " + std::to_string(i) + ": " +
                       std::to_string(row[i]) + " and " + std::to_string(other_row[i]);
            }
        }
    }
    return "";
}

}  // namespace tess::test
