#include "platform/popup_menu_run.h"

#include <windows.h>

#include "platform/win32/views.h"

namespace platform {

int RunPopupMenu(WindowHandle owner, std::span<const MenuItem> items) {
    HMENU menu = CreatePopupMenu();
    if (menu == nullptr) return 0;
    for (const MenuItem& item : items)
        AppendMenuA(menu, MF_STRING, static_cast<UINT_PTR>(item.Id), item.Text);
    POINT pointer = {};
    GetCursorPos(&pointer);
    const int id = TrackPopupMenu(menu, TPM_LEFTALIGN | TPM_TOPALIGN | TPM_RETURNCMD | TPM_NONOTIFY,
                                  pointer.x, pointer.y, 0, WindowOf(owner), nullptr);
    DestroyMenu(menu);
    return id;
}

}  // namespace platform
