#include "fills/fountain.h"

#include "tests/styles/fountain_style_fixture.h"

namespace tess::test {

namespace {

using platform::WindowHandle;

class FountainStyleOfItsOwn : public FountainStyleTest<FountainStyle> {
protected:
    static void Shrink(WindowHandle dialog) {
        Set(dialog, "Width", 40);
        Set(dialog, "Depth", 20);
        Set(dialog, "Frames", 2);
    }
    static ColorWord At(const std::vector<ColorWord>& pixels, int x, int y) {
        return pixels[static_cast<std::size_t>(y * 40 + x)];
    }
};

TEST_F(FountainStyleOfItsOwn, SampleIsTheFountainAtTheTilesSize) {
    InDialog([](WindowHandle dialog) {
        Shrink(dialog);
        const Fountain fountain = FountainOf(dialog);
        EXPECT_EQ(TakeBytes(RenderTest(Subject(), dialog)),
                  TakeBytes(RenderFountainImage(fountain, 40, 20)));
    });
}

TEST_F(FountainStyleOfItsOwn, TwoFramesShowTheBandAndHalfARollOfIt) {
    InDialog([](WindowHandle dialog) {
        Shrink(dialog);
        const auto frames = TakePixels(RenderBuild(Subject(), dialog));
        ASSERT_EQ(frames.size(), 2u);
        for (int x = 0; x < 40; ++x)  // to the right
            EXPECT_EQ(At(frames[1], (x + 20) % 40, 7), At(frames[0], x, 7));
    });
}

TEST_F(FountainStyleOfItsOwn, DirectionsRollUpRightLeftAndDown) {
    InDialog([](WindowHandle dialog) {
        Shrink(dialog);
        Set(dialog, "Frames", 4);
        const int across[] = {0, 10, -10, 0}, down[] = {-5, 0, 0, 5};
        for (int direction = 0; direction < 4; ++direction) {
            Set(dialog, "Scroll", direction);
            const auto frames = TakePixels(RenderBuild(Subject(), dialog));
            for (int i = 0; i < 40 * 20; ++i) {
                const int x = i % 40, y = i / 40;
                ASSERT_EQ(At(frames[1], (x + across[direction] + 40) % 40,
                             (y + down[direction] + 20) % 20),
                          At(frames[0], x, y))
                    << direction;
            }
        }
    });
}

TEST_F(FountainStyleOfItsOwn, UprightBandsStartAtTheSideThatTheyMoveTo) {
    InDialog([](WindowHandle dialog) {
        Shrink(dialog);
        const Fountain fountain = FountainOf(dialog);
        const auto band = TakePixels(RenderFountainImage(fountain, 20, 40));
        Set(dialog, "Scroll", 0);
        const auto upwards = TakePixels(RenderTest(Subject(), dialog));
        Set(dialog, "Scroll", 3);
        const auto downwards = TakePixels(RenderTest(Subject(), dialog));
        for (int y = 0; y < 20; ++y) {
            EXPECT_EQ(At(upwards, 13, y), band[static_cast<std::size_t>(y)]);
            EXPECT_EQ(At(downwards, 13, y), band[static_cast<std::size_t>(19 - y)]);
        }
    });
}

TEST_F(FountainStyleOfItsOwn, MoreFramesThanColumnsRepeatARoll) {
    InDialog([](WindowHandle dialog) {
        Shrink(dialog);
        Set(dialog, "Width", 16);
        Set(dialog, "Frames", 64);
        const auto frames = TakeFrames(RenderBuild(Subject(), dialog));
        for (std::size_t f = 0; f < 64; f += 4) {
            for (std::size_t i = 1; i < 4; ++i)
                EXPECT_EQ(frames[f + i], frames[f]);
            EXPECT_NE(frames[f], frames[(f + 4) % 64]);
        }
    });
}

TEST_F(FountainStyleOfItsOwn, ButtonWithoutARecordFails) {
    InDialog([](WindowHandle dialog) {
        TakeRecord(dialog);
        EXPECT_EQ(RenderTest(Subject(), dialog), nullptr);
    });
}

TEST_F(FountainStyleOfItsOwn, MakesNoDraw) {
    InDialog([](WindowHandle dialog) {
        runtime::srand(77);
        platform::FreeBlock(RenderTest(Subject(), dialog));
        EXPECT_EQ(DrawsSince(77, 1), 0);
        EXPECT_EQ(BackgroundQuery(Subject(), dialog, 0), kNoBackground);
    });
}

TEST_F(FountainStyleOfItsOwn, EveryFailingAllocationEndsCleanly) {
    InDialog([](WindowHandle dialog) {
        Shrink(dialog);
        Set(dialog, "Scroll", 3);
        EXPECT_GT(FailuresOfASample(Subject(), dialog), 5);
    });
}

}  // namespace

}  // namespace tess::test
