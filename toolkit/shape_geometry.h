// Where the shapes of toolkit/shape_sprites.h lie on their bitmaps, and what their
// fields mean to the drawing: all that does not draw. Whole numbers divide with
// truncation; what a 32-bit number cannot hold becomes the nearest that it can.
#pragma once

#include "platform/vector_drawing.h"
#include "toolkit/shape_sprites.h"

namespace tess {

struct ShapeSize {
    std::int32_t Width, Height;
    bool operator==(const ShapeSize&) const = default;
};

/// The size of the bitmap of a line, ellipse, rectangle, polygon or gradient. A side below
/// 1 or beyond a 32-bit number is 0.
[[nodiscard]] ShapeSize ShapeBitmapSize(const ShapeRequest& request);

/// The box of an ellipse or rectangle: half of the outline lies outside of it, and a
/// margin of 4 outside of that.
[[nodiscard]] platform::VectorBox ShapeBox(const ShapeRequest& request);

/// The diameter of a rectangle's corner arcs. Requires: `CornerPercent` is not 0.
[[nodiscard]] std::int32_t CornerDiameter(const ShapeRequest& request);

struct CornerArc {
    platform::VectorBox Box;
    int Start;  ///< degrees; each sweeps 90
};
struct CornerArcs {
    CornerArc Arcs[4];  ///< top right, bottom right, bottom left, top left
};
/// The right and bottom arcs end at the size less the outline, without the margin that
/// left and top have: a rounded rectangle is smaller than a square one by that.
[[nodiscard]] CornerArcs RoundedCorners(const ShapeRequest& request);

struct LineEnds {
    platform::VectorPoint From, To;
};
[[nodiscard]] LineEnds PlaceLine(const ShapeRequest& request);

[[nodiscard]] platform::VectorPen LinePen(const ShapeRequest& request);

/// The centre of a gradient, reckoned in single precision.
[[nodiscard]] platform::VectorPoint GradientCenter(const ShapeRequest& request);

/// `value` truncated, or the nearest that 32 bits hold; 0 for what is no number.
[[nodiscard]] std::int32_t TruncateToInt(float value);

/// The em size of a text's path.
[[nodiscard]] float TextEmSize(std::int32_t text_size);
/// The bits of platform::FontStyle.
[[nodiscard]] int TextStyle(const ShapeRequest& request);

/// Red and blue exchanged.
constexpr platform::Argb ShapeArgb(ColorWord color, std::uint8_t alpha = 255) {
    return static_cast<platform::Argb>(alpha) << 24 |
           static_cast<platform::Argb>(RedOf(color)) << 16 |
           static_cast<platform::Argb>(GreenOf(color)) << 8 | BlueOf(color);
}

}  // namespace tess
