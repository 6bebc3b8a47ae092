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

/// Draws the rings and the outline of a shape through `draw_ring(context, i)`. The form
/// is empty without memory.
template <class DrawRing>
SpriteForm MakeForm(const raster::Rect& rectangle, DrawRing draw_ring) {
    const int width = kScale * (rectangle.right - rectangle.left);
    const int height = kScale * (rectangle.bottom - rectangle.top);
    SpriteForm form{};
    form.RingCount = 2 * std::min(width, height) / 3;

    SupersampledDrawing rings(width, height);
    if (!rings) return {};
    for (int i = 0; i < form.RingCount; ++i) {
        const auto number = static_cast<ColorWord>(i + 1);
        rings.Context().brush = raster::SolidBrush(number);
        rings.Context().pen = raster::SolidPen(kRingPen, number);
        draw_ring(rings.Context(), i);
    }
    form.Rings.Reset(rings.TakeLarge());

    SupersampledDrawing outline(width, height);
    if (!form.Rings || !outline) return {};
    outline.Context().brush = raster::kWhiteBrush;
    outline.Context().pen = raster::kNullPen;
    draw_ring(outline.Context(), 0);
    form.Mask = outline.TakeShrunk(kPercent);
    return form.Mask.Picture ? std::move(form) : SpriteForm{};
}

/// Colours the rings of a form. There is no picture without memory.
ShrunkPicture RenderSprite(const SpriteForm& form, const ShadedColors& colors, RingAngle angle) {
    // A red byte is enough for the numbers: 95 pixels a side make 253 rings.
    ColorWord ring_colors[256] = {colors.Background};
    for (int i = 0; i < form.RingCount; ++i) {
        ring_colors[i + 1] = RingColor(colors, RingWeight(i, form.RingCount, angle));
    }
    const platform::OwnedBlock large(DuplicateImage(form.Rings.Get()));
    {
        const LockedImage picture(large.Get());
        if (!picture) return {};
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
    platform::OwnedBlock sprite(
        MergeAlphaImage(small ? small.Get() : large.Get(), form.Mask.Picture.Get()));
    const bool is_shrunk = sprite && small && form.Mask.IsShrunk;
    return {std::move(sprite), is_shrunk};
}

/// Renders a sprite of the form, which is made at first use and again after one whose
/// mask stayed large.
template <class DrawRing>
ShrunkPicture RenderShape(const ShadedColors& colors, const raster::Rect& rectangle,
                          RingAngle angle, SpriteForm* form, DrawRing draw_ring) {
    if (!form->Mask.IsShrunk) {
        *form = {};
        *form = MakeForm(rectangle, draw_ring);
    }
    return form->Rings ? RenderSprite(*form, colors, angle) : ShrunkPicture{};
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

ShrunkPicture RenderShadedBall(const ShadedColors& colors, const raster::Rect& rectangle,
                               RingAngle angle, SpriteForm* form) {
    const int width = kScale * (rectangle.right - rectangle.left);
    const int height = kScale * (rectangle.bottom - rectangle.top);
    const auto draw_ring = [=](raster::DrawingContext& context, int i) {
        raster::Ellipse(context, i, i / 2, width - i, height - i);
    };
    return RenderShape(colors, rectangle, angle, form, draw_ring);
}

ImageHandle FindBall(BallSet* balls, const FillColorList& colors, int color_index) {
    platform::OwnedBlock& sprite = balls->Sprites[static_cast<std::size_t>(color_index)];
    if (!sprite) {
        const ColorWord color = colors.Colors[color_index];
        sprite = RenderShadedBall(ShadeColor(color, color, balls->Shading),
                                  {0, 0, balls->Size, balls->Size}, balls->Angle, &balls->Form)
                     .Picture;
    }
    return sprite.Get();
}

ShrunkPicture RenderShadedBar(const ShadedColors& colors, int corner_size,
                              const raster::Rect& rectangle, SpriteForm* form) {
    const int width = kScale * (rectangle.right - rectangle.left);
    const int height = kScale * (rectangle.bottom - rectangle.top);
    const bool wide = width > height;
    const auto draw_ring = [=](raster::DrawingContext& context, int i) {
        const int corner = kScale * corner_size - i;
        raster::RoundRect(context, wide ? i : i / 4, wide ? i / 4 : i, width - i, height - i,
                          corner, corner);
    };
    return RenderShape(colors, rectangle, RingAngle::Double, form, draw_ring);
}

ShrunkPicture RenderShadowMask(int width, int height, int opacity) {
    SupersampledDrawing drawing(kScale * width, kScale * height);
    if (!drawing) return {};
    const int corner = kScale * std::min(width, height);
    raster::DrawingContext& context = drawing.Context();
    context.brush = raster::SolidBrush(MakeColor(opacity, opacity, opacity));
    context.pen = raster::kNullPen;
    raster::RoundRect(context, 0, 0, kScale * width, kScale * height, corner, corner);
    return drawing.TakeShrunk(kPercent);
}

void DrawOverShadow(PackedDib* tile, raster::Point place, ImageHandle sprite,
                    SpriteShadow* shadow) {
    if (shadow->Offset >= 1 && shadow->Opacity >= 1) {
        constexpr int kShadowAlpha = 255;
        const LockedImage mask(shadow->Mask.Find(
            [shadow] { return RenderShadowMask(shadow->Width, shadow->Height, shadow->Opacity); }));
        if (!mask) return;
        const int distance =
            ShadowDistance(std::min(shadow->Width, shadow->Height), shadow->Offset);
        WrapStampMask(tile, mask, place.x + distance, place.y + distance, 0, kShadowAlpha);
    }
    const LockedImage picture(sprite);
    if (picture) WrapBlendImage(tile, picture, place.x, place.y);
}

}  // namespace tess
