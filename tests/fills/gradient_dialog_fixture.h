// The gradient dialog with a user who takes one step each time it has nothing to do.
#pragma once

#include <deque>
#include <functional>
#include <gtest/gtest.h>
#include <string>

#include "controls/current_host.h"
#include "fills/gradient_dialog.h"
#include "platform/headless_user.h"

namespace tess::test {

class GradientDialogTest : public testing::Test {
protected:
    using Step = std::function<void(platform::WindowHandle)>;
    static constexpr int kOk = 1, kCancel = 2, kHelp = 9;

    GradientDialogTest() {
        current_ = this;
        services_.HostCall = Answer;
        CurrentHost = &services_;
        gradient.Type = GradientType::Linear;
        gradient.StartColor = 0x404040;
        gradient.EndColor = 0xC0C0C0;
        gradient.Midpoint = 50;
        gradient.TwoColor = 1;
        InitFountain(&gradient.Ramp, FountainPreset::OneGrey);
    }
    ~GradientDialogTest() override {
        platform::SetHeadlessUser(nullptr, nullptr);
        CurrentHost = nullptr;
    }

    /// Opens the dialog on `gradient`, takes the steps, and ends it by `last_button`.
    int Edit(std::deque<Step> steps, int last_button = kOk) {
        steps_ = std::move(steps);
        last_button_ = last_button;
        platform::SetHeadlessUser(TakeStep, this);
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
    static void Mouse(platform::WindowHandle dialog, int id, std::uint32_t message, int x, int y) {
        platform::SendToWindow(platform::Control(dialog, id), message, 0,
                               platform::MousePlace(x, y));
    }

    Gradient gradient{};
    std::int64_t chooser_color = -1;  ///< -1: the user cancels
    ColorWord chooser_start = 0;
    std::string help_target;

private:
    static void TakeStep(platform::WindowHandle dialog, void* context) {
        auto* test = static_cast<GradientDialogTest*>(context);
        if (test->steps_.empty()) return platform::PostCommand(dialog, test->last_button_);
        const Step step = test->steps_.front();
        test->steps_.pop_front();
        step(dialog);
    }
    static std::int64_t Answer(TaskRecord*, std::int64_t op, std::int64_t, std::int64_t b) {
        const auto place = static_cast<std::intptr_t>(b);
        if (op == static_cast<std::int64_t>(HostOp::ShowHelp)) {
            current_->help_target = reinterpret_cast<const char*>(place);
            return 1;
        }
        if (op != static_cast<std::int64_t>(HostOp::ChooseColor)) return 0;
        auto* record = reinterpret_cast<ColorDialogRecord*>(place);
        current_->chooser_start = record->Color;
        if (current_->chooser_color < 0) return 0;
        record->Color = static_cast<ColorWord>(current_->chooser_color);
        return 1;
    }

    static inline GradientDialogTest* current_ = nullptr;
    HostServices services_{};
    std::deque<Step> steps_;
    int last_button_ = kOk;
};

}  // namespace tess::test
