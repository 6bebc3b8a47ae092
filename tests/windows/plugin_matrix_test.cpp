// A user who chooses and changes matrix tiles in the real library's dialogs.

#include <windows.h>
#include <filesystem>
#include <gtest/gtest.h>

#include "shell/control_contract.h"
#include "tests/windows/plugin_run.h"
#include "tests/windows/window_picture.h"

namespace tess::test {

namespace {

constexpr int kMural = 10;
constexpr int kTile = 362;

// Controls of the Matrix dialog and the name box.
constexpr int kPreview = 101, kList = 102, kAdd = 103, kDelete = 104, kSize = 105, kGroups = 108;
constexpr int kName = 101;

constexpr int kDefaultTiles = 37;

class PluginMatrix : public testing::Test {
protected:
    PluginMatrix() { folder_.InstallTiles(); }

    /// Opens the main dialog with the Mural selected.
    static HWND Open(PluginRun& run) {
        HWND dialog = run.WaitForMainDialog();
        if (dialog != nullptr) Choose(dialog, kEffectList, kMural);
        return dialog;
    }
    /// Presses the tile's control with the mouse and waits for its dialog.
    static HWND OpenMatrix(PluginRun& run, HWND dialog) {
        HWND control = GetDlgItem(dialog, kTile);
        SendMessageA(control, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(10, 10));
        SendMessageA(control, WM_LBUTTONUP, 0, MAKELPARAM(10, 10));
        return run.WaitForDialog("Matrix");
    }
    /// Clicks the middle of an element.
    static void ClickElement(HWND matrix, int index) {
        HWND list = GetDlgItem(matrix, kList);
        RECT box = {};
        SendMessageA(list, LB_GETITEMRECT, static_cast<WPARAM>(index),
                     reinterpret_cast<LPARAM>(&box));
        const LPARAM place = MAKELPARAM((box.left + box.right) / 2, (box.top + box.bottom) / 2);
        PostMessageA(list, WM_LBUTTONDOWN, MK_LBUTTON, place);
        PostMessageA(list, WM_LBUTTONUP, 0, place);
        EXPECT_TRUE(WaitUntil([&] { return SendMessageA(list, LB_GETCURSEL, 0, 0) == index; }));
    }
    static int Count(HWND matrix) {
        return static_cast<int>(SendMessageA(GetDlgItem(matrix, kList), LB_GETCOUNT, 0, 0));
    }
    /// Posts a button's command, for one that opens a further dialog.
    static void Press(HWND matrix, int id) { PostCommandTo(matrix, id); }
    /// The same with Shift held, and waits for the dialog that it opens.
    static HWND PressWithShift(PluginRun& run, HWND matrix, int id, const std::string& title) {
        const HeldShift shift(matrix);
        Press(matrix, id);
        return run.WaitForDialog(title);
    }

    UserFolder folder_;
    Plugin plugin_;
};

TEST_F(PluginMatrix, ShowsTheGroupInColumnsAndTheTileBeside) {
    PluginRun run(plugin_);
    HWND dialog = Open(run);
    ASSERT_NE(dialog, nullptr);
    HWND matrix = OpenMatrix(run, dialog);
    ASSERT_NE(matrix, nullptr);
    EXPECT_EQ(Count(matrix), kDefaultTiles);
    EXPECT_EQ(TextOf(matrix, kGroups), "vorbelx1");
    EXPECT_EQ(TextOf(matrix, kSize), "48 x 48");
    HWND list = GetDlgItem(matrix, kList);
    RECT first = {}, sixth = {};
    SendMessageA(list, LB_GETITEMRECT, 0, reinterpret_cast<LPARAM>(&first));
    SendMessageA(list, LB_GETITEMRECT, 5, reinterpret_cast<LPARAM>(&sixth));
    EXPECT_EQ(first.bottom - first.top, 48);
    EXPECT_EQ(sixth.left - first.left, 48);  // five rows make a column
    EXPECT_EQ(sixth.top, first.top);
    WindowPicture(matrix).Keep("matrix");
    const WindowPicture before(GetDlgItem(matrix, kPreview));
    ClickElement(matrix, 7);
    EXPECT_EQ(TextOf(matrix, kSize), "64 x 64");
    EXPECT_NE(WindowPicture(GetDlgItem(matrix, kPreview)), before);
    WindowPicture(matrix).Keep("matrix_chosen");
    EXPECT_TRUE(EndWith(matrix, IDCANCEL));
    EXPECT_TRUE(IsWindowEnabled(dialog));
}

TEST_F(PluginMatrix, OkShowsTheChosenTileInTheSampleAndCancelDoesNot) {
    PluginRun run(plugin_);
    HWND dialog = Open(run);
    ASSERT_NE(dialog, nullptr);
    const WindowPicture sample(GetDlgItem(dialog, kSampleBox));
    HWND matrix = OpenMatrix(run, dialog);
    ASSERT_NE(matrix, nullptr);
    ClickElement(matrix, 2);
    ASSERT_TRUE(EndWith(matrix, IDCANCEL));
    EXPECT_EQ(WindowPicture(GetDlgItem(dialog, kSampleBox)), sample);
    matrix = OpenMatrix(run, dialog);
    ASSERT_NE(matrix, nullptr);
    ClickElement(matrix, 2);
    ASSERT_TRUE(EndWith(matrix, IDOK));
    EXPECT_TRUE(WaitUntil([&] { return WindowPicture(GetDlgItem(dialog, kSampleBox)) != sample; }));
    EXPECT_EQ(SendMessageA(GetDlgItem(dialog, kTile), ReadControlValue, 0, 0), 2);
    EXPECT_EQ(TextOf(dialog, kSizeLine), "64 x 64 pixels");
    WindowPicture(dialog).Keep("mural_chosen");
}

TEST_F(PluginMatrix, DoubleClickChooses) {
    PluginRun run(plugin_);
    HWND dialog = Open(run);
    ASSERT_NE(dialog, nullptr);
    HWND matrix = OpenMatrix(run, dialog);
    ASSERT_NE(matrix, nullptr);
    ClickElement(matrix, 3);
    PostMessageA(GetDlgItem(matrix, kList), WM_LBUTTONDBLCLK, MK_LBUTTON,
                 MAKELPARAM(24, 24 + 48 * 3));
    PostMessageA(GetDlgItem(matrix, kList), WM_LBUTTONUP, 0, MAKELPARAM(24, 24 + 48 * 3));
    ASSERT_TRUE(WaitUntil([&] { return !IsWindow(matrix); }));
    EXPECT_EQ(SendMessageA(GetDlgItem(dialog, kTile), ReadControlValue, 0, 0), 3);
}

TEST_F(PluginMatrix, ProtectedGroupIsSavedUnderANameAndThenChanged) {
    HostRecord host;
    host.image_side = 20;
    host.image_color = 0x2040C0;
    PluginRun run(plugin_, host);
    HWND dialog = Open(run);
    ASSERT_NE(dialog, nullptr);
    HWND matrix = OpenMatrix(run, dialog);
    ASSERT_NE(matrix, nullptr);

    Press(matrix, kAdd);
    HWND message = run.WaitForMessage("This file cannot be edited");
    ASSERT_NE(message, nullptr);
    ASSERT_TRUE(EndWith(message, IDOK));

    HWND name = PressWithShift(run, matrix, kAdd, "New matrix group");
    ASSERT_NE(name, nullptr);
    EXPECT_EQ(TextOf(name, kName), "Untitled");
    WindowPicture(name).Keep("matrix_name");
    Type(name, kName, "mine");
    ASSERT_TRUE(EndWith(name, IDOK));
    EXPECT_TRUE(WaitUntil([&] { return TextOf(matrix, kGroups) == "mine"; }));

    Press(matrix, kAdd);
    ASSERT_TRUE(WaitUntil([&] { return Count(matrix) == kDefaultTiles + 1; }));
    EXPECT_EQ(run.Calls(HostOp::LoadImageFile), 1);
    ClickElement(matrix, 1);
    Press(matrix, kDelete);
    ASSERT_TRUE(WaitUntil([&] { return Count(matrix) == kDefaultTiles; }));
    SendMessageA(GetDlgItem(matrix, kList), LB_SETTOPINDEX, kDefaultTiles - 1, 0);
    ClickElement(matrix, kDefaultTiles - 1);
    EXPECT_EQ(TextOf(matrix, kSize), "20 x 20");
    EXPECT_GT(WindowPicture(GetDlgItem(matrix, kPreview)).Count(0x2040C0), 1000);
    WindowPicture(matrix).Keep("matrix_changed");
    ASSERT_TRUE(EndWith(matrix, IDOK));
    for (const char* file : {"mine.MTX", "mine.MTX.bak"})
        EXPECT_TRUE(WaitUntil([&] { return std::filesystem::exists(folder_.PluginPathOf(file)); }))
            << file;
}

TEST_F(PluginMatrix, RightButtonOffersToDelete) {
    std::filesystem::copy_file(folder_.PluginPathOf("vorbelx1.mtx"),
                               folder_.PluginPathOf("other.mtx"));
    PluginRun run(plugin_);
    HWND dialog = Open(run);
    ASSERT_NE(dialog, nullptr);
    HWND matrix = OpenMatrix(run, dialog);
    ASSERT_NE(matrix, nullptr);
    EXPECT_EQ(SendMessageA(GetDlgItem(matrix, kGroups), CB_GETCOUNT, 0, 0), 2);
    PostMessageA(GetDlgItem(matrix, kList), WM_RBUTTONUP, 0, MAKELPARAM(24, 48 + 24));
    const auto menu_is_shown = [&] {
        GUITHREADINFO info = {};
        info.cbSize = sizeof info;
        return GetGUIThreadInfo(GetWindowThreadProcessId(matrix, nullptr), &info) &&
               (info.flags & GUI_INMENUMODE) != 0;
    };
    ASSERT_TRUE(WaitUntil(menu_is_shown));
    PostMessageA(matrix, WM_KEYDOWN, VK_DOWN, 0);
    PostMessageA(matrix, WM_KEYDOWN, VK_RETURN, 0);
    HWND message = run.WaitForMessage("This file cannot be edited");
    ASSERT_NE(message, nullptr);
    ASSERT_TRUE(EndWith(message, IDOK));
    EXPECT_EQ(SendMessageA(GetDlgItem(matrix, kList), LB_GETCURSEL, 0, 0), 1);
}

TEST_F(PluginMatrix, GroupIsDeletedAfterYes) {
    PluginRun run(plugin_);
    HWND dialog = Open(run);
    ASSERT_NE(dialog, nullptr);
    HWND matrix = OpenMatrix(run, dialog);
    ASSERT_NE(matrix, nullptr);
    HWND refusal = PressWithShift(run, matrix, kDelete, kProgramName);
    ASSERT_NE(refusal, nullptr);
    EXPECT_EQ(TextOf(refusal, kMessageText), "The primary matrix group cannot be deleted.");
    ASSERT_TRUE(EndWith(refusal, IDOK));

    HWND name = PressWithShift(run, matrix, kAdd, "New matrix group");
    ASSERT_NE(name, nullptr);
    Type(name, kName, "gone");
    ASSERT_TRUE(EndWith(name, IDOK));
    ASSERT_TRUE(WaitUntil([&] { return TextOf(matrix, kGroups) == "gone"; }));
    ASSERT_TRUE(std::filesystem::exists(folder_.PluginPathOf("gone.MTX")));

    HWND question = PressWithShift(run, matrix, kDelete, kProgramName);
    ASSERT_NE(question, nullptr);
    EXPECT_TRUE(
        TextOf(question, kMessageText).starts_with("Do you want to delete the gone matrix group?"));
    ASSERT_TRUE(EndWith(question, IDYES));
    EXPECT_TRUE(WaitUntil([&] { return TextOf(matrix, kGroups) == "vorbelx1"; }));
    EXPECT_FALSE(std::filesystem::exists(folder_.PluginPathOf("gone.MTX")));
    EXPECT_EQ(Count(matrix), kDefaultTiles);
}

TEST_F(PluginMatrix, HelpIsAskedForTheTiles) {
    PluginRun run(plugin_);
    HWND dialog = Open(run);
    ASSERT_NE(dialog, nullptr);
    HWND matrix = OpenMatrix(run, dialog);
    ASSERT_NE(matrix, nullptr);
    Click(matrix, kHelpButton);
    EXPECT_EQ(run.HelpTarget(), "VORBELx1.HTML#TILE");
}

}  // namespace

}  // namespace tess::test
