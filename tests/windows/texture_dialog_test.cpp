// The texture dialog as a user works it: with the mouse and the keyboard, in real
// windows.

#include "fills/texture_dialog.h"

#include <windows.h>

#include "fills/curve_graph.h"
#include "platform/win32/views.h"
#include "shell/window_views.h"
#include "tests/fills/texture_dialog_fixture.h"
#include "tests/support/image_bytes.h"
#include "tests/windows/window_picture.h"

namespace tess::test {

namespace {

using platform::WindowHandle;

class TextureDialogWindow : public TextureDialogTest {
protected:
    TextureDialogWindow() {
        InstallWindowViews();
        WriteGroup("vorbelx1.fft", "Writeable=0", {"Moss", "Bark", "Clay"});
        WriteGroup("own.fft", "Writeable=1", {"Two", "One"});
    }

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
    /// Clicks an entry of the list, twice where told.
    static void ClickEntry(WindowHandle dialog, int index, bool twice = false) {
        HWND list = Window(dialog, kList);
        RECT box = {};
        SendMessageA(list, LB_GETITEMRECT, static_cast<WPARAM>(index),
                     reinterpret_cast<LPARAM>(&box));
        Click(list, box.left + 5, box.top + 5);
        if (twice) Send(list, WM_LBUTTONDBLCLK, MK_LBUTTON, box.left + 5, box.top + 5);
    }
    static void Type(HWND edit, const char* text) {
        SendMessageA(edit, EM_SETSEL, 0, -1);
        for (; *text != '\0'; ++text)
            SendMessageA(edit, WM_CHAR, static_cast<WPARAM>(*text), 1);
    }
    /// Lets every message run that is waiting.
    static void RunQueue() {
        MSG message;
        while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE))
            DispatchMessageA(&message);
    }
    /// How many pixels inside the preview's frame are not those of the texture.
    static int WrongPixels(WindowHandle dialog) {
        const WindowPicture picture(Window(dialog, kPreview));
        const platform::OwnedBlock expected(
            RenderTexturePreview({picture.Width(), picture.Height()}));
        const LockedImage image(expected.Get());
        if (!image || image->Width != picture.Width() - 2) return -1;
        int wrong = 0;
        for (int y = 0; y < image->Height; ++y) {
            for (int x = 0; x < image->Width; ++x)
                wrong += picture.At(x + 1, y + 1) != GetDibPixel(image, x, y) ? 1 : 0;
        }
        return wrong;
    }
    static std::string MessageText(WindowHandle box) { return platform::ControlText(box, 101); }
    static void Keep(WindowHandle dialog, const std::string& name) {
        WindowPicture(platform::WindowOf(dialog)).Keep(name);
    }
};

/// The kinds that are kept as pictures: those of fewer colours show less of the same.
constexpr const char* kPhotographs[kTextureKinds] = {
    nullptr, nullptr, nullptr, "texture_fractal", "texture_craters", "texture_perturbation"};

TEST_F(TextureDialogWindow, EveryKindShowsItsControlsAndItsPreview) {
    WriteGroup("vorbelx1.fft", "Writeable=0", {"Aurora", "Gas giant", "Lava", "Moon", "Moss"});
    Edit({[](WindowHandle dialog) {
        for (int kind = 0; kind < kTextureKinds; ++kind) {
            platform::ChooseItem(dialog, kKinds, kind);
            Click(Window(dialog, kPreviewButton));
            RunQueue();
            EXPECT_EQ(WrongPixels(dialog), 0) << kind;
            if (kPhotographs[kind] != nullptr) Keep(dialog, kPhotographs[kind]);
        }
    }});
}

TEST_F(TextureDialogWindow, ShownControlsLieBesideOneAnother) {
    Edit({[](WindowHandle dialog) {
        for (int kind = 0; kind < kTextureKinds; ++kind) {
            platform::ChooseItem(dialog, kKinds, kind);
            std::vector<std::pair<int, RECT>> boxes;
            for (const WindowHandle control : platform::Children(dialog)) {
                if (IsWindowVisible(platform::WindowOf(control)) == FALSE) continue;
                RECT box = {};
                GetWindowRect(platform::WindowOf(control), &box);
                boxes.emplace_back(platform::ControlId(control), box);
            }
            for (std::size_t i = 0; i < boxes.size(); ++i) {
                for (std::size_t j = 0; j < i; ++j) {
                    RECT common = {};
                    EXPECT_FALSE(IntersectRect(&common, &boxes[i].second, &boxes[j].second))
                        << kind << ": " << boxes[i].first << " and " << boxes[j].first;
                }
            }
        }
    }});
}

TEST_F(TextureDialogWindow, ClickOnAnEntryTakesItsTexture) {
    Edit({[](WindowHandle dialog) {
        ClickEntry(dialog, 2);
        RunQueue();
        EXPECT_EQ(platform::ControlText(dialog, 517), "101");
        EXPECT_TRUE(platform::IsControlEnabled(dialog, kDelete));
        EXPECT_EQ(WrongPixels(dialog), 0);
    }});
    EXPECT_EQ(item.MatrixSize, 101);
}

TEST_F(TextureDialogWindow, TypedNumbersGoToTheItemAndLettersAreRefused) {
    Edit({[](WindowHandle dialog) {
        Type(Window(dialog, 512), "1x2y3");
        EXPECT_EQ(platform::ControlText(dialog, 512), "123");
    }});
    EXPECT_EQ(item.SeedValue[0], 123);
}

TEST_F(TextureDialogWindow, PlusOnTheDefaultGroupShowsWhyNot) {
    Edit({[](WindowHandle dialog) { Click(Window(dialog, kAdd)); },
          [](WindowHandle box) {
              EXPECT_EQ(MessageText(box).substr(0, 45),
                        "This file cannot be edited or overwritten.\n\nT");
              Keep(box, "texture_message");
              platform::ClickControl(box, kOk);
          },
          [](WindowHandle dialog) { EXPECT_EQ(platform::ItemCount(dialog, kList), 3); }});
}

TEST_F(TextureDialogWindow, ShiftPlusNamesAGroupAndDoubleClickATexture) {
    Edit({[](WindowHandle dialog) { ShiftClick(dialog, kAdd); },
          [](WindowHandle box) {
              HWND edit = Window(box, kNameEdit);
              DWORD first = 1, end = 0;
              SendMessageA(edit, EM_GETSEL, reinterpret_cast<WPARAM>(&first),
                           reinterpret_cast<LPARAM>(&end));
              EXPECT_EQ(first, 0u);
              EXPECT_EQ(end, 8u);  // all of "Untitled"
              EXPECT_EQ(GetFocus(), edit);
              Type(edit, "mine");
              Keep(box, "texture_name");
              Click(Window(box, kOk));
          },
          [](WindowHandle dialog) { ClickEntry(dialog, 0, true); },
          [](WindowHandle box) {
              EXPECT_EQ(platform::ControlText(box, kNameEdit), "Bark");
              Type(Window(box, kNameEdit), "Wood");
              Click(Window(box, kOk));
          },
          [](WindowHandle dialog) { EXPECT_EQ(ListOf(dialog), "Clay Moss Wood"); }});
    EXPECT_EQ(NamesIn("mine.FFT"), "Clay Moss Wood");
}

TEST_F(TextureDialogWindow, DraggedHandleShowsItsNumberAndMovesItsCurve) {
    item.TextureType = 5;
    Edit({[](WindowHandle dialog) {
        HWND control = Window(dialog, 525);
        const WindowPicture before(control);
        const CurveBox area = CurveArea({before.Width(), before.Height()});
        const CurveHandle handle = PlaceHandle(area, 1, 0.33F);
        Send(control, WM_LBUTTONDOWN, MK_LBUTTON, handle.X, handle.Y);
        EXPECT_EQ(GetCapture(), control);
        Send(control, WM_MOUSEMOVE, MK_LBUTTON, handle.X + 20, area.Top - 40);
        RunQueue();
        const WindowPicture held(control);
        EXPECT_EQ(held.At(handle.X, area.Top), 0u);  // the handle
        EXPECT_GT(held.Count(GetSysColor(COLOR_INFOBK)), 50);
        Keep(dialog, "texture_curve_drag");
        Send(control, WM_LBUTTONUP, 0, handle.X, area.Top);
        RunQueue();
        EXPECT_EQ(GetCapture(), nullptr);
        const WindowPicture after(control);
        EXPECT_NE(after, held);
        EXPECT_NE(after, before);
        EXPECT_EQ(after.At(0, 0), GetSysColor(COLOR_3DDKSHADOW));
    }});
    EXPECT_EQ(item.ColorRed[1], 1.0F);
}

TEST_F(TextureDialogWindow, DoubleClicksOnACurve) {
    item.TextureType = 5;
    chooser_color = 0xFF0000;
    Edit({[](WindowHandle dialog) {
        HWND control = Window(dialog, 526);
        const WindowPicture before(control);
        const CurveHandle handle =
            PlaceHandle(CurveArea({before.Width(), before.Height()}), 3, 1.0F);
        Click(control, handle.X, handle.Y);
        Send(control, WM_LBUTTONDBLCLK, MK_LBUTTON, handle.X, handle.Y);
        Send(control, WM_LBUTTONUP, 0, handle.X, handle.Y);
        EXPECT_EQ(EditedTexture()->ColorRed[3], 0.0F);
        EXPECT_EQ(EditedTexture()->ColorBlue[3], 1.0F);
        RunQueue();
        EXPECT_NE(WindowPicture(control), before);
        Send(control, WM_RBUTTONDBLCLK, MK_RBUTTON, 3, 3);
        RunQueue();
        EXPECT_EQ(WindowPicture(control), before);
    }});
    EXPECT_EQ(item.ColorGreen[3], 1.0F);
    EXPECT_EQ(item.ColorRed[3], 0.0F);
}

}  // namespace

}  // namespace tess::test
