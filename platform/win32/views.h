// Views: what only windows need of a dialog or a control, painting, the mouse,
// timers. Windows-only sources (<name>_window.cpp) add them to the procedures
// that both builds share. Windows only.
#pragma once

#include <windows.h>

#include "platform/dialog.h"

namespace platform {

/// Handles a message of a window. Returns true when it did, with the answer to
/// the message in `result` (0 at first).
using ViewProcedure = bool (*)(HWND window, UINT message, WPARAM w, LPARAM l, LRESULT* result);

/// Adds a view to the dialogs made from a template. It is asked about every
/// message but those that the dialog's procedure has handled (commands, and the
/// program's own messages); it sees WM_INITDIALOG and WM_DESTROY always, after
/// the procedure, and its answer to them does not count. A template has one view.
void SetDialogView(int dialog_template, ViewProcedure view);
void SetDialogView(const char* dialog_template, ViewProcedure view);
/// Adds a view to all dialogs, asked about what a template's own view leaves over.
void SetCommonDialogView(ViewProcedure view);

/// Adds a view to the controls that InstallControl gives a tag, or a procedure. It
/// is asked about each message that the procedure passes on with CallOriginal,
/// before the control itself. A tag or procedure has one view; the procedure's
/// counts where both have one.
void SetControlView(const char* tag, ViewProcedure view);
void SetControlView(ControlProcedure procedure, ViewProcedure view);

[[nodiscard]] inline HWND WindowOf(WindowHandle handle) {
    return reinterpret_cast<HWND>(handle);
}
[[nodiscard]] inline WindowHandle HandleOf(HWND window) {
    return reinterpret_cast<WindowHandle>(window);
}

}  // namespace platform
