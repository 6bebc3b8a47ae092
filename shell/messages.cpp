// Texts of the string table and messages to the user.
#include <algorithm>
#include <iterator>
#include <string_view>

#include "controls/skinned_button.h"
#include "platform/resources.h"
#include "shell/control_contract.h"

namespace tess {

namespace {

constexpr int kMessageText = 101;
constexpr int kButtons[] = {kOkButton, kCancelButton, kYesButton, kNoButton};

/// The procedure of the three message templates: shows the text that it is given,
/// and ends with the number of whichever button is pressed.
std::intptr_t MessageProcedure(platform::WindowHandle dialog, std::uint32_t message,
                               std::uintptr_t w, std::intptr_t l) {
    if (message == platform::kMessageOpen) {
        platform::SetControlText(dialog, kMessageText, reinterpret_cast<const char*>(l));
        for (const int button : kButtons)
            SkinButton(dialog, button);
        platform::FocusControl(dialog, kOkButton);
        platform::CenterOnScreen(dialog);
        return 1;
    }
    if (message == platform::kMessageCommand) {
        const int id = platform::CommandId(w);
        if (std::find(std::begin(kButtons), std::end(kButtons), id) == std::end(kButtons)) return 0;
        platform::EndDialog(dialog, id);
        return 1;
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
