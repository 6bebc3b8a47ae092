#include <initializer_list>

#include "tests/styles/ball_fixture.h"
#include "tests/styles/setting_draws.h"

namespace tess::test {

namespace {

using platform::WindowHandle;

enum Direction { kUp, kDown, kLeft, kRight };

class GridlockTest : public BallStyleTest<GridlockStyle> {
protected:
    static constexpr int kTestSeed = 321;
    static constexpr int kTestSize = 12;
    static constexpr ColorWord kGround = 0x804020;
    static constexpr PlainShadow kShadow{10, 200};
    static constexpr ColorWord kColor = 0x3787FF;

    /// Nine bars of one colour on a tile of 64 by 48, three each of 1, 2 and 4 laps.
    static void Shrink(WindowHandle dialog, int frames) {
        Set(dialog, "Width", 64);
        Set(dialog, "Depth", 48);
        Set(dialog, "Density", 9);
        Set(dialog, "Size", kTestSize);
        Set(dialog, "Seed", kTestSeed);
        Set(dialog, "Frames", frames);
        Set(dialog, "Background", static_cast<int>(kGround));
        Set(dialog, "ShadowOffset", kShadow.offset);
        Set(dialog, "ShadowOpacity", kShadow.opacity);
        Set(dialog, "Shade", 40);
        EnableColors(dialog, false);
    }
    static void Face(WindowHandle dialog, std::initializer_list<std::string_view> boxes) {
        Check(dialog, {"DirUp", "DirDown", "DirRight", "DirLeft"}, false);
        Check(dialog, boxes, true);
    }

    /// A bar at frame 0, before the offset of its direction.
    struct Bar {
        int x, y, laps, direction;
        ColorWord color;
    };
    static std::vector<Bar> DrawBars(const std::vector<int>& directions,
                                     const std::vector<ColorWord>& colors = {kColor}) {
        int last_color = -1;
        runtime::srand(kTestSeed);
        std::vector<Bar> bars;
        for (int i = 0; i < 9; ++i) {
            const int x = runtime::rand() % 64;
            const int y = runtime::rand() % 48;
            const auto picked = static_cast<std::size_t>(runtime::rand()) % directions.size();
            const int color = PickFillColor(static_cast<int>(colors.size()), &last_color);
            bars.push_back({x - kTestSize / 2, y - kTestSize / 2, 1 << (i % 3), directions[picked],
                            colors[static_cast<std::size_t>(color)]});
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
                  bar.color, PlainChangeValue(bar.color, (1.0 - 40 / 100.0) - 1.0), bar.color,
                  160}});
        }
        return Compose(64, 48, kGround, kShadow, placed);
    }
    static int Nowhere(int) { return 0; }
};

TEST_F(GridlockTest, BarsStandWhereTheyAreDrawnInTheOrderOfTheArray) {
    InDialog([](WindowHandle dialog) {
        Shrink(dialog, 4);
        EXPECT_EQ(SampleBytes(dialog), Picture(DrawBars({kUp, kDown, kLeft, kRight}), Nowhere));
    });
}

TEST_F(GridlockTest, EveryLabelStandsForTheOppositeWay) {
    InDialog([](WindowHandle dialog) {
        struct Case {
            std::string_view box;
            int direction;
        };
        for (const Case& c : {Case{"DirUp", kUp}, Case{"DirDown", kDown}, Case{"DirLeft", kLeft},
                              Case{"DirRight", kRight}}) {
            Shrink(dialog, 4);
            Face(dialog, {c.box});
            const bool tall = c.direction == kUp || c.direction == kDown;
            const int quarter = tall ? 12 : 16;
            EXPECT_EQ(
                BuildBytes(dialog)[1],
                Picture(DrawBars({c.direction}), [quarter](int laps) { return quarter * laps; }))
                << c.box;
        }
    });
}

TEST_F(GridlockTest, NoDirectionCheckedIsUpWithItsDraw) {
    InDialog([](WindowHandle dialog) {
        Shrink(dialog, 3);
        Face(dialog, {"DirUp"});
        const std::vector<Bytes> up = BuildBytes(dialog);
        EXPECT_EQ(DrawsSince(kTestSeed, 100), 9 * 3);
        Face(dialog, {});
        EXPECT_EQ(BuildBytes(dialog), up);
        EXPECT_EQ(DrawsSince(kTestSeed, 100), 9 * 3);
        EXPECT_EQ(up[0], Picture(DrawBars({kUp}), Nowhere));
    });
}

TEST_F(GridlockTest, SeveralColorsTakeAtLeastOneDrawMoreABar) {
    InDialog([](WindowHandle dialog) {
        Shrink(dialog, 3);
        Check(dialog, {"FillEnable2"}, true);
        platform::FreeBlock(RenderTest(Subject(), dialog));
        EXPECT_GE(DrawsSince(kTestSeed, 1000), 9 * 4);
    });
}

TEST_F(GridlockTest, EachOfSeveralColorsIsDrawnAfterTheBarsDirection) {
    InDialog([](WindowHandle dialog) {
        Shrink(dialog, 3);
        SettingDraws draws(29);
        for (int round = 0; round < 4; ++round) {
            const auto colors = SetFillColors(dialog, draws);
            EXPECT_EQ(SampleBytes(dialog),
                      Picture(DrawBars({kUp, kDown, kLeft, kRight}, colors), Nowhere))
                << round;
        }
    });
}

TEST_F(GridlockTest, WithTwoFramesOnlyBarsOfOneLapMove) {
    InDialog([](WindowHandle dialog) {
        Shrink(dialog, 2);
        Face(dialog, {"DirUp", "DirDown"});
        EXPECT_EQ(BuildBytes(dialog)[1],
                  Picture(DrawBars({kUp, kDown}), [](int laps) { return laps == 1 ? 24 : 0; }));
    });
}

TEST_F(GridlockTest, BarsOfFourLapsMoveInStepsOfFourPixels) {
    InDialog([](WindowHandle dialog) {
        Shrink(dialog, 5);
        Face(dialog, {"DirLeft"});
        // A fifth of 64 is 12.8.
        EXPECT_EQ(BuildBytes(dialog)[1],
                  Picture(DrawBars({kLeft}), [](int laps) { return 12 * laps; }));
    });
}

TEST_F(GridlockTest, WithDefaultFramesAndTileLapsAreTwoFourAndEightPixelsAFrame) {
    InDialog([](WindowHandle dialog) {
        Shrink(dialog, 64);
        Set(dialog, "Width", 128);
        Set(dialog, "Depth", 128);
        Face(dialog, {"DirLeft"});
        const std::vector<Bytes> frames = BuildBytes(dialog);
        Set(dialog, "Frames", 32);  // twice as far a frame
        const std::vector<Bytes> halved = BuildBytes(dialog);
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
        Face(dialog, {"DirLeft"});
        std::vector<Bar> bars = DrawBars({kLeft});
        bool wraps = false;
        for (Bar& bar : bars) {
            wraps = wraps || bar.x < 0 || bar.x + 3 * kTestSize > 64 || bar.y < 0;
            bar.x -= 2 * 64;
            bar.y += 3 * 48;
        }
        EXPECT_TRUE(wraps);
        EXPECT_EQ(SampleBytes(dialog), Picture(bars, Nowhere));
    });
}

TEST_F(GridlockTest, FirstFrameOfABuildIsTheSample) {
    InDialog([](WindowHandle dialog) {
        const Bytes sample = SampleBytes(dialog);
        Set(dialog, "Frames", 3);
        EXPECT_EQ(BuildBytes(dialog)[0], sample);
    });
}

TEST_F(GridlockTest, GlareHasNoVisibleEffect) {
    InDialog([](WindowHandle dialog) {
        Shrink(dialog, 2);
        const Bytes with = SampleBytes(dialog);
        Set(dialog, "Glare", 0);
        EXPECT_EQ(SampleBytes(dialog), with);
    });
}

TEST_F(GridlockTest, EveryFailingAllocationEndsCleanly) {
    InDialog([](WindowHandle dialog) {
        Shrink(dialog, 2);
        EXPECT_GT(FailuresOfASample(Subject(), dialog),
                  0);  // without its shadow a sprite is left out
    });
}

}  // namespace

}  // namespace tess::test
