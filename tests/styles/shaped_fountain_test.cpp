#include <algorithm>
#include <random>
#include <set>

#include "tests/reference/plain_shaped_fountain.h"
#include "tests/styles/fountain_style_fixture.h"

namespace tess::test {

namespace {

using platform::WindowHandle;

class ShapedFountainTest : public FountainStyleTest<ShapedFountainStyle> {
protected:
    static std::vector<std::uint8_t> Plain(WindowHandle dialog, const PlainShapes& shapes,
                                           double phase) {
        return TakeBytes(PlainShapedFountain(FountainOf(dialog), shapes, phase));
    }
};

TEST_F(ShapedFountainTest, EveryShapeAndWayHasTheBytesOfTheLiteralVersion) {
    InDialog([](WindowHandle dialog) {
        std::mt19937 random(5);
        for (const int size : {16, 17, 40, 61, 88, 130}) {
            for (int shape = 0; shape < 4; ++shape) {
                const bool reverse = random() % 2 != 0;
                const int frames = 2 + static_cast<int>(random() % 4);
                Set(dialog, "Size", size);
                Set(dialog, "Frames", frames);
                Set(dialog, "Shape", shape);
                Set(dialog, "Scroll", reverse ? 1 : 0);
                const auto built = TakeFrames(RenderBuild(Subject(), dialog));
                const std::size_t last = built.size() - 1;
                EXPECT_EQ(built[last],
                          Plain(dialog, {size, reverse, shape}, static_cast<double>(last) / frames))
                    << size << " " << shape;
            }
        }
    });
}

TEST_F(ShapedFountainTest, LargeSizeHasTheBytesOfTheLiteralVersion) {
    // More rings than colours: those that are left out must change nothing.
    InDialog([](WindowHandle dialog) {
        Set(dialog, "Size", 300);
        for (int shape = 0; shape < 4; ++shape) {
            Set(dialog, "Shape", shape);
            EXPECT_EQ(TakeBytes(RenderTest(Subject(), dialog)),
                      Plain(dialog, {300, true, shape}, 0.0))
                << shape;
        }
    });
}

TEST_F(ShapedFountainTest, NoSelectionIsACircle) {
    InDialog([](WindowHandle dialog) {
        const auto circle = TakeBytes(RenderTest(Subject(), dialog));
        Set(dialog, "Shape", -1);
        EXPECT_EQ(TakeBytes(RenderTest(Subject(), dialog)), circle);
    });
}

TEST_F(ShapedFountainTest, SizeSixteenReadsEveryEighthColor) {
    InDialog([](WindowHandle dialog) {
        // A fountain in which no colour stands twice, as red with its place in it.
        SetFountain(dialog, 0x000000, 0x000080, 0x0000FF);
        const auto strip = StripOf(dialog);
        Set(dialog, "Size", 16);
        Set(dialog, "Shape", 2);
        const auto pixels = TakePixels(RenderTest(Subject(), dialog));
        ASSERT_EQ(pixels.size(), 16u * 16);
        // Two rings are four large pixels, so a pixel beside the diagonal is the mean of
        // four rings a side: the outermost one has rings 0 to 3.
        const int mean =
            (RedOf(strip[0]) + RedOf(strip[8]) + RedOf(strip[16]) + RedOf(strip[24])) / 4;
        EXPECT_NEAR(RedOf(pixels[8]), mean, 4);
        const int inner =
            (RedOf(strip[224]) + RedOf(strip[232]) + RedOf(strip[240]) + RedOf(strip[248])) / 4;
        EXPECT_NEAR(RedOf(pixels[7 * 16 + 7]), inner, 16);
    });
}

TEST_F(ShapedFountainTest, OpposedWaysMeetHalfWayThroughTheLoop) {
    InDialog([](WindowHandle dialog) {
        Set(dialog, "Size", 24);
        Set(dialog, "Frames", 4);
        Set(dialog, "Scroll", 0);
        const auto forward = TakeFrames(RenderBuild(Subject(), dialog));
        Set(dialog, "Scroll", 1);
        const auto backward = TakeFrames(RenderBuild(Subject(), dialog));
        EXPECT_EQ(forward[0], backward[0]);
        EXPECT_EQ(forward[1], backward[3]);
        EXPECT_EQ(forward[2], backward[2]);
        EXPECT_NE(forward[1], backward[1]);
    });
}

TEST_F(ShapedFountainTest, ButtonWithoutARecordFails) {
    InDialog([](WindowHandle dialog) {
        TakeRecord(dialog);
        EXPECT_EQ(RenderTest(Subject(), dialog), nullptr);
    });
}

TEST_F(ShapedFountainTest, EveryFailingAllocationEndsCleanly) {
    InDialog([](WindowHandle dialog) {
        Set(dialog, "Size", 16);
        EXPECT_GT(FailuresOfASample(Subject(), dialog), 5);
    });
}

}  // namespace

}  // namespace tess::test
