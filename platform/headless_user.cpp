#include "platform/headless_user.h"

#include "platform/control_kinds.h"

namespace platform {

namespace {

UserProcedure headless_user = nullptr;
void* headless_user_context = nullptr;

bool IsReachable(WindowHandle dialog, int id) {
    return IsControlEnabled(dialog, id) && IsControlVisible(dialog, id);
}

void Notify(WindowHandle dialog, int id, Notification notification) {
    const auto code = static_cast<std::uintptr_t>(notification);
    SendToWindow(dialog, kMessageCommand, (static_cast<std::uintptr_t>(id) & 0xFFFF) | code << 16,
                 reinterpret_cast<std::intptr_t>(Control(dialog, id)));
}

}  // namespace

void SetHeadlessUser(UserProcedure user, void* context) {
    headless_user = user;
    headless_user_context = context;
}

int AskHeadlessUser(WindowHandle dialog) {
    if (headless_user == nullptr) return 0;
    headless_user(dialog, headless_user_context);
    return 1;
}

void ClickControl(WindowHandle dialog, int id) {
    if (!IsReachable(dialog, id)) return;
    if (IsAutoCheckBox(dialog, id)) SetChecked(dialog, id, !IsChecked(dialog, id));
    Notify(dialog, id, Notification::Clicked);
}

void ChooseItem(WindowHandle dialog, int id, int index) {
    if (!IsReachable(dialog, id)) return;
    SetSelection(dialog, id, index);
    Notify(dialog, id, Notification::ListSelected);
    if (IsComboBox(dialog, id)) Notify(dialog, id, Notification::ComboClosed);
}

void DoubleClickItem(WindowHandle dialog, int id, int index) {
    if (!IsReachable(dialog, id)) return;
    ChooseItem(dialog, id, index);
    Notify(dialog, id, Notification::ListDoubleClicked);
}

void MoveSlider(WindowHandle dialog, int id, int position) {
    if (!IsReachable(dialog, id)) return;
    SetSliderPosition(dialog, id, position);
    SendToWindow(dialog, kMessageSlider, kSliderReleased,
                 reinterpret_cast<std::intptr_t>(Control(dialog, id)));
}

void TypeText(WindowHandle dialog, int id, std::string_view text) {
    if (IsReachable(dialog, id)) SetControlText(dialog, id, text.substr(0, TextLimit(dialog, id)));
}

}  // namespace platform
