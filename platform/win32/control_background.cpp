#include "platform/win32/control_background.h"

namespace platform {

void FillBehindControl(HWND control, HDC context, const RECT& box) {
    HWND dialog = GetParent(control);
    const auto brush = reinterpret_cast<HBRUSH>(SendMessageA(dialog, WM_CTLCOLORBTN,
                                                             reinterpret_cast<WPARAM>(context),
                                                             reinterpret_cast<LPARAM>(control)));
    POINT place = {0, 0};
    MapWindowPoints(control, dialog, &place, 1);
    POINT previous;
    SetBrushOrgEx(context, -place.x, -place.y, &previous);
    FillRect(context, &box, brush != nullptr ? brush : GetSysColorBrush(COLOR_BTNFACE));
    SetBrushOrgEx(context, previous.x, previous.y, nullptr);
}

}  // namespace platform
