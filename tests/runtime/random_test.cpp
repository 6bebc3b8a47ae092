#include "runtime/random.h"

#include <gtest/gtest.h>

namespace {

TEST(Random, SeedOneGivesTheKnownSequence) {
    runtime::srand(1);
    for (const int draw : {41, 18467, 6334, 26500, 19169, 15724, 11478, 29358, 26962, 24464}) {
        EXPECT_EQ(runtime::rand(), draw);
    }
}

// The state after seed 0 is 2531011, whose bits 16 to 30 are 2531011 / 65536 = 38.
TEST(Random, SeedZeroBeginsWithTheIncrementAlone) {
    runtime::srand(0);
    EXPECT_EQ(runtime::rand(), 38);
}

TEST(Random, TopBitOfTheSeedHasNoEffect) {
    runtime::srand(77);
    const int first = runtime::rand();
    const int second = runtime::rand();
    runtime::srand(77u + 0x80000000u);
    EXPECT_EQ(runtime::rand(), first);
    EXPECT_EQ(runtime::rand(), second);
}

TEST(Random, DrawsKeepToFifteenBits) {
    runtime::srand(5);
    int least = 32767;
    int most = 0;
    for (int i = 0; i < 1000000; i++) {
        const int draw = runtime::rand();
        if (draw < least) least = draw;
        if (draw > most) most = draw;
    }
    EXPECT_EQ(least, 0);
    EXPECT_EQ(most, 32767);
}

TEST(Random, SeedingAgainStartsAgain) {
    runtime::srand(9);
    const int first = runtime::rand();
    static_cast<void>(runtime::rand());
    runtime::srand(9);
    EXPECT_EQ(runtime::rand(), first);
}

TEST(Random, SkippedDrawTakesItsPlaceInTheSequence) {
    runtime::srand(1);
    runtime::SkipDraw();
    EXPECT_EQ(runtime::rand(), 18467);
}

}  // namespace
