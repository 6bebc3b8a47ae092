#include "shell/about_dialog.h"

#include "controls/help.h"
#include "controls/skinned_button.h"
#include "platform/browser.h"
#include "shell/control_contract.h"
#include "shell/logo.h"
#include "shell/module_folder.h"

namespace tess {

namespace {

using platform::WindowHandle;

constexpr int kCloseButton = 1;

std::intptr_t AboutProcedure(WindowHandle dialog, std::uint32_t message, std::uintptr_t w,
                             std::intptr_t) {
    StepLogo(dialog, kAboutLogo, w);
    if (message == platform::kMessageOpen) {
        for (const int button : {kCloseButton, int{kHelpButton}, kWebPageButton})
            SkinButton(dialog, button);
        platform::CenterOnScreen(dialog);
        return 1;
    }
    if (message != platform::kMessageCommand) return 0;
    switch (platform::CommandId(w)) {
        case kCloseButton:
        case kCancelButton:  // the Escape key, and the close box
            platform::EndDialog(dialog, 0);
            return 1;
        case kHelpButton:
            ShowHelp(dialog, "PREFACE");
            return 1;
        case kWebPageButton:
            // The page that lies beside the library, in the user's own browser.
            platform::OpenPage(ModuleFolder + kHelpFile);
            return 1;
        default:
            return 0;
    }
}

}  // namespace

void RunAbout(WindowHandle owner) {
    platform::RunDialog(kAboutTemplate, owner, AboutProcedure, nullptr);
}

}  // namespace tess
