// The three looks of skinned buttons. Each paints one button from a draw request,
// its state in the request's bits, and ends with the text.

#include <windows.h>
#include <string>

#include "controls/skinned_button.h"
#include "platform/win32/control_background.h"
#include "platform/win32/painted_control.h"
#include "platform/win32/views.h"

namespace tess {

namespace {

bool IsPressed(const DRAWITEMSTRUCT& item) {
    return (item.itemState & ODS_SELECTED) != 0;
}
bool IsDisabled(const DRAWITEMSTRUCT& item) {
    return (item.itemState & ODS_DISABLED) != 0;
}

ButtonBox BoxOf(const RECT& box) {
    return {box.left, box.top, box.right, box.bottom};
}

void FillColor(HDC context, const ButtonBox& box, ColorWord color) {
    const RECT area = {box.Left, box.Top, box.Right, box.Bottom};
    HBRUSH brush = CreateSolidBrush(color);
    if (brush == nullptr) return;
    FillRect(context, &area, brush);
    DeleteObject(brush);
}

void DrawGradient(HDC context, const ButtonBox& box, ColorWord from, ColorWord to) {
    GradientLines lines(from, to, box.Bottom - box.Top);
    for (int y = box.Top; y < box.Bottom; ++y, lines.Advance()) {
        HPEN pen = CreatePen(PS_SOLID, 1, lines.Color());
        if (pen == nullptr) return;
        const HGDIOBJ previous = SelectObject(context, pen);
        MoveToEx(context, box.Left, y, nullptr);
        LineTo(context, box.Right, y);
        SelectObject(context, previous);
        DeleteObject(pen);
    }
}

/// Fills the top two rows and the left two columns.
void DrawPressedCorner(HDC context, const ButtonBox& box) {
    const ColorWord shadow = GetSysColor(COLOR_BTNSHADOW);
    FillColor(context, {box.Left, box.Top, box.Right, box.Top + 2}, shadow);
    FillColor(context, {box.Left, box.Top, box.Left + 2, box.Bottom}, shadow);
}

/// A one-pixel frame that leaves the four corner pixels out.
void DrawOutline(HDC context, const ButtonBox& box) {
    const ColorWord shadow = GetSysColor(COLOR_BTNSHADOW);
    FillColor(context, {box.Left + 1, box.Top, box.Right - 1, box.Top + 1}, shadow);
    FillColor(context, {box.Left + 1, box.Bottom - 1, box.Right - 1, box.Bottom}, shadow);
    FillColor(context, {box.Left, box.Top + 1, box.Left + 1, box.Bottom - 1}, shadow);
    FillColor(context, {box.Right - 1, box.Top + 1, box.Right, box.Bottom - 1}, shadow);
}

/// Keeps the four corner pixels as what lies behind the button.
void ClipCorners(const DRAWITEMSTRUCT& item) {
    const RECT& box = item.rcItem;
    for (const POINT corner :
         {POINT{box.left, box.top}, POINT{box.right - 1, box.top}, POINT{box.left, box.bottom - 1},
          POINT{box.right - 1, box.bottom - 1}}) {
        const RECT pixel = {corner.x, corner.y, corner.x + 1, corner.y + 1};
        platform::FillBehindControl(item.hwndItem, item.hDC, pixel);
        ExcludeClipRect(item.hDC, pixel.left, pixel.top, pixel.right, pixel.bottom);
    }
}

void DrawSkinText(const DRAWITEMSTRUCT& item) {
    const std::string text = platform::Title(platform::HandleOf(item.hwndItem));
    const ButtonBox place = SkinTextBox(BoxOf(item.rcItem), IsPressed(item));
    RECT box = {place.Left, place.Top, place.Right, place.Bottom};
    SetBkMode(item.hDC, TRANSPARENT);
    SetTextColor(item.hDC, GetSysColor(IsDisabled(item) ? COLOR_BTNSHADOW : COLOR_BTNTEXT));
    DrawTextA(item.hDC, text.c_str(), static_cast<int>(text.size()), &box,
              DT_CENTER | DT_VCENTER | DT_SINGLELINE);
}

void DrawGradientLook(const DRAWITEMSTRUCT& item) {
    const ButtonBox box = BoxOf(item.rcItem);
    const ColorWord face = GetSysColor(COLOR_BTNFACE);
    ClipCorners(item);
    FillColor(item.hDC, box, face);
    if (IsPressed(item)) DrawPressedCorner(item.hDC, box);
    const GradientBoxes gradients = GradientLookBoxes(box, IsPressed(item));
    DrawGradient(item.hDC, gradients.Upper, GetSysColor(COLOR_BTNHIGHLIGHT),
                 GetSysColor(COLOR_BTNSHADOW));
    DrawGradient(item.hDC, gradients.Lower, MidwayToWhite(GetSysColor(COLOR_3DDKSHADOW)), face);
    DrawOutline(item.hDC, box);
}

/// An edge around a gradient that is lit from below, or when pressed from above.
void DrawBevelledLook(const DRAWITEMSTRUCT& item) {
    const ButtonBox box = BoxOf(item.rcItem);
    const bool is_pressed = IsPressed(item);
    const ColorWord shadow = GetSysColor(COLOR_BTNSHADOW);
    const ColorWord highlight = GetSysColor(COLOR_BTNHIGHLIGHT);
    FillColor(item.hDC, box, GetSysColor(COLOR_BTNFACE));
    DrawGradient(item.hDC, {box.Left + 2, box.Top + 2, box.Right - 2, box.Bottom - 2},
                 is_pressed ? highlight : shadow, is_pressed ? shadow : highlight);
    RECT edge = item.rcItem;
    DrawEdge(item.hDC, &edge, is_pressed ? EDGE_SUNKEN : EDGE_RAISED, BF_RECT);
    if (is_pressed) DrawPressedCorner(item.hDC, box);
}

void DrawRoundedLook(const DRAWITEMSTRUCT& item) {
    const ButtonBox box = BoxOf(item.rcItem);
    ClipCorners(item);
    FillColor(item.hDC, box, GetSysColor(COLOR_BTNFACE));
    if (IsPressed(item)) DrawPressedCorner(item.hDC, box);
    DrawOutline(item.hDC, box);
}

void DrawSkin(const DRAWITEMSTRUCT& item) {
    const int saved = SaveDC(item.hDC);
    switch (LookOf(SkinButtons)) {
        case ButtonLook::Rounded:
            DrawRoundedLook(item);
            break;
        case ButtonLook::Bevelled:
            DrawBevelledLook(item);
            break;
        case ButtonLook::Gradient:
            DrawGradientLook(item);
            break;
    }
    DrawSkinText(item);
    RestoreDC(item.hDC, saved);
}

void PaintSkinnedButton(HWND button, HDC context) {
    DRAWITEMSTRUCT item = {};
    item.CtlType = ODT_BUTTON;
    item.CtlID = static_cast<UINT>(GetDlgCtrlID(button));
    item.itemAction = ODA_DRAWENTIRE;
    item.hwndItem = button;
    item.hDC = context;
    GetClientRect(button, &item.rcItem);
    if (IsSkinPressed(platform::HandleOf(button))) item.itemState |= ODS_SELECTED;
    if (IsWindowEnabled(button) == FALSE) item.itemState |= ODS_DISABLED;
    const auto font = reinterpret_cast<HGDIOBJ>(SendMessageA(GetParent(button), WM_GETFONT, 0, 0));
    const HGDIOBJ previous = font != nullptr ? SelectObject(context, font) : nullptr;
    DrawSkin(item);
    if (previous != nullptr) SelectObject(context, previous);
}

bool HandleSkinnedButton(HWND button, UINT message, WPARAM w, LPARAM l, LRESULT* result) {
    switch (message) {
        case WM_LBUTTONDBLCLK:
            // An owner-drawn button would take the second of two quick presses for
            // something else than a press.
            *result = SendMessageA(button, WM_LBUTTONDOWN, w, l);
            return true;
        case WM_GETDLGCODE:
            // So that Enter presses the button that has the focus, as it does a plain
            // push button.
            *result =
                DLGC_BUTTON | (GetFocus() == button ? DLGC_DEFPUSHBUTTON : DLGC_UNDEFPUSHBUTTON);
            return true;
        case BM_SETSTYLE:
            // The dialog manager marks default buttons by a style that would take the
            // place of the owner-drawn one.
            return true;
        default:
            return platform::ViewPaintedControl<PaintSkinnedButton>(button, message, w, l, result);
    }
}

}  // namespace

void InstallSkinnedButtonView() {
    platform::SetControlView(SkinnedButtonProcedure, HandleSkinnedButton);
}

}  // namespace tess
