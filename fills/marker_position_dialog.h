// The dialog in which the position of a fountain's marker is typed.
#pragma once

#include "platform/dialog.h"

namespace tess {

inline constexpr int kMarkerPositionTemplate = 9996;

/// Lets the user change `position`; it is held to the range of the dialog's spinner.
void RunMarkerPositionDialog(platform::WindowHandle owner, int* position);

}  // namespace tess
