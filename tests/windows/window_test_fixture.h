// A real main dialog without the program behind it, for controls to stand in.
// Windows only.
#pragma once

#include <windows.h>

#include "platform/win32/views.h"
#include "shell/window_views.h"
#include "tests/platform/dialog_fixture.h"
#include "tests/windows/window_picture.h"

namespace tess::test {

class WindowTest : public DialogFixture {
protected:
    void SetUp() override {
        DialogFixture::SetUp();
        InstallWindowViews();
    }

    /// Adds an owner-drawn button to `dialog`, over all other controls.
    static HWND AddButton(platform::WindowHandle dialog, int id, int width, int height) {
        HWND button =
            CreateWindowExA(0, "BUTTON", "", WS_CHILD | WS_VISIBLE | BS_OWNERDRAW, 20, 320, width,
                            height, platform::WindowOf(dialog),
                            reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), nullptr, nullptr);
        SetWindowPos(button, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
        return button;
    }

    static void MouseDown(HWND window, int x, int y) {
        SendMessageA(window, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(x, y));
    }
    static void MouseUp(HWND window, int x, int y) {
        SendMessageA(window, WM_LBUTTONUP, 0, MAKELPARAM(x, y));
    }
    static void Click(HWND window, int x, int y) {
        MouseDown(window, x, y);
        MouseUp(window, x, y);
    }
};

}  // namespace tess::test
