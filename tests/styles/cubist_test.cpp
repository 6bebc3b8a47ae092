#include <algorithm>

#include "tests/styles/style_fixture.h"
#include "toolkit/wrap_compositing.h"

namespace tess::test {

namespace {

using platform::WindowHandle;

enum Control : int {
    kBackground = 183,
    kOpacity = 185,
    kFrames = 187,
    kSeed = 189,
    kDensity = 191,
    kWidth = 193,
    kDepth = 195,
    kColor1 = 197,
    kEnable2 = 207,
    kEnable5 = 210,
    kVariAlpha = 211,
    kVariWidth = 212,
    kThickness = 213,
    kRound = 215,
    kSolid = 217,
};

constexpr int kTestSeed = 500;
constexpr int kSquares = 8;

struct Square {
    int x, y, stage;
};

using Picture = std::vector<ColorWord>;

class CubistTest : public StyleTest {
protected:
    static const StyleEntry& Cubist() { return Style("Cubist"); }

    /// Eight white filled squares with sharp corners on black, which neither fade
    /// nor thin out.
    static void SetPlain(WindowHandle dialog, int side, int frames) {
        Set(dialog, kWidth, side);
        Set(dialog, kDepth, side);
        Set(dialog, kDensity, kSquares);
        Set(dialog, kSeed, kTestSeed);
        Set(dialog, kFrames, frames);
        Set(dialog, kColor1, 0xFFFFFF);
        Set(dialog, kRound, 0);
        for (int id = kEnable2; id <= kEnable5; ++id)
            platform::SetChecked(dialog, id, false);
        platform::SetChecked(dialog, kVariAlpha, false);
        platform::SetChecked(dialog, kVariWidth, false);
        platform::SetChecked(dialog, kSolid, true);
    }

    /// The draws: with one colour there are three a square.
    static std::vector<Square> DrawSquares(int side, int frames) {
        runtime::srand(kTestSeed);
        std::vector<Square> squares(kSquares);
        for (Square& square : squares) {
            square.x = runtime::rand() % side;
            square.y = runtime::rand() % side;
            square.stage = runtime::rand() % frames;
        }
        return squares;
    }

    /// What a frame shows when a square at stage s is `sides[s]` pixels large and
    /// its mask is `level` throughout.
    static Picture Expected(int side, int frame, const std::vector<int>& sides, int level = 255,
                            int opacity = 255) {
        const int frames = static_cast<int>(sides.size());
        Picture picture(static_cast<std::size_t>(side * side), 0);
        for (const Square& square : DrawSquares(side, frames)) {
            const int size = sides[static_cast<std::size_t>((square.stage + frame) % frames)];
            for (int i = 0; i < size * size; ++i) {
                const int x = Wrap(square.x - size / 2 + i % size, side);
                const int y = Wrap(square.y - size / 2 + i / size, side);
                ColorWord& pixel = picture[static_cast<std::size_t>(y * side + x)];
                const int weight = level * opacity / 255;
                const int grey = RedOf(pixel) * (255 - weight) / 255 + 255 * weight / 255;
                pixel = MakeColor(grey, grey, grey);
            }
        }
        return picture;
    }
    static std::vector<Picture> Frames(WindowHandle dialog) {
        return TakePixels(RenderBuild(Cubist(), dialog));
    }
    static int DrawsOfASample(WindowHandle dialog) {
        platform::FreeBlock(RenderTest(Cubist(), dialog));
        return DrawsSince(kTestSeed, 1000);
    }
};

TEST_F(CubistTest, InTwoFramesASquareIsSmallestAndLargest) {
    InDialog([](WindowHandle dialog) {
        SetPlain(dialog, 64, 2);
        const auto frames = Frames(dialog);
        ASSERT_EQ(frames.size(), 2u);
        EXPECT_EQ(frames[0], Expected(64, 0, {2, 32}));
        EXPECT_EQ(frames[1], Expected(64, 1, {2, 32}));
    });
}

TEST_F(CubistTest, InThreeFramesThePeakLastsTwo) {
    InDialog([](WindowHandle dialog) {
        SetPlain(dialog, 64, 3);
        const auto frames = Frames(dialog);
        ASSERT_EQ(frames.size(), 3u);
        for (int i = 0; i < 3; ++i) {
            EXPECT_EQ(frames[static_cast<std::size_t>(i)], Expected(64, i, {2, 32, 32})) << i;
        }
    });
}

TEST_F(CubistTest, SizesRiseAndFallInWholeSteps) {
    InDialog([](WindowHandle dialog) {
        SetPlain(dialog, 40, 7);  // h = 3, and 0, 3, 6, 10 are the steps to 40 / 4
        const auto frames = Frames(dialog);
        ASSERT_EQ(frames.size(), 7u);
        for (int i = 0; i < 7; ++i) {
            EXPECT_EQ(frames[static_cast<std::size_t>(i)],
                      Expected(40, i, {2, 6, 12, 20, 20, 12, 6}))
                << i;
        }
    });
}

TEST_F(CubistTest, WidthSixteenHasSquaresOfEightAtMost) {
    InDialog([](WindowHandle dialog) {
        SetPlain(dialog, 16, 2);
        EXPECT_EQ(Frames(dialog)[1], Expected(16, 1, {2, 8}));
    });
}

TEST_F(CubistTest, WithVariableDensityTheSmallestSquareLeavesTheFrameUnchanged) {
    InDialog([](WindowHandle dialog) {
        SetPlain(dialog, 64, 2);
        platform::SetChecked(dialog, kVariAlpha, true);
        EXPECT_EQ(Frames(dialog)[0], Expected(64, 0, {0, 32}));
    });
}

TEST_F(CubistTest, OpacityIsAppliedTwice) {
    InDialog([](WindowHandle dialog) {
        SetPlain(dialog, 64, 2);
        Set(dialog, kOpacity, 128);
        const auto frames = Frames(dialog);
        EXPECT_EQ(frames[0], Expected(64, 0, {2, 32}, 128, 128));
        EXPECT_NE(std::count(frames[0].begin(), frames[0].end(), 0x404040u), 0);  // a quarter
    });
}

TEST_F(CubistTest, PenWiderThanTheBoxFillsIt) {
    InDialog([](WindowHandle dialog) {
        SetPlain(dialog, 16, 2);
        platform::SetChecked(dialog, kSolid, false);
        Set(dialog, kThickness, 48);
        EXPECT_EQ(Frames(dialog)[0], Expected(16, 0, {2, 8}));
    });
}

TEST_F(CubistTest, HollowSquareIsAsWideAsItsPen) {
    InDialog([](WindowHandle dialog) {
        SetPlain(dialog, 64, 2);
        platform::SetChecked(dialog, kSolid, false);
        Set(dialog, kThickness, 4);
        Set(dialog, kOpacity, 255);
        const Picture hollow = Frames(dialog)[0];
        const Picture full = Expected(64, 0, {2, 32});
        std::size_t inside = 0;
        for (std::size_t i = 0; i < hollow.size(); ++i) {
            EXPECT_FALSE(hollow[i] != 0 && full[i] == 0) << i;  // nothing beyond the box
            if (hollow[i] != full[i]) ++inside;
        }
        EXPECT_GT(inside, 100u);
    });
}

TEST_F(CubistTest, RoundHundredMakesCircles) {
    InDialog([](WindowHandle dialog) {
        SetPlain(dialog, 64, 2);
        Set(dialog, kRound, 100);
        platform::SetChecked(dialog, kVariAlpha, true);  // the small ones are not seen
        const Picture picture = Frames(dialog)[0];
        const std::vector<Square> squares = DrawSquares(64, 2);
        for (int i = 0; i < 64 * 64; ++i) {
            int nearest = 1 << 20;  // twice the distance to a centre, squared
            for (const Square& square : squares) {
                if (square.stage == 0) continue;
                const int x = (Wrap(i % 64 - square.x + 32, 64) - 32) * 2 + 1;
                const int y = (Wrap(i / 64 - square.y + 32, 64) - 32) * 2 + 1;
                nearest = std::min(nearest, x * x + y * y);
            }
            const int level = RedOf(picture[static_cast<std::size_t>(i)]);
            if (nearest < 28 * 28) {
                EXPECT_GE(level, 250) << i;  // the scaler rings a little beside an edge
            } else if (nearest > 36 * 36) {
                EXPECT_LE(level, 5) << i;
            }
        }
    });
}

TEST_F(CubistTest, OneColorTakesThreeDrawsASquareAndSeveralAtLeastFour) {
    InDialog([](WindowHandle dialog) {
        SetPlain(dialog, 64, 5);
        EXPECT_EQ(DrawsOfASample(dialog), 3 * kSquares);
        platform::SetChecked(dialog, kEnable2, true);
        EXPECT_GE(DrawsOfASample(dialog), 4 * kSquares);
    });
}

TEST_F(CubistTest, FirstFrameOfABuildIsTheSample) {
    InDialog([](WindowHandle dialog) {
        const auto frames = TakeFrames(RenderBuild(Cubist(), dialog));
        ASSERT_EQ(frames.size(), 48u);
        EXPECT_EQ(TakeBytes(RenderTest(Cubist(), dialog)), frames[0]);
    });
}

TEST_F(CubistTest, EveryFailingAllocationEndsCleanly) {
    InDialog([](WindowHandle dialog) {
        SetPlain(dialog, 64, 3);
        EXPECT_GT(FailuresOfASample(Cubist(), dialog), 5);
    });
}

}  // namespace

}  // namespace tess::test
