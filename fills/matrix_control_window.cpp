#include <windows.h>

#include "fills/matrix_control.h"
#include "pipeline/image_painting.h"
#include "platform/win32/views.h"
#include "shell/control_contract.h"

namespace tess {

namespace {

void PaintControl(HWND control) {
    PAINTSTRUCT paint;
    HDC device = BeginPaint(control, &paint);
    if (device == nullptr) return;
    RECT box;
    GetClientRect(control, &box);
    const MatrixFace face = RenderMatrixFace(platform::HandleOf(control));
    const platform::OwnedBlock picture(face.Picture);
    if (face.IsPressed) {
        FrameRect(device, &box, GetSysColorBrush(COLOR_3DDKSHADOW));
    } else {
        DrawEdge(device, &box, EDGE_RAISED, BF_RECT);
    }
    if (picture) {
        PaintDib(device, face.Inset, face.Inset, picture.Get());
    } else {
        InflateRect(&box, -face.Inset, -face.Inset);
        FillRect(device, &box, GetSysColorBrush(COLOR_BTNFACE));
    }
    EndPaint(control, &paint);
}

bool ViewMatrixControl(HWND control, UINT message, WPARAM w, LPARAM l, LRESULT* result) {
    switch (message) {
        case WM_PAINT:
            PaintControl(control);
            return true;
        case WM_ERASEBKGND:
            *result = 1;  // painting leaves no pixel out
            return true;
        case WM_SETTEXT:
            // Past the button beneath, which would wipe the place of its old text.
            *result = DefWindowProcA(control, message, w, l);
            return true;
        default:
            return false;
    }
}

}  // namespace

void InstallMatrixControlView() {
    platform::SetControlView(kMatrixTag, ViewMatrixControl);
}

}  // namespace tess
