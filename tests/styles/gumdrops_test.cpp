#include <algorithm>
#include <cmath>

#include "runtime/mathematics.h"
#include "tests/styles/style_fixture.h"
#include "toolkit/wrap_compositing.h"

namespace tess::test {

namespace {

using platform::WindowHandle;

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

/// The seed of four drops on 64 by 64 pixels whose first has this life and sense, in
/// reach of no other at its largest.
int SeedOfALonePath(double life, double step, raster::Point* center) {
    constexpr int kSide = 64, kReach = 17;
    for (int seed = 100; seed < 32760; ++seed) {
        const std::vector<Drop> drops = DrawDrops(seed, 4, 16);
        if (drops[0].life != life || drops[0].life_step != step) continue;
        *center = drops[0].Center(kSide, kSide, 0);
        const bool lone = std::none_of(drops.begin() + 1, drops.end(), [&](const Drop& drop) {
            const raster::Point other = drop.Center(kSide, kSide, 0);
            return Wrap(other.x - center->x + kReach, kSide) <= 2 * kReach &&
                   Wrap(other.y - center->y + kReach, kSide) <= 2 * kReach;
        });
        if (lone) return seed;
    }
    return 0;
}

class GumdropsTest : public StyleTest<GumdropsStyle> {
protected:
    static void UseShape(WindowHandle dialog, std::string_view shape) {
        for (int i = 1; i <= 5; ++i)
            Set(dialog, Numbered("Style", i), shape);
    }
    /// White flat drops on black, 40 of them, on 64 by 48 pixels.
    static void SetPlain(WindowHandle dialog, std::string_view shape) {
        Set(dialog, "Width", 64);
        Set(dialog, "Depth", 48);
        Set(dialog, "Frames", 16);
        Set(dialog, "Size", 40);
        Set(dialog, "Density", 40);
        Set(dialog, "Seed", kTestSeed);
        Set(dialog, "Background", 0);
        Set(dialog, "FillColor1", 0xFFFFFF);
        Set(dialog, "BevelEnable", false);
        EnableColors(dialog, false);
        UseShape(dialog, shape);
    }
    static std::vector<Picture> Frames(WindowHandle dialog) {
        return TakePixels(RenderBuild(Subject(), dialog));
    }
    static int DrawsOfASample(WindowHandle dialog) {
        platform::FreeBlock(RenderTest(Subject(), dialog));
        return DrawsSince(kTestSeed, 1000);
    }

    /// The levels in the middle of the drop that SeedOfALonePath finds, in eight frames
    /// of sixteen.
    static std::vector<int> LonePathLevels(WindowHandle dialog, double life, double step) {
        raster::Point center{};
        const int seed = SeedOfALonePath(life, step, &center);
        EXPECT_NE(seed, 0);
        SetPlain(dialog, "Square");
        Set(dialog, "Depth", 64);
        Set(dialog, "Density", 4);
        Set(dialog, "Drift", 1);  // a hundredth of 64 pixels is none
        Set(dialog, "Seed", seed);
        const auto frames = Frames(dialog);
        std::vector<int> levels;
        for (std::size_t i = 0; i < 8; ++i)
            levels.push_back(RedOf(frames[i][static_cast<std::size_t>(64 * center.y + center.x)]));
        return levels;
    }

    /// The frames of SetPlain's square drops, pixel by pixel.
    static std::vector<Picture> ExpectedSquares(int drift, int count) {
        constexpr int kTileWidth = 64, kTileDepth = 48;
        std::vector<Drop> drops = DrawDrops(kTestSeed, 40, count);
        std::vector<Picture> frames;
        for (int frame = 0; frame < count; ++frame) {
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
                drop.Advance(100.0 / count);
            }
            frames.push_back(picture);
        }
        return frames;
    }
};

TEST_F(GumdropsTest, SixteenFramesOfSquaresAreTheirDrawsAndSteps) {
    InDialog([](WindowHandle dialog) {
        SetPlain(dialog, "Square");
        Set(dialog, "Drift", 20);
        const auto frames = Frames(dialog);
        const auto expected = ExpectedSquares(20, 16);
        ASSERT_EQ(frames.size(), 16u);
        for (std::size_t i = 0; i < 16; ++i)
            EXPECT_EQ(frames[i], expected[i]) << i;
    });
}

TEST_F(GumdropsTest, DriftLargerThanTheTileIsFoldedBack) {
    InDialog([](WindowHandle dialog) {
        SetPlain(dialog, "Square");
        Set(dialog, "Drift", 256);
        const auto frames = Frames(dialog);
        const auto expected = ExpectedSquares(256, 16);
        for (std::size_t i = 0; i < 16; ++i)
            EXPECT_EQ(frames[i], expected[i]) << i;
    });
}

TEST_F(GumdropsTest, LivesThatMeetAnEndExactlyTurnBackAtOnce) {
    InDialog([](WindowHandle dialog) {
        constexpr int kCount = 20;  // lives of whole fives meet both ends
        std::vector<Drop> drops = DrawDrops(kTestSeed, 40, kCount);
        ASSERT_TRUE(std::any_of(drops.begin(), drops.end(), [](const Drop& drop) {
            return std::fmod(drop.life, 5.0) == 0.0 && drop.life > 0.0 && drop.life_step > 0.0;
        }));
        ASSERT_TRUE(std::any_of(drops.begin(), drops.end(), [](const Drop& drop) {
            return std::fmod(drop.life, 5.0) == 0.0 && drop.life > 0.0 && drop.life_step < 0.0;
        }));
        SetPlain(dialog, "Square");
        Set(dialog, "Frames", kCount);
        Set(dialog, "Drift", 20);
        EXPECT_EQ(Frames(dialog), ExpectedSquares(20, kCount));
    });
}

TEST_F(GumdropsTest, LifeOfAHundredAndOfNothingNeverLast) {
    InDialog([](WindowHandle dialog) {
        // 75, 81.25, 87.5, 93.75, 100 and at once back; or from 25 down to 0.
        const std::vector<int> expected{127, 95, 63, 31, 31, 63, 95, 127};
        EXPECT_EQ(LonePathLevels(dialog, 75.0, 6.25), expected);
        EXPECT_EQ(LonePathLevels(dialog, 25.0, -6.25), expected);
    });
}

TEST_F(GumdropsTest, DropWithoutLifeIsSkippedAndLivesOn) {
    InDialog([](WindowHandle dialog) {
        EXPECT_EQ(LonePathLevels(dialog, 0.0, 6.25),
                  (std::vector<int>{0, 31, 63, 95, 127, 159, 191, 223}));
    });
}

TEST_F(GumdropsTest, OneColorDrawsAsManyTimesAndStandsInTheSamePlaces) {
    InDialog([](WindowHandle dialog) {
        SetPlain(dialog, "Circle");
        EXPECT_EQ(DrawsOfASample(dialog), 40 * 6);
        const auto one = Frames(dialog);
        for (int i = 0; i < 4; ++i) {
            Set(dialog, Numbered("FillEnable", 2 + i), true);
            Set(dialog, Numbered("FillColor", 2 + i), 0xFFFFFF);
        }
        EXPECT_EQ(DrawsOfASample(dialog), 40 * 6);
        EXPECT_EQ(Frames(dialog), one);
    });
}

TEST_F(GumdropsTest, SmallestSizeOnTheSmallestTileDrawsNoDrop) {
    InDialog([](WindowHandle dialog) {
        SetPlain(dialog, "Square");
        Set(dialog, "Width", 16);
        Set(dialog, "Depth", 16);
        Set(dialog, "Size", 8);
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
    static std::vector<int> LoneLevels(WindowHandle dialog, std::string_view shape, bool bevel) {
        const LoneDrop lone = FindLoneDrop(4);
        SetPlain(dialog, shape);
        Set(dialog, "Width", kSide);
        Set(dialog, "Depth", kSide);
        Set(dialog, "Size", 48);
        Set(dialog, "Density", 4);
        Set(dialog, "Drift", 1);
        Set(dialog, "Seed", lone.seed);
        Set(dialog, "BevelEnable", bevel);
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
        const std::vector<int> levels = LoneLevels(dialog, "Square", true);
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
        const std::vector<int> levels = LoneLevels(dialog, "Diamond", true);
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
        EXPECT_EQ(LoneLevels(dialog, "Circle", false)[0], 0);
        const int sharp = LoneLevels(dialog, "Square", false)[0];
        EXPECT_GT(sharp, 100);
        EXPECT_LT(LoneLevels(dialog, "Biscuit", false)[0], sharp / 2);
    });
}

TEST_F(GumdropsTest, FirstFrameOfABuildIsTheSample) {
    InDialog([](WindowHandle dialog) {
        Set(dialog, "Frames", 16);
        const auto frames = TakeFrames(RenderBuild(Subject(), dialog));
        EXPECT_EQ(TakeBytes(RenderTest(Subject(), dialog)), frames[0]);
    });
}

TEST_F(GumdropsTest, EveryFailingAllocationEndsCleanly) {
    InDialog([](WindowHandle dialog) {
        SetPlain(dialog, "Biscuit");
        Set(dialog, "Density", 8);
        EXPECT_GT(FailuresOfASample(Subject(), dialog), 5);
    });
}

}  // namespace

}  // namespace tess::test
