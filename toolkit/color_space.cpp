#include "toolkit/color_space.h"

#include <algorithm>
#include <cmath>

namespace tess {

namespace {

int ToLevel(double part) {
    return static_cast<int>(std::clamp(part * 255.0, 0.0, 255.0));
}

}  // namespace

void ColorToHsv(HsvColor* hsv, ColorWord color) {
    const double red = RedOf(color) / 255.0;
    const double green = GreenOf(color) / 255.0;
    const double blue = BlueOf(color) / 255.0;
    const double most = std::max({red, green, blue});
    const double least = std::min({red, green, blue});
    if (most == 0.0) {
        *hsv = {-1.0, 0.0, 0.0};
        return;
    }
    const double spread = most == least ? 1.0 : most - least;
    double hue;
    if (red == most) {
        hue = (green - blue) / spread;
    } else if (green == most) {
        hue = (blue - red) / spread + 2.0;
    } else {
        hue = (red - green) / spread + 4.0;
    }
    hue *= 60.0;
    if (hue < 0.0) hue += 360.0;
    *hsv = {hue, (most - least) / most, most};
}

ColorWord HsvToColor(const HsvColor* hsv) {
    const double v = std::min(hsv->Value, 1.0);
    const double s = std::min(hsv->Saturation, 1.0);
    if (s == 0.0) {
        const int level = ToLevel(v);
        return MakeColor(level, level, level);
    }
    const double h = hsv->Hue / 60.0;
    // Compared as a double, since a hue may lie outside the range of an integer.
    const double sector = std::floor(h);
    const double f = h - sector;
    const int value = ToLevel(v);
    const int p = ToLevel((1.0 - s) * v);
    const int q = ToLevel((1.0 - f * s) * v);
    const int t = ToLevel((1.0 - (1.0 - f) * s) * v);
    if (sector == 0.0) return MakeColor(value, t, p);
    if (sector == 1.0) return MakeColor(q, value, p);
    if (sector == 2.0) return MakeColor(p, value, t);
    if (sector == 3.0) return MakeColor(p, q, value);
    if (sector == 4.0) return MakeColor(t, p, value);
    return MakeColor(value, p, q);
}

}  // namespace tess
