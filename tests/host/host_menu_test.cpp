#include "host/host_menu.h"

#include <gtest/gtest.h>
#include <set>

#include "tests/host/sample_animations.h"

namespace tess {
namespace {

HostStatus WithAnimation(int depth) {
    HostStatus status;
    status.HasPlugin = status.HasAnimation = true;
    status.Depth = depth;
    return status;
}

TEST(HostMenu, CommandsAreTheirOwnAndHaveTexts) {
    std::set<int> commands;
    for (const HostMenuItem& item : HostMenu()) {
        if (item.Command == kSeparator) continue;
        EXPECT_TRUE(commands.insert(item.Command).second) << item.Text;
        EXPECT_NE(item.Text[0], '\0');
    }
}

TEST(HostMenu, NothingRunsWithoutAPlugin) {
    EXPECT_FALSE(StateOf(kRunPlugin, {}).IsEnabled);
    EXPECT_FALSE(StateOf(kSaveGif, {}).IsEnabled);
    EXPECT_FALSE(StateOf(kPlay, {}).IsEnabled);
    EXPECT_TRUE(StateOf(kLoadPlugin, {}).IsEnabled);
}

TEST(HostMenu, OnlyTheViewIsOpenWhileThePluginRuns) {
    HostStatus status = WithAnimation(8);
    status.IsRunning = true;
    for (const HostMenuItem& item : HostMenu()) {
        if (item.Command == kSeparator) continue;
        EXPECT_EQ(StateOf(item.Command, status).IsEnabled,
                  item.Command == kPlay || item.Command == kTiled)
            << item.Text;
    }
}

TEST(HostMenu, GifIsSavedOfIndexedFramesOnly) {
    EXPECT_TRUE(StateOf(kSaveGif, WithAnimation(8)).IsEnabled);
    EXPECT_FALSE(StateOf(kSaveGif, WithAnimation(24)).IsEnabled);
}

TEST(HostMenu, TickedItemsTurnOver) {
    HostStatus status;
    for (const HostCommand command : {kPlay, kTiled, kHundredths, kTrueColor}) {
        const bool before = StateOf(command, status).IsTicked;
        EXPECT_TRUE(ApplyCommand(command, &status));
        EXPECT_NE(StateOf(command, status).IsTicked, before) << command;
        EXPECT_TRUE(ApplyCommand(command, &status));
        EXPECT_EQ(StateOf(command, status).IsTicked, before) << command;
    }
}

TEST(HostMenu, OneLookOfButtonsIsTicked) {
    HostStatus status;
    EXPECT_TRUE(ApplyCommand(kGradientButtons, &status));
    EXPECT_EQ(status.SkinButtons, 3u);
    EXPECT_TRUE(StateOf(kGradientButtons, status).IsTicked);
    EXPECT_FALSE(StateOf(kSystemButtons, status).IsTicked);
}

TEST(HostMenu, OtherCommandsChangeNoStatus) {
    HostStatus status;
    EXPECT_FALSE(ApplyCommand(kRunPlugin, &status));
    EXPECT_FALSE(ApplyCommand(kExit, &status));
}

TEST(HostMenu, AnimationIsDescribedWithItsLength) {
    Animation animation;
    test::StartAnimation(animation, 2, 1, 3);
    test::AddFrame(animation, 4, -1, {1, 2});
    test::AddFrame(animation, 8, -1, {1, 2});
    EXPECT_EQ(DescribeAnimation(animation, 1, WithAnimation(3)),
              "Frame 2 of 2, 0.12 seconds, 2 x 1 pixels, 3 bits");
}

TEST(HostMenu, LackOfAnAnimationIsToldWithWhatToDo) {
    HostStatus status;
    EXPECT_EQ(DescribeAnimation({}, 0, status), "No plug-in");
    status.HasPlugin = true;
    EXPECT_EQ(DescribeAnimation({}, 0, status), "Run the plug-in, then press Build or Test");
}

}  // namespace
}  // namespace tess
