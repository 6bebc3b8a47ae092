#include <algorithm>
#include <cmath>

#include "runtime/mathematics.h"
#include "tests/styles/style_fixture.h"
#include "toolkit/wrap_compositing.h"

namespace tess::test {

namespace {

using platform::WindowHandle;

enum Control : int {
    kBackground = 322,
    kFrames = 324,
    kColor1 = 326,
    kEnable2 = 336,
    kEnable5 = 339,
    kStyle1 = 340,
    kStyle5 = 344,
    kWidth = 345,
    kDepth = 347,
    kSeed = 349,
    kDensity = 351,
    kBevel = 353,
    kSize = 354,
    kDrift = 356,
};

enum Shape : int { kCircle, kDiamond, kSquare, kBiscuit };

constexpr int kTestSeed = 500;

using Picture = std::vector<ColorWord>;

/// A drop of one color, as the draws make it and the frames move it.
struct Drop {
    int x_percent, y_percent;
    double life, life_step, orbit;
    int spin;

    [[nodiscard]] double Swelling() const { return life <= 50.0 ? life : 100.0 - life; }
    [[nodiscard]] int Diameter(int shorter, int size) const {
        return static_cast<int>(2 * shorter * Swelling() / 100.0) * size / 100;
    }
    [[nodiscard]] int Grey() const { return static_cast<int>(Swelling() * 510.0 / 100.0); }
    [[nodiscard]] raster::Point Center(int width, int depth, int radius) const {
        const int degrees = static_cast<int>(orbit * 360.0 / 100.0);
        const double angle = (spin == 1 ? 360 - degrees : degrees) * 0.017453292519943295;
        return {static_cast<int>(x_percent / 100.0 * width) +
                    static_cast<int>(-radius * runtime::Cosine(angle)),
                static_cast<int>(y_percent / 100.0 * depth) +
                    static_cast<int>(-radius * runtime::Sine(angle))};
    }
    void Advance(double step_percent) {
        life += life_step;
        if (life <= 0.0 || life >= 100.0) {
            life_step = -life_step;
            life += life_step;
        }
        orbit += step_percent;
    }
};

std::vector<Drop> DrawDrops(int seed, int count, int frames) {
    runtime::srand(static_cast<unsigned>(seed));
    std::vector<Drop> drops(static_cast<std::size_t>(count));
    for (Drop& drop : drops) {
        runtime::SkipDraw();
        drop.x_percent = runtime::rand() % 100;
        drop.y_percent = runtime::rand() % 100;
        drop.life = runtime::rand() % 100;
        drop.life_step = runtime::rand() % 2 == 1 ? 100.0 / frames : -100.0 / frames;
        drop.spin = runtime::rand() % 2;
    }
    return drops;
}

class GumdropsTest : public StyleTest {
protected:
    static const StyleEntry& Gumdrops() { return Style("Gumdrops"); }

    static void UseOneColor(WindowHandle dialog) {
        for (int id = kEnable2; id <= kEnable5; ++id)
            platform::SetChecked(dialog, id, false);
    }
    static void UseShape(WindowHandle dialog, Shape shape) {
        for (int id = kStyle1; id <= kStyle5; ++id)
            platform::SetSelection(dialog, id, shape);
    }
    /// White flat drops on black, 40 of them, on 64 by 48 pixels.
    static void SetPlain(WindowHandle dialog, Shape shape) {
        Set(dialog, kWidth, 64);
        Set(dialog, kDepth, 48);
        Set(dialog, kFrames, 16);
        Set(dialog, kSize, 40);
        Set(dialog, kDensity, 40);
        Set(dialog, kSeed, kTestSeed);
        Set(dialog, kBackground, 0);
        Set(dialog, kColor1, 0xFFFFFF);
        platform::SetChecked(dialog, kBevel, false);
        UseOneColor(dialog);
        UseShape(dialog, shape);
    }
    static std::vector<Picture> Frames(WindowHandle dialog) {
        return TakePixels(RenderBuild(Gumdrops(), dialog));
    }
    static int DrawsOfASample(WindowHandle dialog) {
        platform::FreeBlock(RenderTest(Gumdrops(), dialog));
        return DrawsSince(kTestSeed, 1000);
    }

    /// The frames of SetPlain's square drops, pixel by pixel.
    static std::vector<Picture> ExpectedSquares(int drift) {
        constexpr int kTileWidth = 64, kTileDepth = 48;
        std::vector<Drop> drops = DrawDrops(kTestSeed, 40, 16);
        std::vector<Picture> frames;
        for (int frame = 0; frame < 16; ++frame) {
            Picture picture(kTileWidth * kTileDepth, 0);
            for (Drop& drop : drops) {
                const int side = drop.Diameter(kTileDepth, 40);
                const raster::Point center =
                    drop.Center(kTileWidth, kTileDepth, kTileDepth * drift / 100);
                for (int i = 0; side > 1 && i < side * side; ++i) {
                    const int x = Wrap(center.x - side / 2 + i % side, kTileWidth);
                    const int y = Wrap(center.y - side / 2 + i / side, kTileDepth);
                    ColorWord& pixel = picture[static_cast<std::size_t>(y * kTileWidth + x)];
                    const int grey = RedOf(pixel) * (255 - drop.Grey()) / 255 + drop.Grey();
                    pixel = MakeColor(grey, grey, grey);
                }
                drop.Advance(6.25);
            }
            frames.push_back(picture);
        }
        return frames;
    }
};

TEST_F(GumdropsTest, SixteenFramesOfSquaresAreTheirDrawsAndSteps) {
    InDialog([](WindowHandle dialog) {
        SetPlain(dialog, kSquare);
        Set(dialog, kDrift, 20);
        const auto frames = Frames(dialog);
        const auto expected = ExpectedSquares(20);
        ASSERT_EQ(frames.size(), 16u);
        for (std::size_t i = 0; i < 16; ++i)
            EXPECT_EQ(frames[i], expected[i]) << i;
    });
}

TEST_F(GumdropsTest, DriftLargerThanTheTileIsFoldedBack) {
    InDialog([](WindowHandle dialog) {
        SetPlain(dialog, kSquare);
        Set(dialog, kDrift, 256);
        const auto frames = Frames(dialog);
        const auto expected = ExpectedSquares(256);
        for (std::size_t i = 0; i < 16; ++i)
            EXPECT_EQ(frames[i], expected[i]) << i;
    });
}

TEST_F(GumdropsTest, DropWithoutLifeIsSkippedAndLivesOn) {
    Drop drop{0, 0, 0.0, 6.25, 0.0, 0};
    EXPECT_EQ(drop.Diameter(48, 40), 0);
    drop.Advance(6.25);
    EXPECT_EQ(drop.life, 6.25);
    EXPECT_EQ(drop.orbit, 6.25);
    // The draws that the pictures are held to have such a drop.
    const std::vector<Drop> drops = DrawDrops(kTestSeed, 40, 16);
    EXPECT_TRUE(std::any_of(drops.begin(), drops.end(),
                            [](const Drop& each) { return each.Diameter(48, 40) <= 1; }));
}

TEST_F(GumdropsTest, LifeOfAHundredTurnsBackAtOnce) {
    Drop drop{0, 0, 93.75, 6.25, 0.0, 0};
    drop.Advance(6.25);
    EXPECT_EQ(drop.life, 93.75);
    EXPECT_EQ(drop.life_step, -6.25);
}

TEST_F(GumdropsTest, OneColorDrawsAsManyTimesAndStandsInTheSamePlaces) {
    InDialog([](WindowHandle dialog) {
        SetPlain(dialog, kCircle);
        EXPECT_EQ(DrawsOfASample(dialog), 40 * 6);
        const auto one = Frames(dialog);
        for (int i = 0; i < 4; ++i) {
            platform::SetChecked(dialog, kEnable2 + i, true);
            Set(dialog, kColor1 + 2 + 2 * i, 0xFFFFFF);
        }
        EXPECT_EQ(DrawsOfASample(dialog), 40 * 6);
        EXPECT_EQ(Frames(dialog), one);
    });
}

TEST_F(GumdropsTest, SmallestSizeOnTheSmallestTileDrawsNoDrop) {
    InDialog([](WindowHandle dialog) {
        SetPlain(dialog, kSquare);
        Set(dialog, kWidth, 16);
        Set(dialog, kDepth, 16);
        Set(dialog, kSize, 8);
        for (const Picture& frame : Frames(dialog)) {
            EXPECT_TRUE(std::all_of(frame.begin(), frame.end(),
                                    [](ColorWord pixel) { return pixel == 0; }));
        }
    });
}

/// A drop that no other one touches in frame 0 of a tile of 128 by 128 pixels.
struct LoneDrop {
    int seed;
    raster::Point center;
    int diameter;
};

LoneDrop FindLoneDrop(int count) {
    constexpr int kSide = 128;
    for (int seed = 100; seed < 10000; ++seed) {
        const std::vector<Drop> drops = DrawDrops(seed, count, 16);
        const Drop& first = drops[0];
        if (first.life < 25 || first.life > 30) continue;  // its ring stays below white
        const LoneDrop lone{seed, first.Center(kSide, kSide, 1), first.Diameter(kSide, 48)};
        bool free = true;
        for (std::size_t i = 1; i < drops.size(); ++i) {
            const raster::Point other = drops[i].Center(kSide, kSide, 1);
            const int far = (drops[i].Diameter(kSide, 48) + lone.diameter) / 2 + 2;
            const int x = Wrap(other.x - lone.center.x + kSide / 2, kSide) - kSide / 2;
            const int y = Wrap(other.y - lone.center.y + kSide / 2, kSide) - kSide / 2;
            free = free && (std::abs(x) > far || std::abs(y) > far);
        }
        if (free) return lone;
    }
    return {};
}

class GumdropSpriteTest : public GumdropsTest {
protected:
    static constexpr int kSide = 128;

    /// The levels of a lone drop, row by row.
    static std::vector<int> LoneLevels(WindowHandle dialog, Shape shape, bool bevel) {
        const LoneDrop lone = FindLoneDrop(4);
        SetPlain(dialog, shape);
        Set(dialog, kWidth, kSide);
        Set(dialog, kDepth, kSide);
        Set(dialog, kSize, 48);
        Set(dialog, kDensity, 4);
        Set(dialog, kDrift, 1);
        Set(dialog, kSeed, lone.seed);
        platform::SetChecked(dialog, kBevel, bevel);
        const Picture picture = Frames(dialog)[0];
        std::vector<int> levels;
        for (int i = 0; i < lone.diameter * lone.diameter; ++i) {
            const int x = Wrap(lone.center.x - lone.diameter / 2 + i % lone.diameter, kSide);
            const int y = Wrap(lone.center.y - lone.diameter / 2 + i / lone.diameter, kSide);
            levels.push_back(RedOf(picture[static_cast<std::size_t>(y * kSide + x)]));
        }
        return levels;
    }
    /// How far the inner part is from the same turned by half a turn, at most.
    static int Skewness(const std::vector<int>& levels) {
        const int side = static_cast<int>(std::sqrt(levels.size()));
        int most = 0;
        for (int i = 0; i < side * side; ++i) {
            const int away = std::abs(2 * (i % side) - side) + std::abs(2 * (i / side) - side);
            if (away > side * 7 / 10) continue;
            most = std::max(most, std::abs(levels[static_cast<std::size_t>(i)] -
                                           levels[static_cast<std::size_t>(side * side - 1 - i)]));
        }
        return most;
    }
};

TEST_F(GumdropSpriteTest, BevelOfASquareIsBrightestBetweenRimAndCenter) {
    InDialog([](WindowHandle dialog) {
        const std::vector<int> levels = LoneLevels(dialog, kSquare, true);
        const auto side = static_cast<std::size_t>(std::sqrt(levels.size()));
        ASSERT_GT(side, 25u);
        const int* middle = &levels[side / 2 * side];
        const int brightest = *std::max_element(middle, middle + side / 2);
        EXPECT_GT(brightest, middle[0]);
        EXPECT_GE(brightest, middle[side / 2]);
        EXPECT_LE(Skewness(levels), 2);
    });
}

TEST_F(GumdropSpriteTest, InnerRingsOfADiamondSlideUpAndToTheLeft) {
    InDialog([](WindowHandle dialog) {
        const std::vector<int> levels = LoneLevels(dialog, kDiamond, true);
        const auto side = static_cast<std::size_t>(std::sqrt(levels.size()));
        // Rings about the middle would be dim at both ends of both diagonals. These
        // end as a line along the upper left side: the level changes across it only.
        std::vector<int> along, across;
        for (std::size_t i = side * 3 / 10; i <= side * 7 / 10; ++i) {
            along.push_back(levels[i * side + side - 1 - i]);
            across.push_back(levels[i * side + i]);
        }
        const auto range = [](const std::vector<int>& line) {
            const auto ends = std::minmax_element(line.begin(), line.end());
            return *ends.second - *ends.first;
        };
        EXPECT_LE(range(along), 8);
        EXPECT_GE(range(across), 20);
    });
}

TEST_F(GumdropSpriteTest, CircleAndBiscuitLeaveTheCornersFree) {
    InDialog([](WindowHandle dialog) {
        EXPECT_EQ(LoneLevels(dialog, kCircle, false)[0], 0);
        const int sharp = LoneLevels(dialog, kSquare, false)[0];
        EXPECT_GT(sharp, 100);
        EXPECT_LT(LoneLevels(dialog, kBiscuit, false)[0], sharp / 2);
    });
}

TEST_F(GumdropsTest, FirstFrameOfABuildIsTheSample) {
    InDialog([](WindowHandle dialog) {
        Set(dialog, kFrames, 16);
        const auto frames = TakeFrames(RenderBuild(Gumdrops(), dialog));
        EXPECT_EQ(TakeBytes(RenderTest(Gumdrops(), dialog)), frames[0]);
    });
}

TEST_F(GumdropsTest, EveryFailingAllocationEndsCleanly) {
    InDialog([](WindowHandle dialog) {
        SetPlain(dialog, kBiscuit);
        Set(dialog, kDensity, 8);
        EXPECT_GT(FailuresOfASample(Gumdrops(), dialog), 5);
    });
}

}  // namespace

}  // namespace tess::test
