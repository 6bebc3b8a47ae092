// The shaded ball of Neural Network, Particles and Wavelet, Gridlock's bar, and the
// soft shadow under them. All are drawn at four times their size and scaled down,
// which is what makes their rims and their shading smooth.
#pragma once

#include <array>
#include <cstdint>

#include "pipeline/image_buffers.h"
#include "platform/block_guards.h"
#include "raster/drawing_context.h"
#include "styles/fill_colors.h"
#include "styles/supersampled_drawing.h"

namespace tess {

/// How the angle of a ring is computed. The two differ in a ring's colour now and
/// then, by one.
enum class RingAngle { Single, Double };

/// What the shading runs between.
struct ShadedColors {
    ColorWord Base;        ///< at the crown
    ColorWord Dark;        ///< at the rim
    ColorWord Background;  ///< seen a little through rim pixels that are partly covered
};

/// `color` with `change` added to its value, which is cut at black and full.
[[nodiscard]] ColorWord ChangeValue(ColorWord color, double change);

/// The colours of a sprite of one colour: `shading` percent of its value are taken
/// away for the dark one.
[[nodiscard]] ShadedColors ShadeColor(ColorWord color, ColorWord background, int shading);

/// What all sprites of one shape have in common. Empty at first: the first sprite of
/// the shape fills it, for the next to use. Where its mask stays large it serves that
/// sprite alone, and the next fills it anew.
struct SpriteForm {
    platform::OwnedBlock Rings;  ///< at the scale of drawing; red is a ring's number + 1
    ShrunkPicture Mask;
    int RingCount;
};

/// A ball that fills the rectangle, as a 32-bit picture of its size. Not shrunk is one
/// whose picture or mask is not. Requires: the rectangle starts at (0, 0), its shorter
/// side is at most 95, and `form` has served no other rectangle.
[[nodiscard]] ShrunkPicture RenderShadedBall(const ShadedColors& colors,
                                             const raster::Rect& rectangle, RingAngle angle,
                                             SpriteForm* form);

/// The balls of one size, one for each fill colour, made at first use and kept as they
/// are. A ball's own colour shines through its rim, not the background.
struct BallSet {
    std::int32_t Size;  ///< diameter
    std::int32_t Shading;
    RingAngle Angle;
    SpriteForm Form;
    std::array<platform::OwnedBlock, 5> Sprites;
};

/// The ball of a colour of the list, owned by `balls`, or null.
[[nodiscard]] ImageHandle FindBall(BallSet* balls, const FillColorList& colors, int color_index);

/// A bar in place of a ball, with round corners of `corner_size`, whose crown lies towards
/// the top of a wide bar and towards the left of a tall one.
[[nodiscard]] ShrunkPicture RenderShadedBar(const ShadedColors& colors, int corner_size,
                                            const raster::Rect& rectangle, SpriteForm* form);

/// A mask with half discs for ends, to stamp a shadow through. Its level is the low
/// byte of `opacity`. A 24-bit picture of the size.
[[nodiscard]] ShrunkPicture RenderShadowMask(int width, int height, int opacity);

/// How far a shadow lies to the right of and below a sprite: `percent` of its size,
/// cut, then four times that.
[[nodiscard]] constexpr int ShadowDistance(int size, int percent) {
    return 4 * (size * percent / 100);
}

/// The shadow under all sprites of one size; none without an offset or an opacity.
struct SpriteShadow {
    std::int32_t Width, Height;  ///< of a sprite
    std::int32_t Offset;         ///< percent of its shorter side
    std::int32_t Opacity;
    ShrunkPicture Mask{};  ///< made at first use
};

/// Lays a sprite with its top left at `place` over its shadow, on a torus. A shadow that
/// cannot be made leaves the sprite out as well; a sprite of null leaves its shadow
/// alone.
void DrawOverShadow(PackedDib* tile, raster::Point place, ImageHandle sprite, SpriteShadow* shadow);

}  // namespace tess
