// What a fountain button shows. Its strip is columns 8 to 188 of rows 16 to 45.

#include "fills/fountain_control.h"
#include "fills/fountain_editing.h"
#include "tests/windows/window_test_fixture.h"

namespace tess::test {

namespace {

using platform::WindowHandle;

constexpr int kButton = 300;

ColorWord System(int color) {
    return GetSysColor(color);
}

class FountainButtonWindowTest : public WindowTest {
protected:
    void WithButton(const char* text, const std::function<void(WindowHandle, HWND)>& action) {
        WithMainDialog([&](WindowHandle dialog) {
            HWND button = AddButton(dialog, kButton, 40, 20);
            platform::SetControlText(dialog, kButton, text);
            InstallFountainButton(dialog, kButton);
            action(dialog, button);
        });
    }
    static WindowPicture Show(HWND button, const char* name) {
        InvalidateRect(button, nullptr, FALSE);
        const WindowPicture picture(button);
        picture.Keep(name);
        return picture;
    }
};

TEST_F(FountainButtonWindowTest, ShowsFrameTrackHandlesMarkersAndStrip) {
    WithButton("FountainButton", [](WindowHandle, HWND button) {
        const WindowPicture picture = Show(button, "fountain_plain");
        EXPECT_EQ(picture.Width(), 197);
        EXPECT_EQ(picture.Height(), 50);
        EXPECT_EQ(picture.At(0, 0), System(COLOR_BTNSHADOW));
        EXPECT_EQ(picture.At(196, 49), System(COLOR_BTNSHADOW));
        EXPECT_EQ(picture.At(2, 25), System(COLOR_BTNHIGHLIGHT));
        EXPECT_EQ(picture.At(60, 13), System(COLOR_BTNHIGHLIGHT));
        EXPECT_EQ(picture.At(42, 6), System(COLOR_BTNFACE));      // the track
        EXPECT_EQ(picture.At(3, 4), System(COLOR_3DDKSHADOW));    // the left handle
        EXPECT_EQ(picture.At(193, 9), System(COLOR_3DDKSHADOW));  // the right handle
        EXPECT_EQ(picture.At(30, 6), System(COLOR_BTNSHADOW));    // inside a marker
        EXPECT_EQ(picture.At(30, 9), System(COLOR_3DDKSHADOW));   // its tip
        EXPECT_EQ(picture.At(8, 16), System(COLOR_BTNSHADOW));    // the strip's frame
        EXPECT_EQ(picture.At(188, 45), System(COLOR_BTNSHADOW));
    });
}

TEST_F(FountainButtonWindowTest, StripShowsThePreview) {
    WithButton("FountainButton", [](WindowHandle, HWND button) {
        const WindowPicture picture = Show(button, "fountain_strip");
        const LockedFountain fountain = LockFountain(platform::HandleOf(button));
        const LockedImage preview(fountain->Preview);
        for (int x = 1; x < 180; ++x)
            EXPECT_EQ(picture.At(8 + x, 30), GetDibPixel(preview, x, 14)) << x;
    });
}

TEST_F(FountainButtonWindowTest, LoopedOneShowsNoRightHandle) {
    WithButton("FountainButtonLooped", [](WindowHandle, HWND button) {
        const WindowPicture picture = Show(button, "fountain_looped");
        EXPECT_EQ(picture.At(193, 9), System(COLOR_BTNHIGHLIGHT));
        EXPECT_EQ(picture.At(186, 6), System(COLOR_BTNFACE));
        EXPECT_EQ(picture.At(3, 4), System(COLOR_3DDKSHADOW));
    });
}

TEST_F(FountainButtonWindowTest, DisabledOneIsPale) {
    WithButton("FountainButton", [](WindowHandle dialog, HWND button) {
        Show(button, "fountain_enabled");
        platform::EnableControl(dialog, kButton, false);
        const WindowPicture picture(button);  // it repaints by itself
        picture.Keep("fountain_disabled");
        EXPECT_EQ(picture.At(3, 4), System(COLOR_BTNSHADOW));
        EXPECT_EQ(picture.At(193, 9), System(COLOR_BTNSHADOW));
        EXPECT_EQ(picture.At(30, 6), System(COLOR_BTNFACE));
        EXPECT_EQ(picture.At(30, 9), System(COLOR_BTNSHADOW));
        EXPECT_EQ(picture.At(8, 16), System(COLOR_BTNFACE));
        const LockedFountain fountain = LockFountain(platform::HandleOf(button));
        const platform::OwnedBlock disabled(DisabledPreview(fountain->Preview));
        const LockedImage preview(disabled.Get());
        for (int x = 1; x < 180; ++x)
            EXPECT_EQ(picture.At(8 + x, 30), GetDibPixel(preview, x, 14)) << x;
    });
}

TEST_F(FountainButtonWindowTest, WithoutAPreviewTheStripIsTheFaceColor) {
    WithButton("FountainButton", [](WindowHandle, HWND button) {
        {
            const LockedFountain fountain = LockFountain(platform::HandleOf(button));
            platform::FreeBlock(fountain->Preview);
            fountain->Preview = nullptr;
        }
        const WindowPicture picture = Show(button, "fountain_without_preview");
        EXPECT_EQ(picture.At(60, 30), System(COLOR_BTNFACE));
        EXPECT_EQ(picture.At(8, 16), System(COLOR_BTNSHADOW));
    });
}

TEST_F(FountainButtonWindowTest, ClickSendsNoPressOfAButton) {
    WithButton("FountainButton", [this](WindowHandle, HWND button) {
        log.clear();
        Click(button, 60, 30);
        EXPECT_TRUE(log.empty());
    });
}

}  // namespace

}  // namespace tess::test
