// A test of a dialog with a user who takes one step each time it has nothing to do, and a
// host that answers for its colour chooser and its help.
#pragma once

#include <deque>
#include <functional>
#include <gtest/gtest.h>
#include <string>

#include "controls/current_host.h"
#include "platform/headless_user.h"

namespace tess::test {

class SteppingUserTest : public testing::Test {
protected:
    using Step = std::function<void(platform::WindowHandle)>;
    static constexpr int kOk = 1, kCancel = 2, kHelp = 9;

    SteppingUserTest() {
        current_ = this;
        services_.HostCall = Answer;
        CurrentHost = &services_;
    }
    ~SteppingUserTest() override {
        platform::SetHeadlessUser(nullptr, nullptr);
        CurrentHost = nullptr;
    }

    /// What the user does in the dialog that opens next: the steps, then `last_button`.
    void SetSteps(std::deque<Step> steps, int last_button) {
        steps_ = std::move(steps);
        last_button_ = last_button;
        platform::SetHeadlessUser(TakeStep, this);
    }
    static void Mouse(platform::WindowHandle dialog, int id, std::uint32_t message, int x, int y) {
        platform::SendToWindow(platform::Control(dialog, id), message, 0,
                               platform::MousePlace(x, y));
    }

    std::int64_t chooser_color = -1;  ///< -1: the user cancels
    ColorWord chooser_start = 0;
    std::string help_target;

private:
    static void TakeStep(platform::WindowHandle dialog, void* context) {
        auto* test = static_cast<SteppingUserTest*>(context);
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

    static inline SteppingUserTest* current_ = nullptr;
    HostServices services_{};
    std::deque<Step> steps_;
    int last_button_ = kOk;
};

}  // namespace tess::test
