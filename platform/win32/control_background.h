// What lies behind a control that paints its own background. Windows only.
#pragma once

#include <windows.h>

namespace platform {

/// Fills a box of `control`, in its own coordinates, with the brush that its dialog
/// gives buttons, laid as on the dialog.
void FillBehindControl(HWND control, HDC context, const RECT& box);

}  // namespace platform
