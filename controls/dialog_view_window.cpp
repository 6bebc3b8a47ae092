#include <windows.h>

#include "controls/dialog_background.h"
#include "controls/dialog_view.h"
#include "platform/win32/views.h"

namespace tess {

namespace {

/// The brush of the tinted picture, kept from one painting to the next.
HBRUSH tiled_brush = nullptr;
ColorWord tiled_brush_tint = 0;

void FreeTiledBrush() {
    if (tiled_brush != nullptr) DeleteObject(tiled_brush);
    tiled_brush = nullptr;
}

HBRUSH TiledBrush() {
    const ColorWord tint = BackgroundTint(GetSysColor(COLOR_BTNFACE), GetSysColor(COLOR_BTNSHADOW));
    if (tiled_brush != nullptr && tiled_brush_tint == tint) return tiled_brush;
    FreeTiledBrush();
    const platform::OwnedBlock picture(MakeDialogBackground(tint));
    const LockedImage image(picture.Get());
    if (!image) return nullptr;
    tiled_brush = CreateDIBPatternBrushPt(image.Get(), DIB_RGB_COLORS);
    tiled_brush_tint = tint;
    return tiled_brush;
}

HBRUSH BackgroundBrush(HDC device) {
    const int bits = GetDeviceCaps(device, BITSPIXEL) * GetDeviceCaps(device, PLANES);
    HBRUSH brush = IsBackgroundSolid(bits) ? nullptr : TiledBrush();
    return brush != nullptr ? brush : GetSysColorBrush(COLOR_BTNFACE);
}

/// Lets the tiles of a control's background lie where its dialog's do.
void AlignBrush(HWND dialog, HWND control, HDC device) {
    POINT corner = {0, 0};
    MapWindowPoints(control, dialog, &corner, 1);
    SetBrushOrgEx(device, -corner.x, -corner.y, nullptr);
}

bool IsEdit(HWND control) {
    return platform::ControlClass(platform::HandleOf(control)) == "EDIT";
}

/// Answers the messages in which a dialog is asked for its background and for that of
/// its static controls, check boxes and owner-drawn buttons; frees what it made when a
/// dialog goes.
bool PaintBackground(HWND dialog, UINT message, WPARAM w, LPARAM l, LRESULT* result) {
    HDC device = reinterpret_cast<HDC>(w);
    HWND control = reinterpret_cast<HWND>(l);
    switch (message) {
        case WM_CTLCOLORDLG:
            break;
        case WM_CTLCOLORSTATIC:
            // A disabled edit asks so, too, and keeps its own background.
            if (IsEdit(control)) return false;
            SetBkMode(device, TRANSPARENT);
            SetTextColor(device, GetSysColor(COLOR_WINDOWTEXT));
            AlignBrush(dialog, control, device);
            break;
        case WM_CTLCOLORBTN:
            AlignBrush(dialog, control, device);
            break;
        case WM_DESTROY:
            FreeTiledBrush();
            return false;
        default:
            return false;
    }
    *result = reinterpret_cast<LRESULT>(BackgroundBrush(device));
    return true;
}

}  // namespace

void InstallDialogBackground() {
    platform::SetCommonDialogView(PaintBackground);
}

}  // namespace tess
