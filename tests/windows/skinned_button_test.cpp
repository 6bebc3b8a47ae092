#include "controls/skinned_button.h"

#include "tests/windows/window_test_fixture.h"

namespace tess::test {

namespace {

using platform::WindowHandle;

constexpr int kBuild = 1, kTest = 24;

class SkinnedButtonWindowTest : public WindowTest {
protected:
    void TearDown() override {
        SkinButtons = 0;
        WindowTest::TearDown();
    }

    /// Opens the dialog with its Test button in a look, and does `action` with it.
    void WithLook(std::uint32_t look, const std::function<void(WindowHandle, HWND)>& action) {
        SkinButtons = look;
        WithMainDialog([&](WindowHandle dialog) {
            ASSERT_EQ(SkinButton(dialog, kTest), 1);
            HWND button = platform::WindowOf(platform::Control(dialog, kTest));
            InvalidateRect(button, nullptr, TRUE);
            log.clear();
            action(dialog, button);
        });
    }
};

TEST_F(SkinnedButtonWindowTest, EachLookTellsItsThreeStatesApart) {
    for (const std::uint32_t look : {1u, 2u, 3u}) {
        WithLook(look, [&](WindowHandle dialog, HWND button) {
            const std::string name = "skin_" + std::to_string(look) + "_";
            const WindowPicture normal(button);
            normal.Keep(name + "normal");
            MouseDown(button, 5, 5);
            const WindowPicture pressed(button);
            pressed.Keep(name + "pressed");
            platform::EnableControl(dialog, kTest, false);
            const WindowPicture pressed_and_disabled(button);
            pressed_and_disabled.Keep(name + "pressed_disabled");
            platform::EnableControl(dialog, kTest, true);
            MouseUp(button, 5, 5);
            EXPECT_EQ(WindowPicture(button), normal);
            platform::EnableControl(dialog, kTest, false);
            const WindowPicture disabled(button);
            disabled.Keep(name + "disabled");
            EXPECT_FALSE(normal == pressed);
            EXPECT_FALSE(normal == disabled);
            EXPECT_FALSE(pressed == pressed_and_disabled);
            EXPECT_FALSE(disabled == pressed_and_disabled);
        });
    }
}

TEST_F(SkinnedButtonWindowTest, ClickSendsOneCommand) {
    WithLook(3, [this](WindowHandle, HWND button) {
        Click(button, 5, 5);
        EXPECT_EQ(log, std::vector<std::string>{"24/0"});
    });
}

TEST_F(SkinnedButtonWindowTest, SecondOfTwoQuickPressesIsAPress) {
    WithLook(3, [this](WindowHandle, HWND button) {
        Click(button, 5, 5);
        SendMessageA(button, WM_LBUTTONDBLCLK, MK_LBUTTON, MAKELPARAM(5, 5));
        EXPECT_TRUE(IsSkinPressed(platform::HandleOf(button)));
        MouseUp(button, 5, 5);
        EXPECT_EQ(log, (std::vector<std::string>{"24/0", "24/0"}));
    });
}

TEST_F(SkinnedButtonWindowTest, NewTextIsShown) {
    WithLook(1, [](WindowHandle dialog, HWND button) {
        const WindowPicture before(button);
        platform::SetControlText(dialog, kTest, "Other");
        EXPECT_FALSE(WindowPicture(button) == before);
        EXPECT_EQ(platform::ControlText(dialog, kTest), "Other");
    });
}

TEST_F(SkinnedButtonWindowTest, CornersShowTheDialogInTheRoundedLooks) {
    for (const std::uint32_t look : {1u, 3u, 77u}) {
        WithLook(look, [](WindowHandle, HWND button) {
            const WindowPicture picture(button);
            const int right = picture.Width() - 1, bottom = picture.Height() - 1;
            const std::uint32_t face = GetSysColor(COLOR_BTNFACE);
            for (const int x : {0, right}) {
                for (const int y : {0, bottom})
                    EXPECT_EQ(picture.At(x, y), face);
            }
            EXPECT_EQ(picture.At(1, 0), GetSysColor(COLOR_BTNSHADOW));
            EXPECT_EQ(picture.At(right, bottom - 1), GetSysColor(COLOR_BTNSHADOW));
        });
    }
}

TEST_F(SkinnedButtonWindowTest, GradientRunsFromHighlightToShadowAndOnToTheFace) {
    WithLook(3, [](WindowHandle, HWND button) {
        const WindowPicture picture(button);
        const int height = picture.Height(), upper = height * 55 / 100;
        GradientLines above(GetSysColor(COLOR_BTNHIGHLIGHT), GetSysColor(COLOR_BTNSHADOW), upper);
        GradientLines below(MidwayToWhite(GetSysColor(COLOR_3DDKSHADOW)),
                            GetSysColor(COLOR_BTNFACE), height - upper);
        for (int y = 0; y < height - 1; ++y) {
            GradientLines& lines = y < upper ? above : below;
            const std::uint32_t expected = y == 0 ? GetSysColor(COLOR_BTNSHADOW) : lines.Color();
            EXPECT_EQ(picture.At(3, y), expected) << y;
            lines.Advance();
        }
    });
}

TEST_F(SkinnedButtonWindowTest, PressedGradientLeavesTwoRowsAndColumnsOfShadow) {
    WithLook(3, [](WindowHandle, HWND button) {
        MouseDown(button, 5, 5);
        const WindowPicture picture(button);
        for (int i = 1; i < picture.Height() - 1; ++i) {
            EXPECT_EQ(picture.At(1, i), GetSysColor(COLOR_BTNSHADOW));
            EXPECT_EQ(picture.At(i, 1), GetSysColor(COLOR_BTNSHADOW));
        }
        EXPECT_EQ(picture.At(2, 2), GetSysColor(COLOR_BTNHIGHLIGHT));
        MouseUp(button, 5, 5);
    });
}

TEST_F(SkinnedButtonWindowTest, EnterPressesTheButtonThatHasTheFocus) {
    SkinButtons = 3;
    WithMainDialog([this](WindowHandle dialog) {
        SkinButton(dialog, kBuild);
        SkinButton(dialog, kTest);
        platform::FocusControl(dialog, kTest);
        log.clear();
        HWND button = platform::WindowOf(platform::Control(dialog, kTest));
        MSG enter = {button, WM_KEYDOWN, VK_RETURN, 1, 0, {0, 0}};
        IsDialogMessageA(platform::WindowOf(dialog), &enter);
        EXPECT_EQ(log, std::vector<std::string>{"24/0"});
    });
}

}  // namespace

}  // namespace tess::test
