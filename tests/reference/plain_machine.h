// Machine step by step, pixel by pixel: no directions, ramp or weights kept.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdlib>
#include <vector>

#include "pipeline/image_buffers.h"
#include "platform/block_guards.h"
#include "raster/shapes.h"
#include "runtime/mathematics.h"
#include "tests/reference/plain_scaling.h"

namespace tess::test {

struct PlainMachineSettings {
    int size = 48;
    int rotation = 6;
    int offset = 180;
    bool inverse = false;
    ColorWord start = 0xFFFFFF, end = 0x996633;
};

/// A square of colour words, the top row first.
struct PlainSquare {
    int side;
    std::vector<ColorWord> pixels;

    ColorWord& At(int x, int y) { return pixels[static_cast<std::size_t>(y * side + x)]; }
    [[nodiscard]] ColorWord At(int x, int y) const {
        return pixels[static_cast<std::size_t>(y * side + x)];
    }
};

/// The colour whose channels `mix` makes of those of two colours, each cut to a byte.
template <class Mix>
ColorWord PlainMixChannels(ColorWord one, ColorWord other, Mix mix) {
    return MakeColor(mix(RedOf(one), RedOf(other)), mix(GreenOf(one), GreenOf(other)),
                     mix(BlueOf(one), BlueOf(other)));
}

/// The direction of a pixel from the cone's centre, in degrees.
inline float PlainConeDirection(int dx, int dy) {
    if (dx == 0) return dy > 0 ? 270.0F : 90.0F;
    const float slope = static_cast<float>(dy) / static_cast<float>(dx);
    const auto radians = static_cast<float>(runtime::ArcTangent(static_cast<double>(slope)));
    auto d = static_cast<float>(static_cast<double>(radians) * 57.29577951308232);
    if (dx > 0) d = static_cast<float>(static_cast<double>(d) + 180.0);
    while (d < 0.0F)
        d = static_cast<float>(static_cast<double>(d) + 360.0);
    return d;
}

inline PlainSquare PlainCone(const PlainMachineSettings& settings, int angle) {
    const int center = static_cast<int>(0.5 * settings.size);
    int r = 360 - angle;
    if (r < 0) r += 360;
    PlainSquare cone{settings.size, {}};
    for (int y = 0; y < settings.size; ++y) {
        for (int x = 0; x < settings.size; ++x) {
            double a = static_cast<double>(PlainConeDirection(x - center, y - center)) + r;
            while (a > 360.0)
                a -= 360.0;
            if (a > 180.0) a = 360.0 - a;
            const double w = std::clamp(static_cast<int>(a / 180.0 * 256.0) * 0.00390625, 0.0, 1.0);
            cone.pixels.push_back(PlainMixChannels(
                settings.start, settings.end,
                [w](int start, int end) { return static_cast<int>(end * w + start * (1.0 - w)); }));
        }
    }
    return cone;
}

/// Turned by 45 degrees about its centre, on a square of `side`.
inline PlainSquare PlainRotate45(const PlainSquare& source, int side) {
    const double c = runtime::Cosine(3.141592653589793 / 4);
    const double s = runtime::Sine(3.141592653589793 / 4);
    PlainSquare turned{side, {}};
    for (int y = 0; y < side; ++y) {
        for (int x = 0; x < side; ++x) {
            const int u = x - side / 2;
            const int v = y - side / 2;
            const double from_x = u * c - v * s + source.side / 2;
            const double from_y = u * s + v * c + source.side / 2;
            const int left = static_cast<int>(from_x);
            const int top = static_cast<int>(from_y);
            if (left < 0 || top < 0 || left >= source.side || top >= source.side) {
                turned.pixels.push_back(0x808080);
                continue;
            }
            const int step = left + 1 < source.side && top + 1 < source.side ? 1 : 0;
            const double fx = from_x - left;
            const double fy = from_y - top;
            const auto level = [&](auto channel) {
                return static_cast<int>(channel(source.At(left, top)) * ((1 - fx) * (1 - fy)) +
                                        channel(source.At(left + step, top)) * (fx * (1 - fy)) +
                                        channel(source.At(left, top + step)) * ((1 - fx) * fy) +
                                        channel(source.At(left + step, top + step)) * (fx * fy));
            };
            turned.pixels.push_back(MakeColor(level(RedOf), level(GreenOf), level(BlueOf)));
        }
    }
    return turned;
}

/// The triangle in one corner of a square of `half`, 0 to 3 from the top left.
inline PlainSquare PlainCornerMask(int corner, int half) {
    const int q = half * 4;
    const raster::Point triangles[4][4] = {{{0, 0}, {q, 0}, {0, q}, {0, 0}},
                                           {{0, 0}, {q, q}, {q, 0}, {0, 0}},
                                           {{0, 0}, {q, q}, {0, q}, {0, 0}},
                                           {{q, 0}, {q, q}, {0, q}, {q, 0}}};
    DibCanvas canvas;
    if (DibCanvasOpen(q, q, &canvas) == 0) return {0, {}};
    raster::FillRect(canvas.MemoryDC, canvas.Bounds, raster::kBlackBrush);
    canvas.MemoryDC.polygon_fill = raster::PolygonFill::Alternate;
    canvas.MemoryDC.brush = raster::kWhiteBrush;
    canvas.MemoryDC.pen = raster::kNullPen;
    raster::Polygon(canvas.MemoryDC, triangles[corner]);
    const platform::OwnedBlock large(DibCanvasClose(&canvas, CanvasClose::Keep));
    const platform::OwnedBlock small(reference::PlainScaleImagePercent(large.Get(), 25, 25));
    const LockedImage image(small.Get());
    PlainSquare mask{half, {}};
    for (int i = 0; image && i < half * half; ++i)
        mask.pixels.push_back(GetDibPixel(image, i % half, i / half));
    return mask;
}

class PlainMachine {
public:
    explicit PlainMachine(const PlainMachineSettings& settings) : settings_(settings) {
        side_ = 2 * static_cast<int>(std::floor(settings.size / std::sqrt(2.0)));
        for (int corner = 0; corner < 4; ++corner)
            masks_.push_back(PlainCornerMask(corner, side_ / 2));
    }

    [[nodiscard]] int FrameCount() const { return 360 / std::abs(settings_.rotation); }

    [[nodiscard]] std::vector<ColorWord> Frame(int f) const {
        const int turned = f * settings_.rotation;
        const int against = (settings_.offset - turned) * (settings_.inverse ? -1 : 1);
        PlainSquare tile = PlainRotate45(PlainCone(settings_, turned), side_);
        const PlainSquare other = PlainRotate45(PlainCone(settings_, against), side_);
        const int h = side_ / 2;
        Blend(tile, 0, 0, other, h, h, masks_[0]);
        Blend(tile, h, 0, other, 0, h, masks_[1]);
        Blend(tile, 0, h, other, h, 0, masks_[2]);
        Blend(tile, h, h, other, 0, 0, masks_[3]);
        return tile.pixels;
    }

private:
    static void Blend(PlainSquare& tile, int dx, int dy, const PlainSquare& source, int sx, int sy,
                      const PlainSquare& mask) {
        for (int j = 0; j < mask.side; ++j) {
            for (int i = 0; i < mask.side; ++i) {
                const int m = RedOf(mask.At(i, j));
                ColorWord& pixel = tile.At(dx + i, dy + j);
                pixel = PlainMixChannels(pixel, source.At(sx + i, sy + j), [m](int d, int s) {
                    return d * (255 - m) / 255 + s * m / 255;
                });
            }
        }
    }

    PlainMachineSettings settings_;
    int side_;
    std::vector<PlainSquare> masks_;
};

}  // namespace tess::test
