#include <windows.h>

#include "fills/fountain_control.h"
#include "fills/fountain_editing.h"
#include "fills/fountain_markers.h"
#include "fills/fountain_mouse.h"
#include "pipeline/image_painting.h"
#include "platform/win32/painted_control.h"
#include "platform/win32/views.h"
#include "shell/control_contract.h"

namespace tess {

namespace {

platform::PixelSize ClientOf(HWND control) {
    return platform::ClientSize(platform::HandleOf(control));
}

RECT RectOf(const FountainBox& box) {
    return {box.Left, box.Top, box.Right, box.Bottom};
}

void Fill(HDC context, const FountainBox& box, int color) {
    const RECT area = RectOf(box);
    FillRect(context, &area, GetSysColorBrush(color));
}

void Frame(HDC context, const FountainBox& box, int color) {
    const RECT area = RectOf(box);
    FrameRect(context, &area, GetSysColorBrush(color));
}

void DrawTriangle(HDC context, const FountainTriangle& triangle) {
    POINT corners[3];
    for (int i = 0; i < 3; ++i)
        corners[i] = {triangle.X[i], triangle.Y[i]};
    Polygon(context, corners, 3);
}

void DrawStrip(HDC context, const FountainBox& box, ImageHandle preview, bool is_enabled) {
    const platform::OwnedBlock disabled(is_enabled ? nullptr : DisabledPreview(preview));
    const ImageHandle shown = is_enabled ? preview : disabled.Get();
    if (shown == nullptr) Fill(context, box, COLOR_BTNFACE);
    PaintDib(context, box.Left, box.Top, shown);
    Frame(context, box, is_enabled ? COLOR_BTNSHADOW : COLOR_BTNFACE);
}

void DrawMarkers(HDC context, const Fountain& fountain, platform::PixelSize client,
                 bool is_enabled) {
    std::int32_t columns[kFountainMarkers];
    MarkerColumns(fountain, client, columns);
    HPEN pen = CreatePen(PS_SOLID, 1, GetSysColor(is_enabled ? COLOR_3DDKSHADOW : COLOR_BTNSHADOW));
    if (pen == nullptr) return;
    const HGDIOBJ previous_pen = SelectObject(context, pen);
    const HGDIOBJ previous_brush =
        SelectObject(context, GetSysColorBrush(is_enabled ? COLOR_BTNSHADOW : COLOR_BTNFACE));
    for (int i = 0; i < MarkerCount(fountain); ++i)
        DrawTriangle(context, MarkerTriangle(columns[i]));
    SelectObject(context, previous_brush);
    SelectObject(context, previous_pen);
    DeleteObject(pen);
}

/// Inverts the outline of the dragged marker.
void InvertOutline(HDC context, const Fountain& fountain, platform::PixelSize client) {
    const int previous_mode = SetROP2(context, R2_NOT);
    const HGDIOBJ previous_brush = SelectObject(context, GetStockObject(NULL_BRUSH));
    DrawTriangle(context, MarkerTriangle(OutlineColumn(client, fountain.DragX)));
    SelectObject(context, previous_brush);
    SetROP2(context, previous_mode);
}

void PaintFountain(HWND control, HDC context, const Fountain& fountain) {
    const platform::PixelSize client = ClientOf(control);
    const bool is_enabled = IsWindowEnabled(control) != FALSE;
    const FountainBox whole = {0, 0, client.Width, client.Height};
    Fill(context, whole, COLOR_BTNHIGHLIGHT);
    Frame(context, whole, COLOR_BTNSHADOW);
    Fill(context, TrackBox(client), COLOR_BTNFACE);
    DrawStrip(context, StripBox(client), fountain.Preview, is_enabled);
    const int handle_color = is_enabled ? COLOR_3DDKSHADOW : COLOR_BTNSHADOW;
    Fill(context, LeftHandleBox(client), handle_color);
    if ((fountain.Flags & kFountainLooped) == 0) {
        Fill(context, RightHandleBox(client), handle_color);
    }
    DrawMarkers(context, fountain, client, is_enabled);
    if (fountain.OutlineShown != 0) InvertOutline(context, fountain, client);
}

void Paint(HWND control, HDC context) {
    const LockedFountain fountain = LockFountain(platform::HandleOf(control));
    if (fountain) PaintFountain(control, context, *fountain.Get());
}

void InvertShownOutline(HWND control) {
    UpdateWindow(control);  // what is due to be painted would hold the outline half
    const LockedFountain fountain = LockFountain(platform::HandleOf(control));
    HDC context = fountain ? GetDC(control) : nullptr;
    if (context == nullptr) return;
    InvertOutline(context, *fountain.Get(), ClientOf(control));
    ReleaseDC(control, context);
}

bool HandleFountain(HWND control, UINT message, WPARAM w, LPARAM l, LRESULT* result) {
    switch (message) {
        case WM_CAPTURECHANGED:
            if (reinterpret_cast<HWND>(l) != control) {
                CancelFountainDrag(platform::HandleOf(control));
            }
            return false;
        case InvertFountainOutline:
            InvertShownOutline(control);
            return true;
        default:
            return platform::ViewPaintedControl<Paint>(control, message, w, l, result);
    }
}

}  // namespace

void InstallFountainButtonView() {
    platform::SetControlView(kFountainTag, HandleFountain);
}

}  // namespace tess
