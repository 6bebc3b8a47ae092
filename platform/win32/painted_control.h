// What a control that paints all of itself, over a push button of the system's, has to do
// besides. Windows only.
#pragma once

#include <windows.h>

namespace platform {

/// A view (platform/win32/views.h) that lets `Paint` paint all of the control: when it is
/// due, is enabled or disabled, or has a new text.
template <void (*Paint)(HWND control, HDC context)>
bool ViewPaintedControl(HWND control, UINT message, WPARAM w, LPARAM l, LRESULT* result) {
    switch (message) {
        case WM_PAINT: {
            PAINTSTRUCT paint;
            HDC context = BeginPaint(control, &paint);
            if (context == nullptr) return true;
            Paint(control, context);
            EndPaint(control, &paint);
            return true;
        }
        case WM_ERASEBKGND:
            *result = 1;  // painting leaves no pixel out
            return true;
        case WM_ENABLE:
            InvalidateRect(control, nullptr, FALSE);
            return false;
        case WM_SETTEXT:
            // Past the button beneath, which would wipe the place of its old text.
            *result = DefWindowProcA(control, message, w, l);
            InvalidateRect(control, nullptr, FALSE);
            return true;
        default:
            return false;
    }
}

}  // namespace platform
