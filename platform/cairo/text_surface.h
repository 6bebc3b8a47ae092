// What stands natively in the place of a device context of the system, for text.
#pragma once

#include <cstdint>

#include "platform/vector_drawing.h"

namespace platform {

/// 24-bit pixels (blue, green, red, bottom row first, rows filled up to 4 bytes) and the
/// font that is selected. Owns nothing. Without pixels (null) text is measured only.
struct TextSurface {
    std::uint8_t* Bits;
    std::int32_t Width, Height;
    LogFont Font;
};

inline TextTarget* AsTextTarget(TextSurface* surface) {
    return reinterpret_cast<TextTarget*>(surface);
}

}  // namespace platform
