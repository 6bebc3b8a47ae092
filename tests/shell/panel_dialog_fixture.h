// A test's dialog with the main dialog's template and one style's panel, which opens
// much faster than the main dialog with all twenty. A test works in it while it
// opens, so it is never shown.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/headless_user.h"
#include "shell/control_contract.h"
#include "shell/main_dialog.h"
#include "shell/style_table.h"
#include "tests/shell/main_dialog_fixture.h"

namespace tess::test {

class PanelDialogTest : public MainDialogTest {
protected:
    /// Opens the dialog with the panel of Bubbles, bound, and lets `act` work in it.
    void InPanelDialog(const std::function<void(platform::WindowHandle)>& act) {
        act_ = act;
        shown_styles_ = 0;
        messages_.clear();
        platform::SetHeadlessUser(AnswerMessageBox, this);
        ASSERT_EQ(platform::RunDialog(kMainDialogTemplate, nullptr, Handle, this), 7);
        platform::SetHeadlessUser(nullptr, nullptr);
    }

    /// How often the dialog was told to show the selected style.
    [[nodiscard]] int ShownStyles() const { return shown_styles_; }
    [[nodiscard]] const std::vector<std::string>& Messages() const { return messages_; }

private:
    static constexpr int kBubbles = 1;

    static std::intptr_t Handle(platform::WindowHandle dialog, std::uint32_t message,
                                std::uintptr_t, std::intptr_t l) {
        static PanelDialogTest* test = nullptr;
        if (message == platform::kMessageOpen) {
            test = reinterpret_cast<PanelDialogTest*>(l);
            StyleContext context{};
            context.Dialog = dialog;
            EXPECT_EQ(PanelInit(*StyleTable[kBubbles], &context), 1);
            test->act_(dialog);
            platform::EndDialog(dialog, 7);
            return 1;
        }
        if (message == ShowStyle) ++test->shown_styles_;
        return 0;
    }
    static void AnswerMessageBox(platform::WindowHandle dialog, void* context) {
        static_cast<PanelDialogTest*>(context)->messages_.push_back(
            platform::ControlText(dialog, 101));
        platform::PostCommand(dialog, 1);
    }

    std::function<void(platform::WindowHandle)> act_;
    int shown_styles_ = 0;
    std::vector<std::string> messages_;
};

}  // namespace tess::test
