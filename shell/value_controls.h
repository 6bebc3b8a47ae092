// The controls that hold one plain value, each with a class tag and the variable
// it feeds: colour buttons, spinners, check boxes, lists, font names. A control
// writes itself as a document's line (SaveControl), reads itself back
// (LoadControl), and updates its variable on a change (UpdateBinding).
//
// The variable must outlive the control; a control without one loads all the
// same.
#pragma once

#include <cstdint>

#include "platform/dialog.h"

namespace tess {

/// The size of a bound text, its final NUL included.
inline constexpr int kBoundTextBytes = 260;

// Each sets the control from the variable, gives it its behaviour and binds it.

void BindColorButton(platform::WindowHandle dialog, int id, std::uint32_t* value);
/// Sets range and position of the up-down `id` + 10000 from its caption first.
void BindSpinner(platform::WindowHandle dialog, int id, std::uint32_t* value);
/// A spinner whose variable is its value as decimal text.
void BindSignedSpinner(platform::WindowHandle dialog, int id, char* text);
void BindCheckBox(platform::WindowHandle dialog, int id, std::uint32_t* value);
/// Fills the combo box or list box with `items`, separated by ";" (runs count as
/// one, items are cut at 260 bytes), unless that is null.
void BindChoiceList(platform::WindowHandle dialog, int id, const char* items, std::uint32_t* value);
/// A combo box of font names; `text` has kBoundTextBytes.
void BindFontBox(platform::WindowHandle dialog, int id, char* text);
/// Lets font boxes whose items are drawn by their owner draw them. Windows only.
void InstallFontBoxView();

/// Updates the binding of control `id` after `notification`, by its class tag; a
/// colour button runs the host's colour chooser. Returns whether a sample has to be
/// repainted: not when the control does not act on the notification, or the chooser was
/// cancelled; always for a control with a tag of its own, which acts by itself.
bool UpdateBinding(platform::WindowHandle dialog, int id, platform::Notification notification);

}  // namespace tess
