// Texts of the string table and messages to the user.
#include <cstring>
#include <string_view>

#include "controls/skinned_button.h"
#include "platform/resources.h"
#include "shell/control_contract.h"

namespace tess {

namespace {

constexpr int kMessageText = 101;
constexpr int kFocusedButton = 1;
constexpr int kYesButton = 6;

/// The procedure of the three message templates: shows the text that it is given,
/// and ends with the number of whichever button is pressed.
std::intptr_t MessageProcedure(platform::WindowHandle dialog, std::uint32_t message,
                               std::uintptr_t w, std::intptr_t l) {
    if (message == platform::kMessageOpen) {
        platform::SetControlText(dialog, kMessageText, reinterpret_cast<const char*>(l));
        for (const int button : {1, 2, kYesButton, 7})
            SkinButton(dialog, button);
        platform::FocusControl(dialog, kFocusedButton);
        platform::CenterOnScreen(dialog);
        return 1;
    }
    if (message == platform::kMessageCommand) {
        switch (const int id = platform::CommandId(w)) {
            case 1:  // OK
            case 2:  // Cancel
            case kYesButton:
            case 7:  // No
                platform::EndDialog(dialog, id);
                return 1;
            default:
                return 0;
        }
    }
    return 0;
}

}  // namespace

const char* LoadStringText(int id) {
    static char buffer[1024];
    std::string_view text = platform::FindString(id);
    if (text.empty()) text = "String table error - this application may be damaged";
    buffer[text.copy(buffer, sizeof buffer - 1)] = '\0';
    return buffer;
}

void ShowMessage(platform::WindowHandle owner, const char* text) {
    platform::RunDialog("MESSAGEBOX", owner, MessageProcedure, const_cast<char*>(text));
    if (owner != nullptr) platform::UpdateWindow(owner);
}

bool AskYesNo(platform::WindowHandle owner, const char* text) {
    const std::intptr_t answer =
        platform::RunDialog("YESNOBOX", owner, MessageProcedure, const_cast<char*>(text));
    if (owner != nullptr) platform::UpdateWindow(owner);
    return answer == kYesButton;
}

}  // namespace tess
