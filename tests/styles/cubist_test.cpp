#include <algorithm>

#include "tests/styles/style_fixture.h"
#include "toolkit/wrap_compositing.h"

namespace tess::test {

namespace {

using platform::WindowHandle;

constexpr int kTestSeed = 500;
constexpr int kSquares = 8;

struct Square {
    int x, y, stage;
};

using Picture = std::vector<ColorWord>;

class CubistTest : public StyleTest<CubistStyle> {
protected:
    /// Eight white filled squares with sharp corners on black, which neither fade
    /// nor thin out.
    static void SetPlain(WindowHandle dialog, int side, int frames) {
        Set(dialog, "Width", side);
        Set(dialog, "Depth", side);
        Set(dialog, "Density", kSquares);
        Set(dialog, "Seed", kTestSeed);
        Set(dialog, "Frames", frames);
        Set(dialog, "FillColor1", 0xFFFFFF);
        Set(dialog, "Roundness", 0);
        EnableColors(dialog, false);
        Set(dialog, "VariAlpha", false);
        Set(dialog, "VariWidth", false);
        Set(dialog, "Solid", true);
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
    /// A picture of hollow squares whose pen at stage s is `pens[s]` wide: '#' where a
    /// pen passes, '?' in a corner, which wide pens round off.
    static std::string Rings(int side, int frame, const std::vector<int>& sides,
                             const std::vector<int>& pens) {
        const int frames = static_cast<int>(sides.size());
        std::string picture(static_cast<std::size_t>(side * side), '.');
        for (const Square& square : DrawSquares(side, frames)) {
            const auto stage = static_cast<std::size_t>((square.stage + frame) % frames);
            const int size = sides[stage];
            for (int i = 0; i < size * size; ++i) {
                const int from_side = std::min(i % size, size - 1 - i % size);
                const int from_end = std::min(i / size, size - 1 - i / size);
                if (std::min(from_side, from_end) >= pens[stage]) continue;
                const int x = Wrap(square.x - size / 2 + i % size, side);
                const int y = Wrap(square.y - size / 2 + i / size, side);
                char& pixel = picture[static_cast<std::size_t>(y * side + x)];
                const bool is_corner = pens[stage] > 1 && from_side + from_end == 0;
                if (!is_corner || pixel == '.') pixel = is_corner ? '?' : '#';
            }
        }
        return picture;
    }
    static std::vector<Picture> Frames(WindowHandle dialog) {
        return TakePixels(RenderBuild(Subject(), dialog));
    }
    static int DrawsOfASample(WindowHandle dialog) {
        platform::FreeBlock(RenderTest(Subject(), dialog));
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
        Set(dialog, "VariAlpha", true);
        EXPECT_EQ(Frames(dialog)[0], Expected(64, 0, {0, 32}));
    });
}

TEST_F(CubistTest, OpacityIsAppliedTwice) {
    InDialog([](WindowHandle dialog) {
        SetPlain(dialog, 64, 2);
        Set(dialog, "FillOpacity", 128);
        const auto frames = Frames(dialog);
        EXPECT_EQ(frames[0], Expected(64, 0, {2, 32}, 128, 128));
        EXPECT_NE(std::count(frames[0].begin(), frames[0].end(), 0x404040u), 0);  // a quarter
    });
}

TEST_F(CubistTest, PenWiderThanTheBoxFillsIt) {
    InDialog([](WindowHandle dialog) {
        SetPlain(dialog, 16, 2);
        Set(dialog, "Solid", false);
        Set(dialog, "Thickness", 48);
        EXPECT_EQ(Frames(dialog)[0], Expected(16, 0, {2, 8}));
    });
}

TEST_F(CubistTest, HollowSquareIsAsWideAsItsPen) {
    InDialog([](WindowHandle dialog) {
        SetPlain(dialog, 64, 2);
        Set(dialog, "Solid", false);
        Set(dialog, "Thickness", 4);
        Set(dialog, "FillOpacity", 255);
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

TEST_F(CubistTest, WithVariableWidthPensThinOutToOnePixel) {
    InDialog([](WindowHandle dialog) {
        SetPlain(dialog, 64, 8);
        Set(dialog, "Solid", false);
        Set(dialog, "VariWidth", true);
        Set(dialog, "Thickness", 6);
        const auto frames = Frames(dialog);
        ASSERT_EQ(frames.size(), 8u);
        // Quarters of 6, cut, and never none.
        const std::vector<int> sides{2, 8, 16, 24, 32, 24, 16, 8};
        const std::vector<int> pens{1, 1, 3, 4, 6, 4, 3, 1};
        for (int i = 0; i < 8; ++i) {
            const std::string expected = Rings(64, i, sides, pens);
            std::string seen;  // the scaler rings beside a pen's edges
            for (const ColorWord pixel : frames[static_cast<std::size_t>(i)]) {
                const bool is_corner = expected[seen.size()] == '?';
                seen += is_corner ? '?' : RedOf(pixel) > 127 ? '#' : '.';
            }
            EXPECT_EQ(seen, expected) << i;
        }
    });
}

TEST_F(CubistTest, RoundHundredMakesCircles) {
    InDialog([](WindowHandle dialog) {
        SetPlain(dialog, 64, 2);
        Set(dialog, "Roundness", 100);
        Set(dialog, "VariAlpha", true);  // the small ones are not seen
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
        Set(dialog, "FillEnable2", true);
        EXPECT_GE(DrawsOfASample(dialog), 4 * kSquares);
    });
}

TEST_F(CubistTest, FirstFrameOfABuildIsTheSample) {
    InDialog([](WindowHandle dialog) {
        const auto frames = TakeFrames(RenderBuild(Subject(), dialog));
        ASSERT_EQ(frames.size(), 48u);
        EXPECT_EQ(TakeBytes(RenderTest(Subject(), dialog)), frames[0]);
    });
}

TEST_F(CubistTest, EveryFailingAllocationEndsCleanly) {
    InDialog([](WindowHandle dialog) {
        SetPlain(dialog, 64, 3);
        EXPECT_GT(FailuresOfASample(Subject(), dialog), 5);
    });
}

}  // namespace

}  // namespace tess::test
