#include "tests/reference/plain_bubbles.h"
#include "tests/styles/setting_draws.h"
#include "tests/styles/style_fixture.h"

namespace tess::test {

namespace {

using platform::WindowHandle;
using reference::PlainBubble;
using reference::PlainBubbles;

class BubblesTest : public StyleTest<BubblesStyle> {
protected:
    static constexpr int kTestSeed = 500;

    /// A small tile of 18 bubbles.
    static void Shrink(WindowHandle dialog) {
        Set(dialog, "Width", 64);
        Set(dialog, "Depth", 48);
        Set(dialog, "Density", 8);
        Set(dialog, "Seed", kTestSeed);
        Set(dialog, "Frames", 2);
    }
    static int DrawsOfASample(WindowHandle dialog) {
        platform::FreeBlock(RenderTest(Subject(), dialog));
        return DrawsSince(kTestSeed, 1000);
    }
    static std::vector<std::uint8_t> SampleBytes(WindowHandle dialog) {
        return TakeBytes(RenderTest(Subject(), dialog));
    }
    /// A bubble's centre in the first frame when it swings by `sway` large pixels.
    static auto Swayed(int sway) {
        return [sway](const PlainBubble& bubble) {
            const double sine = runtime::Sine(bubble.phase * 3.141592653589793 / 180.0);
            return raster::Point{bubble.x + static_cast<int>(sine * sway), bubble.y};
        };
    }
    template <class Centre>
    static std::vector<std::uint8_t> StampedBytes(const PlainBubbles& run, Centre centre) {
        return TakeBytes(StampPlainBubbles(run, centre));
    }
    /// The sample without sway has the bubbles of these layers.
    static void ExpectLayers(WindowHandle dialog,
                             const std::vector<reference::PlainLayer>& layers) {
        Set(dialog, "Drift", 0);
        EnableColors(dialog, false);
        PlainBubbles run = reference::ReadPlainBubbles(dialog);
        run.bubbles = reference::DrawPlainBubbles(
            kTestSeed, run.depth, layers, {static_cast<ColorWord>(Get(dialog, "FillColor1"))});
        EXPECT_EQ(SampleBytes(dialog), StampedBytes(run, Swayed(0)));
    }
};

TEST_F(BubblesTest, KeptMasksGiveTheBytesOfMasksMadeAnew) {
    InDialog([](WindowHandle dialog) {
        StyleEntry plain = Subject();
        plain.Build = reference::PlainBubblesBuild;
        SettingDraws draws(1);
        for (int round = 0; round < 24; ++round) {
            Set(dialog, "Width", draws.Between(16, 85));
            Set(dialog, "Depth", draws.Between(16, 85));
            Set(dialog, "Frames", draws.Between(2, 6));
            Set(dialog, "Density", draws.Between(8, 27));
            Set(dialog, "Size", draws.Between(10, 64));
            Set(dialog, "Drift", draws.Between(0, 99));
            Set(dialog, "FillOpacity", draws.Between(1, 255));
            Set(dialog, "Seed", draws.Between(100, 30099));
            Set(dialog, "Background", static_cast<int>(draws.Color()));
            for (const std::string_view box :
                 {"Inverse", "FillEnable2", "FillEnable3", "FillEnable4", "FillEnable5", "Smooth"})
                Set(dialog, box, draws.Between(0, 1));
            EXPECT_EQ(TakeFrames(RenderBuild(Subject(), dialog)),
                      TakeFrames(RenderBuild(plain, dialog)))
                << "round " << round;
        }
    });
}

TEST_F(BubblesTest, InTwoFramesBubblesShiftByHalfATileTimesTheirSpeedAndSwayBack) {
    InDialog([](WindowHandle dialog) {
        Shrink(dialog);  // 256 by 192 large pixels
        Set(dialog, "Depth", 49);
        Set(dialog, "Drift", 25);
        const PlainBubbles run = reference::ReadPlainBubbles(dialog);
        const auto frames = TakeFrames(RenderBuild(Subject(), dialog));
        ASSERT_EQ(frames.size(), 2u);
        EXPECT_EQ(frames[0], StampedBytes(run, Swayed(64)));
        EXPECT_EQ(frames[1], StampedBytes(run, [](const PlainBubble& bubble) {
                      const raster::Point back = Swayed(-64)(bubble);
                      return raster::Point{back.x, back.y - 98 * bubble.speed};
                  }));
    });
}

TEST_F(BubblesTest, WithoutSwayLayersRiseByOneTwoAndFourTilesALoop) {
    InDialog([](WindowHandle dialog) {
        Shrink(dialog);
        Set(dialog, "Drift", 0);
        Set(dialog, "Frames", 16);
        const PlainBubbles run = reference::ReadPlainBubbles(dialog);
        const auto frames = TakeFrames(RenderBuild(Subject(), dialog));
        ASSERT_EQ(frames.size(), 16u);
        for (int i = 0; i < 16; ++i) {
            const auto risen = [i](const PlainBubble& bubble) {
                const int rise = bubble.peak == 255 ? 12 : bubble.peak == 160 ? 24 : 48;
                return raster::Point{bubble.x, bubble.y - i * rise};
            };
            EXPECT_EQ(frames[static_cast<std::size_t>(i)], StampedBytes(run, risen)) << i;
        }
    });
}

TEST_F(BubblesTest, FramesDriftOpacityAndInverseLeavePlacesAndSizes) {
    InDialog([](WindowHandle dialog) {
        Shrink(dialog);
        Set(dialog, "Drift", 0);
        PlainBubbles run = reference::ReadPlainBubbles(dialog);
        EXPECT_EQ(SampleBytes(dialog), StampedBytes(run, Swayed(0)));
        Set(dialog, "Frames", 31);
        EXPECT_EQ(SampleBytes(dialog), StampedBytes(run, Swayed(0)));
        Set(dialog, "Drift", 50);
        EXPECT_EQ(SampleBytes(dialog), StampedBytes(run, Swayed(128)));
        Set(dialog, "FillOpacity", run.opacity = 99);
        EXPECT_EQ(SampleBytes(dialog), StampedBytes(run, Swayed(128)));
        Set(dialog, "Inverse", run.inverse = true);
        EXPECT_EQ(SampleBytes(dialog), StampedBytes(run, Swayed(128)));
    });
}

TEST_F(BubblesTest, LayersHaveTheirSizeLessADrawBelowItsNinth) {
    InDialog([](WindowHandle dialog) {
        Shrink(dialog);
        Set(dialog, "Size", 10);
        ExpectLayers(dialog,
                     {{4, 40, 216, 4, 1, 255}, {6, 30, 226, 3, 2, 160}, {8, 20, 236, 2, 4, 128}});
        Set(dialog, "Smooth", false);  // no ninth of 10 and 15 but 1
        ExpectLayers(dialog,
                     {{4, 20, 108, 2, 1, 255}, {6, 15, 113, 1, 2, 160}, {8, 10, 118, 1, 4, 128}});
    });
}

TEST_F(BubblesTest, WidthBelowALayersSizeDrawsBelowWhatItLacks) {
    InDialog([](WindowHandle dialog) {
        Shrink(dialog);
        Set(dialog, "Width", 16);
        Set(dialog, "Size", 36);
        Set(dialog, "Smooth", false);
        ExpectLayers(dialog,
                     {{4, 72, 40, 8, 1, 255}, {6, 54, 22, 6, 2, 160}, {8, 36, 4, 4, 4, 128}});
    });
}

TEST_F(BubblesTest, DensityEightMakesEighteenBubblesOfFiveDrawsAndAColor) {
    InDialog([](WindowHandle dialog) {
        Shrink(dialog);
        EnableColors(dialog, false);
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
        Set(dialog, "Drift", 0);
        Set(dialog, "FillOpacity", 9);
        Set(dialog, "Frames", 31);
        Set(dialog, "Inverse", true);
        EXPECT_EQ(DrawsOfASample(dialog), draws);
    });
}

TEST_F(BubblesTest, SmoothIsFourfoldSupersamplingAndChangesThePicture) {
    InDialog([](WindowHandle dialog) {
        Shrink(dialog);
        const std::vector<std::uint8_t> smooth = SampleBytes(dialog);
        Set(dialog, "Smooth", false);
        const std::vector<std::uint8_t> rough = SampleBytes(dialog);
        EXPECT_EQ(smooth.size(), rough.size());
        EXPECT_NE(smooth, rough);
    });
}

TEST_F(BubblesTest, WidthEqualToALayersSizeStillDraws) {
    InDialog([](WindowHandle dialog) {
        Shrink(dialog);
        for (const int width : {16, 24, 32}) {  // half, three quarters and all of Size
            Set(dialog, "Width", width);
            Set(dialog, "Size", 32);
            EXPECT_FALSE(SampleBytes(dialog).empty()) << width;
        }
    });
}

TEST_F(BubblesTest, FrameIsAsLargeAsThePanelSaysAndTransparentNowhere) {
    InDialog([](WindowHandle dialog) {
        Shrink(dialog);
        Set(dialog, "Frames", 3);
        Set(dialog, kDelayEdit, 7);
        FrameList frames = RenderBuild(Subject(), dialog);
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
        EXPECT_EQ(TakeFrames(RenderBuild(Subject(), dialog))[0], sample);
    });
}

TEST_F(BubblesTest, WithoutSwayTheLoopOfTwoFramesTurnsTheBigLayerByHalfATile) {
    InDialog([](WindowHandle dialog) {
        Shrink(dialog);
        Set(dialog, "Drift", 0);
        const auto two = TakeFrames(RenderBuild(Subject(), dialog));
        Set(dialog, "Frames", 4);
        const auto four = TakeFrames(RenderBuild(Subject(), dialog));
        EXPECT_EQ(four[0], two[0]);
        EXPECT_EQ(four[2], two[1]);  // half a loop either way
        EXPECT_NE(four[1], four[3]);
    });
}

TEST_F(BubblesTest, OpacityOneLeavesNearlyTheBackground) {
    InDialog([](WindowHandle dialog) {
        Shrink(dialog);
        Set(dialog, "Background", 0x808080);
        Set(dialog, "FillOpacity", 1);
        const ImageHandle handle = RenderTest(Subject(), dialog);
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
        // A scaler that fails leaves the large picture, which is no failure.
        EXPECT_GT(FailuresOfASample(Subject(), dialog), 5);
    });
}

}  // namespace

}  // namespace tess::test
