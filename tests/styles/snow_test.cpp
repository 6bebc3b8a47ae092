#include <algorithm>
#include <cstdlib>

#include "runtime/mathematics.h"
#include "tests/reference/plain_snow.h"
#include "tests/styles/setting_draws.h"
#include "tests/styles/style_fixture.h"
#include "toolkit/wrap_compositing.h"

namespace tess::test {

namespace {

using platform::WindowHandle;

constexpr int kTestSeed = 900;
constexpr int kDrawsOfAFlake = 11;  // five, and six for its shape; its color's besides

class SnowTest : public StyleTest<SnowStyle> {
protected:
    /// Black flakes on white, falling straight down a tile of 96 by 48.
    static void Shrink(WindowHandle dialog) {
        Set(dialog, "Width", 96);
        Set(dialog, "Depth", 48);
        Set(dialog, "Size", 20);
        Set(dialog, "Density", 1);
        Set(dialog, "Seed", kTestSeed);
        Set(dialog, "Frames", 2);
        Set(dialog, "Drift", 0);
        Set(dialog, "FillOpacity", 255);
        Set(dialog, "Background", 0xFFFFFF);
        Set(dialog, "FillColor1", 0);
        EnableColors(dialog, false);
    }
    static int DrawsOfASample(WindowHandle dialog, unsigned seed) {
        platform::FreeBlock(RenderTest(Subject(), dialog));
        return DrawsSince(seed, 1000);
    }
    static std::vector<std::vector<std::uint8_t>> Frames(WindowHandle dialog) {
        return TakeFrames(RenderBuild(Subject(), dialog));
    }
    /// The bytes of a frame moved right and down on the torus.
    static std::vector<std::uint8_t> Moved(const std::vector<std::uint8_t>& frame, int right,
                                           int down) {
        platform::OwnedBlock image(platform::AllocateBlock(frame.size()));
        std::copy(frame.begin(), frame.end(),
                  static_cast<std::uint8_t*>(platform::LockBlock(image.Get())));
        platform::UnlockBlock(image.Get());
        image.Reset(RollImageRight(image.Get(), Wrap(right, 96)));
        return TakeBytes(RollImageDown(image.Get(), Wrap(down, 48)));
    }
    static const PackedDib* Picture(const std::vector<std::uint8_t>& bytes) {
        return reinterpret_cast<const PackedDib*>(bytes.data());
    }
    /// What Shrink sets.
    static PlainSnowSettings ShrunkSettings() {
        return {96, 48, 20, 1, 2, 0, 255, kTestSeed, 0xFFFFFF, {0}};
    }
    /// Sets every control and returns what it set.
    static PlainSnowSettings SetAtRandom(WindowHandle dialog, SettingDraws& draws) {
        PlainSnowSettings set;
        const auto draw = [&](std::string_view key, int least, int most) {
            const int value = draws.Between(least, most);
            Set(dialog, key, value);
            return value;
        };
        set.width = draw("Width", 16, 160);
        set.depth = draw("Depth", 16, 160);
        set.size = draw("Size", 10, 64);
        set.density = draw("Density", 1, 9);
        set.frames = draw("Frames", 2, 6);
        set.drift = draw("Drift", 0, 99);
        set.opacity = draw("FillOpacity", 1, 255);
        set.seed = static_cast<unsigned>(draw("Seed", 100, 32760));
        set.background = static_cast<ColorWord>(draw("Background", 0, 0xFFFFFF));
        set.colors = SetFillColors(dialog, draws);
        return set;
    }
};

TEST_F(SnowTest, FlakeTakesElevenDrawsAndOneForItsColorIfThereAreSeveral) {
    InDialog([](WindowHandle dialog) {
        Shrink(dialog);
        EXPECT_EQ(DrawsOfASample(dialog, kTestSeed), kDrawsOfAFlake);
        Set(dialog, "FillEnable2", true);
        EXPECT_EQ(DrawsOfASample(dialog, kTestSeed), kDrawsOfAFlake + 1);
    });
}

TEST_F(SnowTest, SizeTenDrawsASizeThatCannotVary) {
    InDialog([](WindowHandle dialog) {
        Shrink(dialog);
        Set(dialog, "Size", 10);
        EXPECT_EQ(DrawsOfASample(dialog, kTestSeed), kDrawsOfAFlake);
    });
}

TEST_F(SnowTest, StartDensityOfThirtySixActsAsThirtyTwo) {
    InDialog([](WindowHandle dialog) {
        EnableColors(dialog, false);
        EXPECT_EQ(DrawsOfASample(dialog, 10645), 32 * kDrawsOfAFlake);
    });
}

TEST_F(SnowTest, FramesAtRandomSettingsAreTheLiteralOnes) {
    InDialog([](WindowHandle dialog) {
        SettingDraws draws(11);
        for (int round = 0; round < 12; ++round) {
            const PlainSnowSettings settings = SetAtRandom(dialog, draws);
            PlainSnow snow(settings);
            const auto frames = Frames(dialog);
            ASSERT_EQ(static_cast<int>(frames.size()), settings.frames);
            for (int f = 0; f < settings.frames; ++f) {
                EXPECT_EQ(frames[static_cast<std::size_t>(f)], TakeBytes(snow.RenderFrame(f)))
                    << "round " << round << " frame " << f;
            }
        }
    });
}

TEST_F(SnowTest, FlakeOfSizeTenHasALevelOfBranchesAtLeast) {
    InDialog([](WindowHandle dialog) {
        bool least[2] = {};
        for (int seed = 100; seed < 160; ++seed) {
            PlainSnowSettings settings = ShrunkSettings();
            settings.size = 10;
            settings.seed = static_cast<unsigned>(seed);
            Shrink(dialog);
            Set(dialog, "Size", 10);
            Set(dialog, "Seed", seed);
            EXPECT_EQ(TakeBytes(RenderTest(Subject(), dialog)),
                      TakeBytes(PlainSnow(settings).RenderFrame(0)))
                << seed;
            runtime::srand(settings.seed);
            for (int i = 0; i < 5; ++i)
                runtime::SkipDraw();
            const PlainFlakeRecipe recipe = PlainDrawFlakeRecipe(10);
            EXPECT_GE(recipe.limit, 1) << seed;
            if (recipe.limit == 1) least[recipe.subdivides ? 1 : 0] = true;
        }
        EXPECT_TRUE(least[0] && least[1]);
    });
}

TEST_F(SnowTest, WithoutDriftAFlakeFallsStraightDown) {
    InDialog([](WindowHandle dialog) {
        Shrink(dialog);
        Set(dialog, "Frames", 6);
        const auto frames = Frames(dialog);
        for (int f = 1; f < 6; ++f) {
            EXPECT_EQ(frames[static_cast<std::size_t>(f)], Moved(frames[0], 0, 8 * f)) << f;
        }
    });
}

TEST_F(SnowTest, HalfALoopFallsHalfTheTileAndSwaysToTheOtherSide) {
    InDialog([](WindowHandle dialog) {
        for (int seed = 100; seed < 120; ++seed) {
            Shrink(dialog);
            Set(dialog, "Seed", seed);
            Set(dialog, "Drift", 50);
            const auto frames = Frames(dialog);
            runtime::srand(static_cast<unsigned>(seed));
            for (int i = 0; i < 4; ++i)
                runtime::SkipDraw();
            const int angle = runtime::rand() % 360;
            if (angle % 30 == 0) continue;  // where cutting hangs on the last bit
            const double sine = runtime::Sine(angle * 3.141592653589793 / 180.0);
            // Frame 0 stands sin * 48 to the right, frame 1 as far to the left.
            const int sway = static_cast<int>(sine * 48.0);
            EXPECT_EQ(frames[1], Moved(frames[0], -2 * sway, 24)) << seed;
        }
    });
}

TEST_F(SnowTest, FlakesOfTwoAndFourLapsStandStillInALoopOfTwoFrames) {
    InDialog([](WindowHandle dialog) {
        Shrink(dialog);
        Set(dialog, "Density", 3);
        runtime::srand(kTestSeed);
        const int x = runtime::rand() % 96;
        const auto frames = Frames(dialog);
        EXPECT_NE(frames[0], frames[1]);
        for (int column = 0; column < 96; ++column) {
            const int apart = std::abs(column - x);
            if (std::min(apart, 96 - apart) <= 10) continue;  // the flake of one lap
            for (int y = 0; y < 48; ++y) {
                EXPECT_EQ(GetDibPixel(Picture(frames[0]), column, y),
                          GetDibPixel(Picture(frames[1]), column, y));
            }
        }
    });
}

TEST_F(SnowTest, FallIsCutToWholeRowsBeforeTheLapsMultiplyIt) {
    InDialog([](WindowHandle dialog) {
        Shrink(dialog);
        Set(dialog, "Density", 3);
        Set(dialog, "Frames", 96);  // half a row a frame
        const auto frames = Frames(dialog);
        EXPECT_EQ(frames[0], frames[1]);
        EXPECT_NE(frames[1], frames[2]);
        EXPECT_EQ(frames[2], frames[3]);
    });
}

TEST_F(SnowTest, OpacityOneChangesAPixelByOneLevelAtMostAndOnlyUnderWhite) {
    InDialog([](WindowHandle dialog) {
        Shrink(dialog);
        Set(dialog, "Background", 0x808080);
        Set(dialog, "FillOpacity", 1);
        const auto faint = TakeBytes(RenderTest(Subject(), dialog));
        Set(dialog, "Background", 0xFFFFFF);
        Set(dialog, "FillOpacity", 255);
        const auto strong = TakeBytes(RenderTest(Subject(), dialog));
        int changed = 0;
        for (int y = 0; y < 48; ++y) {
            for (int x = 0; x < 96; ++x) {
                const bool is_white = RedOf(GetDibPixel(Picture(strong), x, y)) == 0;
                const int level = RedOf(GetDibPixel(Picture(faint), x, y));
                EXPECT_EQ(level, is_white ? 0x7F : 0x80);
                changed += is_white ? 1 : 0;
            }
        }
        EXPECT_GT(changed, 0);
    });
}

TEST_F(SnowTest, HalfALoopIsTheSameInTwoFramesAndInFour) {
    InDialog([](WindowHandle dialog) {
        Shrink(dialog);
        Set(dialog, "Density", 5);
        Set(dialog, "Drift", 20);
        const auto two = Frames(dialog);
        Set(dialog, "Frames", 4);
        const auto four = Frames(dialog);
        EXPECT_EQ(four[0], two[0]);
        EXPECT_EQ(four[2], two[1]);
        EXPECT_EQ(two[0], TakeBytes(RenderTest(Subject(), dialog)));
    });
}

TEST_F(SnowTest, DriftOpacityFramesAndTileLeaveTheShapesDrawsAsTheyAre) {
    InDialog([](WindowHandle dialog) {
        Shrink(dialog);
        Set(dialog, "Density", 7);
        Set(dialog, "Drift", 99);
        Set(dialog, "FillOpacity", 3);
        Set(dialog, "Frames", 31);
        Set(dialog, "Width", 33);
        EXPECT_EQ(DrawsOfASample(dialog, kTestSeed), 7 * kDrawsOfAFlake);
    });
}

TEST_F(SnowTest, EveryFailingAllocationEndsCleanly) {
    InDialog([](WindowHandle dialog) {
        Shrink(dialog);
        // The flakes, the canvas's block and section, the tile: a scaler that fails
        // leaves the large sprite.
        EXPECT_GE(FailuresOfASample(Subject(), dialog), 4);
    });
}

}  // namespace

}  // namespace tess::test
