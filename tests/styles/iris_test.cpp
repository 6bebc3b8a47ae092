#include <algorithm>

#include "tests/styles/style_fixture.h"
#include "toolkit/wrap_compositing.h"

namespace tess::test {

namespace {

using platform::WindowHandle;

using Picture = std::vector<ColorWord>;

class IrisTest : public StyleTest<IrisStyle> {
protected:
    static constexpr int kSide = 16;

    static std::vector<Picture> Frames(WindowHandle dialog) {
        return TakePixels(RenderBuild(Subject(), dialog));
    }
    static bool IsFlat(const Picture& picture, ColorWord color) {
        return std::all_of(picture.begin(), picture.end(),
                           [color](ColorWord pixel) { return pixel == color; });
    }

    /// The first wipe half way, from white (old) to black, on a cell of 16 pixels.
    static Picture HalfWay(WindowHandle dialog, std::string_view shape) {
        EnableColors(dialog, false);
        Set(dialog, "Frames", 16);  // eight frames a wipe
        Set(dialog, "Size", kSide);
        Set(dialog, "Background", 0xFFFFFF);
        Set(dialog, "FillColor1", 0);
        Set(dialog, "Style1", shape);
        return Frames(dialog)[4];
    }
    static int At(const Picture& picture, int x, int y) {
        return RedOf(picture[static_cast<std::size_t>(y * kSide + x)]);
    }
    static void ExpectNear(const Picture& one, const Picture& other, int most) {
        for (int i = 0; i < kSide * kSide; ++i) {
            EXPECT_NEAR(At(one, i % kSide, i / kSide), At(other, i % kSide, i / kSide), most) << i;
        }
    }
    /// The centre of what is bright in a row.
    static double BrightCenter(const Picture& picture, int y) {
        double sum = 0, weighed = 0;
        for (int x = 0; x < kSide; ++x) {
            sum += At(picture, x, y);
            weighed += x * At(picture, x, y);
        }
        return weighed / sum;
    }
};

TEST_F(IrisTest, WithoutEnabledColorsThereAreTwoWipes) {
    InDialog([](WindowHandle dialog) {
        EnableColors(dialog, false);
        Set(dialog, "Frames", 16);
        const auto frames = Frames(dialog);
        ASSERT_EQ(frames.size(), 16u);
        EXPECT_TRUE(IsFlat(frames[0], 0xFFFFFF));
        EXPECT_TRUE(IsFlat(frames[8], 0x7E5429));
        EXPECT_FALSE(IsFlat(frames[15], 0xFFFFFF));
    });
}

TEST_F(IrisTest, WithAllColorsThereAreSixWipesAndEachBeginsFlat) {
    InDialog([](WindowHandle dialog) {
        const auto frames = Frames(dialog);
        ASSERT_EQ(frames.size(), 96u);
        constexpr ColorWord kChain[] = {0xFFFFFF, 0x7E5429, 0x95632C, 0xC08243, 0xDDBC9B, 0xEAE3DB};
        for (std::size_t i = 0; i < 6; ++i)
            EXPECT_TRUE(IsFlat(frames[16 * i], kChain[i])) << i;
    });
}

TEST_F(IrisTest, SeventeenFramesOfSixWipesAreTwelveAndProgressIsOfSeventeen) {
    InDialog([](WindowHandle dialog) {
        Set(dialog, "Frames", 17);
        const auto reports = ProgressOfABuild(Subject(), dialog);
        ASSERT_EQ(reports.size(), 12u);
        for (int i = 0; i < 12; ++i)
            EXPECT_EQ(reports[static_cast<std::size_t>(i)],
                      std::pair(std::int64_t{i}, std::int64_t{17}));
    });
}

TEST_F(IrisTest, TwoFramesAWipeAreItsBeginAndItsMiddle) {
    InDialog([](WindowHandle dialog) {
        const Picture half = HalfWay(dialog, "Diamond");
        EnableColors(dialog, true);
        for (int i = 0; i < 5; ++i)
            Set(dialog, Numbered("FillColor", 1 + i), 0);
        const auto frames = Frames(dialog);  // 16 / 6 wipes
        ASSERT_EQ(frames.size(), 12u);
        EXPECT_TRUE(IsFlat(frames[0], 0xFFFFFF));
        EXPECT_EQ(frames[1], half);
        EXPECT_TRUE(IsFlat(frames[2], 0));
    });
}

TEST_F(IrisTest, SquareLeavesTheMiddleHalfWay) {
    InDialog([](WindowHandle dialog) {
        const Picture half = HalfWay(dialog, "Square");
        // The white box is 4 to 12; the scaler rings a little beside its edges.
        EXPECT_EQ(At(half, 8, 8), 255);
        EXPECT_GT(At(half, 4, 4), 200);
        EXPECT_LT(At(half, 3, 3), 40);
        EXPECT_GT(At(half, 11, 11), 200);
        EXPECT_LT(At(half, 12, 12), 40);
        EXPECT_EQ(At(half, 0, 0), 0);
    });
}

TEST_F(IrisTest, DiamondAndCircleStandInTheMiddleAndDifferInTheirReach) {
    InDialog([](WindowHandle dialog) {
        const Picture diamond = HalfWay(dialog, "Diamond");  // 22 of 64 to each side
        EXPECT_EQ(At(diamond, 8, 8), 255);
        EXPECT_GT(At(diamond, 4, 8), 200);
        EXPECT_EQ(At(diamond, 4, 4), 0);
        const Picture circle = HalfWay(dialog, "Circle");  // radius 32, all of the cell
        EXPECT_GT(At(circle, 0, 8), 100);
        EXPECT_EQ(At(circle, 4, 4), 255);
        EXPECT_EQ(At(circle, 0, 0), 0);
    });
}

TEST_F(IrisTest, HorizontalBlindIsOneLineAtTheTopOfTheCell) {
    InDialog([](WindowHandle dialog) {
        const Picture half = HalfWay(dialog, "Horiz. blind");
        for (int x = 0; x < kSide; ++x) {
            EXPECT_EQ(At(half, x, 0), 255);
            EXPECT_GT(At(half, x, 7), 200);
            EXPECT_LT(At(half, x, 8), 40);
            EXPECT_EQ(At(half, x, 15), 0);
        }
    });
}

TEST_F(IrisTest, VerticalBlindIsOneLineAtTheLeftOfTheCell) {
    InDialog([](WindowHandle dialog) {
        const Picture half = HalfWay(dialog, "Vert. blind");
        for (int y = 0; y < kSide; ++y) {
            EXPECT_EQ(At(half, 0, y), 255);
            EXPECT_GT(At(half, 7, y), 200);
            EXPECT_LT(At(half, 8, y), 40);
            EXPECT_EQ(At(half, 15, y), 0);
        }
    });
}

TEST_F(IrisTest, DiagonalsFallToTheRightAndToTheLeft) {
    InDialog([](WindowHandle dialog) {
        const Picture left = HalfWay(dialog, "Diag. left");
        const Picture right = HalfWay(dialog, "Diag. right");
        for (int i = 2; i < kSide - 2; ++i) {
            EXPECT_EQ(At(left, i, i), 255) << i;
            EXPECT_LT(At(left, i, kSide - 1 - i), At(left, 8, 8) + 1) << i;
            EXPECT_GT(At(right, i, kSide - 1 - i), 200) << i;
        }
        EXPECT_EQ(At(left, 12, 4), 0);
        EXPECT_EQ(At(right, 4, 4), 0);
    });
}

TEST_F(IrisTest, BothChevronsPointToTheRight) {
    InDialog([](WindowHandle dialog) {
        // Two thirds through, where the bright stroke is narrow: its place moves
        // right down to the middle row, and back left below.
        for (const std::string_view shape : {"Chev. left", "Chev. right"}) {
            HalfWay(dialog, shape);
            const Picture late = Frames(dialog)[7];
            const int from = shape == "Chev. right" ? 1 : 0;
            const int to = 3;
            EXPECT_LT(BrightCenter(late, from), BrightCenter(late, to)) << shape;
            EXPECT_GT(BrightCenter(late, kSide - 1 - to), BrightCenter(late, kSide - 1 - from))
                << shape;
        }
    });
}

TEST_F(IrisTest, ChevronsDifferByHalfATile) {
    InDialog([](WindowHandle dialog) {
        const Picture left = HalfWay(dialog, "Chev. left");
        const Picture right = HalfWay(dialog, "Chev. right");
        EXPECT_NE(left, right);
        for (int y = 2; y < kSide - 2; ++y) {
            for (int x = 2; x < 6; ++x) {
                EXPECT_NEAR(At(left, x, y), At(right, x + 8, y), 24) << x << " " << y;
            }
        }
    });
}

TEST_F(IrisTest, SampleIsEightByEightCellsTwoThirdsThroughTheFirstWipe) {
    InDialog([](WindowHandle dialog) {
        Set(dialog, "Size", 16);
        Set(dialog, "Frames", 96);  // 16 frames a wipe
        Set(dialog, "Style1", "Square");
        const Picture cell = Frames(dialog)[10];
        const ImageHandle sample = RenderTest(Subject(), dialog);
        const Picture cells = Pixels(sample);
        platform::FreeBlock(sample);
        ASSERT_EQ(cells.size(), 64u * 16 * 16);
        // Away from the picture's border a cell looks as it does alone.
        for (int i = 0; i < 128 * 128; ++i) {
            const auto in_cell = static_cast<std::size_t>(i / 128 % 16 * 16 + i % 16);
            EXPECT_EQ(cells[static_cast<std::size_t>(i)], cell[in_cell]) << i;
        }
    });
}

TEST_F(IrisTest, NothingIsDrawnByChance) {
    InDialog([](WindowHandle dialog) {
        runtime::srand(7);
        platform::FreeBlock(RenderTest(Subject(), dialog));
        EXPECT_EQ(DrawsSince(7, 10), 0);
    });
}

TEST_F(IrisTest, EveryFailingAllocationEndsCleanly) {
    InDialog([](WindowHandle dialog) {
        Set(dialog, "Size", 8);
        EXPECT_GT(FailuresOfASample(Subject(), dialog), 5);
    });
}

}  // namespace

}  // namespace tess::test
