#include <windows.h>

#include "controls/color_button.h"
#include "platform/win32/views.h"

namespace tess {

namespace {

/// A rectangle without a pen, which the system leaves one pixel short of its right
/// and bottom.
void FillPenless(HDC context, HBRUSH brush, int left, int top, int right, int bottom) {
    const HGDIOBJ previous_brush = SelectObject(context, brush);
    const HGDIOBJ previous_pen = SelectObject(context, GetStockObject(NULL_PEN));
    Rectangle(context, left, top, right, bottom);
    SelectObject(context, previous_pen);
    SelectObject(context, previous_brush);
}

void DrawFill(HWND control, const DRAWITEMSTRUCT& item, ColorWord fill, std::uint32_t flags) {
    const RECT& box = item.rcItem;
    HBRUSH brush = CreateSolidBrush(fill & 0xFFFFFF);
    if (brush == nullptr) return;
    if ((flags & kButtonPlain) != 0) {
        FillRect(item.hDC, &box, brush);
    } else {
        const auto outer = reinterpret_cast<HBRUSH>(
            SendMessageA(GetParent(control), WM_CTLCOLORBTN, reinterpret_cast<WPARAM>(item.hDC),
                         reinterpret_cast<LPARAM>(control)));
        FillPenless(item.hDC, outer != nullptr ? outer : GetSysColorBrush(COLOR_BTNFACE), box.left,
                    box.top, box.right + 1, box.bottom + 1);
        FillPenless(item.hDC, brush, box.left, box.top, box.right - 2, box.bottom - 2);
    }
    DeleteObject(brush);
}

void DrawButtonText(HWND control, const DRAWITEMSTRUCT& item, ColorWord color,
                    std::uint32_t flags) {
    const std::string text =
        ColorButtonText(platform::Title(platform::HandleOf(control)), color, flags);
    HGDIOBJ previous_font = nullptr;
    if ((flags & kButtonFont) != 0) {
        const auto font = reinterpret_cast<HGDIOBJ>(SendMessageA(control, WM_GETFONT, 0, 0));
        if (font != nullptr) previous_font = SelectObject(item.hDC, font);
    }
    RECT box = item.rcItem;
    InflateRect(&box, -2, -2);
    const int previous_mode = SetBkMode(item.hDC, TRANSPARENT);
    const COLORREF previous_color = SetTextColor(item.hDC, ColorButtonTextColor(color));
    DrawTextA(item.hDC, text.c_str(), static_cast<int>(text.size()), &box,
              DT_CENTER | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX);
    SetTextColor(item.hDC, previous_color);
    SetBkMode(item.hDC, previous_mode);
    if (previous_font != nullptr) SelectObject(item.hDC, previous_font);
}

}  // namespace

void DrawColorButton(platform::WindowHandle handle, const tagDRAWITEMSTRUCT* item, ColorWord color,
                     std::uint32_t flags) {
    HWND control = platform::WindowOf(handle);
    const bool is_disabled = IsWindowEnabled(control) == FALSE;
    DrawFill(control, *item, ColorButtonFill(color, GetSysColor(COLOR_BTNFACE), is_disabled),
             flags);
    RECT box = item->rcItem;
    if ((flags & kButtonWithoutEdge) == 0) {
        const bool is_pressed = (item->itemState & ODS_SELECTED) != 0;
        DrawEdge(item->hDC, &box, is_pressed ? EDGE_SUNKEN : EDGE_RAISED, BF_RECT | BF_SOFT);
    }
    if (ColorButtonHasFocusFrame((item->itemState & ODS_FOCUS) != 0, flags)) {
        RECT frame = item->rcItem;
        InflateRect(&frame, -4, -3);
        DrawFocusRect(item->hDC, &frame);
    }
    if (ColorButtonHasText(is_disabled, flags)) DrawButtonText(control, *item, color, flags);
}

}  // namespace tess
