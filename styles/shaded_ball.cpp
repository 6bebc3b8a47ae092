// A sprite is a pile of rings, from the dark rim inwards. Ring i of R has the colour
//
//   (dark x (255 - w) + base x w) / 255,  w = 255 sin(90 degrees x i / R), cut,
//
// and one of its box's sides moves inwards more slowly than the others: the rings
// crowd towards it, and the brightest part stands off the middle, as if lit from
// there. Past the middle a box may be crossed; it paints as its ordered form.
//
// A sprite's rings are painted once for each shape, with their numbers for colours,
// and only then coloured: which ring a pixel shows does not depend on the colours.
//
// The panels' Glare has no visible effect: the picture of the glare that would be
// screened over a sprite is black at every strength, which leaves the sprite as it
// is. So no pass is made for it here.
#include "styles/shaded_ball.h"

#include <algorithm>
#include <cstdint>
#include <numbers>
#include <utility>

#include "pipeline/image_scaling.h"
#include "platform/block_guards.h"
#include "raster/shapes.h"
#include "runtime/mathematics.h"
#include "toolkit/color_space.h"
#include "toolkit/wrap_compositing.h"

namespace tess {

namespace {

constexpr int kScale = 4;     // sprites are drawn this much larger
constexpr int kRingPen = 8;   // at that scale
constexpr int kPercent = 25;  // and back
/// 255 at the crown, 0 at the rim.
int RingWeight(int ring, int rings, RingAngle angle) {
    const double degrees =
        angle == RingAngle::Single
            ? static_cast<double>(static_cast<float>(ring) / static_cast<float>(rings) * 90.0F)
            : static_cast<double>(ring) / rings * 90.0;
    return static_cast<int>(runtime::Sine(degrees * std::numbers::pi / 180.0) * 255.0);
}

ColorWord RingColor(const ShadedColors& colors, int weight) {
    const auto mixed = [weight](int dark, int base) {
        return (dark * (255 - weight) + base * weight) / 255;
    };
    return MakeColor(mixed(RedOf(colors.Dark), RedOf(colors.Base)),
                     mixed(GreenOf(colors.Dark), GreenOf(colors.Base)),
                     mixed(BlueOf(colors.Dark), BlueOf(colors.Base)));
}

/// The canvas's picture at a quarter of its size, which stays large when there is no
/// memory to scale it.
ImageHandle CloseAndShrink(DibCanvas* canvas) {
    platform::OwnedBlock large(DibCanvasClose(canvas, CanvasClose::Keep));
    if (!large) return nullptr;
    const ImageHandle small = ScaleImagePercent(large.Get(), kPercent, kPercent);
    return small != nullptr ? small : large.Release();
}

/// Draws the rings and the outline of a shape through `draw_ring(context, i)`.
/// Returns false without memory, and leaves `form` empty.
template <class DrawRing>
bool FillForm(SpriteForm* form, const raster::Rect& rectangle, DrawRing draw_ring) {
    const int width = kScale * (rectangle.right - rectangle.left);
    const int height = kScale * (rectangle.bottom - rectangle.top);
    const int rings = 2 * std::min(width, height) / 3;

    DibCanvas canvas;
    if (DibCanvasOpen(width, height, &canvas) == 0) return false;
    for (int i = 0; i < rings; ++i) {
        const auto number = static_cast<ColorWord>(i + 1);
        canvas.MemoryDC.brush = raster::SolidBrush(number);
        canvas.MemoryDC.pen = raster::SolidPen(kRingPen, number);
        draw_ring(canvas.MemoryDC, i);
    }
    platform::OwnedBlock picture(DibCanvasClose(&canvas, CanvasClose::Keep));
    if (!picture) return false;

    if (DibCanvasOpen(width, height, &canvas) == 0) return false;
    canvas.MemoryDC.brush = raster::kWhiteBrush;
    canvas.MemoryDC.pen = raster::kNullPen;
    draw_ring(canvas.MemoryDC, 0);
    form->Mask.Reset(CloseAndShrink(&canvas));
    if (!form->Mask) return false;
    form->Rings = std::move(picture);
    form->RingCount = rings;
    return true;
}

/// Colours the rings of a form.
ImageHandle RenderSprite(const SpriteForm& form, const ShadedColors& colors, RingAngle angle) {
    // A red byte is enough for the numbers: 95 pixels a side make 253 rings.
    ColorWord ring_colors[256] = {colors.Background};
    for (int i = 0; i < form.RingCount; ++i) {
        ring_colors[i + 1] = RingColor(colors, RingWeight(i, form.RingCount, angle));
    }
    const platform::OwnedBlock large(DuplicateImage(form.Rings.Get()));
    {
        const LockedImage picture(large.Get());
        if (!picture) return nullptr;
        for (int y = 0; y < picture->Height; ++y) {
            std::uint8_t* pixel = DibRow(picture.Get(), y);
            for (int x = 0; x < picture->Width; ++x, pixel += 3) {
                const ColorWord color = ring_colors[pixel[2]];
                pixel[0] = BlueOf(color);
                pixel[1] = GreenOf(color);
                pixel[2] = RedOf(color);
            }
        }
    }
    const platform::OwnedBlock small(ScaleImagePercent(large.Get(), kPercent, kPercent));
    return MergeAlphaImage(small ? small.Get() : large.Get(), form.Mask.Get());
}

}  // namespace

ColorWord ChangeValue(ColorWord color, double change) {
    HsvColor hsv;
    ColorToHsv(&hsv, color);
    hsv.Value += change;
    return HsvToColor(&hsv);
}

ShadedColors ShadeColor(ColorWord color, ColorWord background, int shading) {
    return {color, ChangeValue(color, (1.0 - shading / 100.0) - 1.0), background};
}

ImageHandle RenderShadedBall(const ShadedColors& colors, const raster::Rect& rectangle,
                             RingAngle angle, SpriteForm* form) {
    const int width = kScale * (rectangle.right - rectangle.left);
    const int height = kScale * (rectangle.bottom - rectangle.top);
    const auto draw_ring = [=](raster::DrawingContext& context, int i) {
        raster::Ellipse(context, i, i / 2, width - i, height - i);
    };
    if (!form->Rings && !FillForm(form, rectangle, draw_ring)) return nullptr;
    return RenderSprite(*form, colors, angle);
}

ImageHandle RenderShadedBar(const ShadedColors& colors, int corner_size,
                            const raster::Rect& rectangle, SpriteForm* form) {
    const int width = kScale * (rectangle.right - rectangle.left);
    const int height = kScale * (rectangle.bottom - rectangle.top);
    const bool wide = width > height;
    const auto draw_ring = [=](raster::DrawingContext& context, int i) {
        const int corner = kScale * corner_size - i;
        raster::RoundRect(context, wide ? i : i / 4, wide ? i / 4 : i, width - i, height - i,
                          corner, corner);
    };
    if (!form->Rings && !FillForm(form, rectangle, draw_ring)) return nullptr;
    return RenderSprite(*form, colors, RingAngle::Double);
}

ImageHandle RenderShadowMask(int width, int height, int opacity) {
    DibCanvas canvas;
    if (DibCanvasOpen(kScale * width, kScale * height, &canvas) == 0) return nullptr;
    const int corner = kScale * std::min(width, height);
    canvas.MemoryDC.brush = raster::SolidBrush(MakeColor(opacity, opacity, opacity));
    canvas.MemoryDC.pen = raster::kNullPen;
    raster::RoundRect(canvas.MemoryDC, 0, 0, kScale * width, kScale * height, corner, corner);
    return CloseAndShrink(&canvas);
}

}  // namespace tess
