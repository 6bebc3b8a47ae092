// What the real library's dialog looks like by settings that no control changes.

#include <fstream>
#include <gtest/gtest.h>

#include "shell/control_contract.h"
#include "tests/windows/plugin_run.h"
#include "tests/windows/window_picture.h"

namespace tess::test {

namespace {

constexpr int kBubbles = 1;

class PluginLook : public testing::Test {
protected:
    /// Lines for the configuration of the next run.
    void Configure(const std::string& lines) {
        std::ofstream(folder_.PathOf("Quorvenstadtholme\\vorbelx1.ini")) << lines;
    }

    static HWND Open(PluginRun& run) {
        HWND dialog = run.WaitForMainDialog();
        if (dialog != nullptr) Choose(dialog, kEffectList, kBubbles);
        return dialog;
    }

    UserFolder folder_;
    Plugin plugin_;
};

/// A place of the dialog that no control is near.
constexpr int kEmptyX = 400, kEmptyY = 310;

TEST_F(PluginLook, SolidBackgroundIsTheFaceColor) {
    PluginRun run(plugin_);
    HWND dialog = Open(run);
    ASSERT_NE(dialog, nullptr);
    const WindowPicture picture(dialog);
    for (int y = 0; y < 48; ++y) {
        for (int x = 0; x < 48; ++x)
            ASSERT_EQ(picture.At(kEmptyX + x, kEmptyY + y), GetSysColor(COLOR_BTNFACE));
    }
}

TEST_F(PluginLook, TiledBackgroundRepeatsBehindStaticControlsToo) {
    Configure("SolidBackground = 0\n");
    PluginRun run(plugin_);
    HWND dialog = Open(run);
    ASSERT_NE(dialog, nullptr);
    const WindowPicture picture(dialog);
    picture.Keep("tiled");
    int levels = 0;
    for (int y = 0; y < 24; ++y) {
        for (int x = 0; x < 24; ++x) {
            const auto color = picture.At(kEmptyX + x, kEmptyY + y);
            ASSERT_EQ(color, picture.At(kEmptyX + x + 24, kEmptyY + y));
            ASSERT_EQ(color, picture.At(kEmptyX + x, kEmptyY + y + 24));
            levels += color != picture.At(kEmptyX, kEmptyY) ? 1 : 0;
        }
    }
    EXPECT_GT(levels, 0);
    // The last columns of the "Palette:" label have no letters in them.
    RECT label;
    GetWindowRect(GetDlgItem(dialog, 34), &label);
    MapWindowPoints(nullptr, dialog, reinterpret_cast<POINT*>(&label), 2);
    // What lies some whole periods below it is bare background.
    constexpr int kPeriods = 4 * 24;
    for (int x = label.right - 20; x < label.right; ++x)
        EXPECT_EQ(picture.At(x, label.top + 2), picture.At(x, label.top + 2 + kPeriods)) << x;
}

TEST_F(PluginLook, KeyLineIsDrawnJustOutsideTheSample) {
    constexpr std::uint32_t kLightGray = 0xC0C0C0;
    Configure("SampleWindowKeyLine = 1\n");
    PluginRun run(plugin_);
    HWND dialog = Open(run);
    ASSERT_NE(dialog, nullptr);
    const WindowPicture sample(GetDlgItem(dialog, kSampleBox));
    const int left = 1 + (sample.Width() - 2 - 128) / 2, top = 1 + (sample.Height() - 2 - 128) / 2;
    EXPECT_EQ(sample.At(left - 1, top - 1), kLightGray);
    EXPECT_EQ(sample.At(left + 128, top + 128), kLightGray);
    EXPECT_EQ(sample.At(left + 60, top - 1), kLightGray);
    EXPECT_EQ(sample.At(left + 60, top - 2), 0u);
    EXPECT_GE(sample.Count(kLightGray), 4 * 128 + 4);
}

TEST_F(PluginLook, SampleBoxIsFramedInShadowColor) {
    PluginRun run(plugin_);
    HWND dialog = Open(run);
    ASSERT_NE(dialog, nullptr);
    const WindowPicture sample(GetDlgItem(dialog, kSampleBox));
    const std::uint32_t shadow = GetSysColor(COLOR_BTNSHADOW);
    EXPECT_EQ(sample.At(0, 0), shadow);
    EXPECT_EQ(sample.At(sample.Width() - 1, sample.Height() - 1), shadow);
    EXPECT_EQ(sample.At(1, 1), 0u);  // the Bubbles' background
}

TEST_F(PluginLook, HostsLookChangesTheButtonsAndTheyStillWork) {
    std::vector<WindowPicture> pictures;
    for (const std::uint32_t look : {0u, 1u, 2u, 3u}) {
        HostRecord host;
        host.skin_buttons = look;
        PluginRun run(plugin_, host);
        HWND dialog = Open(run);
        ASSERT_NE(dialog, nullptr);
        pictures.emplace_back(GetDlgItem(dialog, kHelpButton));
        WindowPicture(dialog).Keep("look_" + std::to_string(look));
        SendMessageA(GetDlgItem(dialog, kHelpButton), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(5, 5));
        SendMessageA(GetDlgItem(dialog, kHelpButton), WM_LBUTTONUP, 0, MAKELPARAM(5, 5));
        EXPECT_TRUE(WaitUntil([&] { return run.Calls(HostOp::ShowHelp) == 1; })) << look;
    }
    for (std::size_t i = 1; i < pictures.size(); ++i) {
        EXPECT_FALSE(pictures[i] == pictures[0]) << i;
        EXPECT_FALSE(pictures[i] == pictures[i % 3 + 1]) << i;
    }
}

}  // namespace

}  // namespace tess::test
