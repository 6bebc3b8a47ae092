// The gradient dialog with a user who takes one step each time it has nothing to do.
#pragma once

#include "fills/gradient_dialog.h"
#include "tests/fills/stepping_user.h"

namespace tess::test {

class GradientDialogTest : public SteppingUserTest {
protected:
    GradientDialogTest() {
        gradient.Type = GradientType::Linear;
        gradient.StartColor = 0x404040;
        gradient.EndColor = 0xC0C0C0;
        gradient.Midpoint = 50;
        gradient.TwoColor = 1;
        InitFountain(&gradient.Ramp, FountainPreset::OneGrey);
    }
    /// Opens the dialog on `gradient`, takes the steps, and ends it by `last_button`.
    int Edit(std::deque<Step> steps, int last_button = kOk) {
        SetSteps(std::move(steps), last_button);
        return EditGradient(nullptr, &gradient);
    }

    static bool IsOn(platform::WindowHandle dialog, int id) {
        return platform::IsControlEnabled(dialog, id);
    }
    /// How often the preview is repainted in `action`.
    static int Repaints(platform::WindowHandle dialog, const std::function<void()>& action) {
        const int before = platform::RepaintCount(dialog, kGradientPreview);
        action();
        return platform::RepaintCount(dialog, kGradientPreview) - before;
    }
    Gradient gradient{};
};

}  // namespace tess::test
