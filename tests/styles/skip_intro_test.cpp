#include <algorithm>
#include <functional>

#include "styles/wheel_mask.h"
#include "tests/reference/plain_compositing.h"
#include "tests/styles/style_fixture.h"
#include "toolkit/wrap_compositing.h"

namespace tess::test {

namespace {

using platform::WindowHandle;

enum Mode { kCumulative, kSequential, kConstant };
constexpr int kTestSeed = 700;

/// What wheel 1 draws, after the first wheel's tick.
struct SecondWheel {
    int x, y, color, size, tick;
};

SecondWheel DrawSecondWheel(unsigned seed, int tile, int drift, int colors, int spokes) {
    runtime::srand(seed);
    runtime::SkipDraw();
    const int reach = (100 - drift) * tile / 100;
    const int corner = drift * tile / 100 - tile / 2;
    SecondWheel wheel{};
    wheel.x = runtime::rand() % reach + corner;
    wheel.y = runtime::rand() % reach + corner;
    wheel.color = runtime::rand() % colors;
    wheel.size = runtime::rand() % (tile / 2) + tile / 2;
    wheel.tick = runtime::rand() % spokes;
    return wheel;
}

/// A wheel of the literal version: nothing kept, nothing left out.
struct PlainWheel {
    int x, y, size, tick, life, delay, fade, hold_tick, fall_tick;
    bool active, constant;
    double level;
    ColorWord color;
};

class SkipIntroTest : public StyleTest<SkipIntroStyle> {
protected:
    /// Six spokes on a tile of 32, black on white, one color.
    static void Shrink(WindowHandle dialog, int density, Mode mode) {
        Set(dialog, "Size", 32);
        Set(dialog, "Density", density);
        Set(dialog, "Drift", 20);
        Set(dialog, "Seed", kTestSeed);
        Set(dialog, "Background", 0xFFFFFF);
        Set(dialog, "FillColor1", 0);
        EnableColors(dialog, false);
        Set(dialog, "Spokes", 0);
        Set(dialog, "Mode", mode);
    }
    static std::vector<std::vector<std::uint8_t>> Frames(WindowHandle dialog) {
        return TakeFrames(RenderBuild(Subject(), dialog));
    }
    static unsigned FindSeed(const std::function<bool(const SecondWheel&)>& wanted, int colors) {
        for (unsigned seed = 100; seed <= 32760; ++seed) {
            if (wanted(DrawSecondWheel(seed, 32, 20, colors, 6))) return seed;
        }
        ADD_FAILURE() << "no seed with such a wheel";
        return 100;
    }
    static bool IsBlack(const std::vector<std::uint8_t>& frame) {
        return std::all_of(frame.begin() + sizeof(PackedDib), frame.end(),
                           [](std::uint8_t byte) { return byte == 0; });
    }

    /// Settings of the literal version, drawn by the test.
    struct Settings {
        int size, density, drift, seed, spokes;
        Mode mode;
        std::vector<ColorWord> colors;
    };
    static std::vector<PlainWheel> PlainSetup(const Settings& set);
    static std::vector<std::vector<std::uint8_t>> PlainFrames(const Settings& set, int count);
};

std::vector<PlainWheel> SkipIntroTest::PlainSetup(const Settings& set) {
    runtime::srand(static_cast<unsigned>(set.seed));
    const int reach = (100 - set.drift) * set.size / 100;
    const int margin = set.drift * set.size / 100;
    const int half = set.size / 2;
    const int turn = set.spokes;
    std::vector<PlainWheel> wheels(static_cast<std::size_t>(set.density));
    for (int i = 0; i < set.density; ++i) {
        PlainWheel& wheel = wheels[static_cast<std::size_t>(i)];
        if (i == 0) {
            wheel = {0, 0,    set.size, 0,     turn * set.density, 0, 1, 0,
                     0, true, true,     255.0, set.colors[0]};
        } else {
            wheel.x = runtime::rand() % reach - half + margin;
            wheel.y = runtime::rand() % reach - half + margin;
            if (set.mode == kConstant) {
                wheel.life = 3 * turn;
                wheel.active = wheel.constant = true;
                wheel.level = 255.0;
                wheel.fade = 1;
            } else {
                wheel.life = set.mode == kCumulative ? (set.density - i) * turn * 3 : 3 * turn;
                wheel.delay = (3 * i - 2) * turn;
                wheel.hold_tick = turn;
                wheel.fall_tick = set.mode == kCumulative ? wheel.life - turn : 2 * turn;
            }
            wheel.color = set.colors[static_cast<std::size_t>(runtime::rand()) % set.colors.size()];
            wheel.size = runtime::rand() % half + half;
        }
        wheel.tick = runtime::rand() % turn;
    }
    return wheels;
}

std::vector<std::vector<std::uint8_t>> SkipIntroTest::PlainFrames(const Settings& set, int count) {
    std::vector<PlainWheel> wheels = PlainSetup(set);
    std::vector<std::vector<std::uint8_t>> frames;
    for (int f = 0; f < count; ++f) {
        platform::OwnedBlock tile(NewSolidImage({0, 0, set.size, set.size}, 0xFFFFFF));
        for (PlainWheel& wheel : wheels) {
            if (!wheel.active) {
                wheel.active = --wheel.delay < 1;
                continue;
            }
            const double step = 255.0 / set.spokes;
            wheel.level = wheel.fade == 0   ? wheel.level + step
                          : wheel.fade == 1 ? 255.0
                                            : wheel.level - step;
            const int peak =
                wheel.constant ? 255 : std::clamp(static_cast<int>(wheel.level), 0, 255);
            const platform::OwnedBlock mask(
                RenderWheelMask({set.size, wheel.size, set.spokes, wheel.tick, peak}));
            reference::PlainWrapStampMask(LockedImage(tile.Get()), LockedImage(mask.Get()), wheel.x,
                                          wheel.y, wheel.color, 255);
            ++wheel.tick;
            if (wheel.tick >= wheel.hold_tick) wheel.fade = 1;
            if (wheel.tick >= wheel.fall_tick) wheel.fade = 2;
            if (!wheel.constant && --wheel.life < 1) wheel.active = false;
        }
        frames.push_back(TakeBytes(tile.Release()));
    }
    return frames;
}

TEST_F(SkipIntroTest, OneWheelTakesOneTurnInEveryMode) {
    InDialog([](WindowHandle dialog) {
        for (const Mode mode : {kCumulative, kSequential, kConstant}) {
            Shrink(dialog, 1, mode);
            Set(dialog, "Spokes", 3);
            EXPECT_EQ(Frames(dialog).size(), 10u) << mode;
        }
    });
}

TEST_F(SkipIntroTest, ConstantModeTakesOneTurnForAnyNumberOfWheels) {
    InDialog([](WindowHandle dialog) {
        Shrink(dialog, 5, kConstant);
        EXPECT_EQ(Frames(dialog).size(), 6u);
    });
}

TEST_F(SkipIntroTest, EightSequentialWheelsOfSixtySpokesTakeTwentyThreeTurns) {
    InDialog([](WindowHandle dialog) {
        Shrink(dialog, 8, kSequential);
        Set(dialog, "Size", 16);
        Set(dialog, "Spokes", 12);
        EXPECT_EQ(Frames(dialog).size(), 1380u);
    });
}

TEST_F(SkipIntroTest, SpokesWithoutASelectionAreFour) {
    InDialog([](WindowHandle dialog) {
        Shrink(dialog, 1, kCumulative);
        Set(dialog, "Spokes", -1);
        EXPECT_EQ(Frames(dialog).size(), 4u);
    });
}

TEST_F(SkipIntroTest, ModeWithoutASelectionIsCumulative) {
    InDialog([](WindowHandle dialog) {
        Shrink(dialog, 2, kCumulative);
        const auto cumulative = Frames(dialog);
        Set(dialog, "Mode", -1);
        EXPECT_EQ(Frames(dialog), cumulative);
    });
}

TEST_F(SkipIntroTest, FurtherWheelsTakeFiveDrawsEachEvenOfOneColor) {
    InDialog([](WindowHandle dialog) {
        Shrink(dialog, 4, kSequential);
        platform::FreeBlock(RenderTest(Subject(), dialog));
        EXPECT_EQ(DrawsSince(kTestSeed, 100), 1 + 3 * 5);
    });
}

TEST_F(SkipIntroTest, SampleShowsAllWheelsAsConstantModeDoes) {
    InDialog([](WindowHandle dialog) {
        Shrink(dialog, 3, kCumulative);
        const auto sample = TakeBytes(RenderTest(Subject(), dialog));
        EXPECT_NE(Frames(dialog)[0], sample);
        Set(dialog, "Mode", kConstant);
        EXPECT_EQ(Frames(dialog)[0], sample);
    });
}

TEST_F(SkipIntroTest, SecondWheelOfSixSpokesShowsFromFrameSixToTwentyTwo) {
    InDialog([](WindowHandle dialog) {
        // The first wheel is black on black. The second starts at tick 0, so its level
        // is back at 0 in frame 23, the last of its life.
        Shrink(dialog, 2, kCumulative);
        Set(dialog, "Background", 0);
        Set(dialog, "FillColor2", 0xFFFFFF);
        Set(dialog, "FillEnable2", true);
        const auto wanted = [](const SecondWheel& w) { return w.color == 1 && w.tick == 0; };
        Set(dialog, "Seed", static_cast<int>(FindSeed(wanted, 2)));
        const auto frames = Frames(dialog);
        ASSERT_EQ(frames.size(), 30u);
        for (std::size_t f = 0; f < 30; ++f) {
            EXPECT_EQ(IsBlack(frames[f]), f < 6 || f > 22) << f;
        }
    });
}

TEST_F(SkipIntroTest, RandomTickCutsTheRiseShortAndLeavesTheEndDark) {
    InDialog([](WindowHandle dialog) {
        // From tick 4 the wheel rises for 2 frames, then jumps to the full level; it
        // falls from tick 12 on, the eighth frame of its life, and is dark after 5.
        Shrink(dialog, 2, kCumulative);
        Set(dialog, "Background", 0);
        Set(dialog, "FillColor2", 0xFFFFFF);
        Set(dialog, "FillEnable2", true);
        const auto wanted = [](const SecondWheel& w) { return w.color == 1 && w.tick == 4; };
        Set(dialog, "Seed", static_cast<int>(FindSeed(wanted, 2)));
        const auto frames = Frames(dialog);
        const auto brightest = [&](std::size_t f) {
            return *std::max_element(frames[f].begin() + sizeof(PackedDib), frames[f].end());
        };
        EXPECT_LE(brightest(7), 5 * 255 / 6 * 85 / 255 + 12);  // level 85, the scaler overshoots
        EXPECT_GE(brightest(8), 200);
        EXPECT_FALSE(IsBlack(frames[18]));
        EXPECT_TRUE(IsBlack(frames[19]));
    });
}

TEST_F(SkipIntroTest, WheelAtNegativePlaceComesBackAtTheOtherSide) {
    InDialog([](WindowHandle dialog) {
        Shrink(dialog, 2, kConstant);
        Set(dialog, "Background", 0);
        Set(dialog, "FillColor2", 0xFFFFFF);
        Set(dialog, "FillEnable2", true);
        const auto wanted = [](const SecondWheel& w) {
            return w.color == 1 && w.x < -6 && w.x + w.size < 20;
        };
        const unsigned seed = FindSeed(wanted, 2);
        const SecondWheel wheel = DrawSecondWheel(seed, 32, 20, 2, 6);
        Set(dialog, "Seed", static_cast<int>(seed));
        const auto frame = TakeBytes(RenderTest(Subject(), dialog));
        const auto* image = reinterpret_cast<const PackedDib*>(frame.data());
        const platform::OwnedBlock block(RenderWheelMask({32, wheel.size, 6, wheel.tick, 255}));
        const LockedImage mask(block.Get());
        ASSERT_TRUE(mask);
        for (int y = 0; y < wheel.size; ++y) {
            for (int x = 0; x < wheel.size; ++x) {
                EXPECT_EQ(GetDibPixel(image, Wrap(wheel.x + x, 32), Wrap(wheel.y + y, 32)),
                          GetDibPixel(mask, x, y));
            }
        }
    });
}

TEST_F(SkipIntroTest, KeptMasksLeaveEveryByteAsWithNothingKept) {
    InDialog([](WindowHandle dialog) {
        const int spokes[] = {6, 8, 9, 10, 12, 18, 20};
        for (int round = 0; round < 14; ++round) {
            const Settings set{16 + round * 5,      1 + round % 4,     10 + round * 2,
                               100 + round * 37,    spokes[round % 7], static_cast<Mode>(round % 3),
                               {0x123456, 0xC08243}};
            Shrink(dialog, set.density, set.mode);
            Set(dialog, "Size", set.size);
            Set(dialog, "Drift", set.drift);
            Set(dialog, "Seed", set.seed);
            Set(dialog, "FillColor1", static_cast<int>(set.colors[0]));
            Set(dialog, "FillColor2", static_cast<int>(set.colors[1]));
            Set(dialog, "FillEnable2", true);
            Set(dialog, "Spokes", round % 7);
            const auto frames = Frames(dialog);
            EXPECT_EQ(frames, PlainFrames(set, static_cast<int>(frames.size()))) << round;
        }
    });
}

TEST_F(SkipIntroTest, EveryFailingAllocationEndsWithoutAPicture) {
    InDialog([](WindowHandle dialog) {
        Shrink(dialog, 2, kCumulative);
        const std::size_t before = platform::CurrentMemoryUse().allocations;
        platform::FreeBlock(RenderTest(Subject(), dialog));
        const std::size_t needed = platform::CurrentMemoryUse().allocations - before;
        EXPECT_EQ(FailuresOfASample(Subject(), dialog), static_cast<int>(needed));
    });
}

TEST_F(SkipIntroTest, MemoryThatRunsOutDuringABuildLeavesItsFramesToTheCaller) {
    InDialog([](WindowHandle dialog) {
        Shrink(dialog, 2, kCumulative);
        const std::size_t blocks = platform::CurrentMemoryUse().live_blocks;
        for (std::size_t i = 20; i < 60; i += 3) {
            FrameList frames{};
            StyleContext context{};
            context.Dialog = dialog;
            context.Frames = &frames;
            const HostServices services = AgreeingHost();
            context.Host = &services;
            platform::FailAllocation(i, true);
            EXPECT_EQ(Subject().Build(&context), 0) << i;
            platform::FailAllocation(0);
            FrameListFree(&frames);
            EXPECT_EQ(platform::CurrentMemoryUse().live_blocks, blocks) << i;
        }
    });
}

TEST_F(SkipIntroTest, KeptMasksGiveWayToATile) {
    InDialog([](WindowHandle dialog) {
        Shrink(dialog, 2, kCumulative);
        Set(dialog, "Spokes", 3);
        const auto frames = Frames(dialog);
        HostServices services = AgreeingHost();
        services.HostCall = [](TaskRecord*, std::int64_t, std::int64_t frame,
                               std::int64_t) -> std::int64_t {
            if (frame == 9) platform::FailAllocation(1);  // the tile after the first turn
            return 1;
        };
        EXPECT_EQ(TakeFrames(RenderBuild(Subject(), dialog, services)), frames);
        platform::FailAllocation(0);
    });
}

TEST_F(SkipIntroTest, KeptMasksGiveWayToFramesThatFitInMemory) {
    InDialog([](WindowHandle dialog) {
        Shrink(dialog, 4, kCumulative);
        Set(dialog, "Size", 24);
        Set(dialog, "Spokes", 12);
        const std::size_t before = platform::CurrentMemoryUse().live_bytes;
        platform::ResetPeakMemory();
        platform::FreeBlock(RenderWheelMask({24, 24, 60, 0, 255}));
        const std::size_t a_mask = platform::CurrentMemoryUse().peak_bytes - before;
        platform::ResetPeakMemory();
        const FrameList list = RenderBuild(Subject(), dialog);
        const std::size_t all = platform::CurrentMemoryUse().peak_bytes - before;
        const std::size_t the_list = platform::CurrentMemoryUse().live_bytes - before;
        const auto frames = TakeFrames(list);
        constexpr std::size_t kWheels = 5000;  // and what they note of their masks
        ASSERT_GT(all, the_list + a_mask + kWheels + 50000);
        for (const std::size_t spare : {0u, 10000u, 50000u}) {
            platform::SetMemoryLimit(before + the_list + a_mask + kWheels + spare);
            const auto tight = Frames(dialog);
            platform::SetMemoryLimit(0);
            EXPECT_EQ(tight, frames) << spare;
        }
    });
}

}  // namespace

}  // namespace tess::test
