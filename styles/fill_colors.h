// The list of fill colours that many panels have: Color 1, which always takes
// part, and Colors 2 to 5, each with an Enable box.
#pragma once

#include <array>
#include <cstdint>

#include "pipeline/image_buffers.h"
#include "platform/dialog.h"

namespace tess {

struct FillColorList {
    ColorWord Colors[5];
    std::int32_t Count;  ///< 1 to 5
};

/// Reads the colours that take part, in order, by the ids of the colour buttons
/// and of the boxes that enable the second and on.
[[nodiscard]] FillColorList ReadFillColors(platform::WindowHandle dialog,
                                           const std::array<int, 5>& colors,
                                           const std::array<int, 4>& enables);

}  // namespace tess
