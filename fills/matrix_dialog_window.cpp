#include <windows.h>

#include "fills/matrix_dialog.h"
#include "fills/matrix_element_list.h"
#include "pipeline/image_painting.h"
#include "platform/win32/views.h"

namespace tess {

namespace {

using platform::HandleOf;

/// Draws a picture stretched into a box, its colours chosen and not mixed.
void StretchPicture(HDC device, const ElementBox& box, ImageHandle handle) {
    const LockedImage image(handle);
    if (!image || box.Width < 1 || box.Height < 1) return;
    const int previous = SetStretchBltMode(device, COLORONCOLOR);
    StretchDIBits(device, box.X, box.Y, box.Width, box.Height, 0, 0, image->Width, image->Height,
                  DibRow(image, image->Height - 1),
                  reinterpret_cast<const BITMAPINFO*>(image.Get()), DIB_RGB_COLORS, SRCCOPY);
    SetStretchBltMode(device, previous);
}

void PaintElement(HWND dialog, const DRAWITEMSTRUCT& item) {
    constexpr UINT kNoItem = static_cast<UINT>(-1);
    if (item.itemID == kNoItem) return;
    RECT box = item.rcItem;
    FillRect(item.hDC, &box, static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH)));
    const bool is_selected = (item.itemState & ODS_SELECTED) != 0;
    const ImageHandle element = MatrixElementAt(HandleOf(dialog), static_cast<int>(item.itemID));
    if (const LockedImage image(element); image) {
        const ElementBox entry{box.left, box.top, box.right - box.left, box.bottom - box.top};
        StretchPicture(item.hDC, PlaceElement(entry, image->Width, image->Height, is_selected),
                       element);
    }
    DrawEdge(item.hDC, &box, is_selected ? EDGE_SUNKEN : EDGE_RAISED, BF_RECT);
}

void PaintPreview(HWND dialog, const DRAWITEMSTRUCT& item) {
    RECT box = item.rcItem;
    const platform::OwnedBlock picture(RenderMatrixPreview(HandleOf(dialog)));
    DrawEdge(item.hDC, &box, EDGE_SUNKEN, BF_RECT);
    InflateRect(&box, -2, -2);
    if (picture) {
        PaintDib(item.hDC, box.left, box.top, picture.Get());
    } else {
        FillRect(item.hDC, &box, GetSysColorBrush(COLOR_BTNFACE));
    }
}

/// Makes the list five elements tall.
void SizeList(HWND dialog) {
    constexpr int kRows = 5;
    HWND list = GetDlgItem(dialog, kMatrixElementList);
    RECT box;
    GetWindowRect(list, &box);
    SetWindowPos(list, nullptr, 0, 0, box.right - box.left,
                 2 * GetSystemMetrics(SM_CYDLGFRAME) + kRows * kMatrixElementSide +
                     GetSystemMetrics(SM_CYHSCROLL),
                 SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

bool ViewMatrixDialog(HWND dialog, UINT message, WPARAM w, LPARAM l, LRESULT* result) {
    switch (message) {
        case WM_INITDIALOG:
            SizeList(dialog);
            return true;
        case WM_DRAWITEM: {
            const auto& item = *reinterpret_cast<const DRAWITEMSTRUCT*>(l);
            if (w == kMatrixElementList) {
                PaintElement(dialog, item);
            } else if (w == kMatrixPreview) {
                PaintPreview(dialog, item);
            } else {
                // Skinned buttons paint themselves, in their view.
                return SendMessageA(item.hwndItem, WM_DRAWITEM, w, l) != 0;
            }
            *result = TRUE;
            return true;
        }
        default:
            return false;
    }
}

bool ViewMatrixList(HWND list, UINT message, WPARAM, LPARAM l, LRESULT*) {
    if (message != WM_RBUTTONUP) return false;
    const LRESULT found = SendMessageA(list, LB_ITEMFROMPOINT, 0, l);
    const bool is_outside = HIWORD(found) != 0;
    if (is_outside) return false;
    ShowMatrixElementMenu(HandleOf(GetParent(list)), LOWORD(found));
    return true;
}

}  // namespace

void InstallMatrixDialogView() {
    platform::SetDialogView(kMatrixDialogTemplate, ViewMatrixDialog);
    platform::SetControlView(MatrixListProcedure, ViewMatrixList);
}

}  // namespace tess
