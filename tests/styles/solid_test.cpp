#include "tests/styles/fountain_style_fixture.h"

namespace tess::test {

namespace {

using platform::WindowHandle;

class SolidTest : public FountainStyleTest<SolidStyle> {
protected:
    static std::vector<ColorWord> OneColor(ColorWord color, std::size_t pixels) {
        return std::vector<ColorWord>(pixels, color);
    }
};

TEST_F(SolidTest, SampleIsTheColorHalfWay) {
    InDialog([](WindowHandle dialog) {
        const auto strip = StripOf(dialog);
        EXPECT_EQ(TakePixels(RenderTest(Subject(), dialog)), OneColor(strip[128], 16 * 16));
    });
}

TEST_F(SolidTest, TwoFramesHaveTheFirstColorAndTheOneHalfWay) {
    InDialog([](WindowHandle dialog) {
        Set(dialog, "Width", 20);
        Set(dialog, "Frames", 2);
        const auto strip = StripOf(dialog);
        const auto frames = TakePixels(RenderBuild(Subject(), dialog));
        ASSERT_EQ(frames.size(), 2u);
        EXPECT_EQ(frames[0], OneColor(strip[0], 20 * 16));
        EXPECT_EQ(frames[1], OneColor(strip[128], 20 * 16));
    });
}

TEST_F(SolidTest, MoreThan256FramesMakeRunsOfEqualOnes) {
    InDialog([](WindowHandle dialog) {
        Set(dialog, "Frames", 512);
        const auto strip = StripOf(dialog);
        const auto frames = TakePixels(RenderBuild(Subject(), dialog));
        ASSERT_EQ(frames.size(), 512u);
        for (std::size_t f = 0; f < 512; ++f)
            EXPECT_EQ(frames[f][0], strip[f / 2]);
    });
}

TEST_F(SolidTest, ButtonWithoutARecordFails) {
    InDialog([](WindowHandle dialog) {
        TakeRecord(dialog);
        EXPECT_EQ(RenderTest(Subject(), dialog), nullptr);
    });
}

TEST_F(SolidTest, EveryFailingAllocationEndsCleanly) {
    InDialog([](WindowHandle dialog) { EXPECT_GT(FailuresOfASample(Subject(), dialog), 5); });
}

}  // namespace

}  // namespace tess::test
