// The matrix tile control: a button that shows a matrix tile, owns its record and lets
// the user choose another in the Matrix dialog.
#pragma once

#include <cstdint>

#include "fills/matrix_tile.h"
#include "platform/dialog.h"
#include "platform/screen.h"

namespace tess {

/// Makes button `id` a matrix tile control (tag MATRIX) that shows an element of the
/// current group. Without memory for its record it has none.
void BindMatrixControl(platform::WindowHandle dialog, int id, std::uint32_t element);

/// Locks the control's record for a scope. False when it has none.
[[nodiscard]] LockedMatrixTile LockMatrixTile(platform::WindowHandle control);

/// What the control shows: a picture, owned by the caller, or null, and how far it
/// lies from each side.
struct MatrixFace {
    ImageHandle Picture;
    int Inset;
    bool IsPressed;
};
[[nodiscard]] MatrixFace RenderMatrixFace(platform::WindowHandle control);

/// Adds painting. Windows only.
void InstallMatrixControlView();

}  // namespace tess
