#include <windows.h>
#include <string>

#include "fills/curve_graph.h"
#include "pipeline/image_painting.h"
#include "platform/win32/views.h"

namespace tess {

namespace {

void PaintHandle(HDC device, const CurveHandle& handle) {
    constexpr int kHalf = 3;
    const RECT square = {handle.X - kHalf, handle.Y - kHalf, handle.X + kHalf, handle.Y + kHalf};
    FillRect(device, &square, static_cast<HBRUSH>(GetStockObject(BLACK_BRUSH)));
}

void PaintNumber(HDC device, const CurveBox& area, int point, const CurveHandle& handle,
                 float value) {
    constexpr int kMargin = 2;
    const std::string text = std::to_string(HandleNumber(value));
    const int length = static_cast<int>(text.size());
    SIZE size = {};
    GetTextExtentPoint32A(device, text.c_str(), length, &size);
    const CurveBox place =
        PlaceNumber(area, point, handle, {size.cx + 2 * kMargin, size.cy + 2 * kMargin});
    RECT box = {place.Left, place.Top, place.Right, place.Bottom};
    FillRect(device, &box, GetSysColorBrush(COLOR_INFOBK));
    FrameRect(device, &box, static_cast<HBRUSH>(GetStockObject(BLACK_BRUSH)));
    SetTextColor(device, GetSysColor(COLOR_INFOTEXT));
    SetBkMode(device, TRANSPARENT);
    DrawTextA(device, text.c_str(), length, &box,
              DT_CENTER | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX);
}

void PaintCurve(const DRAWITEMSTRUCT& item, const CurveGraph& graph) {
    const platform::WindowHandle control = platform::HandleOf(item.hwndItem);
    const platform::PixelSize client = platform::ClientSize(control);
    const CurveBox area = CurveArea(client);
    const int saved = SaveDC(item.hDC);
    FrameRect(item.hDC, &item.rcItem, GetSysColorBrush(COLOR_3DDKSHADOW));
    IntersectClipRect(item.hDC, 1, 1, client.Width - 1, client.Height - 1);
    const platform::OwnedBlock picture(DrawCurveGraph(client, graph));
    PaintDib(item.hDC, 0, 0, picture.Get());
    const int held = HeldHandle(control);
    for (int point = 0; point < kCurvePoints; ++point) {
        const float value = CurvePoint(*graph.Item, graph.Channel, point);
        const CurveHandle handle = PlaceHandle(area, point, value);
        PaintHandle(item.hDC, handle);
        if (point == held) PaintNumber(item.hDC, area, point, handle, value);
    }
    RestoreDC(item.hDC, saved);
}

bool ViewCurve(HWND window, UINT message, WPARAM, LPARAM l, LRESULT* result) {
    if (message == WM_ERASEBKGND) {
        *result = 1;  // the curve covers all of it
        return true;
    }
    const CurveGraph graph = CurveGraphOf(platform::HandleOf(window));
    if (message != WM_DRAWITEM || !graph) return false;
    PaintCurve(*reinterpret_cast<const DRAWITEMSTRUCT*>(l), graph);
    *result = TRUE;
    return true;
}

}  // namespace

void InstallCurveGraphView() {
    platform::SetControlView(CurveGraphProcedure, ViewCurve);
}

}  // namespace tess
