#include "platform/cairo/pixel_rows.h"

#include <cstddef>

namespace platform {

void CopyBottomUp(const std::uint32_t* pixels, int width, int height, std::uint8_t* rows) {
    const auto columns = static_cast<std::size_t>(width);
    const std::size_t stride = (columns * 3 + 3) / 4 * 4;
    for (int y = height; y-- > 0; rows += stride) {
        const std::uint32_t* pixel = pixels + columns * static_cast<std::size_t>(y);
        std::uint8_t* out = rows;
        for (int x = 0; x < width; ++x, ++pixel) {
            *out++ = static_cast<std::uint8_t>(*pixel);
            *out++ = static_cast<std::uint8_t>(*pixel >> 8);
            *out++ = static_cast<std::uint8_t>(*pixel >> 16);
        }
    }
}

}  // namespace platform
