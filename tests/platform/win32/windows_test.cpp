// What real windows add to the dialogs of both builds.

#include <windows.h>
#include <gtest/gtest.h>

#include "platform/win32/views.h"
#include "tests/platform/dialog_fixture.h"

namespace {

using platform::WindowHandle;
using platform::WindowOf;

class Windows : public DialogFixture {};

RECT BoxIn(HWND dialog, HWND control) {
    RECT box;
    GetWindowRect(control, &box);
    MapWindowPoints(nullptr, dialog, reinterpret_cast<POINT*>(&box), 2);
    return box;
}

/// Compares a panel's controls with their clones, `skipped` children on.
void ExpectClones(HWND panel, HWND dialog, std::size_t skipped) {
    const auto clones = platform::Children(platform::HandleOf(dialog));
    const auto originals = platform::Children(platform::HandleOf(panel));
    ASSERT_EQ(clones.size(), skipped + originals.size());
    for (std::size_t i = 0; i < originals.size(); ++i) {
        HWND original = WindowOf(originals[i]);
        HWND clone = WindowOf(clones[skipped + i]);
        const int id = GetDlgCtrlID(original);
        const RECT box = BoxIn(panel, original);
        const RECT cloned_box = BoxIn(dialog, clone);
        EXPECT_TRUE(EqualRect(&box, &cloned_box)) << id;
        EXPECT_EQ(GetWindowLongPtrA(original, GWL_STYLE) & ~WS_VISIBLE,
                  GetWindowLongPtrA(clone, GWL_STYLE) & ~WS_VISIBLE)
            << id;
        EXPECT_EQ(GetWindowLongPtrA(original, GWL_EXSTYLE), GetWindowLongPtrA(clone, GWL_EXSTYLE))
            << id;
        if (platform::ControlClass(clones[skipped + i]) == "MSCTLS_UPDOWN32") continue;  // no text
        EXPECT_EQ(SendMessageA(clone, WM_GETFONT, 0, 0), SendMessageA(dialog, WM_GETFONT, 0, 0));
    }
}

TEST_F(Windows, ClonesAreWhereTheirOriginalsWereAndLikeThem) {
    WithMainDialog([](WindowHandle dialog) {
        const std::size_t own = platform::Children(dialog).size();
        ASSERT_EQ(platform::ClonePanel(7400, dialog), 1);
        HWND panel = CreateDialogParamA(
            GetModuleHandleA(nullptr), MAKEINTRESOURCEA(7400), nullptr,
            [](HWND, UINT, WPARAM, LPARAM) -> INT_PTR { return FALSE; }, 0);
        ASSERT_NE(panel, nullptr);
        ExpectClones(panel, WindowOf(dialog), own);
        DestroyWindow(panel);
    });
}

TEST_F(Windows, ControlThatWentIsNotFoundAgain) {
    WithMainDialog([](WindowHandle dialog) {
        HWND first = WindowOf(platform::Control(dialog, 26));
        ASSERT_NE(first, nullptr);
        DestroyWindow(first);
        EXPECT_EQ(platform::Control(dialog, 26), nullptr);
        HWND second = CreateWindowExA(0, "STATIC", "Wait:", WS_CHILD, 0, 0, 9, 9, WindowOf(dialog),
                                      reinterpret_cast<HMENU>(26), nullptr, nullptr);
        EXPECT_EQ(platform::Control(dialog, 26), platform::HandleOf(second));
        SetWindowLongPtrA(second, GWLP_ID, 27);
        EXPECT_EQ(platform::Control(dialog, 26), nullptr);
        EXPECT_EQ(platform::Control(dialog, 27), platform::HandleOf(second));
    });
}

TEST_F(Windows, CloneOfAComboBoxHasRoomForItsList) {
    WithMainDialog([](WindowHandle dialog) {
        ASSERT_EQ(platform::ClonePanel(7407, dialog), 1);
        RECT dropped;
        HWND list = WindowOf(platform::Control(dialog, 340));
        SendMessageA(list, CB_GETDROPPEDCONTROLRECT, 0, reinterpret_cast<LPARAM>(&dropped));
        EXPECT_GE(dropped.bottom - dropped.top, 150);
    });
}

TEST_F(Windows, OwnerIsDisabledWhileItsDialogRuns) {
    WithMainDialog([this](WindowHandle outer) {
        bool was_enabled = true;
        on_user = [&](WindowHandle dialog) {
            was_enabled = IsWindowEnabled(WindowOf(outer)) != FALSE;
            platform::EndDialog(dialog, 0);
        };
        platform::RunDialog("MESSAGEBOX", outer, &Handle, nullptr);
        EXPECT_FALSE(was_enabled);
        EXPECT_TRUE(IsWindowEnabled(WindowOf(outer)));
    });
}

TEST_F(Windows, ChosenFocusStaysWhereItIs) {
    on_open = [](WindowHandle dialog) { platform::FocusControl(dialog, 40); };
    WithMainDialog([](WindowHandle dialog) {
        EXPECT_EQ(GetFocus(), WindowOf(platform::Control(dialog, 40)));
    });
}

TEST_F(Windows, ArrowOfAnUpDownChangesTheEditAndNotifies) {
    WithMainDialog([&](WindowHandle dialog) {
        platform::SetUpDownRange(dialog, 10011, 1, 1000);
        platform::SetControlNumber(dialog, 11, 10, false);
        log.clear();
        SendMessageA(WindowOf(platform::Control(dialog, 11)), WM_KEYDOWN, VK_UP, 0);
        SendMessageA(WindowOf(platform::Control(dialog, 11)), WM_KEYUP, VK_UP, 0);
        EXPECT_EQ(platform::ControlText(dialog, 11), "11");
        EXPECT_EQ(log, std::vector<std::string>{"11/768"});
    });
}

TEST_F(Windows, RealClickOfACheckBoxIsTheHeadlessUsersClick) {
    WithMainDialog([&](WindowHandle dialog) {
        HWND box = WindowOf(platform::Control(dialog, 15));
        SendMessageA(box, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(2, 2));
        SendMessageA(box, WM_LBUTTONUP, 0, MAKELPARAM(2, 2));
        EXPECT_TRUE(platform::IsChecked(dialog, 15));
    });
    EXPECT_EQ(log, (std::vector<std::string>{"open", "15/0", "destroy"}));
}

TEST_F(Windows, DialogWaitsForARealUserWithoutAHeadlessOne) {
    platform::SetHeadlessUser(nullptr, nullptr);
    on_open = [](WindowHandle dialog) {
        SetTimer(WindowOf(dialog), 5, 10, [](HWND window, UINT, UINT_PTR, DWORD) {
            platform::EndDialog(platform::HandleOf(window), 9);
        });
    };
    EXPECT_EQ(Run(1000), 9);
}

TEST_F(Windows, EscapeKeyIsTheCancelCommand) {
    on_open = [](WindowHandle dialog) {
        PostMessageA(WindowOf(platform::Control(dialog, 1)), WM_KEYDOWN, VK_ESCAPE, 0);
    };
    Run(1000);
    EXPECT_EQ(log, (std::vector<std::string>{"open", "2/0", "destroy"}));
}

TEST_F(Windows, DialogIsCenteredOnTheScreen) {
    WithMainDialog([](WindowHandle dialog) {
        platform::CenterOnScreen(dialog);
        RECT box;
        GetWindowRect(WindowOf(dialog), &box);
        EXPECT_EQ(box.left, (GetSystemMetrics(SM_CXSCREEN) - (box.right - box.left)) / 2);
        EXPECT_EQ(box.top, (GetSystemMetrics(SM_CYSCREEN) - (box.bottom - box.top)) / 2);
    });
}

}  // namespace
