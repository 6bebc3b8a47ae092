// The Matrix dialog, DIALOG 9981: choosing a tile out of a group, and changing groups.
#pragma once

#include "fills/matrix_tile.h"
#include "platform/dialog.h"

namespace tess {

/// Runs the dialog on a copy of the record. Returns 1 when the user pressed OK, and
/// then `tile` has changed (its old picture is freed); 0 otherwise. Its picture may
/// be null.
int EditMatrixTile(platform::WindowHandle owner, MatrixTile* tile);

}  // namespace tess
