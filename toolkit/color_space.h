// Hue, saturation and value (A. R. Smith, "Color Gamut Transform Pairs", 1978).
#pragma once

#include "pipeline/image_buffers.h"

namespace tess {

struct HsvColor {
    double Hue;         ///< degrees, 0 to 360; -1 for black
    double Saturation;  ///< 0 to 1
    double Value;       ///< 0 to 1
};

void ColorToHsv(HsvColor* hsv, ColorWord color);
[[nodiscard]] ColorWord HsvToColor(const HsvColor* hsv);

}  // namespace tess
