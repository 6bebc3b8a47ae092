#include "controls/color_button.h"

#include "tests/windows/window_test_fixture.h"

namespace tess::test {

namespace {

using platform::WindowHandle;

constexpr int kButton = 300;
constexpr ColorWord kBlue = 0xC04020;  // red 32, green 64, blue 192

std::uint32_t draw_flags = 0;

bool DrawButton(HWND, UINT message, WPARAM w, LPARAM l, LRESULT* result) {
    if (message != WM_DRAWITEM || w != kButton) return false;
    const auto* item = reinterpret_cast<const DRAWITEMSTRUCT*>(l);
    DrawColorButton(platform::HandleOf(item->hwndItem), item, kBlue, draw_flags);
    *result = TRUE;
    return true;
}

class ColorButtonWindowTest : public WindowTest {
protected:
    void TearDown() override {
        platform::SetDialogView(1000, nullptr);
        WindowTest::TearDown();
    }
    void WithButton(std::uint32_t flags, const std::function<void(WindowHandle, HWND)>& action) {
        draw_flags = flags;
        platform::SetDialogView(1000, DrawButton);
        WithMainDialog([&](WindowHandle dialog) {
            HWND button = AddButton(dialog, kButton, 75, 20);
            platform::SetControlNumber(dialog, kButton, kBlue, false);
            action(dialog, button);
        });
    }
};

TEST_F(ColorButtonWindowTest, ShowsItsColorUnderARaisedEdge) {
    WithButton(kMainDialogColorButton, [](WindowHandle, HWND button) {
        const WindowPicture picture(button);
        picture.Keep("color_normal");
        EXPECT_EQ(picture.At(3, 3), kBlue);
        EXPECT_EQ(picture.At(0, 0), GetSysColor(COLOR_BTNHIGHLIGHT));
        EXPECT_GT(picture.Count(0xFFFFFF), picture.Width() + picture.Height());  // its text
    });
}

TEST_F(ColorButtonWindowTest, DisabledOneShowsTheFaceColorAndNoText) {
    WithButton(kMainDialogColorButton, [](WindowHandle dialog, HWND button) {
        platform::EnableControl(dialog, kButton, false);
        InvalidateRect(button, nullptr, FALSE);
        const WindowPicture picture(button);
        picture.Keep("color_disabled");
        for (int x = 3; x < picture.Width() - 4; ++x)
            EXPECT_EQ(picture.At(x, picture.Height() / 2), GetSysColor(COLOR_BTNFACE));
    });
}

TEST_F(ColorButtonWindowTest, PressedOneHasASunkenEdgeAndAFocusFrame) {
    WithButton(kMainDialogColorButton, [](WindowHandle, HWND button) {
        const WindowPicture raised(button);
        MouseDown(button, 5, 5);
        InvalidateRect(button, nullptr, FALSE);
        const WindowPicture sunken(button);
        sunken.Keep("color_pressed");
        MouseUp(button, 5, 5);
        InvalidateRect(button, nullptr, FALSE);
        const WindowPicture focused(button);
        focused.Keep("color_focused");
        EXPECT_NE(sunken.At(0, 0), raised.At(0, 0));
        EXPECT_EQ(focused.At(0, 0), raised.At(0, 0));
        EXPECT_FALSE(focused == raised);
    });
}

TEST_F(ColorButtonWindowTest, PlainOneWithoutEdgeTextAndFocusIsAllColor) {
    WithButton(kButtonPlain | kButtonWithoutEdge | kButtonWithoutText | kButtonWithoutFocus,
               [](WindowHandle, HWND button) {
                   SetFocus(button);
                   InvalidateRect(button, nullptr, FALSE);
                   const WindowPicture picture(button);
                   EXPECT_EQ(picture.Count(kBlue), picture.Width() * picture.Height());
               });
}

TEST_F(ColorButtonWindowTest, OwnFontChangesTheText) {
    HFONT font = CreateFontA(18, 0, 0, 0, FW_BOLD, 0, 0, 0, DEFAULT_CHARSET, 0, 0, 0, 0, nullptr);
    WithButton(kButtonTextHashHex, [&](WindowHandle, HWND button) {
        SendMessageA(button, WM_SETFONT, reinterpret_cast<WPARAM>(font), FALSE);
        // The system hands the button's context with its font selected; a caller may
        // not.
        const WindowPicture picture(button);
        picture.Keep("color_hex");
        draw_flags = kButtonTextHashHex | kButtonFont;
        InvalidateRect(button, nullptr, FALSE);
        const WindowPicture own_font(button);
        own_font.Keep("color_own_font");
        EXPECT_GT(own_font.Count(0xFFFFFF), own_font.Width() + own_font.Height());
    });
    DeleteObject(font);
}

}  // namespace

}  // namespace tess::test
