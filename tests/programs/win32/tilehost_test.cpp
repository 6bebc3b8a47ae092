// The Windows host from outside: what it prints, and a run of the plug-in in it.

#include <filesystem>
#include <gtest/gtest.h>

#include "host/host_menu.h"
#include "shell/control_contract.h"
#include "tests/programs/win32/driven_host.h"
#include "tests/support/gif_reader.h"
#include "tests/support/scratch_folder.h"

namespace tess::test {
namespace {

constexpr char kPluginTitle[] = "Tessellomatics #1";
constexpr int kFileNameEdit = 0x47C;  // of the system's file dialogs
constexpr int kOkButton = 1;

TEST(TilehostCheck, PluginTellsItsParameters) {
    const ProgramEnd end = RunTilehost("--check");
    EXPECT_EQ(end.status, 0u);
    EXPECT_TRUE(end.output.starts_with("Name: Tessellomatics #1")) << end.output;
    EXPECT_NE(end.output.find("Version: 16.0"), std::string::npos);
    EXPECT_NE(end.output.find("vorbelx1_x64.dll"), std::string::npos);
}

TEST(TilehostCheck, MissingLibraryIsAFailure) {
    const ProgramEnd end = RunTilehost("--check no-such.dll");
    EXPECT_EQ(end.status, 1u);
    EXPECT_NE(end.output.find("no-such.dll cannot be loaded"), std::string::npos) << end.output;
}

TEST(TilehostCheck, LibraryWithoutTheExportsIsNoPlugin) {
    const ProgramEnd end = RunTilehost("--check kernel32.dll");
    EXPECT_EQ(end.status, 1u);
}

TEST(TilehostCheck, UnknownOptionIsWrongUse) {
    EXPECT_EQ(RunTilehost("--no-such").status, 2u);
}

class DrivenTilehost : public ::testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(host_.WaitForWindow()); }

    HWND RunPluginDialog() {
        host_.Choose(kRunPlugin);
        HWND dialog = host_.WaitForDialog(kPluginTitle, kEffectList);
        if (dialog != nullptr) Select(dialog, kEffectList, "Bubbles");
        return dialog;
    }
    bool WaitForDialogToGo() {
        return WaitFor([this] { return host_.Dialog(kPluginTitle, kEffectList) == nullptr; });
    }
    /// Whether an animation is there and goes on.
    bool Plays() {
        if (!WaitFor([this] { return host_.Status().starts_with("Frame "); })) return false;
        const std::string before = host_.Status();
        return WaitFor([&] { return host_.Status() != before; });
    }

    DrivenHost host_;
    ScratchFolder folder_;
};

TEST_F(DrivenTilehost, TestShowsTheTiledAnimationAndItsGifReadsBack) {
    HWND dialog = RunPluginDialog();
    ASSERT_NE(dialog, nullptr);
    Press(dialog, kTestButton);
    ASSERT_TRUE(Plays()) << host_.Status();
    EXPECT_NE(host_.Dialog(kPluginTitle, kEffectList), nullptr);  // Test leaves the dialog open

    Press(dialog, kCancelButton);
    ASSERT_TRUE(WaitForDialogToGo());
    host_.Choose(kSaveGif);
    HWND question = host_.WaitForDialog("Save As", kFileNameEdit);
    ASSERT_NE(question, nullptr);
    const std::string path =
        std::filesystem::path(folder_.File("saved.gif")).make_preferred().string();
    SendMessageA(GetDlgItem(question, kFileNameEdit), WM_SETTEXT, 0,
                 reinterpret_cast<LPARAM>(path.c_str()));
    Press(question, kOkButton);
    ASSERT_TRUE(WaitFor([&] { return std::filesystem::exists(path); }));

    std::string error;
    const auto gif = ReadGif(ReadFileBytes(path), &error);
    ASSERT_TRUE(gif.has_value()) << error;
    EXPECT_GT(gif->frames.size(), 1u);
    EXPECT_TRUE(gif->loops_for_ever);
}

TEST_F(DrivenTilehost, BuildEndsTheDialogAndPlaysItsFrames) {
    HWND dialog = RunPluginDialog();
    ASSERT_NE(dialog, nullptr);
    Press(dialog, kBuildButton);
    ASSERT_TRUE(Plays()) << host_.Status();
    EXPECT_TRUE(WaitForDialogToGo());
}

TEST_F(DrivenTilehost, ExitEndsTheProgram) {
    host_.Choose(kExit);
    EXPECT_TRUE(host_.WaitForEnd());
}

}  // namespace
}  // namespace tess::test
