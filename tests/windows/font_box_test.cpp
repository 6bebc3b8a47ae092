#include "shell/value_controls.h"
#include "tests/windows/window_test_fixture.h"

namespace tess::test {

namespace {

constexpr int kFontBox = 300;

bool PassToControl(HWND, UINT message, WPARAM, LPARAM l, LRESULT* result) {
    if (message != WM_DRAWITEM) return false;
    *result = SendMessageA(reinterpret_cast<const DRAWITEMSTRUCT*>(l)->hwndItem, message, 0, l);
    return *result != 0;
}

class FontBoxWindowTest : public WindowTest {
protected:
    void TearDown() override {
        platform::SetDialogView(1000, nullptr);
        WindowTest::TearDown();
    }
    /// Shows a box whose one item has the name of a face, selected or not.
    static WindowPicture PictureOf(platform::WindowHandle dialog, const char* face, int selection) {
        HWND box = CreateWindowExA(
            0, "COMBOBOX", "",
            WS_CHILD | WS_VISIBLE | CBS_DROPDOWNLIST | CBS_OWNERDRAWFIXED | CBS_HASSTRINGS, 20, 320,
            160, 120, platform::WindowOf(dialog), reinterpret_cast<HMENU>(INT_PTR{kFontBox}),
            nullptr, nullptr);
        SetWindowPos(box, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
        static char text[260];
        BindFontBox(platform::HandleOf(GetParent(box)), kFontBox, text);
        platform::AddItem(dialog, kFontBox, face);
        platform::SetSelection(dialog, kFontBox, selection);
        WindowPicture picture(box);
        DestroyWindow(box);
        return picture;
    }
};

TEST_F(FontBoxWindowTest, ItemIsItsNameInItsOwnFaceOverABlackBar) {
    platform::SetDialogView(1000, PassToControl);
    WithMainDialog([](platform::WindowHandle dialog) {
        const WindowPicture empty = PictureOf(dialog, "Tahoma", -1);
        const WindowPicture tahoma = PictureOf(dialog, "Tahoma", 0);
        tahoma.Keep("font_box");
        EXPECT_EQ(tahoma.At(10, 4), 0u);
        EXPECT_GT(tahoma.Count(0), tahoma.Width() * tahoma.Height() / 3);
        EXPECT_FALSE(tahoma == empty);
        const WindowPicture symbol = PictureOf(dialog, "Symbol", 0);
        const WindowPicture courier = PictureOf(dialog, "Courier New", 0);
        EXPECT_FALSE(symbol == tahoma);
        EXPECT_FALSE(courier == tahoma);
    });
}

}  // namespace

}  // namespace tess::test
