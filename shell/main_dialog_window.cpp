// What the main dialog paints: the live sample, the line with its size, the logo, and
// the colour buttons of all panels. Any other owner-drawn control is sent the request
// that the dialog got.

#include <windows.h>
#include <string>

#include "controls/color_button.h"
#include "controls/dialog_view.h"
#include "pipeline/image_painting.h"
#include "platform/win32/views.h"
#include "shell/configuration.h"
#include "shell/control_contract.h"
#include "shell/logo.h"
#include "shell/main_dialog.h"

namespace tess {

namespace {

using platform::HandleOf;

/// Fills the parts of `box` that `picture` leaves free. A picture that reaches beyond
/// the box leaves parts outside it, which the clip takes away.
void FillMargin(HDC device, const RECT& box, const RECT& picture, ColorWord color) {
    HRGN margin = CreateRectRgnIndirect(&box);
    HRGN covered = CreateRectRgnIndirect(&picture);
    CombineRgn(margin, margin, covered, RGN_XOR);
    HBRUSH brush = CreateSolidBrush(color & 0xFFFFFF);  // the top byte is none of GDI's
    FillRgn(device, margin, brush);
    DeleteObject(brush);
    DeleteObject(covered);
    DeleteObject(margin);
}

RECT PictureBox(const RECT& box, const Sample& sample) {
    const LockedImage image(sample.Image);
    const LONG left = box.left + sample.OffsetX, top = box.top + sample.OffsetY;
    return {left, top, left + image->Width, top + image->Height};
}

void PaintSample(HWND dialog, const DRAWITEMSTRUCT& item) {
    RECT box = item.rcItem;
    FrameRect(item.hDC, &box, GetSysColorBrush(COLOR_BTNSHADOW));
    InflateRect(&box, -1, -1);
    const int saved = SaveDC(item.hDC);
    IntersectClipRect(item.hDC, box.left, box.top, box.right, box.bottom);
    const Sample sample =
        RenderSample(HandleOf(dialog), box.right - box.left, box.bottom - box.top);
    const platform::OwnedBlock picture(sample.Image);
    if (!picture) {
        FillRect(item.hDC, &box, GetSysColorBrush(COLOR_BTNFACE));
    } else {
        RECT covered = PictureBox(box, sample);
        FillMargin(item.hDC, box, covered, sample.Margin);
        PaintDib(item.hDC, covered.left, covered.top, sample.Image);
        if (SampleWindowKeyLine != 0) {
            InflateRect(&covered, 1, 1);
            FrameRect(item.hDC, &covered, static_cast<HBRUSH>(GetStockObject(LTGRAY_BRUSH)));
        }
    }
    RestoreDC(item.hDC, saved);
}

void PaintSizeLine(HWND dialog, const DRAWITEMSTRUCT& item) {
    RECT box = item.rcItem;
    FillRect(item.hDC, &box, GetSysColorBrush(COLOR_BTNFACE));
    FrameRect(item.hDC, &box, GetSysColorBrush(COLOR_BTNSHADOW));
    InflateRect(&box, -4, -2);
    const std::string text = platform::ControlText(HandleOf(dialog), kSizeLine);
    SetBkMode(item.hDC, TRANSPARENT);
    SetTextColor(item.hDC, GetSysColor(COLOR_BTNTEXT));
    DrawTextA(item.hDC, text.c_str(), static_cast<int>(text.size()), &box,
              DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX);
}

bool PaintItem(HWND dialog, const DRAWITEMSTRUCT& item) {
    const int id = static_cast<int>(item.CtlID);
    switch (id) {
        case kSampleBox:
            PaintSample(dialog, item);
            return true;
        case kSizeLine:
            PaintSizeLine(dialog, item);
            return true;
        case kLogo:
            PaintLogo(&item);
            return true;
        default:
            break;
    }
    const platform::WindowHandle control = HandleOf(item.hwndItem);
    if (std::string_view(platform::ControlTag(control)) != kColorButtonTag) {
        // Other kinds of control paint themselves, in their views.
        return SendMessageA(item.hwndItem, WM_DRAWITEM, item.CtlID,
                            reinterpret_cast<LPARAM>(&item)) != 0;
    }
    DrawColorButton(control, &item, platform::ControlNumber(HandleOf(dialog), id, false),
                    kMainDialogColorButton);
    return true;
}

bool ViewMainDialog(HWND window, UINT message, WPARAM w, LPARAM l, LRESULT*) {
    const platform::WindowHandle dialog = HandleOf(window);
    StepLogo(dialog, kLogo, w);
    switch (message) {
        case WM_INITDIALOG:
            StartLogo(dialog, kLogo);
            return true;
        case WM_DRAWITEM:
            return PaintItem(window, *reinterpret_cast<const DRAWITEMSTRUCT*>(l));
        case WM_DESTROY:
            StopLogo(dialog, kLogo);
            break;
        default:
            break;
    }
    return false;
}

}  // namespace

void InstallMainDialogView() {
    platform::SetDialogView(kMainDialogTemplate, ViewMainDialog);
}

}  // namespace tess
