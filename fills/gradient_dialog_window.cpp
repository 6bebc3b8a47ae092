#include <windows.h>
#include <algorithm>

#include "controls/color_button.h"
#include "fills/gradient_dialog.h"
#include "fills/gradient_preview.h"
#include "pipeline/image_painting.h"
#include "platform/win32/views.h"

namespace tess {

namespace {

constexpr int kSampleInset = 2, kPreviewInset = 1;  // pixels of frame round a picture

/// Renders a gradient into the box less `inset` on each side. Without a picture what
/// was there stays.
void PaintGradient(const DRAWITEMSTRUCT& item, int inset, const Gradient& gradient) {
    const int width = item.rcItem.right - item.rcItem.left - 2 * inset;
    const int height = item.rcItem.bottom - item.rcItem.top - 2 * inset;
    if (width < 1 || height < 1) return;
    const platform::OwnedBlock picture(RenderGradient(width, height, gradient));
    PaintDib(item.hDC, inset, inset, picture.Get());
}

void PaintSample(const DRAWITEMSTRUCT& item, const Gradient& gradient) {
    const GradientType type = SampleType(static_cast<int>(item.CtlID));
    PaintGradient(item, kSampleInset,
                  SampleGradient(gradient, type, GetSysColor(COLOR_BTNHIGHLIGHT),
                                 GetSysColor(COLOR_3DDKSHADOW)));
    RECT box = item.rcItem;
    DrawEdge(item.hDC, &box, type == gradient.Type ? EDGE_SUNKEN : EDGE_RAISED, BF_RECT);
}

void PaintPreview(const DRAWITEMSTRUCT& item, const Gradient& gradient) {
    PaintGradient(item, kPreviewInset, gradient);
    FrameRect(item.hDC, &item.rcItem, GetSysColorBrush(COLOR_3DDKSHADOW));
    ForgetPreviewMarker();
    PostMessageA(item.hwndItem, DrawPreviewMarker, 0, 0);
}

bool PaintItem(const DRAWITEMSTRUCT& item) {
    const Gradient* gradient = EditedGradient();
    if (gradient == nullptr) return false;
    const platform::WindowHandle control = platform::HandleOf(item.hwndItem);
    switch (item.CtlID) {
        case kLinearButton:
        case kEllipticalButton:
        case kRectangularButton:
        case kConicalButton:
            PaintSample(item, *gradient);
            return true;
        case kGradientPreview:
            PaintPreview(item, *gradient);
            return true;
        case kStartColorButton:
            DrawColorButton(control, &item, gradient->StartColor, 0);
            return true;
        case kEndColorButton:
            DrawColorButton(control, &item, gradient->EndColor, 0);
            return true;
        default:
            // The fountain button paints itself, in its view.
            return SendMessageA(item.hwndItem, WM_DRAWITEM, item.CtlID,
                                reinterpret_cast<LPARAM>(&item)) != 0;
    }
}

void DrawMarker(HWND control, const PreviewMarker& marker) {
    constexpr int kMargin = 2;
    HDC context = GetDC(control);
    if (context == nullptr) return;
    RECT box;
    GetClientRect(control, &box);
    InflateRect(&box, -kMargin, -kMargin);
    IntersectClipRect(context, box.left, box.top, box.right, box.bottom);
    if (marker.IsLine) {
        const PreviewBar& line = marker.Bars[0];
        SetROP2(context, R2_NOT);
        MoveToEx(context, line.Left, line.Top, nullptr);
        LineTo(context, line.Right, line.Bottom);
    } else {
        for (const PreviewBar& bar : marker.Bars) {
            // Ordered, since the system moves a box of negative size by a pixel, onto
            // its neighbour.
            const auto [left, right] = std::minmax(bar.Left, bar.Right);
            const auto [top, bottom] = std::minmax(bar.Top, bar.Bottom);
            PatBlt(context, left, top, right - left, bottom - top, DSTINVERT);
        }
    }
    ReleaseDC(control, context);
}

bool ViewPreview(HWND control, UINT message, WPARAM, LPARAM, LRESULT*) {
    if (message == WM_ERASEBKGND) return true;  // a failed picture leaves the old one
    if (message != DrawPreviewMarker) return false;
    PreviewMarker marker;
    if (TakePreviewMarker(platform::HandleOf(control), &marker)) DrawMarker(control, marker);
    return true;
}

bool ViewGradientDialog(HWND, UINT message, WPARAM, LPARAM l, LRESULT*) {
    return message == WM_DRAWITEM && PaintItem(*reinterpret_cast<const DRAWITEMSTRUCT*>(l));
}

}  // namespace

void InstallGradientDialogView() {
    platform::SetDialogView(kGradientTemplate, ViewGradientDialog);
    platform::SetControlView(GradientPreview, ViewPreview);
}

}  // namespace tess
