// What the renderers of textures share: the picture they start from, colours laid
// over it, and numbers held where a damaged record might lead them astray.
#pragma once

#include <algorithm>
#include <cstdint>

#include "fills/texture.h"

namespace tess {

struct TextureSize {
    int Width, Height;
};
/// The size of the item's target rectangle; one that does not fit into a whole number
/// is -1, which no picture has.
[[nodiscard]] TextureSize TargetSize(const TextureItem& item);

/// Returns a new 24-bit picture of one colour, or null.
[[nodiscard]] ImageHandle NewFilledPicture(const TextureSize& size, ColorWord color);

/// Lays `color` over a pixel (blue, green, red). `opacity` is 0 to 255. Each product
/// is cut by itself, so the sum can be one below the exact value.
inline void LayColorOver(std::uint8_t* pixel, ColorWord color, int opacity) {
    const auto mix = [opacity](int over, int under) {
        return static_cast<std::uint8_t>(over * opacity / 255 + under * (255 - opacity) / 255);
    };
    pixel[0] = mix(BlueOf(color), pixel[0]);
    pixel[1] = mix(GreenOf(color), pixel[1]);
    pixel[2] = mix(RedOf(color), pixel[2]);
}

/// Holds a value in 0 to 1; what is not a number is 0.
[[nodiscard]] inline double HoldToUnit(double value) {
    return value > 0.0 ? std::min(value, 1.0) : 0.0;
}

}  // namespace tess
