// The material button (tag MATLBT): a button that owns a material, shows it on its face
// and lets the user edit it. Its arrow opens a menu of the modes. It remembers its
// record in a file of its own between runs and writes it into documents as hexadecimal
// text. No panel has one; a button becomes one by BindMaterialButton.
#pragma once

#include <cstdint>

#include "fills/material.h"
#include "platform/dialog.h"
#include "platform/screen.h"

namespace tess {

/// The message to a material button that shows its menu of modes.
inline constexpr std::uint32_t ShowMaterialMenu = 1325;

/// Commands of a material button.
inline constexpr int kEditMaterial = 99;
inline constexpr int kFirstMaterialMode = 100;  ///< 100 + a mode

/// Makes button `id` a material button. `color` is the plain colour where the control's
/// own file holds no material. Without memory for its record the control has none, and
/// LockMaterial says so.
void BindMaterialButton(platform::WindowHandle dialog, int id, ColorWord color);

/// Locks the control's record for a scope. False when it has none.
[[nodiscard]] LockedMaterial LockMaterial(platform::WindowHandle control);

/// Returns a copy of the control's record with a copy of its tile's picture and without
/// a preview, or null. The caller frees it (FreeMaterial).
[[nodiscard]] MaterialHandle ReadMaterialButton(platform::WindowHandle control);

/// A box in pixels, without its right column and bottom row.
struct MaterialBox {
    int Left, Top, Right, Bottom;
    bool operator==(const MaterialBox&) const = default;
};
[[nodiscard]] MaterialBox MaterialFace(platform::PixelSize client);
[[nodiscard]] MaterialBox MaterialArrow(platform::PixelSize client);
/// Where the preview lies: the face less 2 pixels on each side.
[[nodiscard]] MaterialBox MaterialFaceRect(platform::PixelSize client);

/// The triangle in the arrow part: its two upper corners and its tip.
struct MaterialTriangle {
    int Left, Right, Tip;
    int Top, Bottom;
    bool operator==(const MaterialTriangle&) const = default;
};
[[nodiscard]] MaterialTriangle TriangleIn(const MaterialBox& arrow, bool is_pressed);

/// Adds painting to all material buttons. Windows only.
void InstallMaterialButtonView();

}  // namespace tess
