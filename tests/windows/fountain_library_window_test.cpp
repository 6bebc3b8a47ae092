// What the dialog of the fountain library shows, and its pointer while an entry is dragged.

#include <filesystem>

#include "fills/fountain_library.h"
#include "fills/fountain_library_dialog.h"
#include "platform/files.h"
#include "platform/win32/module.h"
#include "tests/support/scratch_folder.h"
#include "tests/windows/window_test_fixture.h"

namespace tess::test {

namespace {

class FountainLibraryWindowTest : public WindowTest {
protected:
    FountainLibraryWindowTest() {
        std::filesystem::create_directories(folder_.File("Quorvenstadtholme/Tessellomatics 1"));
        platform::SetUserFolder(folder_.Path());
    }
    ~FountainLibraryWindowTest() override { platform::SetUserFolder(""); }

    /// Opens the dialog on a library of black, blue and gray, and cancels it.
    void InLibrary(const std::function<void(HWND list)>& act) {
        for (const ColorWord color : {0x000000u, 0xFF0000u, 0x808080u}) {
            Fountain fountain;
            InitFountain(&fountain, FountainPreset::Plain);
            fountain.Start = fountain.End = color;
            ASSERT_EQ(AppendToFountainLibrary(fountain), 1);
        }
        on_user = [&act](platform::WindowHandle dialog) {
            act(platform::WindowOf(platform::Control(dialog, kLibraryList)));
            platform::EndDialog(dialog, 0);
        };
        Fountain colors;
        InitFountain(&colors, FountainPreset::Plain);
        EXPECT_EQ(RunFountainLibraryDialog(nullptr, &colors), 0);
    }
    static void Move(HWND list, int x, int y) {
        SendMessageA(list, WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(x, y));
    }

private:
    ScratchFolder folder_;
};

TEST_F(FountainLibraryWindowTest, EntriesStandOnWhiteAndTheSelectedOneInShadow) {
    InLibrary([](HWND list) {
        const WindowPicture picture(list);
        picture.Keep("library_list");
        EXPECT_EQ(picture.At(2, 2), GetSysColor(COLOR_BTNSHADOW));
        EXPECT_EQ(picture.At(2, 44), 0xFFFFFFu);
        EXPECT_EQ(picture.At(7, 20), GetSysColor(COLOR_BTNSHADOW));
        EXPECT_EQ(picture.At(8, 8), 0x000000u);
        EXPECT_EQ(picture.At(8, 33), 0x000000u);
        EXPECT_EQ(picture.At(8, 34), GetSysColor(COLOR_BTNSHADOW));
        EXPECT_EQ(picture.At(8, 42 + 8), 0xFF0000u);
        EXPECT_EQ(picture.At(8, 84 + 8), 0x808080u);
    });
}

TEST_F(FountainLibraryWindowTest, PointerOfADragShowsWhereTheEntryMayGo) {
    HCURSOR dragging = LoadCursorA(platform::Module(), MAKEINTRESOURCEA(9001));
    ASSERT_NE(dragging, nullptr);
    InLibrary([&](HWND list) {
        MouseDown(list, 30, 20);
        Move(list, 30, 60);
        EXPECT_EQ(GetCursor(), dragging);
        Move(list, -20, 60);
        EXPECT_EQ(GetCursor(), LoadCursorA(nullptr, IDC_NO));
        MouseUp(list, -20, 60);
        EXPECT_EQ(SendMessageA(list, LB_GETCURSEL, 0, 0), 0);
    });
}

}  // namespace

}  // namespace tess::test
