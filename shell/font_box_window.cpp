// How a font box shows its items: each name in the face that bears it.
#include <windows.h>
#include <string>

#include "platform/list_box.h"
#include "platform/win32/views.h"
#include "shell/control_contract.h"
#include "shell/value_controls.h"

namespace tess {

namespace {

constexpr int kFontHeight = 18;  // pixels, of the character cell
constexpr int kTextInset = 2;

void DrawFontName(const DRAWITEMSTRUCT& item) {
    const bool is_selected = (item.itemState & ODS_SELECTED) != 0;
    RECT box = item.rcItem;
    FillRect(item.hDC, &box,
             is_selected ? GetSysColorBrush(COLOR_HIGHLIGHT)
                         : static_cast<HBRUSH>(GetStockObject(BLACK_BRUSH)));
    if (item.itemID == static_cast<UINT>(-1)) return;  // a box without a selection
    const platform::WindowHandle control = platform::HandleOf(item.hwndItem);
    const std::string name =
        platform::ItemText(platform::ParentDialog(control), platform::ControlId(control),
                           static_cast<int>(item.itemID));
    HFONT font = CreateFontA(kFontHeight, 0, 0, 0, FW_NORMAL, FALSE, FALSE, FALSE, DEFAULT_CHARSET,
                             OUT_DEFAULT_PRECIS, CLIP_DEFAULT_PRECIS, DEFAULT_QUALITY,
                             DEFAULT_PITCH | FF_DONTCARE, name.c_str());
    const int saved = SaveDC(item.hDC);
    if (font != nullptr) SelectObject(item.hDC, font);
    SetBkMode(item.hDC, TRANSPARENT);
    SetTextColor(item.hDC, is_selected ? GetSysColor(COLOR_HIGHLIGHTTEXT) : RGB(255, 255, 255));
    box.left += kTextInset;
    DrawTextA(item.hDC, name.c_str(), static_cast<int>(name.size()), &box,
              DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX);
    RestoreDC(item.hDC, saved);
    if (font != nullptr) DeleteObject(font);
}

bool ViewFontBox(HWND, UINT message, WPARAM, LPARAM l, LRESULT* result) {
    if (message != WM_DRAWITEM) return false;
    DrawFontName(*reinterpret_cast<const DRAWITEMSTRUCT*>(l));
    *result = TRUE;
    return true;
}

}  // namespace

void InstallFontBoxView() {
    platform::SetControlView(kFontBoxTag, ViewFontBox);
}

}  // namespace tess
