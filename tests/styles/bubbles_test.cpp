#include "tests/styles/style_fixture.h"

namespace tess::test {

namespace {

using platform::WindowHandle;

enum Control : int {
    kBackground = 100,
    kOpacity = 102,
    kFrames = 104,
    kDrift = 106,
    kSize = 108,
    kDensity = 110,
    kSeed = 112,
    kWidth = 114,
    kDepth = 116,
    kInverse = 118,
    kColor1 = 119,
    kEnable2 = 129,
    kEnable5 = 132,
    kSmooth = 133,
};

class BubblesTest : public StyleTest {
protected:
    static constexpr int kTestSeed = 500;

    static const StyleEntry& Bubbles() { return Style("Bubbles"); }

    /// A small tile of 18 bubbles.
    static void Shrink(WindowHandle dialog) {
        Set(dialog, kWidth, 64);
        Set(dialog, kDepth, 48);
        Set(dialog, kDensity, 8);
        Set(dialog, kSeed, kTestSeed);
        Set(dialog, kFrames, 2);
    }
    static void UseOneColor(WindowHandle dialog) {
        for (int id = kEnable2; id <= kEnable5; ++id)
            platform::SetChecked(dialog, id, false);
    }
    static int DrawsOfASample(WindowHandle dialog) {
        platform::FreeBlock(RenderTest(Bubbles(), dialog));
        return DrawsSince(kTestSeed, 1000);
    }
    static std::vector<std::uint8_t> SampleBytes(WindowHandle dialog) {
        return TakeBytes(RenderTest(Bubbles(), dialog));
    }
};

TEST_F(BubblesTest, DensityEightMakesEighteenBubblesOfFiveDrawsAndAColor) {
    InDialog([](WindowHandle dialog) {
        Shrink(dialog);
        UseOneColor(dialog);
        EXPECT_EQ(DrawsOfASample(dialog), 18 * 5);
    });
}

TEST_F(BubblesTest, SeveralColorsTakeAtLeastOneDrawABubble) {
    InDialog([](WindowHandle dialog) {
        Shrink(dialog);
        EXPECT_GE(DrawsOfASample(dialog), 18 * 6);
    });
}

TEST_F(BubblesTest, DriftOpacityFramesAndInverseLeaveTheDrawsAsTheyAre) {
    InDialog([](WindowHandle dialog) {
        Shrink(dialog);
        const int draws = DrawsOfASample(dialog);
        Set(dialog, kDrift, 0);
        Set(dialog, kOpacity, 9);
        Set(dialog, kFrames, 31);
        platform::SetChecked(dialog, kInverse, true);
        EXPECT_EQ(DrawsOfASample(dialog), draws);
    });
}

TEST_F(BubblesTest, SmoothIsFourfoldSupersamplingAndChangesThePicture) {
    InDialog([](WindowHandle dialog) {
        Shrink(dialog);
        const std::vector<std::uint8_t> smooth = SampleBytes(dialog);
        platform::SetChecked(dialog, kSmooth, false);
        const std::vector<std::uint8_t> rough = SampleBytes(dialog);
        EXPECT_EQ(smooth.size(), rough.size());
        EXPECT_NE(smooth, rough);
    });
}

TEST_F(BubblesTest, WidthEqualToALayersSizeStillDraws) {
    InDialog([](WindowHandle dialog) {
        Shrink(dialog);
        for (const int width : {16, 24, 32}) {  // half, three quarters and all of Size
            Set(dialog, kWidth, width);
            Set(dialog, kSize, 32);
            EXPECT_FALSE(SampleBytes(dialog).empty()) << width;
        }
    });
}

TEST_F(BubblesTest, FrameIsAsLargeAsThePanelSaysAndTransparentNowhere) {
    InDialog([](WindowHandle dialog) {
        Shrink(dialog);
        Set(dialog, kFrames, 3);
        Set(dialog, 11, 7);
        FrameList frames = RenderBuild(Bubbles(), dialog);
        ASSERT_EQ(frames.Count, 3);
        {
            const platform::LockedBlock<const FrameRecord> records(frames.Records);
            const LockedImage image(records.Get()[2].Image);
            EXPECT_EQ(image->Width, 64);
            EXPECT_EQ(image->Height, 48);
            EXPECT_EQ(image->BitCount, 24);
            EXPECT_EQ(records.Get()[2].Delay, 7u);
            EXPECT_EQ(records.Get()[2].TransparentIndex, -1);
            EXPECT_EQ(records.Get()[2].Mask, nullptr);
        }
        FrameListFree(&frames);
    });
}

TEST_F(BubblesTest, FirstFrameOfABuildIsTheSample) {
    InDialog([](WindowHandle dialog) {
        Shrink(dialog);
        const std::vector<std::uint8_t> sample = SampleBytes(dialog);
        EXPECT_EQ(TakeFrames(RenderBuild(Bubbles(), dialog))[0], sample);
    });
}

TEST_F(BubblesTest, WithoutSwayTheLoopOfTwoFramesTurnsTheBigLayerByHalfATile) {
    InDialog([](WindowHandle dialog) {
        Shrink(dialog);
        Set(dialog, kDrift, 0);
        const auto two = TakeFrames(RenderBuild(Bubbles(), dialog));
        Set(dialog, kFrames, 4);
        const auto four = TakeFrames(RenderBuild(Bubbles(), dialog));
        EXPECT_EQ(four[0], two[0]);
        EXPECT_EQ(four[2], two[1]);  // half a loop either way
        EXPECT_NE(four[1], four[3]);
    });
}

TEST_F(BubblesTest, OpacityOneLeavesNearlyTheBackground) {
    InDialog([](WindowHandle dialog) {
        Shrink(dialog);
        Set(dialog, kBackground, 0x808080);
        Set(dialog, kOpacity, 1);
        const ImageHandle handle = RenderTest(Bubbles(), dialog);
        {
            const LockedImage image(handle);
            for (int y = 0; y < image->Height; ++y) {
                for (int x = 0; x < image->Width; ++x) {
                    EXPECT_NEAR(RedOf(GetDibPixel(image, x, y)), 0x80, 12);
                }
            }
        }
        platform::FreeBlock(handle);
    });
}

TEST_F(BubblesTest, EveryFailingAllocationEndsCleanly) {
    InDialog([](WindowHandle dialog) {
        Shrink(dialog);
        const std::size_t blocks = platform::CurrentMemoryUse().live_blocks;
        const std::size_t before = platform::CurrentMemoryUse().allocations;
        platform::FreeBlock(RenderTest(Bubbles(), dialog));
        const std::size_t needed = platform::CurrentMemoryUse().allocations - before;
        ASSERT_GT(needed, 5u);
        int failures = 0;
        for (std::size_t i = 1; i <= needed; ++i) {
            platform::FailAllocation(i);
            const ImageHandle image = RenderTest(Bubbles(), dialog);
            if (image == nullptr) ++failures;  // a scaler that fails leaves the large picture
            platform::FreeBlock(image);
            platform::FailAllocation(0);
            EXPECT_EQ(platform::CurrentMemoryUse().live_blocks, blocks) << i;
        }
        EXPECT_GT(failures, 0);
    });
}

}  // namespace

}  // namespace tess::test
