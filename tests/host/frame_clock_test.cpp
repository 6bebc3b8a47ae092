#include "host/frame_clock.h"

#include <gtest/gtest.h>

namespace tess {
namespace {

TEST(FrameClock, FrameIsDueWhenItsDelayIsOver) {
    FrameClock clock;
    clock.Start(1000, 40);
    EXPECT_FALSE(clock.IsDue(1039));
    EXPECT_TRUE(clock.IsDue(1040));
    EXPECT_EQ(clock.Wait(1000), 40u);
}

TEST(FrameClock, LateFrameDoesNotDelayTheNext) {
    FrameClock clock;
    clock.Start(1000, 40);
    clock.Step(1055, 40);
    EXPECT_FALSE(clock.IsDue(1079));
    EXPECT_TRUE(clock.IsDue(1080));
}

TEST(FrameClock, VeryLateClockGoesOnFromNow) {
    FrameClock clock;
    clock.Start(1000, 40);
    clock.Step(1041 + kLongestLag, 40);
    EXPECT_FALSE(clock.IsDue(1080 + kLongestLag));
    EXPECT_TRUE(clock.IsDue(1081 + kLongestLag));
}

TEST(FrameClock, NoDelayIsTheShortestOne) {
    FrameClock clock;
    clock.Start(0, 0);
    EXPECT_FALSE(clock.IsDue(kShortestDelay - 1));
    EXPECT_TRUE(clock.IsDue(kShortestDelay));
}

TEST(FrameClock, WaitIsNeverNothing) {
    FrameClock clock;
    clock.Start(0, 40);
    EXPECT_EQ(clock.Wait(39), kShortestDelay);
    EXPECT_EQ(clock.Wait(500), kShortestDelay);
}

}  // namespace
}  // namespace tess
