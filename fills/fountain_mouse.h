// The mouse on a fountain button: a marker is dragged with the left button, and what a
// double click or the right button hits says which of the button's own messages follows.
#pragma once

#include "platform/dialog.h"

namespace tess {

/// Goes to the control past its procedure: the outline of the dragged marker, at the drag
/// point, is drawn by inverting what is there, or drawn away so.
inline constexpr std::uint32_t InvertFountainOutline = 1440;

/// Handles a message of the mouse. Returns false for one of another kind.
bool HandleFountainMouse(platform::WindowHandle control, std::uint32_t message, std::intptr_t l);

/// Ends a drag whose mouse has been taken away; the marker stays where it was.
void CancelFountainDrag(platform::WindowHandle control);

}  // namespace tess
