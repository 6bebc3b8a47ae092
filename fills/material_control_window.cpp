#include <windows.h>
#include <string>

#include "controls/color_button.h"
#include "fills/material_control.h"
#include "pipeline/image_painting.h"
#include "platform/win32/painted_control.h"
#include "platform/win32/views.h"
#include "shell/control_contract.h"

namespace tess {

namespace {

RECT RectOf(const MaterialBox& box) {
    return {box.Left, box.Top, box.Right, box.Bottom};
}

/// The triangle, with a line in the shadow colour along its upper right side.
void PaintTriangle(HDC context, const MaterialTriangle& triangle, bool is_enabled) {
    const POINT corners[] = {{triangle.Left, triangle.Top},
                             {triangle.Right, triangle.Top},
                             {triangle.Tip, triangle.Bottom}};
    const int color = is_enabled ? COLOR_3DDKSHADOW : COLOR_BTNHIGHLIGHT;
    const int saved = SaveDC(context);
    SelectObject(context, GetSysColorBrush(color));
    SelectObject(context, GetStockObject(DC_PEN));
    SetDCPenColor(context, GetSysColor(color));
    Polygon(context, corners, 3);
    SetDCPenColor(context, GetSysColor(COLOR_BTNSHADOW));
    MoveToEx(context, triangle.Right, triangle.Top, nullptr);
    LineTo(context, triangle.Tip, triangle.Bottom);
    RestoreDC(context, saved);
}

void PaintArrow(HDC context, const MaterialBox& arrow, bool is_pressed, bool is_enabled) {
    RECT box = RectOf(arrow);
    FillRect(context, &box, GetSysColorBrush(COLOR_BTNFACE));
    PaintTriangle(context, TriangleIn(arrow, is_pressed), is_enabled);
    DrawEdge(context, &box, is_pressed ? EDGE_SUNKEN : EDGE_RAISED, BF_RECT);
}

void PaintText(HWND control, HDC context, RECT box, ColorWord average) {
    const std::string text = platform::Title(platform::HandleOf(control));
    if (text.empty()) return;
    const int saved = SaveDC(context);
    const auto font = reinterpret_cast<HGDIOBJ>(SendMessageA(GetParent(control), WM_GETFONT, 0, 0));
    if (font != nullptr) SelectObject(context, font);
    SetBkMode(context, TRANSPARENT);
    SetTextColor(context, ColorButtonTextColor(average));
    DrawTextA(context, text.c_str(), static_cast<int>(text.size()), &box,
              DT_CENTER | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX);
    RestoreDC(context, saved);
}

void PaintFace(HWND control, HDC context, const Material& material, bool is_enabled) {
    const platform::PixelSize client = platform::ClientSize(platform::HandleOf(control));
    const MaterialBox picture = MaterialFaceRect(client);
    RECT inside = RectOf(picture);
    FillRect(context, &inside, GetSysColorBrush(COLOR_BTNFACE));
    if (is_enabled) {
        PaintDib(context, picture.Left, picture.Top, material.Preview);
        PaintText(control, context, inside, material.AverageColor);
    }
    RECT face = RectOf(MaterialFace(client));
    DrawEdge(context, &face, (material.Pressed & kFacePressed) != 0 ? EDGE_SUNKEN : EDGE_RAISED,
             BF_RECT);
}

void PaintMaterialButton(HWND control, HDC context) {
    const platform::WindowHandle handle = platform::HandleOf(control);
    RECT client;
    GetClientRect(control, &client);
    FrameRect(context, &client, static_cast<HBRUSH>(GetStockObject(BLACK_BRUSH)));
    const LockedMaterial material = LockMaterial(handle);
    if (!material) return;
    const bool is_enabled = IsWindowEnabled(control) != FALSE;
    PaintArrow(context, MaterialArrow(platform::ClientSize(handle)),
               (material->Pressed & kArrowPressed) != 0, is_enabled);
    PaintFace(control, context, *material.Get(), is_enabled);
}

bool ViewMaterialButton(HWND control, UINT message, WPARAM w, LPARAM l, LRESULT* result) {
    if (message == WM_DRAWITEM) {
        // What the button beneath asks its dialog for, and that sends on.
        PaintMaterialButton(control, reinterpret_cast<const DRAWITEMSTRUCT*>(l)->hDC);
        *result = TRUE;
        return true;
    }
    return platform::ViewPaintedControl<PaintMaterialButton>(control, message, w, l, result);
}

}  // namespace

void InstallMaterialButtonView() {
    platform::SetControlView(kMaterialTag, ViewMaterialButton);
}

}  // namespace tess
