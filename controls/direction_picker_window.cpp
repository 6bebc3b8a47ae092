#include <windows.h>

#include "controls/arrow_strip.h"
#include "controls/direction_picker.h"
#include "platform/resources.h"
#include "platform/win32/control_background.h"
#include "platform/win32/painted_control.h"
#include "platform/win32/views.h"
#include "shell/control_contract.h"

namespace tess {

namespace {

constexpr int kSelectedShift = 2, kRaisedShift = 1;  // of an arrow in its cell, pixels

/// Draws a cell without its arrow. Returns its colour.
ColorWord DrawCell(HDC context, RECT box, bool is_selected) {
    const int color = is_selected ? COLOR_BTNSHADOW : COLOR_BTNFACE;
    FillRect(context, &box, GetSysColorBrush(color));
    if (is_selected) {
        FrameRect(context, &box, GetSysColorBrush(COLOR_3DDKSHADOW));
    } else {
        DrawEdge(context, &box, EDGE_RAISED, BF_RECT | BF_SOFT);
    }
    return GetSysColor(color);
}

void DrawArrow(HDC context, const BitmapFile& strip, int index, ColorWord background, POINT place) {
    const ArrowPicture picture = BlendArrow(strip, index, background);
    BITMAPINFO header = {};
    header.bmiHeader.biSize = sizeof header.bmiHeader;
    header.bmiHeader.biWidth = kArrowSize;
    header.bmiHeader.biHeight = -kArrowSize;  // from the top
    header.bmiHeader.biPlanes = 1;
    header.bmiHeader.biBitCount = 32;
    SetDIBitsToDevice(context, place.x, place.y, kArrowSize, kArrowSize, 0, 0, 0, kArrowSize,
                      picture.Bytes, &header, DIB_RGB_COLORS);
}

/// Fills what no cell covers.
void FillBetweenCells(HWND control, HDC context, const PickerLayout& layout) {
    const int saved = SaveDC(context);
    for (const auto [left, top] : layout.Cells)
        ExcludeClipRect(context, left, top, left + kPickerCellSize, top + kPickerCellSize);
    RECT box;
    GetClientRect(control, &box);
    platform::FillBehindControl(control, context, box);
    RestoreDC(context, saved);
}

void PaintPicker(HWND control, HDC context) {
    const platform::WindowHandle handle = platform::HandleOf(control);
    if (const PickerLayout* layout = FindPickerLayout(platform::ControlTag(handle))) {
        const std::uint32_t selected =
            SelectedDirection(platform::ParentDialog(handle), platform::ControlId(handle));
        BitmapFile strip;
        const bool has_strip = OpenBitmapFile(platform::FindData(layout->ArrowStrip), &strip);
        FillBetweenCells(control, context, *layout);
        int index = 0;
        for (const auto [left, top] : layout->Cells) {
            const bool is_selected = selected == static_cast<std::uint32_t>(index);
            const RECT box = {left, top, left + kPickerCellSize, top + kPickerCellSize};
            const ColorWord background = DrawCell(context, box, is_selected);
            const int shift = (is_selected ? kSelectedShift : kRaisedShift) + 1;
            if (has_strip) {
                DrawArrow(context, strip, index, background, {left + shift, top + shift});
            }
            ++index;
        }
    }
}

bool HandlePicker(HWND control, UINT message, WPARAM w, LPARAM l, LRESULT* result) {
    switch (message) {
        case WM_LBUTTONDOWN:
            SetCapture(control);  // the button beneath releases it
            return false;
        case WM_LBUTTONDBLCLK:
            // The second of two quick presses counts as any other.
            *result = SendMessageA(control, WM_LBUTTONDOWN, w, l);
            return true;
        default:
            return platform::ViewPaintedControl<PaintPicker>(control, message, w, l, result);
    }
}

}  // namespace

void InstallDirectionPickerView() {
    for (const char* tag : {kShadowDirectionTag, kScroll4Tag, kScroll2Tag, kScrollHvTag})
        platform::SetControlView(tag, HandlePicker);
}

}  // namespace tess
