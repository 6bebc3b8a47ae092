#include "styles/style_run.h"

#include <gtest/gtest.h>
#include <utility>

namespace tess::test {

namespace {

struct KeepingNothing {};

struct KeepingPictures {
    int kept;
    bool DropKept() { return std::exchange(kept, 0) != 0; }
};

/// Adds a frame while the list's next allocation fails. Returns how many it then has.
template <class State>
int FramesAfterAFailure(State& state) {
    FrameList frames{};
    platform::FailAllocation(1);
    const bool added = AddFrame(&frames, {nullptr, nullptr, 0, -1}, state);
    platform::FailAllocation(0);
    const int count = frames.Count;
    EXPECT_EQ(added, count == 1);
    FrameListFree(&frames);
    return count;
}

TEST(StyleRun, FrameWithoutRoomInTheListIsAddedOnceTheStateHasGivenWay) {
    KeepingPictures state{3};
    EXPECT_EQ(FramesAfterAFailure(state), 1);
    EXPECT_EQ(state.kept, 0);
}

TEST(StyleRun, FrameWithoutRoomIsLostWhereNothingGivesWay) {
    KeepingPictures empty{0};
    KeepingNothing none;
    EXPECT_EQ(FramesAfterAFailure(empty), 0);
    EXPECT_EQ(FramesAfterAFailure(none), 0);
}

}  // namespace

}  // namespace tess::test
