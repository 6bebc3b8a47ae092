#include <initializer_list>

#include "tests/styles/ball_fixture.h"

namespace tess::test {

namespace {

using platform::WindowHandle;

enum Control : int {
    kBackground = 592,
    kFrames = 594,
    kGlare = 596,
    kSize = 598,
    kDensity = 600,
    kSeed = 602,
    kWidth = 604,
    kDepth = 606,
    kColor1 = 608,
    kEnable2 = 618,
    kEnable3 = 619,
    kEnable4 = 620,
    kEnable5 = 621,
    kDirUp = 622,
    kDirDown = 623,
    kDirRight = 624,
    kDirLeft = 625,
    kShadowOpacity = 626,
    kShadowOffset = 628,
    kShade = 630,
};

enum Direction { kUp, kDown, kLeft, kRight };

class GridlockTest : public BallStyleTest {
protected:
    static constexpr int kTestSeed = 321;
    static constexpr int kTestSize = 12;
    static constexpr ColorWord kGround = 0x804020;
    static constexpr PlainShadow kShadow{10, 200};
    static constexpr ColorWord kColor = 0x3787FF;

    static const StyleEntry& Gridlock() { return Style("Gridlock"); }

    /// Nine bars of one colour on a tile of 64 by 48, three each of 1, 2 and 4 laps.
    static void Shrink(WindowHandle dialog, int frames) {
        Set(dialog, kWidth, 64);
        Set(dialog, kDepth, 48);
        Set(dialog, kDensity, 9);
        Set(dialog, kSize, kTestSize);
        Set(dialog, kSeed, kTestSeed);
        Set(dialog, kFrames, frames);
        Set(dialog, kBackground, static_cast<int>(kGround));
        Set(dialog, kShadowOffset, kShadow.offset);
        Set(dialog, kShadowOpacity, kShadow.opacity);
        Set(dialog, kShade, 40);
        Check(dialog, {kEnable2, kEnable3, kEnable4, kEnable5}, false);
    }
    static void Face(WindowHandle dialog, std::initializer_list<int> boxes) {
        Check(dialog, {kDirUp, kDirDown, kDirRight, kDirLeft}, false);
        Check(dialog, boxes, true);
    }

    /// A bar at frame 0, before the offset of its direction.
    struct Bar {
        int x, y, laps, direction;
    };
    static std::vector<Bar> DrawBars(const std::vector<int>& directions) {
        runtime::srand(kTestSeed);
        std::vector<Bar> bars;
        for (int i = 0; i < 9; ++i) {
            const int x = runtime::rand() % 64;
            const int y = runtime::rand() % 48;
            const auto picked = static_cast<std::size_t>(runtime::rand()) % directions.size();
            bars.push_back(
                {x - kTestSize / 2, y - kTestSize / 2, 1 << (i % 3), directions[picked]});
        }
        return bars;
    }
    /// The picture of bars of which each has moved on by `way(laps)`.
    template <class Way>
    static Bytes Picture(const std::vector<Bar>& bars, Way way) {
        std::vector<Placed> placed;
        for (const Bar& bar : bars) {
            const bool tall = bar.direction == kUp || bar.direction == kDown;
            int x = bar.x;
            int y = bar.y;
            if (bar.direction == kUp) y += way(bar.laps);
            if (bar.direction == kDown) y += 48 - way(bar.laps) - 1;
            if (bar.direction == kLeft) x += way(bar.laps);
            if (bar.direction == kRight) x += 64 - way(bar.laps) - 1;
            const int length = 3 * kTestSize;
            placed.push_back(
                {x,
                 y,
                 {PlainShape::Bar, tall ? kTestSize : length, tall ? length : kTestSize, kTestSize,
                  kColor, PlainChangeValue(kColor, (1.0 - 40 / 100.0) - 1.0), kColor, 160}});
        }
        return Compose(64, 48, kGround, kShadow, placed);
    }
    static int Nowhere(int) { return 0; }
};

TEST_F(GridlockTest, BarsStandWhereTheyAreDrawnInTheOrderOfTheArray) {
    InDialog([](WindowHandle dialog) {
        Shrink(dialog, 4);
        EXPECT_EQ(SampleBytes(Gridlock(), dialog),
                  Picture(DrawBars({kUp, kDown, kLeft, kRight}), Nowhere));
    });
}

TEST_F(GridlockTest, EveryLabelStandsForTheOppositeWay) {
    InDialog([](WindowHandle dialog) {
        struct Case {
            int box, direction;
        };
        for (const Case& c : {Case{kDirUp, kUp}, Case{kDirDown, kDown}, Case{kDirLeft, kLeft},
                              Case{kDirRight, kRight}}) {
            Shrink(dialog, 4);
            Face(dialog, {c.box});
            const bool tall = c.direction == kUp || c.direction == kDown;
            const int quarter = tall ? 12 : 16;
            EXPECT_EQ(
                BuildBytes(Gridlock(), dialog)[1],
                Picture(DrawBars({c.direction}), [quarter](int laps) { return quarter * laps; }))
                << c.box;
        }
    });
}

TEST_F(GridlockTest, NoDirectionCheckedIsUpWithItsDraw) {
    InDialog([](WindowHandle dialog) {
        Shrink(dialog, 3);
        Face(dialog, {kDirUp});
        const std::vector<Bytes> up = BuildBytes(Gridlock(), dialog);
        EXPECT_EQ(DrawsSince(kTestSeed, 100), 9 * 3);
        Face(dialog, {});
        EXPECT_EQ(BuildBytes(Gridlock(), dialog), up);
        EXPECT_EQ(DrawsSince(kTestSeed, 100), 9 * 3);
        EXPECT_EQ(up[0], Picture(DrawBars({kUp}), Nowhere));
    });
}

TEST_F(GridlockTest, SeveralColorsTakeAtLeastOneDrawMoreABar) {
    InDialog([](WindowHandle dialog) {
        Shrink(dialog, 3);
        Check(dialog, {kEnable2}, true);
        platform::FreeBlock(RenderTest(Gridlock(), dialog));
        EXPECT_GE(DrawsSince(kTestSeed, 1000), 9 * 4);
    });
}

TEST_F(GridlockTest, WithTwoFramesOnlyBarsOfOneLapMove) {
    InDialog([](WindowHandle dialog) {
        Shrink(dialog, 2);
        Face(dialog, {kDirUp, kDirDown});
        EXPECT_EQ(BuildBytes(Gridlock(), dialog)[1],
                  Picture(DrawBars({kUp, kDown}), [](int laps) { return laps == 1 ? 24 : 0; }));
    });
}

TEST_F(GridlockTest, BarsOfFourLapsMoveInStepsOfFourPixels) {
    InDialog([](WindowHandle dialog) {
        Shrink(dialog, 5);
        Face(dialog, {kDirLeft});
        // A fifth of 64 is 12.8.
        EXPECT_EQ(BuildBytes(Gridlock(), dialog)[1],
                  Picture(DrawBars({kLeft}), [](int laps) { return 12 * laps; }));
    });
}

TEST_F(GridlockTest, WithDefaultFramesAndTileLapsAreTwoFourAndEightPixelsAFrame) {
    InDialog([](WindowHandle dialog) {
        Shrink(dialog, 64);
        Set(dialog, kWidth, 128);
        Set(dialog, kDepth, 128);
        Face(dialog, {kDirLeft});
        const std::vector<Bytes> frames = BuildBytes(Gridlock(), dialog);
        Set(dialog, kFrames, 32);  // twice as far a frame
        const std::vector<Bytes> halved = BuildBytes(Gridlock(), dialog);
        for (std::size_t i = 0; i < halved.size(); ++i)
            EXPECT_EQ(halved[i], frames[2 * i]) << i;
        runtime::srand(kTestSeed);
        std::vector<Placed> placed;
        const int steps[] = {2, 4, 8};
        for (int i = 0; i < 9; ++i) {
            const int x = runtime::rand() % 128;
            const int y = runtime::rand() % 128;
            runtime::SkipDraw();
            placed.push_back({x - 6 + steps[i % 3],
                              y - 6,
                              {PlainShape::Bar, 36, 12, 12, kColor,
                               PlainChangeValue(kColor, (1.0 - 40 / 100.0) - 1.0), kColor, 0}});
        }
        EXPECT_EQ(frames[1], Compose(128, 128, kGround, kShadow, placed));
    });
}

TEST_F(GridlockTest, BarsWrapOverTheEdges) {
    InDialog([](WindowHandle dialog) {
        Shrink(dialog, 2);
        Face(dialog, {kDirLeft});
        std::vector<Bar> bars = DrawBars({kLeft});
        bool wraps = false;
        for (Bar& bar : bars) {
            wraps = wraps || bar.x < 0 || bar.x + 3 * kTestSize > 64 || bar.y < 0;
            bar.x -= 2 * 64;
            bar.y += 3 * 48;
        }
        EXPECT_TRUE(wraps);
        EXPECT_EQ(SampleBytes(Gridlock(), dialog), Picture(bars, Nowhere));
    });
}

TEST_F(GridlockTest, FirstFrameOfABuildIsTheSample) {
    InDialog([](WindowHandle dialog) {
        const Bytes sample = SampleBytes(Gridlock(), dialog);
        Set(dialog, kFrames, 3);
        EXPECT_EQ(BuildBytes(Gridlock(), dialog)[0], sample);
    });
}

TEST_F(GridlockTest, GlareHasNoVisibleEffect) {
    InDialog([](WindowHandle dialog) {
        Shrink(dialog, 2);
        const Bytes with = SampleBytes(Gridlock(), dialog);
        Set(dialog, kGlare, 0);
        EXPECT_EQ(SampleBytes(Gridlock(), dialog), with);
    });
}

TEST_F(GridlockTest, EveryFailingAllocationEndsCleanly) {
    InDialog([](WindowHandle dialog) {
        Shrink(dialog, 2);
        ExpectCleanFailures(Gridlock(), dialog);
    });
}

}  // namespace

}  // namespace tess::test
