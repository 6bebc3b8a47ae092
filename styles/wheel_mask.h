// The wheel of Skip Intro: a ring of short thick spokes with round ends, graded
// from black to bright.
#pragma once

#include "pipeline/image_buffers.h"

namespace tess {

/// How a wheel looks.
struct WheelLook {
    int TileSize;  ///< spokes of a wheel as large as the tile are the thickest
    int Size;      ///< side of the wheel's square
    int Spokes;    ///< 1 to 360
    int Tick;      ///< rotation in spoke steps, clockwise, from spoke 0 straight up; not reduced
    int Peak;      ///< grey of the brightest, 0 to 255
};

/// Returns a new grey mask of Size x Size, or null.
[[nodiscard]] ImageHandle RenderWheelMask(const WheelLook& look);

/// True when the two wheels' masks are the same, byte for byte, though their ticks
/// may lie whole turns apart. Requires: they differ in nothing but the tick.
[[nodiscard]] bool IsSameTurn(const WheelLook& look, int other_tick);

}  // namespace tess
