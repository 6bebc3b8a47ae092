// The real library's dialog and its twenty panels.

#include <algorithm>
#include <cctype>
#include <gtest/gtest.h>

#include "shell/control_contract.h"
#include "tests/windows/plugin_run.h"
#include "tests/windows/window_picture.h"

namespace tess::test {

namespace {

struct Panel {
    const char* name;
    int first, last;  ///< plain control ids
};

constexpr Panel kPanels[] = {
    {"Atmosphere", 445, 458}, {"Bubbles", 100, 133},
    {"Carpet", 490, 501},     {"Cubist", 183, 217},
    {"Fountain", 264, 273},   {"Gridlock", 592, 631},
    {"Gumdrops", 322, 357},   {"Hyperspace", 143, 172},
    {"Iris", 228, 253},       {"Machine", 469, 479},
    {"Mural", 358, 365},      {"Neural Network", 688, 723},
    {"Particles", 642, 677},  {"Phasers on Stun", 403, 434},
    {"Skip Intro", 512, 539}, {"Shaped Fountain", 302, 311},
    {"Snow", 550, 581},       {"Solid", 284, 291},
    {"Wavelet", 733, 768},    {"White Noise", 376, 392},
};

std::vector<int> PanelPart(const std::vector<int>& ids) {
    std::vector<int> part;
    for (const int id : ids) {
        if ((id >= 100 && id <= 1198) || (id >= 10100 && id <= 11198)) part.push_back(id);
    }
    return part;
}

/// The panel's controls among all of the dialog's.
std::vector<int> ControlsOf(const Panel& panel, const std::vector<int>& all) {
    std::vector<int> part;
    for (const int id : all) {
        const int plain = id >= 10000 ? id - 10000 : id;
        if (plain >= panel.first && plain <= panel.last) part.push_back(id);
    }
    return part;
}

std::string FileNameFor(std::string name) {
    for (char& c : name)
        c = c == ' ' ? '_' : static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return name;
}

/// True when the box holds more than its frame and one colour.
bool IsPainted(HWND control) {
    const WindowPicture picture(control);
    const std::uint32_t first = picture.At(2, 2);
    return picture.Count(first) < (picture.Width() - 2) * (picture.Height() - 2);
}

TEST(PluginPanels, EachStyleShowsExactlyItsPanelAndItsSample) {
    const UserFolder folder;
    folder.InstallTiles();
    const Plugin plugin;
    PluginRun run(plugin);
    HWND dialog = run.WaitForMainDialog();
    ASSERT_NE(dialog, nullptr);
    const std::vector<int> all = AllControls(dialog);
    int style = 0;
    for (const Panel& panel : kPanels) {
        Choose(dialog, kEffectList, style++);
        EXPECT_EQ(TextOf(dialog, kEffectList), panel.name);
        const std::vector<int> expected = ControlsOf(panel, all);
        EXPECT_FALSE(expected.empty());
        EXPECT_EQ(PanelPart(ShownControls(dialog)), expected) << panel.name;
        WindowPicture(dialog).Keep(FileNameFor(panel.name));
        EXPECT_TRUE(IsPainted(GetDlgItem(dialog, kSampleBox))) << panel.name;
    }
}

}  // namespace

}  // namespace tess::test
