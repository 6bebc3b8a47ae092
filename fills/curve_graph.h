// Curve controls: each shows one colour curve of a texture as a graph with four
// handles that the mouse moves up and down. fills/curve_graph_window.cpp paints it.
#pragma once

#include <cstdint>
#include <span>

#include "fills/texture.h"
#include "platform/dialog.h"

namespace tess {

enum class CurveChannel { Red, Green, Blue };

[[nodiscard]] float CurvePoint(const TextureItem& item, CurveChannel channel, int point);
void SetCurvePoint(TextureItem* item, CurveChannel channel, int point, float value);
/// The line that a new texture has.
void ResetCurve(TextureItem* item, CurveChannel channel);

/// Makes owner-drawn buttons of `dialog` the curve controls of one texture: three ids,
/// for red, green and blue. The texture must outlive the dialog.
void InstallCurveGraphs(platform::WindowHandle dialog, std::span<const int, 3> ids,
                        TextureItem* item);

/// What they are installed with.
std::intptr_t CurveGraphProcedure(platform::WindowHandle control, std::uint32_t message,
                                  std::uintptr_t w, std::intptr_t l);

// What painting asks for.

/// A curve control's texture and channel. False for other controls.
struct CurveGraph {
    TextureItem* Item;
    CurveChannel Channel;

    explicit operator bool() const { return Item != nullptr; }
};
[[nodiscard]] CurveGraph CurveGraphOf(platform::WindowHandle control);

/// A box in pixels, without its right column and bottom row.
struct CurveBox {
    int Left, Top, Right, Bottom;
    bool operator==(const CurveBox&) const = default;
};
/// The part of a control in which its curve lies.
[[nodiscard]] CurveBox CurveArea(platform::PixelSize client);

struct CurveHandle {
    int X, Y;
    bool operator==(const CurveHandle&) const = default;
};
/// Where the handle of a point stands.
[[nodiscard]] CurveHandle PlaceHandle(const CurveBox& area, int point, float value);
/// The point whose handle is within 5 pixels of a place, -1 for none.
[[nodiscard]] int HandleAt(const CurveBox& area, const CurveGraph& graph, int x, int y);
/// The value of a handle that is held at a row.
[[nodiscard]] float ValueAtRow(const CurveBox& area, int y);

/// The point whose handle the mouse holds in a control, -1 for none.
[[nodiscard]] int HeldHandle(platform::WindowHandle control);
/// The number that a held handle shows, 0 to 255.
[[nodiscard]] int HandleNumber(float value);
/// Where a held handle's number of a size stands.
[[nodiscard]] CurveBox PlaceNumber(const CurveBox& area, int point, const CurveHandle& handle,
                                   platform::PixelSize size);

/// Returns a new 24-bit picture of the curve at the control's size, owned by the
/// caller, or null.
[[nodiscard]] ImageHandle DrawCurveGraph(platform::PixelSize client, const CurveGraph& graph);

// A picture of a quarter of the width, or height, whose pixels are the means of four.
// Owned by the caller; null without memory.
[[nodiscard]] ImageHandle ShrinkImageWidth(ImageHandle handle);
[[nodiscard]] ImageHandle ShrinkImageHeight(ImageHandle handle);

/// Adds painting to all curve controls. Windows only.
void InstallCurveGraphView();

}  // namespace tess
