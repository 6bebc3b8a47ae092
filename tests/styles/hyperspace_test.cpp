#include <cstdlib>
#include <functional>

#include "tests/styles/style_fixture.h"

namespace tess::test {

namespace {

using platform::WindowHandle;

/// The head of a streak before it moves.
struct Head {
    int x, y, size;
};

using Heads = std::vector<Head>;

/// The draws of density 8 with one colour: 4, 6 and 8 streaks, four draws each.
Heads DrawHeads(unsigned seed, int width, int depth) {
    runtime::srand(seed);
    Heads heads;
    for (int i = 0; i < 18; ++i) {
        const int size = i < 4 ? 4 : i < 10 ? 2 : 1;
        const int x = runtime::rand() % (width - size) + size / 2;
        const int y = runtime::rand() % depth;
        runtime::SkipDraw();
        runtime::SkipDraw();
        heads.push_back({x, y, size});
    }
    return heads;
}

/// True when no other streak comes near the rows of streak `index`.
bool StandsAlone(const Heads& heads, std::size_t index) {
    for (std::size_t i = 0; i < heads.size(); ++i) {
        if (i != index && std::abs(heads[i].y - heads[index].y) < 8) return false;
    }
    return true;
}

class HyperspaceTest : public StyleTest<HyperspaceStyle> {
protected:
    /// Eighteen white streaks on black, flying left, where `wanted` holds for their
    /// heads. Returns the heads.
    static Heads Shrink(WindowHandle dialog, int width, int depth,
                        const std::function<bool(const Heads&)>& wanted) {
        Set(dialog, "Width", width);
        Set(dialog, "Depth", depth);
        Set(dialog, "Density", 8);
        Set(dialog, "Frames", 2);
        Set(dialog, "Scroll", 0);
        Set(dialog, "Background", 0);
        Set(dialog, "FillColor1", 0xFFFFFF);
        EnableColors(dialog, false);
        for (unsigned seed = 100; seed <= 32760; ++seed) {
            Heads heads = DrawHeads(seed, width, depth);
            if (wanted(heads)) {
                Set(dialog, "Seed", static_cast<int>(seed));
                return heads;
            }
        }
        ADD_FAILURE() << "no seed with such streaks";
        return DrawHeads(100, width, depth);
    }

    /// The red of a pixel in a frame's bytes.
    static int Level(const std::vector<std::uint8_t>& bytes, int x, int y) {
        const auto* image = reinterpret_cast<const PackedDib*>(bytes.data());
        return RedOf(GetDibPixel(image, x, y));
    }
};

bool FirstStandsAlone(const Heads& heads) {
    return StandsAlone(heads, 0);
}

TEST_F(HyperspaceTest, DensityEightMakesEighteenStreaksOfFourDraws) {
    InDialog([](WindowHandle dialog) {
        Shrink(dialog, 64, 48, [](const Heads&) { return true; });
        platform::FreeBlock(RenderTest(Subject(), dialog));
        EXPECT_EQ(DrawsSince(100, 1000), 18 * 4);
    });
}

TEST_F(HyperspaceTest, SeveralColorsTakeAtLeastOneDrawAStreak) {
    InDialog([](WindowHandle dialog) {
        Shrink(dialog, 64, 48, [](const Heads&) { return true; });
        Set(dialog, "FillEnable2", true);
        platform::FreeBlock(RenderTest(Subject(), dialog));
        EXPECT_GE(DrawsSince(100, 1000), 18 * 5);
    });
}

TEST_F(HyperspaceTest, PickerOpensOnRight) {
    InDialog([](WindowHandle dialog) {
        EXPECT_EQ(platform::ControlText(dialog, ControlOf("Scroll")), "1");
    });
}

TEST_F(HyperspaceTest, ThickHeadHasItsMiddleRowsAloneAndTheTailAllFour) {
    InDialog([](WindowHandle dialog) {
        const Heads heads = Shrink(dialog, 256, 512, [](const Heads& all) {
            return StandsAlone(all, 0) && all[0].y > 8 && all[0].x < 100;
        });
        const auto bytes = TakeBytes(RenderTest(Subject(), dialog));
        const int x = heads[0].x;
        const int y = heads[0].y - 2;
        EXPECT_EQ(Level(bytes, x, y - 1), 0);
        EXPECT_EQ(Level(bytes, x, y), 255);
        EXPECT_EQ(Level(bytes, x, y + 1), 127);  // 255 * 0.5
        EXPECT_EQ(Level(bytes, x, y + 2), 0);
        EXPECT_EQ(Level(bytes, x + 40, y - 1), 31);  // 255 * 0.25 * 40 / 80
        EXPECT_EQ(Level(bytes, x + 40, y), 127);
        EXPECT_EQ(Level(bytes, x + 40, y + 1), 63);
        EXPECT_EQ(Level(bytes, x + 40, y + 2), 31);
        EXPECT_EQ(Level(bytes, x + 79, y), 3);  // 255 / 80
        EXPECT_EQ(Level(bytes, x + 80, y), 0);
        EXPECT_EQ(Level(bytes, x - 1, y), 0);
    });
}

TEST_F(HyperspaceTest, MiddleHeadLosesItsSecondRow) {
    InDialog([](WindowHandle dialog) {
        const Heads heads = Shrink(dialog, 256, 512, [](const Heads& all) {
            return StandsAlone(all, 4) && all[4].y > 8 && all[4].x < 100;
        });
        const auto bytes = TakeBytes(RenderTest(Subject(), dialog));
        const int x = heads[4].x;
        const int y = heads[4].y - 1;
        EXPECT_EQ(Level(bytes, x, y), 160);
        EXPECT_EQ(Level(bytes, x, y + 1), 0);
        EXPECT_EQ(Level(bytes, x + 20, y), 80);
        EXPECT_EQ(Level(bytes, x + 20, y + 1), 40);
    });
}

TEST_F(HyperspaceTest, StreakAtTheTopShowsItsLastRowAloneAndDoesNotWrap) {
    InDialog([](WindowHandle dialog) {
        const Heads heads = Shrink(dialog, 256, 512, [](const Heads& all) {
            for (const Head& head : all) {
                if (head.y > 500) return false;
            }
            return StandsAlone(all, 0) && all[0].y == 0 && all[0].x < 100;
        });
        const auto bytes = TakeBytes(RenderTest(Subject(), dialog));
        EXPECT_EQ(Level(bytes, heads[0].x, 0), 0);
        EXPECT_EQ(Level(bytes, heads[0].x + 1, 0), 62);  // 255 * 0.25 * 79 / 80
        for (int x = 0; x < 256; ++x) {
            EXPECT_EQ(Level(bytes, x, 1), 0);
            EXPECT_EQ(Level(bytes, x, 511), 0);
        }
    });
}

TEST_F(HyperspaceTest, TailOnANarrowTileBlendsFiveTimesOnItself) {
    InDialog([](WindowHandle dialog) {
        const Heads heads = Shrink(
            dialog, 16, 1024, [](const Heads& all) { return StandsAlone(all, 0) && all[0].y > 8; });
        Set(dialog, "FillOpacity", 100);
        const auto bytes = TakeBytes(RenderTest(Subject(), dialog));
        // Alphas 100, 80, 60, 40, 20 of white: 100, 68 + 80, 113 + 60, 145 + 40, 170 + 20.
        EXPECT_EQ(Level(bytes, heads[0].x, heads[0].y - 2), 190);
    });
}

TEST_F(HyperspaceTest, HeadAtZeroStaysThereAndThenComesInAtTheRight) {
    InDialog([](WindowHandle dialog) {
        const Heads heads = Shrink(dialog, 128, 512, FirstStandsAlone);
        Set(dialog, "Frames", 128);  // a step of exactly one column
        const auto frames = TakeFrames(RenderBuild(Subject(), dialog));
        const auto x = static_cast<std::size_t>(heads[0].x);
        const int y = heads[0].y - 2;
        EXPECT_EQ(Level(frames[x - 1], 1, y), 255);
        EXPECT_EQ(Level(frames[x], 0, y), 255);
        EXPECT_EQ(Level(frames[x + 1], 127, y), 255);
    });
}

TEST_F(HyperspaceTest, TwoFramesMoveThickStreaksByHalfATileEitherWay) {
    for (const int scroll : {0, 1}) {
        InDialog([scroll](WindowHandle dialog) {
            const Heads heads = Shrink(dialog, 256, 512, FirstStandsAlone);
            Set(dialog, "Scroll", scroll);
            const auto frames = TakeFrames(RenderBuild(Subject(), dialog));
            const int moved = (heads[0].x + 128) % 256;
            EXPECT_EQ(Level(frames[0], heads[0].x, heads[0].y - 2), 255);
            EXPECT_EQ(Level(frames[1], moved, heads[0].y - 2), 255);
            EXPECT_EQ(Level(frames[1], scroll != 0 ? moved - 1 : moved + 1, heads[0].y - 2), 251);
        });
    }
}

TEST_F(HyperspaceTest, AnyOtherPickerValueFliesRight) {
    InDialog([](WindowHandle dialog) {
        const Heads heads = Shrink(dialog, 256, 512, [](const Heads& all) {
            return StandsAlone(all, 0) && all[0].x < 100;
        });
        Set(dialog, "Scroll", 7);
        Set(dialog, "Frames", 256);
        const auto frames = TakeFrames(RenderBuild(Subject(), dialog));
        EXPECT_EQ(Level(frames[3], heads[0].x + 3, heads[0].y - 2), 255);
        EXPECT_EQ(Level(frames[3], heads[0].x + 4, heads[0].y - 2), 0);
    });
}

TEST_F(HyperspaceTest, HeadThatMovesFurtherThanTheTileStandsOutsideIt) {
    InDialog([](WindowHandle dialog) {
        // A thin streak moves by two tile widths, wraps once, and is at 60 - 64 = -4:
        // column 0 then shows the fifth pixel of its tail.
        const Heads heads = Shrink(dialog, 64, 1024, [](const Heads& all) {
            return StandsAlone(all, 10) && all[10].x == 60;
        });
        const auto frames = TakeFrames(RenderBuild(Subject(), dialog));
        EXPECT_EQ(Level(frames[0], 60, heads[10].y), 128);
        EXPECT_EQ(Level(frames[1], 0, heads[10].y), 102);  // 128 * 16 / 20
        EXPECT_EQ(Level(frames[1], 63, heads[10].y), 0);
    });
}

TEST_F(HyperspaceTest, HalfALoopIsTheSameInFourFramesAndInEight) {
    InDialog([](WindowHandle dialog) {
        Shrink(dialog, 64, 48, [](const Heads&) { return true; });
        Set(dialog, "Frames", 4);  // in fewer the fast heads leave the tile
        const auto four = TakeFrames(RenderBuild(Subject(), dialog));
        Set(dialog, "Frames", 8);
        const auto eight = TakeFrames(RenderBuild(Subject(), dialog));
        EXPECT_EQ(four[2], eight[4]);
        EXPECT_EQ(eight[0], TakeBytes(RenderTest(Subject(), dialog)));
        EXPECT_NE(eight[0], eight[4]);
    });
}

TEST_F(HyperspaceTest, EveryFailingAllocationEndsCleanly) {
    InDialog([](WindowHandle dialog) {
        Shrink(dialog, 64, 48, [](const Heads&) { return true; });
        EXPECT_EQ(FailuresOfASample(Subject(), dialog), 2);  // the streaks, the frame
    });
}

}  // namespace

}  // namespace tess::test
