#include "pipeline/unique_colors.h"

#include <algorithm>

#include "pipeline/pixel_rows.h"

namespace tess {

void UniqueColors::Gather(const PackedDib* image) {
    const int width = image->Width;
    ColorWord last = kNoPixel;
    for (int y = 0; y < image->Height; ++y) {
        const std::uint8_t* pixel = DibRow(image, y);
        // While there is room, pixels that repeat their neighbour change nothing.
        const bool is_known = count_ < kPaletteEntries && IsOneColorRow(pixel, width) &&
                              MakeColor(pixel[2], pixel[1], pixel[0]) == last;
        for (int x = is_known ? width : 0; x < width; ++x, pixel += 3) {
            if (count_ >= kPaletteEntries) {
                count_ = kPaletteEntries + 1;
                return;
            }
            const ColorWord color = MakeColor(pixel[2], pixel[1], pixel[0]);
            if (color != last) Add(color);
            last = color;
        }
    }
}

void UniqueColors::Add(ColorWord color) {
    constexpr std::uint32_t kHashFactor = 2654435761U;  // 2^32 / golden ratio
    constexpr int kHashShift = 22;                      // leaves a place's 10 bits
    std::uint32_t place = (color * kHashFactor) >> kHashShift;
    while (places_[place] != 0) {
        if (colors_[places_[place] - 1] == color) return;
        place = (place + 1) % kPlaces;
    }
    colors_[count_++] = color;
    places_[place] = static_cast<std::uint16_t>(count_);
}

void UniqueColors::Write(std::uint8_t* palette) const {
    for (int i = 0; i < std::min(count_, kPaletteEntries); ++i, palette += 3) {
        palette[0] = RedOf(colors_[i]);
        palette[1] = GreenOf(colors_[i]);
        palette[2] = BlueOf(colors_[i]);
    }
}

}  // namespace tess
