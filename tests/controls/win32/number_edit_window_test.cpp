#include <string_view>

#include "controls/number_edit.h"
#include "platform/win32/views.h"
#include "tests/platform/dialog_fixture.h"

namespace tess::test {

namespace {

using platform::WindowHandle;

class NumberEditWindow : public DialogFixture {
protected:
    static constexpr int kEdit = 900;

    /// Lets `action` work with an empty number-only edit.
    void WithEdit(const std::function<void(WindowHandle, HWND)>& action) {
        InstallNumberEditView();
        WithMainDialog([&](WindowHandle dialog) {
            HWND edit = CreateWindowExA(
                0, "EDIT", "", WS_CHILD | WS_VISIBLE, 0, 0, 50, 20, platform::WindowOf(dialog),
                reinterpret_cast<HMENU>(static_cast<INT_PTR>(kEdit)), nullptr, nullptr);
            MakeNumberEdit(dialog, kEdit);
            action(dialog, edit);
        });
    }
    static void Type(HWND edit, std::string_view characters) {
        for (const char character : characters)
            SendMessageA(edit, WM_CHAR, static_cast<unsigned char>(character), 1);
    }
};

TEST_F(NumberEditWindow, TakesDigitsAndMinusAlone) {
    WithEdit([](WindowHandle dialog, HWND edit) {
        Type(edit, "a-1 2.x3\xFC");
        EXPECT_EQ(platform::ControlText(dialog, kEdit), "-123");
        Type(edit, "\b");
        EXPECT_EQ(platform::ControlText(dialog, kEdit), "-12");
    });
}

TEST_F(NumberEditWindow, ControlASelectsAll) {
    WithEdit([](WindowHandle dialog, HWND edit) {
        Type(edit, "123\x01");
        DWORD start = 9, end = 9;
        SendMessageA(edit, EM_GETSEL, reinterpret_cast<WPARAM>(&start),
                     reinterpret_cast<LPARAM>(&end));
        EXPECT_EQ(start, 0u);
        EXPECT_EQ(end, 3u);
        Type(edit, "7");
        EXPECT_EQ(platform::ControlText(dialog, kEdit), "7");
    });
}

}  // namespace

}  // namespace tess::test
