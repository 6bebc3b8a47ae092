#include "platform/headless_user.h"

#include "platform/portable/window_record.h"

namespace platform {

namespace {

UserProcedure headless_user = nullptr;
void* headless_user_context = nullptr;

constexpr std::uint32_t kButtonKind = 0x0F;  // the bits of a style that tell what a button is
constexpr std::uint32_t kAutoCheckBox = 3;

/// The control if a user could reach it, else null.
Window* Reachable(Window* dialog, int id) {
    return IsControlEnabled(dialog, id) && IsControlVisible(dialog, id) ? Control(dialog, id)
                                                                        : nullptr;
}

}  // namespace

void SetHeadlessUser(UserProcedure user, void* context) {
    headless_user = user;
    headless_user_context = context;
}

int AskHeadlessUser(Window* dialog) {
    if (headless_user == nullptr) return 0;
    headless_user(dialog, headless_user_context);
    return 1;
}

std::string_view TemplateOf(WindowHandle dialog) {
    return dialog == nullptr ? std::string_view() : dialog->template_name;
}

int RepaintCount(WindowHandle dialog, int id) {
    const Window* control = Control(dialog, id);
    return control == nullptr ? 0 : control->repaints;
}

void ClickControl(WindowHandle dialog, int id) {
    Window* control = Reachable(dialog, id);
    if (control == nullptr) return;
    if (control->kind == WindowKind::Button && (control->style & kButtonKind) == kAutoCheckBox) {
        control->checked = !control->checked;
    }
    Notify(control, Notification::Clicked);
}

void ChooseItem(WindowHandle dialog, int id, int index) {
    Window* control = Reachable(dialog, id);
    if (control == nullptr) return;
    SetSelection(dialog, id, index);
    Notify(control, Notification::ListSelected);
    if (control->kind == WindowKind::ComboBox) Notify(control, Notification::ComboClosed);
}

void TypeText(WindowHandle dialog, int id, std::string_view text) {
    if (Reachable(dialog, id) != nullptr) SetControlText(dialog, id, text);
}

}  // namespace platform
