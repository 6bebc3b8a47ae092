// Controls of a dialog by id, remembered. The system walks all children of a dialog
// for each id; with the panels of all styles in it that is hundreds of windows, many
// times for each repaint of the sample. Windows only.
#pragma once

#include <windows.h>

namespace platform {

/// What GetDlgItem answers. Null for an id that the dialog does not have.
[[nodiscard]] HWND FindControl(HWND dialog, int id);

/// Forgets the controls of a dialog that goes.
void ForgetControls(HWND dialog);

}  // namespace platform
