// Shaded balls and bars with every step made for every sprite: the rings painted in
// their own colours, the glare screened over them, the mask drawn anew.
#pragma once

#include <algorithm>
#include <utility>

#include "pipeline/image_buffers.h"
#include "pipeline/image_scaling.h"
#include "platform/block_guards.h"
#include "raster/shapes.h"
#include "runtime/mathematics.h"
#include "toolkit/color_space.h"
#include "toolkit/wrap_compositing.h"

namespace tess::test {

enum class PlainShape { SingleBall, DoubleBall, Bar };

struct PlainSprite {
    PlainShape shape;
    int width, height;
    int corner_size;  // of a bar
    ColorWord base, dark, background;
    int glare;
};

inline ColorWord PlainChangeValue(ColorWord color, double change) {
    HsvColor hsv;
    ColorToHsv(&hsv, color);
    hsv.Value = hsv.Value + change;
    return HsvToColor(&hsv);
}

inline void PlainRing(raster::DrawingContext& context, const PlainSprite& sprite, int i) {
    const int width = 4 * sprite.width;
    const int height = 4 * sprite.height;
    if (sprite.shape != PlainShape::Bar) {
        raster::Ellipse(context, i, i / 2, width - i, height - i);
        return;
    }
    const int corner = 4 * sprite.corner_size - i;
    if (width > height) {
        raster::RoundRect(context, i, i / 4, width - i, height - i, corner, corner);
    } else {
        raster::RoundRect(context, i / 4, i, width - i, height - i, corner, corner);
    }
}

/// Screens a glare picture over the sprite. The picture is black whatever the glare.
inline void PlainGlare(ImageHandle handle, const PlainSprite& sprite) {
    const int shorter = 4 * std::min(sprite.width, sprite.height);
    int across = shorter / 3;
    int down = shorter / 6;
    if (sprite.shape == PlainShape::Bar && sprite.width <= sprite.height) std::swap(across, down);
    const int size = std::max(2 * shorter / 5, 8);
    const platform::OwnedBlock black(NewSolidImage({0, 0, size, size}, 0));
    const LockedImage image(handle);
    const LockedImage glare(black.Get());
    for (int b = 0; b < size; ++b) {
        for (int a = 0; a < size; ++a) {
            const int g = RedOf(GetDibPixel(glare, a, b));
            const ColorWord old = GetDibPixel(image, across + a, down + b);
            const auto screen = [g](int channel) { return channel * (255 - g) / 255 + g; };
            SetDibPixel(image, across + a, down + b,
                        MakeColor(screen(RedOf(old)), screen(GreenOf(old)), screen(BlueOf(old))));
        }
    }
}

inline double PlainDegrees(PlainShape shape, int i, int rings) {
    if (shape == PlainShape::SingleBall) {
        const float quotient = static_cast<float>(i) / static_cast<float>(rings);
        const float degrees = quotient * 90.0F;
        return static_cast<double>(degrees);
    }
    return static_cast<double>(i) / static_cast<double>(rings) * 90.0;
}

/// Owned by the caller.
inline ImageHandle PlainRenderSprite(const PlainSprite& sprite) {
    const int shorter = 4 * std::min(sprite.width, sprite.height);
    const int rings = 2 * shorter / 3;
    DibCanvas canvas;
    if (DibCanvasOpen(4 * sprite.width, 4 * sprite.height, &canvas) == 0) return nullptr;
    raster::FillRect(canvas.MemoryDC, canvas.Bounds, raster::SolidBrush(sprite.background));
    for (int i = 0; i < rings; ++i) {
        const double radians = PlainDegrees(sprite.shape, i, rings) * 3.141592653589793 / 180.0;
        const int w = static_cast<int>(runtime::Sine(radians) * 255.0);
        const auto channel = [w](int dark, int base) {
            return (dark * (255 - w) + base * w) / 255;
        };
        const ColorWord color = MakeColor(channel(RedOf(sprite.dark), RedOf(sprite.base)),
                                          channel(GreenOf(sprite.dark), GreenOf(sprite.base)),
                                          channel(BlueOf(sprite.dark), BlueOf(sprite.base)));
        canvas.MemoryDC.brush = raster::SolidBrush(color);
        canvas.MemoryDC.pen = raster::SolidPen(8, color);
        PlainRing(canvas.MemoryDC, sprite, i);
    }
    const platform::OwnedBlock large(DibCanvasClose(&canvas, CanvasClose::Keep));
    if (sprite.glare > 0) PlainGlare(large.Get(), sprite);
    const platform::OwnedBlock picture(ScaleImagePercent(large.Get(), 25, 25));

    if (DibCanvasOpen(4 * sprite.width, 4 * sprite.height, &canvas) == 0) return nullptr;
    raster::FillRect(canvas.MemoryDC, canvas.Bounds, raster::kBlackBrush);
    canvas.MemoryDC.brush = raster::kWhiteBrush;
    canvas.MemoryDC.pen = raster::kNullPen;
    PlainRing(canvas.MemoryDC, sprite, 0);
    const platform::OwnedBlock large_mask(DibCanvasClose(&canvas, CanvasClose::Keep));
    const platform::OwnedBlock mask(ScaleImagePercent(large_mask.Get(), 25, 25));
    return MergeAlphaImage(picture.Get(), mask.Get());
}

/// A soft shadow's mask, owned by the caller.
inline ImageHandle PlainShadowMask(int width, int height, int opacity) {
    DibCanvas canvas;
    if (DibCanvasOpen(4 * width, 4 * height, &canvas) == 0) return nullptr;
    raster::FillRect(canvas.MemoryDC, canvas.Bounds, raster::kBlackBrush);
    canvas.MemoryDC.brush = raster::SolidBrush(MakeColor(opacity, opacity, opacity));
    canvas.MemoryDC.pen = raster::kNullPen;
    const int corner = 4 * std::min(width, height);
    raster::RoundRect(canvas.MemoryDC, 0, 0, 4 * width, 4 * height, corner, corner);
    const platform::OwnedBlock large(DibCanvasClose(&canvas, CanvasClose::Keep));
    return ScaleImagePercent(large.Get(), 25, 25);
}

/// Lays a sprite over its shadow, both made for this one time.
struct PlainShadow {
    int offset, opacity;  // as the panels have them
};
inline void PlainDrawSprite(PackedDib* tile, int x, int y, const PlainSprite& sprite,
                            const PlainShadow& shadow) {
    const int size = std::min(sprite.width, sprite.height);
    if (shadow.offset >= 1 && shadow.opacity >= 1) {
        const int quotient = size * shadow.offset / 100;
        const platform::OwnedBlock made(
            PlainShadowMask(sprite.width, sprite.height, shadow.opacity));
        const LockedImage mask(made.Get());
        WrapStampMask(tile, mask, x + 4 * quotient, y + 4 * quotient, 0x000000, 255);
    }
    const platform::OwnedBlock made(PlainRenderSprite(sprite));
    const LockedImage picture(made.Get());
    WrapBlendImage(tile, picture, x, y);
}

}  // namespace tess::test
