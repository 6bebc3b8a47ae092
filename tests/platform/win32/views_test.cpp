#include "platform/win32/views.h"

#include <gtest/gtest.h>

#include "tests/platform/dialog_fixture.h"

namespace {

using platform::WindowHandle;

constexpr int kDither = 15;
constexpr UINT kHandled = 1334, kPassedOn = 1335;

std::vector<std::string> view_log;

bool LogDialogView(HWND, UINT message, WPARAM, LPARAM, LRESULT* result) {
    if (message == WM_INITDIALOG) view_log.push_back("open");
    if (message == WM_DESTROY) view_log.push_back("destroy");
    if (message == WM_TIMER) {
        view_log.push_back("timer");
        *result = 21;
        return true;
    }
    if (message == WM_CTLCOLORSTATIC) {
        *result = reinterpret_cast<LRESULT>(GetStockObject(GRAY_BRUSH));
        return true;
    }
    if (message == 1327) view_log.push_back("own message");
    return false;
}

bool LogControlView(HWND, UINT message, WPARAM w, LPARAM, LRESULT* result) {
    if (message != kPassedOn && message != kHandled) return false;
    view_log.push_back("view " + std::to_string(message));
    *result = static_cast<LRESULT>(w) * 2;
    return true;
}

std::intptr_t HandleOne(WindowHandle control, std::uint32_t message, std::uintptr_t w,
                        std::intptr_t l) {
    return message == kHandled ? 77 : platform::CallOriginal(control, message, w, l);
}

class Views : public DialogFixture {
protected:
    void SetUp() override {
        DialogFixture::SetUp();
        view_log.clear();
    }
    void TearDown() override {
        platform::SetDialogView(1000, nullptr);
        platform::SetControlView("CHKBOX", nullptr);
        platform::SetControlView(HandleOne, nullptr);
        DialogFixture::TearDown();
    }
};

TEST_F(Views, DialogViewSeesTheOpeningAndTheEnd) {
    platform::SetDialogView(1000, LogDialogView);
    Run(1000);
    EXPECT_EQ(view_log, (std::vector<std::string>{"open", "destroy"}));
}

TEST_F(Views, DialogViewAnswersWhatTheProcedureDoesNot) {
    platform::SetDialogView(1000, LogDialogView);
    WithMainDialog([](WindowHandle dialog) {
        EXPECT_EQ(SendMessageA(platform::WindowOf(dialog), WM_TIMER, 99, 0), 21);
        EXPECT_EQ(platform::SendToWindow(dialog, 1327, 10, 0), 11);
        EXPECT_EQ(SendMessageA(platform::WindowOf(dialog), WM_CTLCOLORSTATIC, 0, 0),
                  reinterpret_cast<LRESULT>(GetStockObject(GRAY_BRUSH)));
    });
    EXPECT_EQ(view_log, (std::vector<std::string>{"open", "timer", "destroy"}));
}

TEST_F(Views, ControlViewGetsWhatTheProcedurePassesOn) {
    platform::SetControlView("CHKBOX", LogControlView);
    WithMainDialog([](WindowHandle dialog) {
        platform::InstallControl(dialog, kDither, "CHKBOX", HandleOne);
        const WindowHandle control = platform::Control(dialog, kDither);
        EXPECT_EQ(platform::SendToWindow(control, kHandled, 4, 0), 77);
        EXPECT_EQ(platform::SendToWindow(control, kPassedOn, 4, 0), 8);
    });
    EXPECT_EQ(view_log, std::vector<std::string>{"view 1335"});
}

TEST_F(Views, ControlViewCanBelongToAProcedureWithoutTag) {
    platform::SetControlView(HandleOne, LogControlView);
    WithMainDialog([](WindowHandle dialog) {
        platform::InstallControl(dialog, kDither, "", HandleOne);
        EXPECT_EQ(platform::SendToWindow(platform::Control(dialog, kDither), kPassedOn, 5, 0), 10);
    });
}

}  // namespace
