#include "fills/fountain_mouse.h"

#include "fills/fountain_control.h"
#include "fills/fountain_editing.h"
#include "fills/fountain_markers.h"
#include "platform/keyboard.h"

namespace tess {

namespace {

using platform::WindowHandle;

void InvertOutline(WindowHandle control) {
    platform::CallOriginal(control, InvertFountainOutline, 0, 0);
}

void Post(WindowHandle control, std::uint32_t message, int index, std::intptr_t place = 0) {
    platform::PostToWindow(control, message, static_cast<std::uintptr_t>(index), place);
}

void Press(WindowHandle control, int x, int y) {
    const LockedFountain fountain = LockFountain(control);
    if (!fountain) return;
    const int marker = MarkerAt(*fountain.Get(), platform::ClientSize(control), x, y);
    if (marker < 0) return;
    platform::CaptureMouse(control);
    fountain->Selected = marker;
    fountain->PressX = fountain->DragX = x;
    fountain->PressY = fountain->DragY = y;
    InvertOutline(control);
    fountain->OutlineShown = 1;
    fountain->Dragging = 1;
}

void Drag(WindowHandle control, int x, int y) {
    const LockedFountain fountain = LockFountain(control);
    if (!fountain || fountain->Dragging == 0 || !platform::HasMouse(control)) return;
    if (fountain->OutlineShown != 0) InvertOutline(control);
    fountain->DragX = x;
    fountain->DragY = y;
    InvertOutline(control);
    fountain->OutlineShown = 1;
}

/// Ends the drag. Returns whether the marker has been moved, with its new position.
bool EndDrag(WindowHandle control, int* position) {
    const LockedFountain fountain = LockFountain(control);
    if (!fountain) return false;
    const bool is_moved = fountain->Dragging != 0 && fountain->DragX != fountain->PressX;
    if (fountain->OutlineShown != 0) InvertOutline(control);
    fountain->OutlineShown = 0;
    fountain->Dragging = 0;
    *position = DropPosition(platform::ClientSize(control), fountain->DragX);
    return is_moved;
}

void Release(WindowHandle control) {
    if (!platform::HasMouse(control)) return;
    int position = 0;
    if (EndDrag(control, &position)) MoveSelectedMarker(control, position);
    ShowFountainChange(control);
    platform::ReleaseMouse();
}

FountainHit Hit(WindowHandle control, int x, int y) {
    const LockedFountain fountain = LockFountain(control);
    return fountain ? HitFountain(*fountain.Get(), platform::ClientSize(control), x, y)
                    : FountainHit{};
}

void DoubleClick(WindowHandle control, int x, int y) {
    const FountainHit hit = Hit(control, x, y);
    switch (hit.Part) {
        case FountainPart::StartHandle:
            return Post(control, ChooseFountainColor, kFountainStart);
        case FountainPart::EndHandle:
            return Post(control, ChooseFountainColor, kFountainEnd);
        case FountainPart::Marker:
            return Post(control, ChooseFountainColor, hit.Marker);
        case FountainPart::Track:
            return Post(control, AddFountainMarker,
                        TrackPosition(platform::ClientSize(control), x));
        case FountainPart::Strip:
        case FountainPart::None:
            return;
    }
}

void RightPress(WindowHandle control, int x, int y) {
    const FountainHit hit = Hit(control, x, y);
    switch (hit.Part) {
        case FountainPart::Strip:
            return Post(control, ShowFountainLibraryMenu, 0, platform::MousePlace(x, y));
        case FountainPart::StartHandle:
            return Post(control, ChooseFountainColor, kFountainStart);
        case FountainPart::EndHandle:
            return Post(control, ChooseFountainColor, kFountainEnd);
        case FountainPart::Marker:
            if (platform::IsShiftHeld()) return Post(control, DeleteFountainMarker, hit.Marker);
            return Post(control, ShowFountainMarkerMenu, hit.Marker, platform::MousePlace(x, y));
        case FountainPart::Track:
        case FountainPart::None:
            return;
    }
}

}  // namespace

bool HandleFountainMouse(WindowHandle control, std::uint32_t message, std::intptr_t l) {
    const int x = platform::MouseX(l), y = platform::MouseY(l);
    switch (message) {
        case platform::kMessageLeftButtonDown:
            Press(control, x, y);
            return true;
        case platform::kMessageMouseMove:
            Drag(control, x, y);
            return true;
        case platform::kMessageLeftButtonUp:
            Release(control);
            return true;
        case platform::kMessageLeftDoubleClick:
            DoubleClick(control, x, y);
            return true;
        case platform::kMessageRightButtonDown:
            RightPress(control, x, y);
            return true;
        default:
            return false;
    }
}

void CancelFountainDrag(WindowHandle control) {
    {
        const LockedFountain fountain = LockFountain(control);
        if (!fountain || fountain->Dragging == 0) return;
        fountain->OutlineShown = 0;
        fountain->Dragging = 0;
    }
    platform::RepaintControl(platform::ParentDialog(control), platform::ControlId(control));
}

}  // namespace tess
