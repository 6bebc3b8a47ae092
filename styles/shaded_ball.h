// The shaded ball of Neural Network, Particles and Wavelet, Gridlock's bar, and the
// soft shadow under them. All are drawn at four times their size and scaled down,
// which is what makes their rims and their shading smooth.
#pragma once

#include "pipeline/image_buffers.h"
#include "platform/block_guards.h"
#include "raster/drawing_context.h"

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
/// the shape fills it, for the next to use.
struct SpriteForm {
    platform::OwnedBlock Rings;  ///< at the scale of drawing; red is a ring's number + 1
    platform::OwnedBlock Mask;
    int RingCount;
};

/// A ball that fills the rectangle, as a 32-bit picture of its size, or null. The
/// caller owns it. Requires: the rectangle starts at (0, 0), its shorter side is at most
/// 95, and `form` has served no other rectangle.
[[nodiscard]] ImageHandle RenderShadedBall(const ShadedColors& colors,
                                           const raster::Rect& rectangle, RingAngle angle,
                                           SpriteForm* form);

/// The same for a bar with round corners of `corner_size`, whose crown lies towards
/// the top of a wide bar and towards the left of a tall one.
[[nodiscard]] ImageHandle RenderShadedBar(const ShadedColors& colors, int corner_size,
                                          const raster::Rect& rectangle, SpriteForm* form);

/// A mask with half discs for ends, to stamp a shadow through. Its level is the low
/// byte of `opacity`. Returns a 24-bit picture of the size, or null; the caller owns
/// it.
[[nodiscard]] ImageHandle RenderShadowMask(int width, int height, int opacity);

/// How far a shadow lies to the right of and below a sprite: `percent` of its size,
/// cut, then four times that.
[[nodiscard]] constexpr int ShadowDistance(int size, int percent) {
    return 4 * (size * percent / 100);
}

}  // namespace tess
