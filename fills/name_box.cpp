#include "fills/name_box.h"

#include "controls/skinned_button.h"
#include "shell/control_contract.h"

namespace tess {

namespace {

using platform::WindowHandle;

constexpr int kNameEdit = 101;
constexpr int kMostCharacters = 260;

void OpenNameBox(WindowHandle dialog, std::string* name) {
    SkinButton(dialog, kOkButton);
    SkinButton(dialog, kCancelButton);
    platform::SetUserData(platform::Control(dialog, kNameEdit), name);
    platform::LimitText(dialog, kNameEdit, kMostCharacters);
    platform::SetControlText(dialog, kNameEdit, *name);
    platform::SelectText(dialog, kNameEdit);
    platform::EnableControl(dialog, kOkButton, !name->empty());
    platform::FocusControl(dialog, kNameEdit);
    platform::CenterOnScreen(dialog);
}

void OnCommand(WindowHandle dialog, int id, platform::Notification notification) {
    const std::string text = platform::ControlText(dialog, kNameEdit);
    if (id == kNameEdit && notification == platform::Notification::EditChanged) {
        platform::EnableControl(dialog, kOkButton, !text.empty());
    } else if (id == kOkButton && !text.empty()) {
        *static_cast<std::string*>(platform::UserData(platform::Control(dialog, kNameEdit))) = text;
        platform::EndDialog(dialog, 1);
    } else if (id == kCancelButton) {
        platform::EndDialog(dialog, 0);
    }
}

std::intptr_t NameBoxProcedure(WindowHandle dialog, std::uint32_t message, std::uintptr_t w,
                               std::intptr_t l) {
    if (message == platform::kMessageOpen) {
        OpenNameBox(dialog, reinterpret_cast<std::string*>(l));
        return 0;  // the focus has been set
    }
    if (message != platform::kMessageCommand) return 0;
    OnCommand(dialog, platform::CommandId(w), platform::CommandNotification(w));
    return 1;
}

}  // namespace

bool AskName(WindowHandle owner, int dialog_template, std::string* name) {
    return platform::RunDialog(dialog_template, owner, NameBoxProcedure, name) == 1;
}

}  // namespace tess
