#include <windows.h>

#include "fills/matrix_control.h"
#include "pipeline/image_painting.h"
#include "platform/win32/painted_control.h"
#include "platform/win32/views.h"
#include "shell/control_contract.h"

namespace tess {

namespace {

void PaintControl(HWND control, HDC device) {
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
}

}  // namespace

void InstallMatrixControlView() {
    platform::SetControlView(kMatrixTag, platform::ViewPaintedControl<PaintControl>);
}

}  // namespace tess
