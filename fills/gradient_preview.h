// The preview of a gradient, in which a drag sets the rotation or the centre: what a
// place in it means, and the marker that a drag shows.
#pragma once

#include <array>
#include <cstdint>

#include "fills/gradient.h"
#include "platform/dialog.h"

namespace tess {

/// A place in a control, in pixels from its top left.
struct PreviewPoint {
    int X, Y;
    bool operator==(const PreviewPoint&) const = default;
};

/// What is drawn as a marker by inverting the screen, clipped to the preview less 2
/// pixels on each side: a line, or bars of which left may lie right of right.
struct PreviewBar {
    int Left, Top, Right, Bottom;
    bool operator==(const PreviewBar&) const = default;
};
struct PreviewMarker {
    bool IsLine;  ///< from the left top to the right bottom of Bars[0]
    std::array<PreviewBar, 4> Bars;
};

/// The point held on the pixels of the preview less 2 on each side.
[[nodiscard]] PreviewPoint HoldInPreview(platform::PixelSize client, PreviewPoint point);

/// Whether a drag sets the rotation of this type; else it sets the centre.
[[nodiscard]] bool DragSetsRotation(GradientType type);

/// The rotation of a gradient that leads from the centre to `point`: -180 to 180. The
/// angle is a cheap one, true at multiples of 45 degrees alone.
[[nodiscard]] int RotationAt(platform::PixelSize client, PreviewPoint point);

/// The centre at `point`, in percent from the middle: about -51 to 50.
[[nodiscard]] PreviewPoint CenterAt(platform::PixelSize client, PreviewPoint point);

/// The marker of a drag that is at `point`; `rotation` in degrees.
[[nodiscard]] PreviewMarker MarkerOf(GradientType type, platform::PixelSize client, int rotation,
                                     PreviewPoint point);

/// The message to a preview, without arguments, that draws the marker of the drag
/// that is under way.
inline constexpr std::uint32_t DrawPreviewMarker = 1224;

/// The logic of the preview. What a drag sets it writes into the edits of the dialog.
std::intptr_t GradientPreview(platform::WindowHandle control, std::uint32_t message,
                              std::uintptr_t w, std::intptr_t l);

/// Notes that the preview has been painted anew, without a marker.
void ForgetPreviewMarker();
/// Returns true if a marker is to be drawn now, which is then taken as drawn: a
/// second inversion would wipe the first.
[[nodiscard]] bool TakePreviewMarker(platform::WindowHandle control, PreviewMarker* marker);

}  // namespace tess
