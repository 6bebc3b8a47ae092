// The bands of a linear gradient without any left out: the literal version of
// DrawLinearGradient. All in a header, since only tests from fills/ up can link it.
#pragma once

#include <algorithm>
#include <cmath>

#include "fills/gradient.h"
#include "raster/shapes.h"
#include "runtime/mathematics.h"

namespace tess::test {

[[nodiscard]] inline ImageHandle PlainLinearGradient(ColorWord first, ColorWord second, int width,
                                                     int height, int rotation,
                                                     const Gradient* gradient) {
    DibCanvas canvas;
    if (DibCanvasOpen(width, height, &canvas) == 0) return nullptr;
    canvas.MemoryDC.pen = raster::kNullPen;
    const int cx = width / 2, cy = height / 2;
    const float a = static_cast<float>(rotation) * 0.01745328F;
    const auto c = static_cast<float>(runtime::Cosine(double{a}));
    const auto s = static_cast<float>(runtime::Sine(double{a}));
    const auto rot = [&](int column, int row) {
        const auto x = static_cast<float>(column), y = static_cast<float>(row);
        return raster::Point{static_cast<int>(x * c - y * s) + cx,
                             static_cast<int>(y * c + x * s) + cy};
    };
    const raster::Point corners[] = {rot(-2 - cx, -2 - cy), rot(width + 2 - cx, -2 - cy),
                                     rot(width + 2 - cx, height + 2 - cy),
                                     rot(-2 - cx, height + 2 - cy)};
    int min_x = corners[0].x, max_x = min_x, min_y = corners[0].y, max_y = min_y;
    for (const raster::Point& corner : corners) {
        min_x = std::min(min_x, corner.x);
        max_x = std::max(max_x, corner.x);
        min_y = std::min(min_y, corner.y);
        max_y = std::max(max_y, corner.y);
    }
    const auto span = static_cast<float>(max_y - min_y);
    const float step = span * 0.00390625F;
    const int xa = min_x - cx, xb = max_x - cx;
    platform::OwnedBlock ramp;
    if (gradient != nullptr)
        ramp.Reset(BuildGradientRamp(*gradient, static_cast<int>(span / step + 0.5)));
    int i = 0;
    for (float pos = 0.0F; pos < span; pos += step, ++i) {
        const float t = pos / span;
        const int top = static_cast<int>(pos) + min_y - cy;
        const int bottom = static_cast<int>(std::ceil(pos + step)) + min_y - cy;
        const raster::Point outline[] = {rot(xa, top), rot(xb, top), rot(xb, bottom),
                                         rot(xa, bottom), rot(xa, top)};
        const auto mix = [t](std::uint8_t from, std::uint8_t to) {
            const float part = static_cast<float>(from) * t;
            return static_cast<int>(double{part} + to * (1.0 - double{t}));
        };
        ColorWord color =
            MakeColor(mix(RedOf(first), RedOf(second)), mix(GreenOf(first), GreenOf(second)),
                      mix(BlueOf(first), BlueOf(second)));
        if (gradient != nullptr) {
            const LockedRamp colors(ramp.Get());
            color = static_cast<std::uint32_t>(i) < colors->Count ? colors->Colors()[i] & kColorBits
                                                                  : 0;
        }
        canvas.MemoryDC.brush = raster::SolidBrush(color);
        raster::Polygon(canvas.MemoryDC, outline);
    }
    return DibCanvasClose(&canvas, CanvasClose::Keep);
}

}  // namespace tess::test
