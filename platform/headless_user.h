// A stand-in for the user, for the command line and the tests: code that is
// asked what to do whenever a modal dialog has nothing left to do. It works the
// same in both builds.
#pragma once

#include <string_view>

#include "platform/dialog.h"

namespace platform {

/// Called with the innermost modal dialog each time its queue has run empty. It
/// may set controls and post commands; the dialog goes on until EndDialog.
using UserProcedure = void (*)(WindowHandle dialog, void* context);

/// Sets the stand-in (null: none). Without one a native dialog that runs empty
/// gets the Cancel command (2), and is ended with -1 should that not end it; on
/// Windows the real user is waited for.
void SetHeadlessUser(UserProcedure user, void* context);

/// The template that the dialog was made from: its number as text, or its name.
[[nodiscard]] std::string_view TemplateOf(WindowHandle dialog);

/// The interval of a timer of the window in milliseconds, 0 when it does not run.
[[nodiscard]] int TimerInterval(WindowHandle window, int timer);

/// How often RepaintControl has been called for the control.
[[nodiscard]] int RepaintCount(WindowHandle dialog, int id);

// What a user does to a control; each notifies the dialog as the real thing, and
// does nothing to a disabled or hidden control.

/// Presses a button; a check box changes its state first.
void ClickControl(WindowHandle dialog, int id);
/// Picks an item of a combo box (and closes its list) or of a list box.
void ChooseItem(WindowHandle dialog, int id, int index);
/// Clicks an item of a list box twice, which selects it.
void DoubleClickItem(WindowHandle dialog, int id, int index);
/// Moves a slider and lets it go.
void MoveSlider(WindowHandle dialog, int id, int position);
/// Replaces an edit's text, as far as its limit lets.
void TypeText(WindowHandle dialog, int id, std::string_view text);

}  // namespace platform
