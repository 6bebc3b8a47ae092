// A dialog with one material button, on a button of the main dialog, with a folder and a
// host of its own.
#pragma once

#include <filesystem>
#include <functional>
#include <string>

#include "controls/current_host.h"
#include "fills/material_control.h"
#include "platform/files.h"
#include "platform/keyboard.h"
#include "platform/popup_menu.h"
#include "shell/control_contract.h"
#include "tests/platform/dialog_fixture.h"
#include "tests/support/scratch_folder.h"

namespace tess::test {

class MaterialButtonTest : public DialogFixture {
protected:
    static constexpr int kButton = kSampleBox;
    static constexpr ColorWord kColor = 0x4080C0;
    static constexpr int kWidth = 80, kHeight = 40;  ///< of the button

    MaterialButtonTest() {
        current_ = this;
        std::filesystem::create_directories(folder_.File("Quorvenstadtholme/Tessellomatics 1"));
        platform::SetUserFolder(folder_.Path());
        services_.HostCall = Answer;
        CurrentHost = &services_;
    }
    ~MaterialButtonTest() override {
        platform::SetMenuAnswer(nullptr, nullptr);
        platform::HoldShift(false);
        platform::SetUserFolder("");
        CurrentHost = nullptr;
    }

    /// Opens the dialog, makes the button and does `action`; then all that was posted
    /// runs, and `afterwards` is done before the dialog closes.
    void WithButton(const Handler& action, const Handler& afterwards = nullptr) {
        int step = 0;
        on_user = [&](platform::WindowHandle dialog) {
            if (platform::TemplateOf(dialog) != "1000") return on_inner(dialog);
            switch (step++) {
                case 0:
                    platform::SetControlSize(dialog, kButton, kWidth, kHeight);
                    platform::SetControlText(dialog, kButton, text);
                    BindMaterialButton(dialog, kButton, kColor);
                    log.clear();
                    return action(dialog);
                case 1:
                    if (afterwards) afterwards(dialog);
                    [[fallthrough]];
                default:
                    return platform::EndDialog(dialog, 0);
            }
        };
        ASSERT_EQ(Run(1000), 0);
    }

    static platform::WindowHandle Button(platform::WindowHandle dialog) {
        return platform::Control(dialog, kButton);
    }
    static LockedMaterial MaterialIn(platform::WindowHandle dialog) {
        return LockMaterial(Button(dialog));
    }
    [[nodiscard]] std::string FileName() const {
        return folder_.File("Quorvenstadtholme/Tessellomatics 1/Material00025.mtrl");
    }

    /// What the user does in a dialog that the button opens.
    Handler on_inner = [](platform::WindowHandle dialog) { platform::PostCommand(dialog, 2); };
    std::int64_t chooser_color = -1;  ///< -1: the user cancels
    std::string text;                 ///< of the button

    ScratchFolder folder_;

private:
    static std::int64_t Answer(TaskRecord*, std::int64_t op, std::int64_t, std::int64_t b) {
        if (op != static_cast<std::int64_t>(HostOp::ChooseColor)) return 0;
        if (current_->chooser_color < 0) return 0;
        reinterpret_cast<ColorDialogRecord*>(static_cast<std::intptr_t>(b))->Color =
            static_cast<ColorWord>(current_->chooser_color);
        return 1;
    }

    static inline MaterialButtonTest* current_ = nullptr;
    HostServices services_{};
};

}  // namespace tess::test
