// A user at work with the mouse on the fountain button of the real library's Fountain
// panel. The button is looped; its strip is 181 pixels wide, from column 8 on, and its
// markers stand at columns 30, 53, 76, 98, 121, 144 and 166 of row 6.

#include <windows.h>
#include <algorithm>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>

#include "fills/fountain.h"
#include "fills/fountain_library.h"
#include "shell/control_contract.h"
#include "tests/windows/plugin_run.h"
#include "tests/windows/window_picture.h"

namespace tess::test {

namespace {

constexpr int kFountainStyle = 4;
constexpr int kButton = 270;
constexpr int kMarkerRow = 6, kStripRow = 30;
constexpr int kPositionEdit = 100, kLibraryList = 101, kDeleteEntry = 102;
constexpr int kEntryHeight = 42;

std::string ReadAll(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

void Mouse(HWND window, UINT message, int x, int y) {
    SendMessageA(window, message, 0, MAKELPARAM(x, y));
}

class PluginFountain : public testing::Test {
protected:
    /// Opens the dialog with the Fountain style and returns its fountain button.
    HWND Open(PluginRun& run) {
        dialog_ = run.WaitForMainDialog();
        if (dialog_ == nullptr) return nullptr;
        Choose(dialog_, kEffectList, kFountainStyle);
        return GetDlgItem(dialog_, kButton);
    }
    static void Drag(HWND button, int from, int to) {
        Mouse(button, WM_LBUTTONDOWN, from, kMarkerRow);
        Mouse(button, WM_MOUSEMOVE, to, kMarkerRow);
        Mouse(button, WM_LBUTTONUP, to, kMarkerRow);
    }
    /// Waits for the popup menu, notes its texts, and chooses an item from the top.
    static std::vector<std::string> ChooseFromMenu(const PluginRun& run, HWND button, int item) {
        constexpr UINT kGetMenu = 0x01E1;
        std::vector<std::string> texts;
        HWND window = run.WaitForMenu();
        EXPECT_NE(window, nullptr);
        const auto menu = reinterpret_cast<HMENU>(SendMessageA(window, kGetMenu, 0, 0));
        for (int i = 0; i < GetMenuItemCount(menu); ++i) {
            char text[64] = "";
            GetMenuStringA(menu, static_cast<UINT>(i), text, sizeof text, MF_BYPOSITION);
            texts.emplace_back(text);
        }
        WindowPicture(window).Keep("menu_" + std::to_string(texts.size()));
        for (int i = 0; i <= item; ++i)
            PostMessageA(button, WM_KEYDOWN, VK_DOWN, 0);
        PostMessageA(button, WM_KEYDOWN, VK_RETURN, 0);
        EXPECT_TRUE(WaitUntil([&] { return !IsWindow(window); }));
        return texts;
    }
    /// Closes the dialog and reads what the button has written to its own file.
    Fountain Close(PluginRun& run) {
        Click(dialog_, kCancelButton);
        EXPECT_EQ(run.WaitForEnd(), 1);
        const std::string bytes = ReadAll(folder_.PluginPathOf("Fountain00270.mtrl"));
        Fountain fountain{};
        EXPECT_EQ(bytes.size(), sizeof fountain);
        std::copy_n(bytes.data(), std::min(bytes.size(), sizeof fountain),
                    reinterpret_cast<char*>(&fountain));
        return fountain;
    }
    static std::vector<int> PositionsOf(const Fountain& fountain) {
        std::vector<int> positions;
        for (int i = 0; i < fountain.Count; ++i)
            positions.push_back(MarkerPosition(fountain.Markers[i]));
        return positions;
    }
    /// Fills the user's library with plain fountains that start in these colours.
    void FillLibrary(const std::vector<ColorWord>& starts) const {
        FountainLibraryHeader header{};
        std::copy_n(kLibraryHeaderMagic, 8, header.Magic);
        header.Count = static_cast<std::int32_t>(starts.size());
        std::ofstream file(LibraryPath(), std::ios::binary);
        file.write(reinterpret_cast<const char*>(&header), sizeof header);
        for (const ColorWord start : starts) {
            FountainLibraryEntry entry{};
            std::copy_n(kLibraryEntryMagic, 8, entry.Magic);
            entry.Start = start;
            entry.End = 0xFFFFFF;
            file.write(reinterpret_cast<const char*>(&entry), sizeof entry);
        }
    }
    [[nodiscard]] std::string LibraryPath() const {
        return folder_.PluginPathOf("FountainLibrary.fll");
    }
    [[nodiscard]] std::vector<ColorWord> LibraryStarts() const {
        const std::string bytes = ReadAll(LibraryPath());
        std::vector<ColorWord> starts;
        for (std::size_t at = sizeof(FountainLibraryHeader); at < bytes.size();
             at += sizeof(FountainLibraryEntry)) {
            ColorWord start = 0;
            std::copy_n(bytes.data() + at + 12, sizeof start, reinterpret_cast<char*>(&start));
            starts.push_back(start);
        }
        return starts;
    }
    /// Opens the library's dialog by the menu of the strip.
    HWND OpenLibrary(PluginRun& run, HWND button) {
        PostMessageA(button, WM_RBUTTONDOWN, MK_RBUTTON, MAKELPARAM(60, kStripRow));
        EXPECT_EQ(ChooseFromMenu(run, button, 1),
                  (std::vector<std::string>{"Add to library", "Manage library"}));
        return run.WaitForDialog("Gradient Library");
    }
    [[nodiscard]] HWND Dialog() const { return dialog_; }

    UserFolder folder_;
    Plugin plugin_;

private:
    HWND dialog_ = nullptr;
};

TEST_F(PluginFountain, DraggedMarkerMovesAndTheSampleFollows) {
    PluginRun run(plugin_);
    HWND button = Open(run);
    ASSERT_NE(button, nullptr);
    HWND sample = GetDlgItem(Dialog(), kSampleBox);
    const WindowPicture sample_before(sample), before(button);
    EXPECT_EQ(before.Width(), 197);
    EXPECT_EQ(before.Height(), 50);
    before.Keep("fountain_button");
    Mouse(button, WM_LBUTTONDOWN, 30, kMarkerRow);
    Mouse(button, WM_MOUSEMOVE, 60, 40);
    const WindowPicture dragging(button);
    dragging.Keep("fountain_dragging");
    EXPECT_FALSE(dragging == before);
    Mouse(button, WM_LBUTTONUP, 60, 40);
    EXPECT_TRUE(WaitUntil([&] { return !(WindowPicture(sample) == sample_before); }));
    const WindowPicture after(button);
    after.Keep("fountain_dragged");
    EXPECT_FALSE(after == before);
    EXPECT_EQ(PositionsOf(Close(run)), (std::vector<int>{64, 73, 96, 128, 160, 192, 224}));
}

TEST_F(PluginFountain, OutlineIsDrawnAwayWhereTheMarkerIsLetGoInItsPlace) {
    PluginRun run(plugin_);
    HWND button = Open(run);
    ASSERT_NE(button, nullptr);
    const WindowPicture before(button);
    Mouse(button, WM_LBUTTONDOWN, 30, kMarkerRow);
    EXPECT_FALSE(WindowPicture(button) == before);
    for (const int x : {40, 90, 180, 30})
        Mouse(button, WM_MOUSEMOVE, x, kMarkerRow);
    Mouse(button, WM_LBUTTONUP, 30, kMarkerRow);
    EXPECT_TRUE(WindowPicture(button) == before);
}

TEST_F(PluginFountain, MouseThatIsTakenAwayEndsTheDrag) {
    PluginRun run(plugin_);
    HWND button = Open(run);
    ASSERT_NE(button, nullptr);
    const WindowPicture before(button);
    Mouse(button, WM_LBUTTONDOWN, 30, kMarkerRow);
    Mouse(button, WM_MOUSEMOVE, 90, kMarkerRow);
    SendMessageA(button, WM_CAPTURECHANGED, 0, reinterpret_cast<LPARAM>(Dialog()));
    EXPECT_TRUE(WindowPicture(button) == before);
    Mouse(button, WM_LBUTTONUP, 90, kMarkerRow);
    EXPECT_EQ(PositionsOf(Close(run)).front(), 32);
}

TEST_F(PluginFountain, DoubleClickOnTheHandleAsksTheHostForTheColor) {
    HostRecord host;
    host.chooser_color = 0x00FF00;
    PluginRun run(plugin_, host);
    HWND button = Open(run);
    ASSERT_NE(button, nullptr);
    Mouse(button, WM_LBUTTONDOWN, 8, kMarkerRow);
    Mouse(button, WM_LBUTTONUP, 8, kMarkerRow);
    Mouse(button, WM_LBUTTONDBLCLK, 8, kMarkerRow);
    EXPECT_TRUE(WaitUntil([&] { return run.Calls(HostOp::ChooseColor) == 1; }));
    EXPECT_TRUE(WaitUntil([&] { return GreenOf(WindowPicture(button).At(10, kStripRow)) > 200; }));
    EXPECT_EQ(ColorWord{Close(run).Start}, 0x00FF00u);
}

TEST_F(PluginFountain, MenuOfAMarkerOpensItsPosition) {
    PluginRun run(plugin_);
    HWND button = Open(run);
    ASSERT_NE(button, nullptr);
    PostMessageA(button, WM_RBUTTONDOWN, MK_RBUTTON, MAKELPARAM(98, kMarkerRow));
    EXPECT_EQ(ChooseFromMenu(run, button, 2),
              (std::vector<std::string>{"Delete marker", "Change color", "Adjust position"}));
    HWND position = run.WaitForDialog("Marker Position");
    ASSERT_NE(position, nullptr);
    WindowPicture(position).Keep("marker_position");
    EXPECT_EQ(TextOf(position, kPositionEdit), "128");
    PressKey(position, kPositionEdit, VK_UP);
    EXPECT_EQ(TextOf(position, kPositionEdit), "129");
    Type(position, kPositionEdit, "140");
    ASSERT_TRUE(EndWith(position, IDOK));
    EXPECT_EQ(PositionsOf(Close(run)), (std::vector<int>{32, 64, 96, 140, 160, 192, 224}));
}

TEST_F(PluginFountain, RightPressWithShiftDeletesTheMarker) {
    PluginRun run(plugin_);
    HWND button = Open(run);
    ASSERT_NE(button, nullptr);
    const WindowPicture before(button);
    {
        const HeldShift shift(button);
        Mouse(button, WM_RBUTTONDOWN, 98, kMarkerRow);
    }
    EXPECT_TRUE(WaitUntil([&] { return !(WindowPicture(button) == before); }));
    EXPECT_EQ(PositionsOf(Close(run)), (std::vector<int>{32, 64, 96, 160, 192, 224}));
}

TEST_F(PluginFountain, AddToLibraryMakesTheFile) {
    PluginRun run(plugin_);
    HWND button = Open(run);
    ASSERT_NE(button, nullptr);
    PostMessageA(button, WM_RBUTTONDOWN, MK_RBUTTON, MAKELPARAM(60, kStripRow));
    ChooseFromMenu(run, button, 0);
    EXPECT_TRUE(WaitUntil([&] { return ReadAll(LibraryPath()).size() == 420; }));
}

TEST_F(PluginFountain, LibraryIsOrderedByTheMouseAndGivesItsColors) {
    FillLibrary({0x0000FF, 0x00FF00, 0xFF0000, 0x00FFFF, 0xFF00FF, 0xFFFF00, 0x808080, 0x123456});
    PluginRun run(plugin_);
    HWND button = Open(run);
    ASSERT_NE(button, nullptr);
    HWND library = OpenLibrary(run, button);
    ASSERT_NE(library, nullptr);
    WindowPicture(library).Keep("fountain_library");
    HWND list = GetDlgItem(library, kLibraryList);
    EXPECT_EQ(SendMessageA(list, LB_GETCOUNT, 0, 0), 8);
    EXPECT_EQ(SendMessageA(list, LB_GETITEMHEIGHT, 0, 0), kEntryHeight);
    Mouse(list, WM_LBUTTONDOWN, 30, 2 * kEntryHeight + 20);
    EXPECT_EQ(SendMessageA(list, LB_GETCURSEL, 0, 0), 2);
    Mouse(list, WM_MOUSEMOVE, 30, kEntryHeight + 20);
    Mouse(list, WM_MOUSEMOVE, 30, 20);
    EXPECT_EQ(SendMessageA(list, LB_GETCURSEL, 0, 0), 2);  // it stays while it is dragged
    Mouse(list, WM_LBUTTONUP, 30, 20);
    EXPECT_EQ(SendMessageA(list, LB_GETCURSEL, 0, 0), 0);
    WindowPicture(library).Keep("fountain_library_ordered");
    SendMessageA(list, LB_SETCURSEL, 7, 0);
    Click(library, kDeleteEntry);
    EXPECT_EQ(SendMessageA(list, LB_GETCURSEL, 0, 0), 6);
    SendMessageA(list, LB_SETCURSEL, 0, 0);
    ASSERT_TRUE(EndWith(library, IDOK));
    EXPECT_EQ(LibraryStarts(), (std::vector<ColorWord>{0xFF0000, 0x0000FF, 0x00FF00, 0x00FFFF,
                                                       0xFF00FF, 0xFFFF00, 0x808080}));
    const Fountain fountain = Close(run);
    EXPECT_EQ(ColorWord{fountain.Start}, 0xFF0000u);
    EXPECT_EQ(int{fountain.Count}, 0);
    EXPECT_EQ(std::uint32_t{fountain.Flags}, kFountainSaved | kFountainLooped);
}

TEST_F(PluginFountain, DoubleClickInTheLibraryTakesTheEntry) {
    FillLibrary({0x0000FF, 0x00FF00});
    PluginRun run(plugin_);
    HWND button = Open(run);
    ASSERT_NE(button, nullptr);
    HWND library = OpenLibrary(run, button);
    ASSERT_NE(library, nullptr);
    HWND list = GetDlgItem(library, kLibraryList);
    for (const UINT message : {UINT{WM_LBUTTONDOWN}, UINT{WM_LBUTTONUP}, UINT{WM_LBUTTONDBLCLK}})
        PostMessageA(list, message, 0, MAKELPARAM(30, kEntryHeight + 20));
    ASSERT_TRUE(WaitUntil([&] { return !IsWindow(library); }));
    EXPECT_EQ(ColorWord{Close(run).Start}, 0x00FF00u);
}

TEST_F(PluginFountain, MissingLibraryIsTold) {
    PluginRun run(plugin_);
    HWND button = Open(run);
    ASSERT_NE(button, nullptr);
    PostMessageA(button, WM_RBUTTONDOWN, MK_RBUTTON, MAKELPARAM(60, kStripRow));
    ChooseFromMenu(run, button, 1);
    HWND message = run.WaitForMessage("There has been an error");
    ASSERT_NE(message, nullptr);
    EXPECT_EQ(TextOf(message, kMessageText),
              "There has been an error loading the fountain library.");
    EXPECT_TRUE(EndWith(message, IDOK));
    // The library's dialog, which never came to be shown, ends after it.
    EXPECT_TRUE(WaitUntil([&] { return IsWindowEnabled(Dialog()) != FALSE; }));
}

}  // namespace

}  // namespace tess::test
