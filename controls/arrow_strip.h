// Arrow strips: bitmap files of height 24 that hold the pictures of a picker's cells,
// 24 by 24 pixels each, side by side.
#pragma once

#include <cstdint>

#include "controls/bitmap_file.h"

namespace tess {

inline constexpr int kArrowPitch = 24;  ///< pixels from one picture to the next
inline constexpr int kArrowInset = 2;   ///< a margin of each picture that is not shown
inline constexpr int kArrowSize = 20;   ///< pixels shown, both ways

/// What is shown of picture `index`, as rows from the top of blue, green, red, 0.
struct ArrowPicture {
    std::uint8_t Bytes[kArrowSize * kArrowSize * 4];
};
[[nodiscard]] ArrowPicture BlendArrow(const BitmapFile& strip, int index, ColorWord background);

}  // namespace tess
