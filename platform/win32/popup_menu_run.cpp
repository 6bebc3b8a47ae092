#include "platform/popup_menu_run.h"

#include <windows.h>

#include "platform/win32/views.h"

namespace platform {

int RunPopupMenu(WindowHandle owner, std::span<const MenuItem> items, const MenuPlace* place) {
    HMENU menu = CreatePopupMenu();
    if (menu == nullptr) return 0;
    for (const MenuItem& item : items)
        AppendMenuA(menu, item.IsChecked ? MF_STRING | MF_CHECKED : MF_STRING,
                    static_cast<UINT_PTR>(item.Id), item.Text);
    POINT corner = {};
    if (place == nullptr) {
        GetCursorPos(&corner);
    } else {
        corner = {place->X, place->Y};
        ClientToScreen(WindowOf(owner), &corner);
    }
    const int id = TrackPopupMenu(menu, TPM_LEFTALIGN | TPM_TOPALIGN | TPM_RETURNCMD | TPM_NONOTIFY,
                                  corner.x, corner.y, 0, WindowOf(owner), nullptr);
    DestroyMenu(menu);
    return id;
}

}  // namespace platform
