#include <algorithm>
#include <random>
#include <set>

#include "tests/reference/plain_shaped_fountain.h"
#include "tests/styles/fountain_style_fixture.h"

namespace tess::test {

namespace {

using platform::WindowHandle;

enum Control : int { kFrames = 302, kSize = 304, kButton = 306, kScroll = 308, kShape = 310 };

class ShapedFountainTest : public FountainStyleTest {
protected:
    static const StyleEntry& Subject() { return Style("Shaped Fountain"); }
    static std::vector<std::uint8_t> Plain(WindowHandle dialog, const PlainShapes& shapes,
                                           double phase) {
        return TakeBytes(PlainShapedFountain(FountainOf(dialog, kButton), shapes, phase));
    }
};

TEST_F(ShapedFountainTest, EveryShapeAndWayHasTheBytesOfTheLiteralVersion) {
    InDialog([](WindowHandle dialog) {
        std::mt19937 random(5);
        for (const int size : {16, 17, 40, 61, 88, 130}) {
            for (int shape = 0; shape < 4; ++shape) {
                const bool reverse = random() % 2 != 0;
                const int frames = 2 + static_cast<int>(random() % 4);
                Set(dialog, kSize, size);
                Set(dialog, kFrames, frames);
                platform::SetSelection(dialog, kShape, shape);
                SetDirection(dialog, kScroll, reverse ? 1 : 0);
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
        Set(dialog, kSize, 300);
        for (int shape = 0; shape < 4; ++shape) {
            platform::SetSelection(dialog, kShape, shape);
            EXPECT_EQ(TakeBytes(RenderTest(Subject(), dialog)),
                      Plain(dialog, {300, true, shape}, 0.0))
                << shape;
        }
    });
}

TEST_F(ShapedFountainTest, NoSelectionIsACircle) {
    InDialog([](WindowHandle dialog) {
        const auto circle = TakeBytes(RenderTest(Subject(), dialog));
        platform::SetSelection(dialog, kShape, -1);
        EXPECT_EQ(TakeBytes(RenderTest(Subject(), dialog)), circle);
    });
}

TEST_F(ShapedFountainTest, SizeSixteenReadsEveryEighthColor) {
    InDialog([](WindowHandle dialog) {
        // A fountain in which no colour stands twice, as red with its place in it.
        SetFountain(dialog, kButton, 0x000000, 0x000080, 0x0000FF);
        const auto strip = StripOf(dialog, kButton);
        Set(dialog, kSize, 16);
        platform::SetSelection(dialog, kShape, 2);
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
        Set(dialog, kSize, 24);
        Set(dialog, kFrames, 4);
        SetDirection(dialog, kScroll, 0);
        const auto forward = TakeFrames(RenderBuild(Subject(), dialog));
        SetDirection(dialog, kScroll, 1);
        const auto backward = TakeFrames(RenderBuild(Subject(), dialog));
        EXPECT_EQ(forward[0], backward[0]);
        EXPECT_EQ(forward[1], backward[3]);
        EXPECT_EQ(forward[2], backward[2]);
        EXPECT_NE(forward[1], backward[1]);
    });
}

TEST_F(ShapedFountainTest, ButtonWithoutARecordFails) {
    InDialog([](WindowHandle dialog) {
        TakeRecord(dialog, kButton);
        EXPECT_EQ(RenderTest(Subject(), dialog), nullptr);
    });
}

TEST_F(ShapedFountainTest, EveryFailingAllocationEndsCleanly) {
    InDialog([](WindowHandle dialog) {
        Set(dialog, kSize, 16);
        EXPECT_GT(FailEachAllocationOfASample(Subject(), dialog), 5);
    });
}

}  // namespace

}  // namespace tess::test
