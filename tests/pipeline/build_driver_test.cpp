#include "pipeline/build_driver.h"

#include <algorithm>
#include <array>
#include <gtest/gtest.h>
#include <set>

#include "pipeline/palette.h"
#include "tests/pipeline/build_driver_fixture.h"

namespace tess::test {
namespace {

using Words = std::vector<std::uint32_t>;
using Lines = std::vector<std::string>;

class BuildDriver : public DriverTest {
protected:
    BuildDriver() { Frames({RowOf({kRed, kBlue}), RowOf({kRed, kGreen})}); }
};

/// `count` colours that differ in all channels' lower bits, none of them white.
std::vector<ColorWord> ManyColors(int count) {
    std::vector<ColorWord> colors;
    for (int i = 0; i < count; ++i) {
        colors.push_back(MakeColor(i, (i * 7) & 255, 255 - i));
    }
    return colors;
}

// The calls, in order.

TEST_F(BuildDriver, BuildCallsTheHostInOrder) {
    EXPECT_EQ(Run(), 1);
    EXPECT_EQ(Events(),
              (Lines{"BackgroundQuery 1 1", "BackgroundQuery 1 0", "Progress 0 0", "Title Building",
                     "Title Building", "Build 1", "Progress 0 0", "Progress 0 0", "Progress 0 0",
                     "Title Remapping", "Progress 0 2", "Progress 1 2", "Progress 0 0", "OpenBuild",
                     "AddFrame 0", "AddFrame 1", "Close 1"}));
}

TEST_F(BuildDriver, QuantizingAndSupercompressingHaveTheirOwnStages) {
    settings.custom_palette = settings.supercompress = true;
    EXPECT_EQ(Run(), 1);
    EXPECT_EQ(Events(), (Lines{"BackgroundQuery 1 1",
                               "BackgroundQuery 1 0",
                               "Progress 0 0",
                               "Title Building",
                               "Title Building",
                               "Build 1",
                               "Progress 0 0",
                               "Progress 0 0",
                               "Title Quantizing",
                               "Progress 0 0",
                               "Title Supercompressing",
                               "Progress 0 2",
                               "Progress 1 2",
                               "Progress 0 0",
                               "Title Remapping",
                               "Progress 0 2",
                               "Progress 1 2",
                               "Progress 0 0",
                               "OpenBuild",
                               "AddFrame 0",
                               "AddFrame 1",
                               "Close 1"}));
}

TEST_F(BuildDriver, TestGoesToTheHostsViewer) {
    EXPECT_EQ(Run(BuildMode::Test), 1);
    EXPECT_TRUE(Happened("OpenTest"));
    EXPECT_FALSE(Happened("OpenBuild"));
    EXPECT_EQ(Events().back(), "Close 1");
}

TEST_F(BuildDriver, CommentGoesBehindTheFramesWhenItsBoxIsSet) {
    settings.comment = true;
    EXPECT_EQ(Run(), 1);
    EXPECT_EQ(Lines(Events().end() - 3, Events().end()),
              (Lines{"AddFrame 1", "Comment", "Close 1"}));
    EXPECT_EQ(host.comment,
              "CREATED BY...\r\n\r\nThis graphic was created by Quorvenstadtholme' Zandervault "
              "Professional or Murgaloft and the Tessellomatics #1 plugin.\r\n\r\nSee\r\n\r\n"
              "    http://www.quorvenstadtholme.example/\r\n\r\nfor more information.");
}

TEST_F(BuildDriver, StyleGetsTheDialogTheListAndTheHost) {
    StyleContext seen{};
    Shell().build = [&](StyleContext* context) {
        seen = *context;
        return 0;
    };
    Run();
    EXPECT_NE(seen.Dialog, nullptr);
    EXPECT_NE(seen.Frames, nullptr);
    EXPECT_EQ(seen.Host, host.Services());
    EXPECT_EQ(seen.Result, nullptr);
    EXPECT_EQ(seen.Flags, 0U);
    EXPECT_EQ(seen.State, nullptr);
}

TEST_F(BuildDriver, StyleIndexIsHeldInTheTable) {
    settings.style = -1;
    Run();
    EXPECT_TRUE(Happened("Build 0"));
    settings.style = 24;
    Run();
    EXPECT_TRUE(Happened("Build 19"));
}

// What the host is handed.

TEST_F(BuildDriver, TaskTellsTheWholeAnimationAndIsZeroElsewhere) {
    Frames({{2, 3, Words(6, kRed), 4}, {5, 1, Words(5, kRed), 4}});
    settings.palette = 1;
    ASSERT_EQ(Run(), 1);
    TaskRecord expected{};
    expected.Size = 1080;
    expected.Version = 4096;
    expected.Window = host.task.Window;
    expected.Depth = 4;
    expected.Width = 5;
    expected.Height = 3;
    BuildFixedPalette(expected.Palette, nullptr, 1);
    expected.FrameCount = 2;
    EXPECT_NE(host.task.Window, nullptr);
    EXPECT_EQ(std::memcmp(&host.task, &expected, sizeof expected), 0);
}

TEST_F(BuildDriver, ImageTellsOneFrameAndIsZeroElsewhere) {
    Frames({RowOf({kRed}), {1, 1, {kRed}, 70}});
    ASSERT_EQ(Run(), 1);
    ImageRecord expected{};
    expected.Size = 112;
    expected.Version = 4096;
    expected.Image = host.frames[1].record.Image;
    expected.Delay = 70;
    expected.FrameNumber = 1;
    expected.TransparentIndex = -1;
    EXPECT_EQ(std::memcmp(&host.frames[1].record, &expected, sizeof expected), 0);
}

TEST_F(BuildDriver, AllIsFreedAfterASuccess) {
    settings.custom_palette = settings.supercompress = true;
    const std::size_t blocks = platform::CurrentMemoryUse().live_blocks;
    ASSERT_EQ(Run(), 1);
    EXPECT_EQ(platform::CurrentMemoryUse().live_blocks, blocks);
    EXPECT_GT(host.live_blocks_at_close, blocks);
}

TEST_F(BuildDriver, ASingleFrameIsEnough) {
    Frames({RowOf({kRed})});
    EXPECT_EQ(Run(), 1);
    EXPECT_EQ(host.task.FrameCount, 1);
}

// Palettes.

TEST_F(BuildDriver, FixedPaletteGivesItsDepthAndIndexes) {
    settings.palette = 1;
    ASSERT_EQ(Run(), 1);
    EXPECT_EQ(host.task.Depth, 4U);
    EXPECT_EQ(Row(0), (Words{9, 12}));
    EXPECT_EQ(Row(1), (Words{9, 10}));
}

TEST_F(BuildDriver, NoChoiceOfPaletteGivesThe256Colors) {
    settings.palette = -1;
    ASSERT_EQ(Run(), 1);
    std::uint8_t palette[kPaletteBytes];
    BuildFixedPalette(palette, nullptr, 6);
    EXPECT_EQ(std::memcmp(host.task.Palette, palette, sizeof palette), 0);
}

TEST_F(BuildDriver, CustomPaletteHoldsTheBackgroundAndIsSortedByLuminance) {
    settings.custom_palette = true;
    Frames({RowOf({kGreen, kBlue, kBlue})});
    Background(kRed);
    ASSERT_EQ(Run(), 1);
    EXPECT_EQ(Palette(4), (Words{kBlue, kRed, kGreen, 0}));
    EXPECT_EQ(host.task.Depth, 2U);
    EXPECT_EQ(Row(0), (Words{2, 0, 0}));
}

TEST_F(BuildDriver, StyleWithoutBackgroundGetsWhiteInACustomPalette) {
    settings.custom_palette = true;
    settings.mask_background = true;  // without effect
    Frames({RowOf({kGreen, kBlue})});
    ASSERT_EQ(Run(), 1);
    EXPECT_EQ(Palette(4), (Words{kBlue, kGreen, kWhite, 0}));
}

TEST_F(BuildDriver, DepthFollowsTheNumberOfColors) {
    settings.custom_palette = true;
    // With white as one colour more.
    constexpr std::array<std::pair<int, unsigned>, 12> kCases{{{1, 1},
                                                               {2, 2},
                                                               {3, 2},
                                                               {4, 3},
                                                               {7, 3},
                                                               {8, 4},
                                                               {15, 4},
                                                               {16, 5},
                                                               {32, 6},
                                                               {64, 7},
                                                               {127, 7},
                                                               {128, 8}}};
    for (const auto& [colors, depth] : kCases) {
        Frames({RowOf(ManyColors(colors))});
        ASSERT_EQ(Run(), 1);
        EXPECT_EQ(host.task.Depth, depth) << colors;
    }
}

TEST_F(BuildDriver, With253ColorsTheBackgroundIsOneMore) {
    settings.custom_palette = true;
    Frames({RowOf(ManyColors(253))});
    ASSERT_EQ(Run(), 1);
    const std::vector<ColorWord> palette = Palette(256);
    EXPECT_EQ(palette[253], kWhite);
    const std::set<ColorWord> colors(palette.begin(), palette.begin() + 254);
    EXPECT_EQ(colors.size(), 254U);
}

TEST_F(BuildDriver, With254ColorsTheBackgroundOverwritesTheNearest) {
    settings.custom_palette = true;
    const std::vector<ColorWord> colors = ManyColors(254);
    Frames({RowOf(colors)});
    std::uint8_t first_seen[kPaletteBytes] = {};
    for (std::size_t i = 0; i < colors.size(); ++i) {
        first_seen[3 * i] = RedOf(colors[i]);
        first_seen[3 * i + 1] = GreenOf(colors[i]);
        first_seen[3 * i + 2] = BlueOf(colors[i]);
    }
    const int lost = NearestColor(255, 255, 255, first_seen, 254);
    ASSERT_EQ(Run(), 1);
    const std::vector<ColorWord> palette = Palette(256);
    EXPECT_EQ(std::count(palette.begin(), palette.end(), kWhite), 1);
    EXPECT_EQ(std::count(palette.begin(), palette.end(), colors[static_cast<std::size_t>(lost)]),
              0);
    EXPECT_EQ(palette[254], 0U);
    EXPECT_EQ(palette[255], 0U);
}

TEST_F(BuildDriver, DitherSpreadsTheErrorAndPlainDoesNot) {
    settings.palette = 0;
    const Words gray(64, 0x646464);
    Frames({{8, 8, gray, 4}});
    ASSERT_EQ(Run(), 1);
    settings.dither = true;
    ASSERT_EQ(Run(), 1);
    const auto set_pixels = [&](std::size_t frame) {
        int set = 0;
        for (int i = 0; i < 64; ++i)
            set += static_cast<int>(host.frames[frame].Pixel(i & 7, i / 8));
        return set;
    };
    EXPECT_EQ(set_pixels(0), 0);
    EXPECT_GT(set_pixels(1), 0);
}

// Mask background.

TEST_F(BuildDriver, MaskedBackgroundHasASlotOfItsOwn) {
    settings.custom_palette = settings.mask_background = true;
    Frames({RowOf({kRed, kBlack, 0x000100})});
    Background(kBlack);
    ASSERT_EQ(Run(), 1);
    // Black stands among the colours, too, but its pixels are in the slot.
    EXPECT_EQ(Palette(5), (Words{kBlack, 0x000100, kRed, kBlack, 0}));
    EXPECT_EQ(host.task.Depth, 2U);
    EXPECT_EQ(Row(0), (Words{2, 3, 1}));
    EXPECT_EQ(host.frames[0].record.TransparentIndex, -1);
}

TEST_F(BuildDriver, MaskBackgroundHasNoEffectWithAFixedPalette) {
    settings.palette = 1;
    Background(kRed);
    ASSERT_EQ(Run(), 1);
    settings.mask_background = true;
    ASSERT_EQ(Run(), 1);
    EXPECT_EQ(host.frames[0].picture, host.frames[2].picture);
    EXPECT_EQ(host.frames[1].picture, host.frames[3].picture);
}

// True colour.

TEST_F(BuildDriver, TrueColorKeepsFramesAt24BitsAndTheFixedPalette) {
    settings.palette = 1;
    settings.true_color = settings.custom_palette = settings.supercompress = true;
    ASSERT_EQ(Run(), 1);
    EXPECT_EQ(host.task.Depth, 4U);
    EXPECT_EQ(Palette(2), (Words{kBlack, 0x000080}));
    EXPECT_EQ(host.frames[0].Picture()->BitCount, 24);
    EXPECT_EQ(Row(1), (Words{kRed, kGreen}));
    EXPECT_EQ(host.task.Width, 2);
    EXPECT_FALSE(Happened("Title Quantizing"));
    EXPECT_FALSE(Happened("Title Supercompressing"));
}

// Supercompress.

class Supercompress : public BuildDriver {
protected:
    Supercompress() { settings.custom_palette = settings.supercompress = true; }
};

TEST_F(Supercompress, UnchangedPixelsAreTransparentFromTheSecondFrameOn) {
    ASSERT_EQ(Run(), 1);
    EXPECT_EQ(Palette(5), (Words{kBlue, kRed, kGreen, kWhite, kWhite}));
    EXPECT_EQ(host.task.Depth, 3U);
    EXPECT_EQ(Row(0), (Words{1, 0}));
    EXPECT_EQ(Row(1), (Words{4, 2}));
    EXPECT_EQ(host.frames[0].record.TransparentIndex, -1);
    EXPECT_EQ(host.frames[1].record.TransparentIndex, 4);
}

TEST_F(Supercompress, TransparentEntryShowsTheBackground) {
    Background(0x123456);
    ASSERT_EQ(Run(), 1);
    EXPECT_EQ(TableEntry(1, 4), 0x123456U);
}

TEST_F(Supercompress, FirstFramesBackgroundHasTheBackgroundsSlot) {
    Background(kRed);
    ASSERT_EQ(Run(), 1);
    EXPECT_EQ(Palette(5), (Words{kBlue, kRed, kRed, kGreen, kRed}));
    EXPECT_EQ(Row(0), (Words{4, 0}));
}

TEST_F(Supercompress, PixelsAreComparedWithThePictureSoFar) {
    Frames({RowOf({kRed, kRed}), RowOf({kRed, kBlue}), RowOf({kRed, kRed}), RowOf({kRed, kRed})});
    ASSERT_EQ(Run(), 1);
    EXPECT_EQ(Palette(4), (Words{kBlue, kRed, kWhite, kWhite}));
    EXPECT_EQ(Row(1), (Words{3, 0}));
    EXPECT_EQ(Row(2), (Words{3, 1}));
    EXPECT_EQ(Row(3), (Words{3, 3}));
}

TEST_F(Supercompress, PixelsBeyondTheFirstFrameHaveAlwaysChanged) {
    Frames({RowOf({kRed}), RowOf({kRed, kBlue}), RowOf({kRed, kBlue})});
    ASSERT_EQ(Run(), 1);
    EXPECT_EQ(Row(2), (Words{3, 0}));
}

TEST_F(Supercompress, ItTakesTheForceFromMaskBackground) {
    settings.mask_background = true;
    Frames({RowOf({kRed, kBlue}), RowOf({kBlue, kRed})});
    Background(kGreen);
    ASSERT_EQ(Run(), 1);
    EXPECT_EQ(Palette(5), (Words{kBlue, kRed, kGreen, kGreen, 0}));
}

TEST_F(Supercompress, ASingleFrameClearsItAnd256ColorsAreWanted) {
    const std::vector<ColorWord> colors = [] {
        std::vector<ColorWord> result = ManyColors(255);
        result.push_back(kWhite);
        return result;
    }();
    Frames({RowOf(colors)});
    ASSERT_EQ(Run(), 1);
    EXPECT_FALSE(Happened("Title Supercompressing"));
    const std::vector<ColorWord> palette = Palette(256);
    EXPECT_EQ(std::set<ColorWord>(palette.begin(), palette.end()),
              std::set<ColorWord>(colors.begin(), colors.end()));
}

TEST_F(Supercompress, FixedPaletteMarksUnchangedPixelsWithTheHighestIndex) {
    settings.custom_palette = false;
    settings.palette = 1;
    ASSERT_EQ(Run(), 1);
    EXPECT_EQ(Row(1), (Words{15, 10}));
    EXPECT_EQ(host.frames[1].record.TransparentIndex, -1);
    EXPECT_EQ(TableEntry(1, 15), kWhite);
}

TEST_F(Supercompress, FixedPalettePutsTheFirstFramesBackgroundInTheHighestIndex) {
    settings.custom_palette = false;
    Background(kBlue);
    ASSERT_EQ(Run(), 1);
    EXPECT_EQ(Row(0)[1], 255U);
}

// Failures.

class BuildDriverFailure : public BuildDriver {
protected:
    /// Runs, and expects exactly this message and nothing left behind.
    void ExpectFailure(const std::string& message, BuildMode mode = BuildMode::Build) {
        const std::size_t blocks = platform::CurrentMemoryUse().live_blocks;
        EXPECT_EQ(Run(mode), 0);
        EXPECT_EQ(Shell().messages, Lines{message});
        EXPECT_EQ(platform::CurrentMemoryUse().live_blocks, blocks);
    }
};

TEST_F(BuildDriverFailure, BuildThatFailsHalfWayIsAMemoryError) {
    Shell().build = [](StyleContext* context) {
        return Deliver({RowOf({kRed})})(context) == 0 ? 1 : 0;
    };
    ExpectFailure("Memory error");
    EXPECT_EQ(Events().back(), "Message Memory error");
    EXPECT_EQ(Events()[Events().size() - 2], "Build 1");
}

TEST_F(BuildDriverFailure, BuildWithoutFramesIsAMemoryError) {
    Frames({});
    ExpectFailure("Memory error");
    EXPECT_EQ(Lines(Events().end() - 3, Events().end()),
              (Lines{"Progress 0 0", "Progress 0 0", "Message Memory error"}));
}

TEST_F(BuildDriverFailure, RowWithoutBuildIsAMemoryError) {
    settings.style = kRowWithoutBuild;
    ExpectFailure("Memory error");
}

TEST_F(BuildDriverFailure, HostRefusesTheTask) {
    host.refuses_task = true;
    ExpectFailure("Error creating new task.");
    EXPECT_EQ(Lines(Events().end() - 2, Events().end()),
              (Lines{"OpenBuild", "Message Error creating new task."}));
}

TEST_F(BuildDriverFailure, HostRefusesAFrameAndIsToldSoOnceAllIsFreed) {
    host.refused_frame = 1;
    const std::size_t blocks = platform::CurrentMemoryUse().live_blocks;
    ExpectFailure("There has been an error adding an image to the current file object.");
    EXPECT_EQ(Lines(Events().end() - 4, Events().end()),
              (Lines{"AddFrame 0", "AddFrame 1",
                     "Message There has been an error adding an image to the current file object.",
                     "Close 0"}));
    EXPECT_EQ(host.live_blocks_at_close, blocks);
}

TEST_F(BuildDriverFailure, MissingStringIsToldAsDamage) {
    Shell().damaged_strings = true;
    Frames({});
    ExpectFailure("String table error - this application may be damaged");
}

}  // namespace
}  // namespace tess::test
