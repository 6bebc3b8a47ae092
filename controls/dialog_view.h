// What all dialogs of the program look like. Windows only.
#pragma once

namespace tess {

/// Gives all dialogs the program's background.
void InstallDialogBackground();

}  // namespace tess
