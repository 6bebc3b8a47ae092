#include "host/composition.h"

#include <algorithm>
#include <cstring>

namespace tess {
namespace {

// Returns whether all frames are indexed alike, their bit count in `bits` and their
// table in `palette`.
bool HaveOneTable(const Animation& animation, int* bits, std::uint8_t* palette) {
    for (int i = 0; i < animation.Frames.Count; ++i) {
        FrameRecord frame;
        if (GetFrame(animation, i, &frame) == 0) return false;
        const platform::LockedBlock<const PackedDib> image(frame.Image);
        if (!image || image->BitCount > 8) return false;
        std::uint8_t table[kPaletteBytes];
        ReadColorTable(image, i == 0 ? palette : table);
        if (i == 0) {
            *bits = image->BitCount;
        } else if (image->BitCount != *bits || std::memcmp(palette, table, kPaletteBytes) != 0) {
            return false;
        }
    }
    return animation.Frames.Count > 0;
}

}  // namespace

Composition::Composition(const Animation& animation)
    : animation_(animation), indexed_(HaveOneTable(animation, &bits_, palette_)) {
    if (!indexed_) bits_ = 24;
    pixels_ =
        platform::WorkArray<std::uint8_t>(RowBytes() * static_cast<std::size_t>(animation.Height));
}

std::size_t Composition::RowBytes() const {
    return static_cast<std::size_t>(animation_.Width) * static_cast<std::size_t>(PixelBytes());
}

int Composition::ShowFrame(int index) {
    FrameRecord frame;
    if (GetFrame(animation_, index, &frame) == 0) return 0;
    const platform::LockedBlock<const PackedDib> image(frame.Image);
    if (!image) return 0;
    std::uint8_t table[kPaletteBytes];
    ReadColorTable(image, table);
    const int rows = std::min<int>(image->Height, animation_.Height);
    for (int y = 0; y < rows; ++y)
        DrawRow(image, table, y, frame.TransparentIndex);
    return 1;
}

void Composition::DrawRow(const PackedDib* image, const std::uint8_t* table, int y,
                          int transparent) {
    std::uint8_t* target = pixels_.data() + static_cast<std::size_t>(y) * RowBytes();
    const int columns = std::min<int>(image->Width, animation_.Width);
    const bool is_true_color = image->BitCount > 8;
    for (int x = 0; x < columns; ++x, target += PixelBytes()) {
        const std::uint32_t value = GetDibPixel(image, x, y);
        if (is_true_color) {
            target[0] = RedOf(value);
            target[1] = GreenOf(value);
            target[2] = BlueOf(value);
        } else if (static_cast<int>(value) == transparent) {
            continue;
        } else if (indexed_) {
            *target = static_cast<std::uint8_t>(value);
        } else {
            std::memcpy(target, table + 3 * value, 3);
        }
    }
}

}  // namespace tess
