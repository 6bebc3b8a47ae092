// Runs a dialog whose procedure and user are lambdas of a test.
#pragma once

#include <functional>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "platform/dialog.h"
#include "platform/headless_user.h"

class DialogFixture : public testing::Test {
protected:
    using Handler = std::function<void(platform::WindowHandle)>;
    using CommandHandler = std::function<void(platform::WindowHandle, int, platform::Notification)>;

    void SetUp() override {
        current_ = this;
        platform::SetHeadlessUser(&AskUser, this);
    }
    void TearDown() override { platform::SetHeadlessUser(nullptr, nullptr); }

    /// Runs `dialog_template`; the user does nothing but end it with 7, unless
    /// `on_user` is set.
    template <class Template>
    std::intptr_t Run(Template dialog_template) {
        return platform::RunDialog(dialog_template, nullptr, &Handle, this);
    }
    /// Opens the main dialog, does `action` as the user, and ends it.
    void WithMainDialog(const Handler& action) {
        on_user = [&action](platform::WindowHandle dialog) {
            action(dialog);
            platform::EndDialog(dialog, 0);
        };
        ASSERT_EQ(Run(1000), 0);
    }

    static std::intptr_t Handle(platform::WindowHandle dialog, std::uint32_t message,
                                std::uintptr_t w, std::intptr_t l) {
        return current_->HandleMessage(dialog, message, w, l);
    }

    Handler on_open, on_user, on_destroy;
    CommandHandler on_command;
    std::vector<std::string> log;  ///< commands as "id/notification", other messages by name
    std::intptr_t open_parameter = 0;

private:
    static void AskUser(platform::WindowHandle dialog, void* context) {
        auto* fixture = static_cast<DialogFixture*>(context);
        if (fixture->on_user) {
            fixture->on_user(dialog);
        } else {
            platform::EndDialog(dialog, 7);
        }
    }

    std::intptr_t HandleMessage(platform::WindowHandle dialog, std::uint32_t message,
                                std::uintptr_t w, std::intptr_t l) {
        if (message == platform::kMessageOpen) {
            log.push_back("open");
            open_parameter = l;
            if (on_open) on_open(dialog);
        } else if (message == platform::kMessageDestroy) {
            log.push_back("destroy");
            if (on_destroy) on_destroy(dialog);
        } else if (message == platform::kMessageCommand) {
            const auto notification = platform::CommandNotification(w);
            // Windows tells of an edit's new text twice, and of the focus coming and
            // going, which the tests leave out.
            const int code = static_cast<int>(notification);
            if (code == 0x400 || code == 0x100 || code == 0x200) return 0;
            log.push_back(std::to_string(platform::CommandId(w)) + "/" + std::to_string(code));
            if (on_command) on_command(dialog, platform::CommandId(w), notification);
        } else if (message >= 0x500) {
            log.push_back("message " + std::to_string(message));
            return static_cast<std::intptr_t>(w + 1);
        }
        return 0;
    }

    static inline DialogFixture* current_ = nullptr;
};
