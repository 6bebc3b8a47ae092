#include "pipeline/pixel_rows.h"

#include <cstring>

namespace tess {

void ReadIndexRow(const PackedDib* image, int y, std::uint8_t* indexes) {
    const std::uint8_t* row = DibRow(image, y);
    const int width = image->Width;
    if (image->BitCount == 8) {
        std::memcpy(indexes, row, static_cast<std::size_t>(width));
    } else if (image->BitCount == 4) {
        for (int x = 0; x < width; ++x) {
            const int pair = row[x >> 1];
            indexes[x] = static_cast<std::uint8_t>((x & 1) == 0 ? pair >> 4 : pair & 15);
        }
    } else {
        for (int x = 0; x < width; ++x) {
            indexes[x] = static_cast<std::uint8_t>((row[x >> 3] >> (7 - (x & 7))) & 1);
        }
    }
}

void WriteIndexRow(PackedDib* image, int y, const std::uint8_t* indexes) {
    std::uint8_t* row = DibRow(image, y);
    const int width = image->Width;
    if (image->BitCount == 8) {
        std::memcpy(row, indexes, static_cast<std::size_t>(width));
    } else if (image->BitCount == 4) {
        for (int x = 0; x < width; x += 2) {
            const int right = x + 1 < width ? indexes[x + 1] & 15 : 0;
            row[x >> 1] = static_cast<std::uint8_t>((indexes[x] & 15) << 4 | right);
        }
    } else {
        for (int x = 0; x < width; x += 8) {
            int eight = 0;
            for (int i = 0; i < 8 && x + i < width; ++i)
                eight |= (indexes[x + i] & 1) << (7 - i);
            row[x >> 3] = static_cast<std::uint8_t>(eight);
        }
    }
}

bool IsOneColorRow(const std::uint8_t* row, int width) {
    // Every byte equal to the one a pixel before it.
    return width > 0 &&
           std::memcmp(row, row + 3, std::size_t{3} * static_cast<std::size_t>(width - 1)) == 0;
}

void ReadColorRow(const PackedDib* image, int y, const std::uint8_t* palette,
                  std::uint8_t* colors) {
    const int width = image->Width;
    const std::uint8_t* row = DibRow(image, y);
    if (image->BitCount >= 24) {
        const int step = image->BitCount / 8;
        for (int x = 0; x < width; ++x, row += step, colors += 3) {
            colors[0] = row[2];
            colors[1] = row[1];
            colors[2] = row[0];
        }
        return;
    }
    for (int x = 0; x < width; ++x, colors += 3) {
        std::memcpy(colors, palette + std::size_t{3} * GetDibPixel(image, x, y), 3);
    }
}

}  // namespace tess
