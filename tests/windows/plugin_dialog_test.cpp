// A user at work in the real library's dialog.

#include <windows.h>
#include <commctrl.h>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>

#include "shell/control_contract.h"
#include "tests/windows/plugin_run.h"
#include "tests/windows/window_picture.h"

namespace tess::test {

namespace {

// Controls of the Bubbles panel.
constexpr int kBubbles = 1;
constexpr int kWidth = 114, kFrames = 104, kColor1 = 119;
constexpr int kUpDown = 10000;

// Controls of the Wavelet panel.
constexpr int kWavelet = 18;
constexpr int kWaveletScroll = 765;

// Controls of the other dialogs.
constexpr int kAboutLogo = 106;
constexpr int kFileName = 0x47C, kFileNameEdit = 0x480;  // of the system's file dialogs

constexpr int kOpen = 37, kSave = 38, kSaveAs = 39;

class PluginDialog : public testing::Test {
protected:
    /// Opens the dialog with the Bubbles selected.
    HWND Open(PluginRun& run) {
        HWND dialog = run.WaitForMainDialog();
        if (dialog != nullptr) Choose(dialog, kEffectList, kBubbles);
        return dialog;
    }

    /// Names `path` in a file dialog that has opened, and agrees.
    static void NameFile(HWND file_dialog, const std::string& path) {
        const int id = GetDlgItem(file_dialog, kFileName) != nullptr ? kFileName : kFileNameEdit;
        Type(file_dialog, id, path);
        PostCommandTo(file_dialog, IDOK);
    }

    static std::string ReadAll(const std::string& path) {
        std::ifstream file(path, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

    UserFolder folder_;
    Plugin plugin_;
};

TEST_F(PluginDialog, TypedAndSteppedValuesComeBackAtTheNextOpening) {
    {
        PluginRun run(plugin_);
        HWND dialog = Open(run);
        ASSERT_NE(dialog, nullptr);
        Type(dialog, kWidth, "200");
        PressKey(dialog, kWidth, VK_UP);
        EXPECT_EQ(TextOf(dialog, kWidth), "201");
        SendMessageA(GetDlgItem(dialog, kFrames + kUpDown), UDM_SETPOS32, 0, 12);
        EXPECT_EQ(TextOf(dialog, kFrames), "12");
        Click(dialog, kCancelButton);
        EXPECT_EQ(run.WaitForEnd(), 1);
    }
    PluginRun run(plugin_);
    HWND dialog = run.WaitForMainDialog();
    ASSERT_NE(dialog, nullptr);
    EXPECT_EQ(TextOf(dialog, kEffectList), "Bubbles");
    EXPECT_EQ(TextOf(dialog, kWidth), "201");
    EXPECT_EQ(TextOf(dialog, kFrames), "12");
    EXPECT_EQ(run.Calls(HostOp::FileDialogSize), 1);
}

TEST_F(PluginDialog, TypingChangesTheSampleAtOnce) {
    PluginRun run(plugin_);
    HWND dialog = Open(run);
    ASSERT_NE(dialog, nullptr);
    const WindowPicture before(GetDlgItem(dialog, kSampleBox));
    EXPECT_EQ(TextOf(dialog, kSizeLine), "128 x 128 pixels");
    Type(dialog, kWidth, "64");
    const WindowPicture after(GetDlgItem(dialog, kSampleBox));
    EXPECT_NE(before, after);
    EXPECT_EQ(TextOf(dialog, kSizeLine), "64 x 128 pixels");
}

TEST_F(PluginDialog, ColorButtonAsksTheHostAndShowsItsColor) {
    HostRecord host;
    host.chooser_color = 0x3366CC;
    PluginRun run(plugin_, host);
    HWND dialog = Open(run);
    ASSERT_NE(dialog, nullptr);
    Click(dialog, kColor1);
    EXPECT_EQ(run.Calls(HostOp::ChooseColor), 1);
    EXPECT_EQ(TextOf(dialog, kColor1), "3368652");
    EXPECT_GT(WindowPicture(GetDlgItem(dialog, kColor1)).Count(0x3366CC), 100);
}

TEST_F(PluginDialog, CancelledColorChangesNothing) {
    PluginRun run(plugin_);
    HWND dialog = Open(run);
    ASSERT_NE(dialog, nullptr);
    const std::string before = TextOf(dialog, kColor1);
    Click(dialog, kColor1);
    EXPECT_EQ(run.Calls(HostOp::ChooseColor), 1);
    EXPECT_EQ(TextOf(dialog, kColor1), before);
}

TEST_F(PluginDialog, ClickInAPickerChoosesItsDirection) {
    PluginRun run(plugin_);
    HWND dialog = Open(run);
    ASSERT_NE(dialog, nullptr);
    Choose(dialog, kEffectList, kWavelet);
    HWND picker = GetDlgItem(dialog, kWaveletScroll);
    EXPECT_EQ(TextOf(dialog, kWaveletScroll), "1");
    SendMessageA(picker, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(10, 10));
    SendMessageA(picker, WM_LBUTTONUP, 0, MAKELPARAM(10, 10));
    EXPECT_EQ(TextOf(dialog, kWaveletScroll), "0");
}

TEST_F(PluginDialog, SavedDocumentBringsItsValuesBack) {
    PluginRun run(plugin_);
    HWND dialog = Open(run);
    ASSERT_NE(dialog, nullptr);
    const std::string path = folder_.PathOf("mine.qv1");
    Type(dialog, kWidth, "321");
    PostCommandTo(dialog, kSaveAs);
    HWND save = run.WaitForDialog("Save As");
    ASSERT_NE(save, nullptr);
    NameFile(save, folder_.PathOf("mine"));  // the ending is added
    ASSERT_TRUE(WaitUntil([&] { return std::filesystem::exists(path); }));
    ASSERT_EQ(run.WaitForDialog(kProgramName), dialog);
    EXPECT_NE(ReadAll(path).find("SPNBTN114=321"), std::string::npos);

    Type(dialog, kWidth, "99");
    Choose(dialog, kEffectList, 5);
    PostCommandTo(dialog, kOpen);
    HWND open = run.WaitForDialog("Open");
    ASSERT_NE(open, nullptr);
    NameFile(open, path);
    ASSERT_EQ(run.WaitForDialog(kProgramName), dialog);
    EXPECT_TRUE(WaitUntil([&] { return TextOf(dialog, kWidth) == "321"; }));
    EXPECT_EQ(TextOf(dialog, kEffectList), "Bubbles");
}

TEST_F(PluginDialog, SaveWritesTheNamedDocumentWithoutAsking) {
    PluginRun run(plugin_);
    HWND dialog = Open(run);
    ASSERT_NE(dialog, nullptr);
    PostCommandTo(dialog, kSave);  // not named yet
    HWND save = run.WaitForDialog("Save As");
    ASSERT_NE(save, nullptr);
    const std::string path = folder_.PathOf("kept.qv1");
    NameFile(save, path);
    ASSERT_TRUE(WaitUntil([&] { return std::filesystem::exists(path); }));
    ASSERT_EQ(run.WaitForDialog(kProgramName), dialog);
    ASSERT_TRUE(std::filesystem::remove(path));
    Type(dialog, kWidth, "222");
    PostCommandTo(dialog, kSave);
    ASSERT_TRUE(WaitUntil([&] { return std::filesystem::exists(path); }));
    EXPECT_NE(ReadAll(path).find("SPNBTN114=222"), std::string::npos);
}

TEST_F(PluginDialog, MenuOfTheOpenButtonLeadsToTheFileDialog) {
    PluginRun run(plugin_);
    HWND dialog = Open(run);
    ASSERT_NE(dialog, nullptr);
    PostCommandTo(dialog, kOpenSaveButton);
    const auto menu_is_shown = [&] {
        GUITHREADINFO info = {};
        info.cbSize = sizeof info;
        return GetGUIThreadInfo(GetWindowThreadProcessId(dialog, nullptr), &info) &&
               (info.flags & GUI_INMENUMODE) != 0;
    };
    ASSERT_TRUE(WaitUntil(menu_is_shown));
    PostMessageA(dialog, WM_KEYDOWN, VK_DOWN, 0);
    PostMessageA(dialog, WM_KEYDOWN, VK_RETURN, 0);
    HWND open = run.WaitForDialog("Open");
    ASSERT_NE(open, nullptr);
    RECT box;
    ASSERT_TRUE(WaitUntil([&] {
        GetWindowRect(open, &box);
        return box.right - box.left == 800 && box.bottom - box.top == 600;
    }));
    PostCommandTo(open, IDCANCEL);
    EXPECT_EQ(run.WaitForDialog(kProgramName), dialog);
}

TEST_F(PluginDialog, TestHandsTheFramesToTheHostsViewer) {
    PluginRun run(plugin_);
    HWND dialog = Open(run);
    ASSERT_NE(dialog, nullptr);
    Type(dialog, kFrames, "3");
    Type(dialog, kWidth, "32");
    Click(dialog, kTestButton);
    ASSERT_TRUE(WaitUntil([&] { return run.Calls(HostOp::CloseTask) == 1; }));
    EXPECT_EQ(run.Calls(HostOp::OpenTest), 1);
    EXPECT_EQ(run.Calls(HostOp::AddFrame), 3);
    EXPECT_EQ(run.Calls(HostOp::ButtonPressed), 1);
    EXPECT_EQ(run.WaitForDialog(kProgramName), dialog);
}

TEST_F(PluginDialog, PreviewWritesThePageAndItsPicture) {
    PluginRun run(plugin_);
    HWND dialog = Open(run);
    ASSERT_NE(dialog, nullptr);
    Type(dialog, kFrames, "3");
    Click(dialog, kPreviewButton);
    EXPECT_TRUE(WaitUntil([&] {
        return ReadAll(folder_.PluginPathOf("preview.html")).find("preview.gif") !=
               std::string::npos;
    }));
    EXPECT_TRUE(ReadAll(folder_.PluginPathOf("preview.gif")).starts_with("GIF89a"));
    EXPECT_EQ(run.Calls(HostOp::OpenBuild) + run.Calls(HostOp::OpenTest), 0);
}

TEST_F(PluginDialog, BuildHandsTheFramesOverAndClosesTheDialog) {
    PluginRun run(plugin_);
    HWND dialog = Open(run);
    ASSERT_NE(dialog, nullptr);
    Type(dialog, kFrames, "4");
    Click(dialog, kBuildButton);
    EXPECT_EQ(run.WaitForEnd(), 1);
    EXPECT_EQ(run.Calls(HostOp::OpenBuild), 1);
    EXPECT_EQ(run.Calls(HostOp::AddFrame), 4);
    EXPECT_EQ(run.Calls(HostOp::AddComment), 1);
    EXPECT_EQ(run.Calls(HostOp::CloseTask), 1);
}

TEST_F(PluginDialog, HelpIsAskedForItsPreface) {
    PluginRun run(plugin_);
    HWND dialog = Open(run);
    ASSERT_NE(dialog, nullptr);
    Click(dialog, kHelpButton);
    EXPECT_EQ(run.HelpTarget(), "VORBELx1.HTML#PREFACE");
}

TEST_F(PluginDialog, LogoTurnsInTheDialogAndInAbout) {
    PluginRun run(plugin_);
    HWND dialog = Open(run);
    ASSERT_NE(dialog, nullptr);
    const auto turns = [](HWND logo) {
        const WindowPicture first(logo);
        return WaitUntil([&] { return WindowPicture(logo) != first; });
    };
    EXPECT_TRUE(turns(GetDlgItem(dialog, kLogo)));
    PostCommandTo(dialog, kAboutButton);
    HWND about = run.WaitForDialog("About Tessellomatics #1");
    ASSERT_NE(about, nullptr);
    RECT box;
    GetClientRect(GetDlgItem(about, kAboutLogo), &box);
    EXPECT_EQ(box.right, 52);
    EXPECT_EQ(box.bottom, 52);
    EXPECT_TRUE(turns(GetDlgItem(about, kAboutLogo)));
    WindowPicture(about).Keep("about");
    EXPECT_TRUE(EndWith(about, IDOK));
    EXPECT_TRUE(IsWindowEnabled(dialog));
}

TEST_F(PluginDialog, DamagedDocumentIsToldAndChangesNothing) {
    PluginRun run(plugin_);
    HWND dialog = Open(run);
    ASSERT_NE(dialog, nullptr);
    const std::string path = folder_.PathOf("other.qv1");
    std::ofstream(path) << ";Another program's file\nSPNBTN114=77\n";
    PostCommandTo(dialog, kOpen);
    HWND open = run.WaitForDialog("Open");
    ASSERT_NE(open, nullptr);
    NameFile(open, path);
    HWND message = run.WaitForMessage("This file");
    ASSERT_NE(message, nullptr);
    EXPECT_EQ(TextOf(message, kMessageText), "This file has been damaged.");
    EXPECT_TRUE(EndWith(message, IDOK));
    EXPECT_EQ(TextOf(dialog, kWidth), "128");
}

}  // namespace

}  // namespace tess::test
