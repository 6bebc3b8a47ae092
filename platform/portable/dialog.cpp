// Dialogs as records. A dialog lives on the stack of its RunDialog; all dialogs
// share one queue of posted messages, as the windows of one thread do, so an
// inner dialog's loop also runs what was posted to an outer one.

#include "platform/dialog.h"

#include <algorithm>
#include <deque>

#include "platform/control_kinds.h"
#include "platform/headless_user.h"
#include "platform/portable/window_record.h"

namespace platform {

namespace {

constexpr std::uint32_t kStyleVisible = 0x10000000;
constexpr std::uint32_t kStyleDisabled = 0x08000000;
constexpr int kCancelId = 2;

struct PostedMessage {
    Window* window;
    std::uint32_t message;
    std::uintptr_t w;
    std::intptr_t l;
};
std::deque<PostedMessage> queue;
Window* captured = nullptr;  // the control that has the mouse

WindowKind KindOf(std::string_view window_class) {
    if (window_class == "BUTTON") return WindowKind::Button;
    if (window_class == "EDIT") return WindowKind::Edit;
    if (window_class == "STATIC") return WindowKind::Static;
    if (window_class == "COMBOBOX") return WindowKind::ComboBox;
    if (window_class == "LISTBOX") return WindowKind::ListBox;
    if (window_class == "msctls_updown32") return WindowKind::UpDown;
    if (window_class == "msctls_trackbar32") return WindowKind::Slider;
    return WindowKind::Other;
}

/// A control's box in the dialogs' font, whose characters are 6 pixels wide on
/// average and 13 high.
PixelSize PixelsOf(const TemplateControl& control) {
    return {control.width * 6 / 4, control.height * 13 / 8};
}

/// Runs what is in the queue, until it is empty or `dialog` has ended.
void RunQueue(const Window& dialog) {
    while (!dialog.ended && !queue.empty()) {
        const PostedMessage posted = queue.front();
        queue.pop_front();
        SendToWindow(posted.window, posted.message, posted.w, posted.l);
    }
}

void RunUntilEnded(Window* dialog) {
    for (RunQueue(*dialog); !dialog->ended; RunQueue(*dialog)) {
        if (AskHeadlessUser(dialog) != 0) continue;
        // No one is there to press a button, and waiting would never end.
        PostCommand(dialog, kCancelId);
        RunQueue(*dialog);
        if (!dialog->ended) EndDialog(dialog, -1);
    }
}

/// The controls outlive the dialog's message, as in the system's order, and each
/// then gets its own.
void Destroy(Window* dialog) {
    dialog->visible = false;
    SendToWindow(dialog, kMessageDestroy, 0, 0);
    for (const auto& child : dialog->children)
        SendToWindow(child.get(), kMessageDestroy, 0, 0);
    if (captured != nullptr && captured->parent == dialog) captured = nullptr;
    std::erase_if(queue, [dialog](const PostedMessage& posted) {
        return posted.window == dialog || posted.window->parent == dialog;
    });
}

std::intptr_t RunTemplate(const DialogTemplate* dialog_template, Window* owner,
                          DialogProcedure procedure, void* parameter) {
    if (dialog_template == nullptr) return -1;
    Window dialog;
    dialog.kind = WindowKind::Dialog;
    dialog.text = dialog_template->caption;
    dialog.dialog_procedure = procedure;
    dialog.template_name = dialog_template->name.empty() ? std::to_string(dialog_template->id)
                                                         : std::string(dialog_template->name);
    for (const TemplateControl& control : dialog_template->controls) {
        AddControl(&dialog, control, (control.style & kStyleVisible) != 0);
    }
    const bool owner_was_enabled = owner != nullptr && owner->enabled;
    if (owner != nullptr) owner->enabled = false;
    SendToWindow(&dialog, kMessageOpen, 0, reinterpret_cast<std::intptr_t>(parameter));
    if (!dialog.ended) dialog.visible = true;
    RunUntilEnded(&dialog);
    if (owner_was_enabled) owner->enabled = true;
    Destroy(&dialog);
    return dialog.result;
}

}  // namespace

Window* AddControl(Window* dialog, const TemplateControl& control, bool visible) {
    auto window = std::make_unique<Window>();
    window->kind = KindOf(control.window_class);
    window->id = control.id;
    window->style = control.style;
    window->text = control.text;
    window->visible = visible;
    window->enabled = (control.style & kStyleDisabled) == 0;
    window->parent = dialog;
    window->size = PixelsOf(control);
    dialog->children.push_back(std::move(window));
    return dialog->children.back().get();
}

std::intptr_t RunDialog(int dialog_template, WindowHandle owner, DialogProcedure procedure,
                        void* parameter) {
    return RunTemplate(FindDialogTemplate(dialog_template), owner, procedure, parameter);
}

std::intptr_t RunDialog(const char* dialog_template, WindowHandle owner, DialogProcedure procedure,
                        void* parameter) {
    return RunTemplate(FindDialogTemplate(dialog_template), owner, procedure, parameter);
}

void EndDialog(WindowHandle dialog, std::intptr_t result) {
    if (dialog == nullptr) return;
    dialog->ended = true;
    dialog->result = result;
}

int ClonePanel(int dialog_template, WindowHandle dialog) {
    const DialogTemplate* panel = FindDialogTemplate(dialog_template);
    if (panel == nullptr || dialog == nullptr) return 0;
    for (const TemplateControl& control : panel->controls)
        AddControl(dialog, control, false);
    return 1;
}

void SetTitle(WindowHandle dialog, const char* text) {
    if (dialog != nullptr) dialog->text = text;
}

std::string Title(WindowHandle dialog) {
    return dialog == nullptr ? std::string() : dialog->text;
}

bool IsWindowVisible(WindowHandle window) {
    return window != nullptr && window->visible &&
           (window->parent == nullptr || window->parent->visible);
}

void CenterOnScreen(WindowHandle) {}

void UpdateWindow(WindowHandle) {}

void PostCommand(WindowHandle dialog, int id) {
    PostToWindow(dialog, kMessageCommand, static_cast<std::uintptr_t>(id) & 0xFFFF, 0);
}

void PostToWindow(WindowHandle window, std::uint32_t message, std::uintptr_t w, std::intptr_t l) {
    if (window != nullptr) queue.push_back({window, message, w, l});
}

std::intptr_t SendToWindow(WindowHandle window, std::uint32_t message, std::uintptr_t w,
                           std::intptr_t l) {
    if (window == nullptr) return 0;
    if (window->kind == WindowKind::Dialog) {
        return window->dialog_procedure == nullptr
                   ? 0
                   : window->dialog_procedure(window, message, w, l);
    }
    return window->control_procedure == nullptr ? CallOriginal(window, message, w, l)
                                                : window->control_procedure(window, message, w, l);
}

std::vector<WindowHandle> Children(WindowHandle dialog) {
    std::vector<WindowHandle> children;
    if (dialog == nullptr) return children;
    for (const auto& child : dialog->children)
        children.push_back(child.get());
    return children;
}

WindowHandle Control(WindowHandle dialog, int id) {
    if (dialog == nullptr) return nullptr;
    const auto child = std::find_if(dialog->children.begin(), dialog->children.end(),
                                    [id](const auto& candidate) { return candidate->id == id; });
    return child == dialog->children.end() ? nullptr : child->get();
}

int ControlId(WindowHandle control) {
    return control == nullptr ? 0 : control->id;
}

std::string ControlClass(WindowHandle control) {
    if (control == nullptr) return "";
    switch (control->kind) {
        case WindowKind::Button:
            return "BUTTON";
        case WindowKind::Edit:
            return "EDIT";
        case WindowKind::Static:
            return "STATIC";
        case WindowKind::ComboBox:
            return "COMBOBOX";
        case WindowKind::ListBox:
            return "LISTBOX";
        case WindowKind::UpDown:
            return "MSCTLS_UPDOWN32";
        case WindowKind::Slider:
            return "MSCTLS_TRACKBAR32";
        case WindowKind::Dialog:
        case WindowKind::Other:
            return "";
    }
    return "";
}

WindowHandle ParentDialog(WindowHandle control) {
    return control == nullptr ? nullptr : control->parent;
}

std::string_view TemplateOf(WindowHandle dialog) {
    return dialog == nullptr ? std::string_view() : dialog->template_name;
}

void CaptureMouse(WindowHandle control) {
    captured = control;
}

void ReleaseMouse() {
    captured = nullptr;
}

bool HasMouse(WindowHandle control) {
    return control != nullptr && control == captured;
}

void StartTimer(WindowHandle window, int timer, int milliseconds) {
    if (window != nullptr) window->timers[timer] = milliseconds;
}

void StopTimer(WindowHandle window, int timer) {
    if (window != nullptr) window->timers.erase(timer);
}

int DoubleClickTime() {
    return 500;
}

int TimerInterval(WindowHandle window, int timer) {
    if (window == nullptr) return 0;
    const auto found = window->timers.find(timer);
    return found == window->timers.end() ? 0 : found->second;
}

WaitCursor::WaitCursor() : previous_(nullptr) {}
WaitCursor::~WaitCursor() {
    static_cast<void>(previous_);
}

}  // namespace platform
