#include <windows.h>

#include "fills/fountain_library_dialog.h"
#include "pipeline/image_painting.h"
#include "platform/win32/module.h"
#include "platform/win32/views.h"

namespace tess {

namespace {

constexpr int kDragPointer = 9001;  // a CURSOR

void PaintEntry(const DRAWITEMSTRUCT& item) {
    const bool is_selected = (item.itemState & ODS_SELECTED) != 0;
    FillRect(item.hDC, &item.rcItem,
             is_selected ? GetSysColorBrush(COLOR_BTNSHADOW)
                         : static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH)));
    constexpr UINT kNoItem = ~UINT{0};
    if (item.itemID == kNoItem) return;
    const LockedFountain entry(reinterpret_cast<platform::MemoryHandle>(item.itemData));
    if (!entry) return;
    PaintDib(item.hDC, item.rcItem.left + kLibraryPreviewMargin,
             item.rcItem.top + kLibraryPreviewMargin, entry->Preview);
}

bool ViewFountainLibrary(HWND, UINT message, WPARAM w, LPARAM l, LRESULT* result) {
    if (message == WM_DRAWITEM && w == kLibraryList) {
        PaintEntry(*reinterpret_cast<const DRAWITEMSTRUCT*>(l));
        *result = TRUE;
        return true;
    }
    return false;
}

bool ViewLibraryList(HWND, UINT message, WPARAM w, LPARAM, LRESULT*) {
    if (message != ShowLibraryDragPointer) return false;
    SetCursor(w != 0 ? LoadCursorA(platform::Module(), MAKEINTRESOURCEA(kDragPointer))
                     : LoadCursorA(nullptr, IDC_NO));
    return true;
}

}  // namespace

void InstallFountainLibraryView() {
    platform::SetDialogView(kFountainLibraryTemplate, ViewFountainLibrary);
    platform::SetControlView(LibraryListProcedure, ViewLibraryList);
}

}  // namespace tess
