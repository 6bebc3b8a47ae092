// Gradients: a shape filled with a ramp of colours, which is that of a fountain or
// a plain run from one colour to another.
//
// Pictures and ramps are new, owned by the caller, or null when memory is short.
// No function here keeps state.
#pragma once

#include <cstdint>

#include "fills/fountain.h"
#include "pipeline/image_buffers.h"

namespace tess {

/// Gradient::Type; any other value draws as linear.
enum class GradientType : std::int32_t { Linear, Conical, Elliptical, Rectangular };

#pragma pack(push, 1)
struct Gradient {
    GradientType Type;
    ColorWord StartColor, EndColor;
    std::int32_t EdgePad;  ///< percent of plain colour at each end, 0 to 45
    /// Percent of the size, -50 to 50. A positive y lies higher in a conical gradient, and
    /// lower in an elliptical or rectangular one.
    std::int32_t CenterX, CenterY;
    std::int32_t Midpoint;  ///< percent, 1 to 99; 50 is no shift
    std::int32_t Reserved;  ///< zero
    std::int32_t Rotation;  ///< degrees, -360 to 360
    std::int32_t TwoColor;  ///< nonzero: from StartColor to EndColor; zero: Ramp
    Fountain Ramp;
};
#pragma pack(pop)
static_assert(sizeof(Gradient) == 625);

/// The head of a ramp's block: `Count` colour words follow it.
struct GradientRamp {
    std::uint32_t Count;

    [[nodiscard]] ColorWord* Colors() { return &Count + 1; }
    [[nodiscard]] const ColorWord* Colors() const { return &Count + 1; }
};
using RampHandle = platform::MemoryHandle;
using LockedRamp = platform::LockedBlock<GradientRamp>;

/// Returns a ramp of `count` colours; one of 0 colours is empty.
[[nodiscard]] RampHandle BuildGradientRamp(const Gradient& gradient, int count);

/// Returns a 24-bit picture. The record may hold any values: the edge pad and the
/// midpoint are held in 0 to 50 and 0 to 100, the rotation in a million degrees each way.
[[nodiscard]] ImageHandle RenderGradient(int width, int height, const Gradient& gradient);

// The four shapes. With a gradient the ramp is made from it, and `first` and
// `second` are not used; without one (null) it runs between those two, as the strips
// of a fountain do. `x` and `y` are as CenterX and CenterY, in percent.
// Requires: `rotation` -1,000,000 to 1,000,000.

/// Bands across the direction `rotation`, degrees. Without rotation the ramp runs
/// from top to bottom. Without a gradient `second` is where a gradient starts, so
/// that at 90 degrees `first` is at the left: this shape alone is so.
[[nodiscard]] ImageHandle DrawLinearGradient(ColorWord first, ColorWord second, int width,
                                             int height, int rotation, const Gradient* gradient);
/// A sweep round a centre, mirrored at the angle where it starts.
[[nodiscard]] ImageHandle DrawConicalGradient(ColorWord first, ColorWord second, int width,
                                              int height, int x, int y, int rotation,
                                              const Gradient* gradient);
/// Ellipses or boxes inside one another, drifting towards the centre's offset.
[[nodiscard]] ImageHandle DrawEllipticalGradient(ColorWord first, ColorWord second, int width,
                                                 int height, int x, int y,
                                                 const Gradient* gradient);
[[nodiscard]] ImageHandle DrawRectangularGradient(ColorWord first, ColorWord second, int width,
                                                  int height, int x, int y,
                                                  const Gradient* gradient);

}  // namespace tess
