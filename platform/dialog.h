// Dialogs as tables of controls by id.
//
// On Windows these are real windows made from the real templates. Natively they
// are records made from the same templates, so that everything but painting and
// the mouse runs there too: a dialog opens, its procedure gets its messages, and
// posted commands wait in a queue. Where Windows would wait for the user, the
// native build asks the headless user (platform/headless_user.h).
//
// Message numbers and notification codes are those of Windows in both builds.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/screen.h"

namespace platform {

struct Window;  // never defined: a dialog or a control, a HWND on Windows
using WindowHandle = Window*;

/// Messages that a dialog procedure gets. The system's own numbers.
inline constexpr std::uint32_t kMessageDestroy = 0x0002;
inline constexpr std::uint32_t kMessageOpen = 0x0110;     ///< `l`: the parameter of RunDialog
inline constexpr std::uint32_t kMessageCommand = 0x0111;  ///< `w`: id, and notification << 16
inline constexpr std::uint32_t kMessageTimer = 0x0113;    ///< `w`: the timer's id
inline constexpr std::uint32_t kMessageSlider = 0x0114;   ///< `w`: see kSliderReleased

/// Messages of the mouse that a control's procedure gets, with the place in `l`.
inline constexpr std::uint32_t kMessageMouseMove = 0x0200;
inline constexpr std::uint32_t kMessageLeftButtonDown = 0x0201;
inline constexpr std::uint32_t kMessageLeftButtonUp = 0x0202;
inline constexpr std::uint32_t kMessageLeftDoubleClick = 0x0203;
inline constexpr std::uint32_t kMessageRightButtonDown = 0x0204;
inline constexpr std::uint32_t kMessageRightButtonUp = 0x0205;
inline constexpr std::uint32_t kMessageRightDoubleClick = 0x0206;

/// Notifications of controls, the high half of a command's `w`.
enum class Notification : std::uint16_t {
    Clicked = 0,            // a button, or a posted command
    ListSelected = 1,       // a list box or combo box: the selection changes
    ListDoubleClicked = 2,  // a list box: an item was clicked twice
    ComboClosed = 8,        // a combo box: its list closes, the selection stands
    EditChanged = 0x0300,   // an edit: its text has changed
};

constexpr int CommandId(std::uintptr_t w) {
    return static_cast<int>(w & 0xFFFF);
}
constexpr Notification CommandNotification(std::uintptr_t w) {
    return static_cast<Notification>((w >> 16) & 0xFFFF);
}

/// The place in a message of the mouse, in pixels from the control's top left.
constexpr int MouseX(std::intptr_t l) {
    return static_cast<std::int16_t>(l & 0xFFFF);
}
constexpr int MouseY(std::intptr_t l) {
    return static_cast<std::int16_t>((l >> 16) & 0xFFFF);
}
constexpr std::intptr_t MousePlace(int x, int y) {
    return static_cast<std::intptr_t>((static_cast<std::uint32_t>(y) & 0xFFFF) << 16 |
                                      (static_cast<std::uint32_t>(x) & 0xFFFF));
}

/// Handles a message of a dialog. Returns nonzero when it did.
using DialogProcedure = std::intptr_t (*)(WindowHandle dialog, std::uint32_t message,
                                          std::uintptr_t w, std::intptr_t l);

/// Stands before a control's own handling of messages (see InstallControl).
/// Returns the message's result; calls CallOriginal for what it passes on.
using ControlProcedure = std::intptr_t (*)(WindowHandle control, std::uint32_t message,
                                           std::uintptr_t w, std::intptr_t l);

/// Runs the DIALOG resource `dialog_template` modally. Returns what EndDialog was
/// given, or -1 when it could not be made.
std::intptr_t RunDialog(int dialog_template, WindowHandle owner, DialogProcedure procedure,
                        void* parameter);
/// The same for a template that is known by name ("MESSAGEBOX").
std::intptr_t RunDialog(const char* dialog_template, WindowHandle owner, DialogProcedure procedure,
                        void* parameter);
/// Ends the modal run of `dialog` with `result`, once its procedure has returned.
void EndDialog(WindowHandle dialog, std::intptr_t result);

/// Copies every control of the DIALOG resource `dialog_template` into `dialog`,
/// hidden, with the ids of the template, in template order. Returns 0 when the
/// template or a control could not be made.
[[nodiscard]] int ClonePanel(int dialog_template, WindowHandle dialog);

void SetTitle(WindowHandle dialog, const char* text);
[[nodiscard]] std::string Title(WindowHandle dialog);
/// True for a dialog once it is shown, which is after its kMessageOpen, and for a
/// control that is shown in such a dialog.
[[nodiscard]] bool IsWindowVisible(WindowHandle window);
void CenterOnScreen(WindowHandle dialog);
void UpdateWindow(WindowHandle window);
/// Queues a command (notification Clicked) for the dialog's procedure.
void PostCommand(WindowHandle dialog, int id);
/// Queues any message.
void PostToWindow(WindowHandle window, std::uint32_t message, std::uintptr_t w, std::intptr_t l);
/// Runs the window's procedure at once.
std::intptr_t SendToWindow(WindowHandle window, std::uint32_t message, std::uintptr_t w,
                           std::intptr_t l);

// Controls by id. For an id that the dialog does not have, the queries return
// 0 or empty and the rest does nothing.

/// Returns the control, or null.
[[nodiscard]] WindowHandle Control(WindowHandle dialog, int id);
/// Returns all children of the dialog in the system's order: template order, then
/// the clones in the order in which they were made.
[[nodiscard]] std::vector<WindowHandle> Children(WindowHandle dialog);
[[nodiscard]] int ControlId(WindowHandle control);
/// The window class in capitals: "EDIT", "BUTTON", "COMBOBOX", "LISTBOX", ...
[[nodiscard]] std::string ControlClass(WindowHandle control);
[[nodiscard]] WindowHandle ParentDialog(WindowHandle control);

[[nodiscard]] std::string ControlText(WindowHandle dialog, int id);
/// Setting the text of an edit sends the dialog a command with EditChanged.
void SetControlText(WindowHandle dialog, int id, std::string_view text);
/// The edit's or button's text as a number, as the system reads it: leading
/// blanks, a sign only where `is_signed`, then digits; 0 when it is none, or is
/// followed by anything else, or does not fit.
[[nodiscard]] std::uint32_t ControlNumber(WindowHandle dialog, int id, bool is_signed);
void SetControlNumber(WindowHandle dialog, int id, std::uint32_t value, bool is_signed);
/// Lets the user type no more than `characters` into an edit.
void LimitText(WindowHandle dialog, int id, int characters);
/// Selects the whole text of an edit.
void SelectText(WindowHandle dialog, int id);

[[nodiscard]] bool IsChecked(WindowHandle dialog, int id);
void SetChecked(WindowHandle dialog, int id, bool checked);

/// The selected index of a combo box or list box, -1 for none.
[[nodiscard]] int Selection(WindowHandle dialog, int id);
/// An index out of range clears the selection.
void SetSelection(WindowHandle dialog, int id, int index);
void ClearItems(WindowHandle dialog, int id);
void AddItem(WindowHandle dialog, int id, std::string_view text);
[[nodiscard]] int ItemCount(WindowHandle dialog, int id);
[[nodiscard]] std::string ItemText(WindowHandle dialog, int id, int index);

void SetUpDownRange(WindowHandle dialog, int id, int minimum, int maximum);
void SetUpDownPosition(WindowHandle dialog, int id, int position);

/// The low half of kMessageSlider's `w` at the end of a movement.
inline constexpr std::uintptr_t kSliderReleased = 8;
/// A mark stands at every `tick`th position.
void SetSliderRange(WindowHandle dialog, int id, int minimum, int maximum, int tick);
/// Holds the position in the range; tells no one.
void SetSliderPosition(WindowHandle dialog, int id, int position);
[[nodiscard]] int SliderPosition(WindowHandle dialog, int id);

void EnableControl(WindowHandle dialog, int id, bool enabled);
[[nodiscard]] bool IsControlEnabled(WindowHandle dialog, int id);
void ShowControl(WindowHandle dialog, int id, bool visible);
/// Whether the control itself is shown, be its dialog shown yet or not.
[[nodiscard]] bool IsControlVisible(WindowHandle dialog, int id);
void FocusControl(WindowHandle dialog, int id);
/// Gives a control a size in pixels; its left top corner stays.
void SetControlSize(WindowHandle dialog, int id, int width, int height);
/// The size of a control's inside in pixels. Natively that of its box, in the
/// measure of the dialogs' font, until SetControlSize.
[[nodiscard]] PixelSize ClientSize(WindowHandle control);
void RepaintControl(WindowHandle dialog, int id);

/// Gives a control all messages of the mouse until ReleaseMouse.
void CaptureMouse(WindowHandle control);
void ReleaseMouse();
[[nodiscard]] bool HasMouse(WindowHandle control);

/// Sends `window` kMessageTimer every `milliseconds`, from now on; a timer that
/// runs starts anew. Natively no time passes: the headless user sends the message.
void StartTimer(WindowHandle window, int timer, int milliseconds);
void StopTimer(WindowHandle window, int timer);

/// How many milliseconds two presses of a double click may lie apart: the user's
/// choice, natively the system's usual one.
[[nodiscard]] int DoubleClickTime();

/// Puts `procedure` before the control's own, with a class tag that
/// ControlTag then returns; replaces what was installed before. The procedure
/// passes on what it does not know: on Windows it gets every message, painting and
/// mouse as well. A null procedure passes on all. Requires: `tag` outlives the
/// control.
void InstallControl(WindowHandle dialog, int id, const char* tag, ControlProcedure procedure);
/// Leaves the painting of a button to its owner or to what is installed on it.
void MakeOwnerDrawn(WindowHandle dialog, int id);
/// Lets the control handle a message as if nothing were installed.
std::intptr_t CallOriginal(WindowHandle control, std::uint32_t message, std::uintptr_t w,
                           std::intptr_t l);
/// The six letters that were installed, or "" for a plain control.
[[nodiscard]] const char* ControlTag(WindowHandle control);
/// The control's user-data slot, null at first.
void SetUserData(WindowHandle control, void* data);
[[nodiscard]] void* UserData(WindowHandle control);

/// Shows the wait pointer for a scope.
class WaitCursor {
public:
    WaitCursor();
    WaitCursor(const WaitCursor&) = delete;
    WaitCursor& operator=(const WaitCursor&) = delete;
    ~WaitCursor();

private:
    void* previous_;
};

}  // namespace platform
