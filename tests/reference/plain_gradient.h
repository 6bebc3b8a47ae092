// Gradients and fountains step by step: the literal versions of fills/gradient.cpp,
// fills/gradient_ramp.cpp and RenderFountainImage, without a band left out or a level
// kept. Memory is taken as had. All in a header, since only tests from fills/ up can link
// it.
#pragma once

#include <algorithm>
#include <cmath>
#include <vector>

#include "fills/gradient.h"
#include "raster/shapes.h"
#include "runtime/mathematics.h"

namespace tess::test {

[[nodiscard]] std::vector<ColorWord> PlainGradientRamp(const Gradient& gradient, int n);

namespace plain_gradient {

/// Per channel trunc(first * t + second * (1.0 - t)), the first product in single precision
/// and the rest in double.
inline ColorWord Mix(ColorWord first, ColorWord second, float t) {
    const auto channel = [t](std::uint8_t one, std::uint8_t other) {
        const float part = static_cast<float>(one) * t;
        return static_cast<int>(double{part} + other * (1.0 - double{t}));
    };
    return MakeColor(channel(RedOf(first), RedOf(second)), channel(GreenOf(first), GreenOf(second)),
                     channel(BlueOf(first), BlueOf(second)));
}

/// Colour `i` with the top byte cleared, black outside the ramp.
inline ColorWord RampColor(const std::vector<ColorWord>& ramp, int i) {
    const auto place = static_cast<std::size_t>(i);
    return place < ramp.size() ? ramp[place] & 0x00FFFFFF : 0;
}

}  // namespace plain_gradient

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
    std::vector<ColorWord> ramp;
    if (gradient != nullptr)
        ramp = PlainGradientRamp(*gradient, static_cast<int>(span / step + 0.5));
    int i = 0;
    for (float pos = 0.0F; pos < span; pos += step, ++i) {
        const float t = pos / span;
        const int top = static_cast<int>(pos) + min_y - cy;
        const int bottom = static_cast<int>(std::ceil(pos + step)) + min_y - cy;
        const raster::Point outline[] = {rot(xa, top), rot(xb, top), rot(xb, bottom),
                                         rot(xa, bottom), rot(xa, top)};
        canvas.MemoryDC.brush =
            raster::SolidBrush(gradient != nullptr ? plain_gradient::RampColor(ramp, i)
                                                   : plain_gradient::Mix(first, second, t));
        raster::Polygon(canvas.MemoryDC, outline);
    }
    return DibCanvasClose(&canvas, CanvasClose::Keep);
}

[[nodiscard]] inline ImageHandle PlainFountainImage(const Fountain& fountain, int width,
                                                    int height) {
    platform::OwnedBlock picture(NewPackedDib(width, height, nullptr, 24));
    const LockedImage image(picture.Get());
    if (!image) return nullptr;
    const auto draw_strip = [&](int left, int seg, ColorWord from, ColorWord to) {
        const platform::OwnedBlock strip(PlainLinearGradient(from, to, seg, height, 90, nullptr));
        const LockedImage pixels(strip.Get());
        for (int y = 0; y < height; ++y) {
            for (int x = 0; x < seg; ++x)
                SetDibPixel(image, left + x, y, GetDibPixel(pixels, x, y));
        }
    };
    ColorWord from = fountain.Start & 0x00FFFFFF;
    int prev = 0;
    for (int i = 0; i < fountain.Count && i < 64; ++i) {
        const ColorWord to = fountain.Markers[i] & 0x00FFFFFF;
        const int position = static_cast<int>((fountain.Markers[i] >> 24) / 255.0 * width);
        const int seg = position - prev;
        if (seg > 0) draw_strip(prev, seg, from, to);
        prev = position;
        from = to;
    }
    const ColorWord to =
        ((fountain.Flags & 2) != 0 ? ColorWord{fountain.Start} : ColorWord{fountain.End}) &
        0x00FFFFFF;
    const int seg = width - prev;
    if (seg >= 1) draw_strip(prev, seg, from, to);
    return picture.Release();
}

/// Requires: the edge pad is up to 50 and the midpoint 1 to 99.
inline std::vector<ColorWord> PlainGradientRamp(const Gradient& gradient, int n) {
    std::vector<ColorWord> colors(static_cast<std::size_t>(n));
    const auto at = [&colors](int i) -> ColorWord& { return colors[static_cast<std::size_t>(i)]; };
    const auto copy_strip = [&](const Fountain& fountain, int first, int count) {
        const platform::OwnedBlock strip(PlainFountainImage(fountain, count, 1));
        const LockedImage pixels(strip.Get());
        for (int i = 0; i < count; ++i)
            at(first + i) = GetDibPixel(pixels, i, 0) & 0x00FFFFFF;
    };
    if (n == 0) return colors;
    int pad = 0, m = n;
    if (gradient.EdgePad > 0) {
        pad = static_cast<int>(gradient.EdgePad / 100.0 * n);
        m = n - 2 * pad;
        for (int i = 0; i < pad; ++i)
            at(i) = gradient.StartColor;
        for (int i = n - pad; i < n; ++i)
            at(i) = gradient.EndColor;
    }
    if (gradient.TwoColor == 0) {
        copy_strip(gradient.Ramp, pad, m);
        return colors;
    }
    if (gradient.Midpoint == 50) {
        for (int i = 0; i < m; ++i) {
            const float t = static_cast<float>(i) / static_cast<float>(m);
            at(pad + i) = plain_gradient::Mix(gradient.EndColor, gradient.StartColor, t);
        }
    } else {
        const int p = static_cast<int>(gradient.EdgePad / 100.0 * 255.0);
        const int middle = static_cast<int>((255 - 2 * p) * (gradient.Midpoint / 100.0));
        Fountain fountain{};
        fountain.Start = gradient.StartColor;
        fountain.End = gradient.EndColor;
        fountain.Count = 2;
        fountain.Markers[0] =
            static_cast<std::uint32_t>(p) << 24 | (gradient.StartColor & 0x00FFFFFF);
        fountain.Markers[1] = static_cast<std::uint32_t>(middle) << 24 |
                              plain_gradient::Mix(gradient.EndColor, gradient.StartColor, 0.5F);
        copy_strip(fountain, 0, n);
    }
    at(0) = gradient.StartColor;
    at(n - 1) = gradient.EndColor;
    return colors;
}

[[nodiscard]] inline ImageHandle PlainConicalGradient(int width, int height,
                                                      const Gradient& gradient) {
    platform::OwnedBlock picture(NewPackedDib(width, height, nullptr, 24));
    const LockedImage image(picture.Get());
    if (!image) return nullptr;
    int spin = 360 - gradient.Rotation;
    if (spin < 0) spin += 360;
    const int ox = static_cast<int>((gradient.CenterX / 100.0 + 0.5) * width);
    const int oy = static_cast<int>((0.5 - gradient.CenterY / 100.0) * height);
    const std::vector<ColorWord> ramp = PlainGradientRamp(gradient, 360);
    for (int r = 0; r < height; ++r) {
        for (int k = 0; k < width; ++k) {
            const int dx = k - ox, dy = r - oy;
            float ang = dy > 0 ? 270.0F : 90.0F;
            if (dx != 0) {
                const float quotient = static_cast<float>(dy) / static_cast<float>(dx);
                ang = static_cast<float>(runtime::ArcTangent(double{quotient}) * 57.29577951308232);
                if (dx > 0) ang += 180.0F;
                while (ang < 0.0F)
                    ang += 360.0F;
            }
            float b = ang + static_cast<float>(spin);
            while (b > 360.0F)
                b -= 360.0F;
            if (b > 180.0F) b = 360.0F - b;
            const double v = std::clamp(static_cast<int>(b / 180.0 * 256.0) * 0.00390625, 0.0, 1.0);
            SetDibPixel(image, k, r, plain_gradient::RampColor(ramp, static_cast<int>(v * 359.0)));
        }
    }
    return picture.Release();
}

/// Elliptical and rectangular ones, by the record's type.
[[nodiscard]] inline ImageHandle PlainNestedGradient(int width, int height,
                                                     const Gradient& gradient) {
    const auto shape =
        gradient.Type == GradientType::Elliptical ? raster::Ellipse : raster::Rectangle;
    const int hw = width / 2, hh = height / 2;
    const float squares = static_cast<float>(hw) * static_cast<float>(hw) +
                          static_cast<float>(hh) * static_cast<float>(hh);
    const int count = static_cast<int>(std::sqrt(double{squares}) + 0.5);
    DibCanvas canvas;
    if (DibCanvasOpen(width, height, &canvas) == 0) return nullptr;
    canvas.MemoryDC.pen = raster::kNullPen;
    const std::vector<ColorWord> ramp = PlainGradientRamp(gradient, count);
    raster::FillRect(canvas.MemoryDC, canvas.Bounds,
                     raster::SolidBrush(plain_gradient::RampColor(ramp, 0)));
    const auto w = static_cast<float>(width * std::sqrt(2.0));
    const auto h = static_cast<float>(height * std::sqrt(2.0));
    const auto n = static_cast<float>(count);
    float left = static_cast<float>(hw) - w / 2.0F, right = static_cast<float>(hw) + w / 2.0F;
    float top = static_cast<float>(hh) - h / 2.0F, bottom = static_cast<float>(hh) + h / 2.0F;
    for (int i = 0; i < count; ++i) {
        const float dw = w / 2.0F / n, dh = h / 2.0F / n;
        const float sx = (w / n * static_cast<float>(gradient.CenterX)) / 100.0F;
        const float sy = (h / n * static_cast<float>(gradient.CenterY)) / 100.0F;
        canvas.MemoryDC.brush = raster::SolidBrush(plain_gradient::RampColor(ramp, i));
        shape(canvas.MemoryDC, static_cast<int>(left), static_cast<int>(top),
              static_cast<int>(right), static_cast<int>(bottom));
        left += dw + sx;
        top += dh + sy;
        right += sx - dw;
        bottom += sy - dh;
    }
    return DibCanvasClose(&canvas, CanvasClose::Keep);
}

[[nodiscard]] inline ImageHandle PlainGradient(int width, int height, const Gradient& gradient) {
    switch (gradient.Type) {
        case GradientType::Conical:
            return PlainConicalGradient(width, height, gradient);
        case GradientType::Elliptical:
        case GradientType::Rectangular:
            return PlainNestedGradient(width, height, gradient);
        default:
            return PlainLinearGradient(gradient.StartColor, gradient.EndColor, width, height,
                                       gradient.Rotation, &gradient);
    }
}

}  // namespace tess::test
