#include <algorithm>
#include <cstdlib>

#include "runtime/mathematics.h"
#include "tests/styles/style_fixture.h"
#include "toolkit/wrap_compositing.h"

namespace tess::test {

namespace {

using platform::WindowHandle;

enum Control : int {
    kBackground = 550,
    kOpacity = 552,
    kFrames = 554,
    kDrift = 556,
    kSize = 558,
    kDensity = 560,
    kSeed = 562,
    kWidth = 564,
    kDepth = 566,
    kColor1 = 568,
    kEnable2 = 578,
    kEnable5 = 581,
};
constexpr int kTestSeed = 900;
constexpr int kDrawsOfAFlake = 11;  // five, and six for its shape; its color's besides

class SnowTest : public StyleTest {
protected:
    static const StyleEntry& Snow() { return Style("Snow"); }

    /// Black flakes on white, falling straight down a tile of 96 by 48.
    static void Shrink(WindowHandle dialog) {
        Set(dialog, kWidth, 96);
        Set(dialog, kDepth, 48);
        Set(dialog, kSize, 20);
        Set(dialog, kDensity, 1);
        Set(dialog, kSeed, kTestSeed);
        Set(dialog, kFrames, 2);
        Set(dialog, kDrift, 0);
        Set(dialog, kOpacity, 255);
        Set(dialog, kBackground, 0xFFFFFF);
        Set(dialog, kColor1, 0);
        for (int id = kEnable2; id <= kEnable5; ++id)
            platform::SetChecked(dialog, id, false);
    }
    static int DrawsOfASample(WindowHandle dialog, unsigned seed) {
        platform::FreeBlock(RenderTest(Snow(), dialog));
        return DrawsSince(seed, 1000);
    }
    static std::vector<std::vector<std::uint8_t>> Frames(WindowHandle dialog) {
        return TakeFrames(RenderBuild(Snow(), dialog));
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
    static int InkedPixels(const std::vector<std::uint8_t>& frame) {
        int inked = 0;
        for (int y = 0; y < 48; ++y) {
            for (int x = 0; x < 96; ++x)
                inked += GetDibPixel(Picture(frame), x, y) != 0xFFFFFF ? 1 : 0;
        }
        return inked;
    }
};

TEST_F(SnowTest, FlakeTakesElevenDrawsAndOneForItsColorIfThereAreSeveral) {
    InDialog([](WindowHandle dialog) {
        Shrink(dialog);
        EXPECT_EQ(DrawsOfASample(dialog, kTestSeed), kDrawsOfAFlake);
        platform::SetChecked(dialog, kEnable2, true);
        EXPECT_EQ(DrawsOfASample(dialog, kTestSeed), kDrawsOfAFlake + 1);
    });
}

TEST_F(SnowTest, SizeTenDrawsASizeThatCannotVary) {
    InDialog([](WindowHandle dialog) {
        Shrink(dialog);
        Set(dialog, kSize, 10);
        EXPECT_EQ(DrawsOfASample(dialog, kTestSeed), kDrawsOfAFlake);
    });
}

TEST_F(SnowTest, StartDensityOfThirtySixActsAsThirtyTwo) {
    InDialog([](WindowHandle dialog) {
        for (int id = kEnable2; id <= kEnable5; ++id)
            platform::SetChecked(dialog, id, false);
        EXPECT_EQ(DrawsOfASample(dialog, 10645), 32 * kDrawsOfAFlake);
    });
}

TEST_F(SnowTest, EverySizeHasAtLeastOneLevelOfBranches) {
    for (int size = 10; size <= 64; ++size) {
        EXPECT_GE(static_cast<int>(runtime::Power(size, 0.2)), 1);
        EXPECT_GE(static_cast<int>(runtime::Power(size, 0.17)), 1);
    }
    InDialog([](WindowHandle dialog) {
        Shrink(dialog);
        Set(dialog, kSize, 10);
        for (int seed = 100; seed < 160; ++seed) {
            Set(dialog, kSeed, seed);
            // Six bare arms, 5 pixels each and blurred by the scaler, ink fewer.
            EXPECT_GT(InkedPixels(TakeBytes(RenderTest(Snow(), dialog))), 6) << seed;
        }
    });
}

TEST_F(SnowTest, WithoutDriftAFlakeFallsStraightDown) {
    InDialog([](WindowHandle dialog) {
        Shrink(dialog);
        Set(dialog, kFrames, 6);
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
            Set(dialog, kSeed, seed);
            Set(dialog, kDrift, 50);
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
        Set(dialog, kDensity, 3);
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
        Set(dialog, kDensity, 3);
        Set(dialog, kFrames, 96);  // half a row a frame
        const auto frames = Frames(dialog);
        EXPECT_EQ(frames[0], frames[1]);
        EXPECT_NE(frames[1], frames[2]);
        EXPECT_EQ(frames[2], frames[3]);
    });
}

TEST_F(SnowTest, OpacityOneChangesAPixelByOneLevelAtMostAndOnlyUnderWhite) {
    InDialog([](WindowHandle dialog) {
        Shrink(dialog);
        Set(dialog, kBackground, 0x808080);
        Set(dialog, kOpacity, 1);
        const auto faint = TakeBytes(RenderTest(Snow(), dialog));
        Set(dialog, kBackground, 0xFFFFFF);
        Set(dialog, kOpacity, 255);
        const auto strong = TakeBytes(RenderTest(Snow(), dialog));
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
        Set(dialog, kDensity, 5);
        Set(dialog, kDrift, 20);
        const auto two = Frames(dialog);
        Set(dialog, kFrames, 4);
        const auto four = Frames(dialog);
        EXPECT_EQ(four[0], two[0]);
        EXPECT_EQ(four[2], two[1]);
        EXPECT_EQ(two[0], TakeBytes(RenderTest(Snow(), dialog)));
    });
}

TEST_F(SnowTest, DriftOpacityFramesAndTileLeaveTheShapesDrawsAsTheyAre) {
    InDialog([](WindowHandle dialog) {
        Shrink(dialog);
        Set(dialog, kDensity, 7);
        Set(dialog, kDrift, 99);
        Set(dialog, kOpacity, 3);
        Set(dialog, kFrames, 31);
        Set(dialog, kWidth, 33);
        EXPECT_EQ(DrawsOfASample(dialog, kTestSeed), 7 * kDrawsOfAFlake);
    });
}

TEST_F(SnowTest, EveryFailingAllocationEndsCleanly) {
    InDialog([](WindowHandle dialog) {
        Shrink(dialog);
        // The flakes, the canvas's block and section, the tile: a scaler that fails
        // leaves the large sprite.
        EXPECT_GE(FailuresOfASample(Snow(), dialog), 4);
    });
}

}  // namespace

}  // namespace tess::test
