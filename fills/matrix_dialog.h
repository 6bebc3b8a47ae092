// The Matrix dialog, DIALOG 9981: choosing a tile out of a group, and changing groups.
#pragma once

#include "fills/matrix_tile.h"
#include "platform/dialog.h"

namespace tess {

inline constexpr int kMatrixDialogTemplate = 9981;
inline constexpr int kMatrixPreview = 101;

/// Runs the dialog on a copy of the record. Returns 1 when the user pressed OK, and
/// then `tile` has changed (its old picture is freed); 0 otherwise. Its picture may
/// be null.
int EditMatrixTile(platform::WindowHandle owner, MatrixTile* tile);

// What the dialog's view asks for.

/// What the preview shows inside its edge, owned by the caller; may be null.
[[nodiscard]] ImageHandle RenderMatrixPreview(platform::WindowHandle dialog);

/// What the list is installed with; a view that is added to it brings the mouse.
std::intptr_t MatrixListProcedure(platform::WindowHandle list, std::uint32_t message,
                                  std::uintptr_t w, std::intptr_t l);

/// The right button was released over an element: selects it and shows its menu.
void ShowMatrixElementMenu(platform::WindowHandle dialog, int index);

/// Adds painting and the mouse. Windows only.
void InstallMatrixDialogView();

}  // namespace tess
