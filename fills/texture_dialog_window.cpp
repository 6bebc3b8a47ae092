#include <windows.h>

#include "controls/color_button.h"
#include "fills/texture_controls.h"
#include "fills/texture_dialog.h"
#include "pipeline/image_painting.h"
#include "platform/win32/views.h"

namespace tess {

namespace {

void PaintPreview(const DRAWITEMSTRUCT& item) {
    const platform::WaitCursor wait;
    const platform::OwnedBlock picture(
        RenderTexturePreview(platform::ClientSize(platform::HandleOf(item.hwndItem))));
    if (picture) {
        PaintDib(item.hDC, 1, 1, picture.Get());
    } else {
        FillRect(item.hDC, &item.rcItem, GetSysColorBrush(COLOR_BTNFACE));
    }
    FrameRect(item.hDC, &item.rcItem, GetSysColorBrush(COLOR_3DDKSHADOW));
}

bool PaintItem(const DRAWITEMSTRUCT& item) {
    const TextureItem* texture = EditedTexture();
    if (texture == nullptr) return false;
    const int id = static_cast<int>(item.CtlID);
    if (id == kTexturePreview) {
        PaintPreview(item);
        return true;
    }
    if (const TextureColor color = TextureButtonColor(*texture, id); color.IsColor) {
        DrawColorButton(platform::HandleOf(item.hwndItem), &item, color.Color, kButtonTextHashHex);
        return true;
    }
    // Other kinds of control paint themselves, in their views.
    return SendMessageA(item.hwndItem, WM_DRAWITEM, item.CtlID, reinterpret_cast<LPARAM>(&item)) !=
           0;
}

bool ViewTextureDialog(HWND, UINT message, WPARAM, LPARAM l, LRESULT* result) {
    if (message != WM_DRAWITEM) return false;
    *result = PaintItem(*reinterpret_cast<const DRAWITEMSTRUCT*>(l)) ? TRUE : FALSE;
    return *result != 0;
}

}  // namespace

void InstallTextureDialogView() {
    platform::SetDialogView(kTextureTemplate, ViewTextureDialog);
}

}  // namespace tess
