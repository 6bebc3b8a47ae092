// The gradient dialog as a user works it: with the mouse and the keyboard, in real
// windows.

#include "fills/gradient_dialog.h"

#include <windows.h>
#include <commctrl.h>

#include "fills/gradient_preview.h"
#include "platform/win32/views.h"
#include "shell/window_views.h"
#include "tests/fills/gradient_dialog_fixture.h"
#include "tests/windows/window_picture.h"

namespace tess::test {

namespace {

using platform::WindowHandle;

class GradientDialogWindow : public GradientDialogTest {
protected:
    GradientDialogWindow() { InstallWindowViews(); }

    static HWND Window(WindowHandle dialog, int id) {
        return platform::WindowOf(platform::Control(dialog, id));
    }
    static void Send(HWND window, UINT message, WPARAM keys, int x, int y) {
        SendMessageA(window, message, keys, MAKELPARAM(x, y));
    }
    static void Click(HWND window, int x = 5, int y = 5) {
        Send(window, WM_LBUTTONDOWN, MK_LBUTTON, x, y);
        Send(window, WM_LBUTTONUP, 0, x, y);
    }
    /// Lets the dialog's messages run until `condition` holds, at most a minute.
    static bool RunUntil(const std::function<bool()>& condition) {
        const DWORD start = GetTickCount();
        while (!condition()) {
            if (GetTickCount() - start > 60000) return false;
            MSG message;
            while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE))
                DispatchMessageA(&message);
        }
        return true;
    }
    /// Lets every message run that is waiting.
    static void RunQueue() {
        MSG message;
        while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE))
            DispatchMessageA(&message);
    }

    /// How many pixels inside the preview's frame are not those of the record.
    int WrongPixels(WindowHandle dialog) const {
        const WindowPicture picture(Window(dialog, kGradientPreview));
        const platform::OwnedBlock expected(
            RenderGradient(picture.Width() - 2, picture.Height() - 2, gradient));
        const LockedImage image(expected.Get());
        int wrong = 0;
        for (int y = 0; image && y < image->Height; ++y) {
            for (int x = 0; x < image->Width; ++x)
                wrong += picture.At(x + 1, y + 1) != GetDibPixel(image, x, y) ? 1 : 0;
        }
        return wrong;
    }
    static bool LooksPressed(WindowHandle dialog, int sample) {
        const WindowPicture picture(Window(dialog, sample));
        return picture.At(0, 0) == GetSysColor(COLOR_BTNSHADOW);
    }
};

TEST_F(GradientDialogWindow, ClickOnASampleShowsItPressedAndTheGradientInThePreview) {
    for (const int radio : {kTwoColorRadio, kMultiColorRadio}) {
        InitFountain(&gradient.Ramp, FountainPreset::SevenColors);
        Edit({[&](WindowHandle dialog) {
            Click(Window(dialog, radio));
            for (const int sample : {101, 102, 103, 104}) {
                Click(Window(dialog, sample));
                RunQueue();
                EXPECT_EQ(gradient.Type, SampleType(sample));
                EXPECT_EQ(WrongPixels(dialog), 0);
                for (const int other : {101, 102, 103, 104})
                    EXPECT_EQ(LooksPressed(dialog, other), other == sample);
                WindowPicture(platform::WindowOf(dialog))
                    .Keep("gradient_" + std::to_string(sample) +
                          (radio == kTwoColorRadio ? "_two" : "_multi"));
            }
        }});
    }
}

TEST_F(GradientDialogWindow, PreviewIsFramed) {
    Edit({[](WindowHandle dialog) {
        const WindowPicture picture(Window(dialog, kGradientPreview));
        for (int x = 0; x < picture.Width(); ++x) {
            ASSERT_EQ(picture.At(x, 0), GetSysColor(COLOR_3DDKSHADOW));
            ASSERT_EQ(picture.At(x, picture.Height() - 1), GetSysColor(COLOR_3DDKSHADOW));
        }
    }});
}

TEST_F(GradientDialogWindow, DragTurnsTheGradientAndShowsALineUntilTheRelease) {
    Edit({[this](WindowHandle dialog) {
        HWND preview = Window(dialog, kGradientPreview);
        const WindowPicture before(preview);
        const int x = before.Width() / 2, y = before.Height() / 2;
        Send(preview, WM_LBUTTONDOWN, MK_LBUTTON, x, y - 40);
        RunQueue();
        EXPECT_EQ(GetCapture(), preview);
        EXPECT_EQ(platform::ControlText(dialog, kRotationEdit), "90");
        EXPECT_EQ(WrongPixels(dialog), y - 1);  // upwards from the centre, to 2 from the edge
        Send(preview, WM_MOUSEMOVE, MK_LBUTTON, x - 300, y - 1);
        RunQueue();
        EXPECT_EQ(int{gradient.Rotation}, 0);
        EXPECT_EQ(WrongPixels(dialog), x - 1);
        WindowPicture(platform::WindowOf(dialog)).Keep("gradient_drag_line");
        Send(preview, WM_LBUTTONUP, 0, x + 30, y - 30);
        RunQueue();
        EXPECT_EQ(GetCapture(), nullptr);
        EXPECT_EQ(int{gradient.Rotation}, 135);
        EXPECT_EQ(WrongPixels(dialog), 0);
    }});
}

TEST_F(GradientDialogWindow, DragMovesTheCenterAndShowsFourBarsUntilTheRelease) {
    gradient.Type = GradientType::Elliptical;
    Edit({[this](WindowHandle dialog) {
        HWND preview = Window(dialog, kGradientPreview);
        Send(preview, WM_LBUTTONDOWN, MK_LBUTTON, 60, 70);
        RunQueue();
        EXPECT_EQ(WrongPixels(dialog), 4 * 20);
        WindowPicture(platform::WindowOf(dialog)).Keep("gradient_drag_bars");
        Send(preview, WM_LBUTTONUP, 0, 60, 70);
        RunQueue();
        EXPECT_EQ(WrongPixels(dialog), 0);
        const platform::PixelSize size = platform::ClientSize(platform::HandleOf(preview));
        EXPECT_EQ(int{gradient.CenterX}, 60 * 100 / (size.Width - 4) - 51);
        EXPECT_EQ(int{gradient.CenterY}, 70 * 100 / (size.Height - 4) - 51);
    }});
}

TEST_F(GradientDialogWindow, DraggedThumbSetsTheMidpointAndThePreviewFollows) {
    Edit({[this](WindowHandle dialog) {
        HWND slider = Window(dialog, kMidpointSlider);
        RECT thumb = {};
        SendMessageA(slider, TBM_GETTHUMBRECT, 0, reinterpret_cast<LPARAM>(&thumb));
        const int x = (thumb.left + thumb.right) / 2, y = (thumb.top + thumb.bottom) / 2;
        Send(slider, WM_LBUTTONDOWN, MK_LBUTTON, x, y);
        Send(slider, WM_MOUSEMOVE, MK_LBUTTON, x + 20, y);
        EXPECT_EQ(int{gradient.Midpoint}, 50);
        Send(slider, WM_LBUTTONUP, 0, x + 20, y);
        EXPECT_GT(int{gradient.Midpoint}, 60);
        EXPECT_EQ(platform::ControlText(dialog, kMidpointEdit),
                  std::to_string(int{gradient.Midpoint}));
        EXPECT_NE(WrongPixels(dialog), 0);
        EXPECT_TRUE(RunUntil([&] { return platform::TimerInterval(dialog, 10) == 0; }));
        EXPECT_EQ(WrongPixels(dialog), 0);
    }});
}

TEST_F(GradientDialogWindow, DoubleClickOnTheSliderSetsTheMiddle) {
    gradient.Midpoint = 20;
    Edit({[this](WindowHandle dialog) {
        HWND slider = Window(dialog, kMidpointSlider);
        const int right = platform::ClientSize(platform::HandleOf(slider)).Width - 10;
        Click(slider, right, 10);
        EXPECT_GT(int{gradient.Midpoint}, 20);
        Click(slider, right, 10);
        RunQueue();
        EXPECT_EQ(int{gradient.Midpoint}, 50);
        EXPECT_EQ(platform::SliderPosition(dialog, kMidpointSlider), 50);
        EXPECT_TRUE(
            RunUntil([&] { return platform::UserData(platform::HandleOf(slider)) == nullptr; }));
        Click(slider, right, 10);
        EXPECT_GT(int{gradient.Midpoint}, 50);
    }});
}

TEST_F(GradientDialogWindow, MidpointCanBeTypedDigitByDigit) {
    Edit({[this](WindowHandle dialog) {
        HWND edit = Window(dialog, kMidpointEdit);
        SendMessageA(edit, EM_SETSEL, 0, -1);
        for (const char digit : {'7', '5'})
            SendMessageA(edit, WM_CHAR, static_cast<WPARAM>(digit), 1);
        EXPECT_EQ(int{gradient.Midpoint}, 75);
    }});
}

TEST_F(GradientDialogWindow, CenterTakesNumbersAlone) {
    gradient.Type = GradientType::Conical;
    Edit({[this](WindowHandle dialog) {
        HWND edit = Window(dialog, kCenterXEdit);
        SendMessageA(edit, EM_SETSEL, 0, -1);
        for (const char character : {'-', 'x', '2', '.', '5'})
            SendMessageA(edit, WM_CHAR, static_cast<WPARAM>(character), 1);
        EXPECT_EQ(platform::ControlText(dialog, kCenterXEdit), "-25");
        EXPECT_EQ(int{gradient.CenterX}, -25);
    }});
}

TEST_F(GradientDialogWindow, ColorButtonShowsWhatIsChosen) {
    chooser_color = 0x2080FF;
    Edit({[](WindowHandle dialog) {
        HWND button = Window(dialog, kStartColorButton);
        EXPECT_EQ(WindowPicture(button).At(7, 6), 0x404040u);
        Click(button);
        RunQueue();
        EXPECT_EQ(WindowPicture(button).At(7, 6), 0x2080FFu);
    }});
}

TEST_F(GradientDialogWindow, ButtonsAndEscapeEndIt) {
    const auto end = [this](const Step& step) { return Edit({step}, kHelp); };
    EXPECT_EQ(end([](WindowHandle dialog) { Click(Window(dialog, kOk)); }), 1);
    EXPECT_EQ(end([](WindowHandle dialog) { Click(Window(dialog, kCancel)); }), 0);
    EXPECT_EQ(end([](WindowHandle dialog) {
                  PostMessageA(platform::WindowOf(dialog), WM_KEYDOWN, VK_ESCAPE, 1);
              }),
              0);
}

}  // namespace

}  // namespace tess::test
