#include <initializer_list>

#include "styles/scaled_alpha.h"
#include "tests/styles/ball_fixture.h"
#include "tests/styles/setting_draws.h"

namespace tess::test {

namespace {

using platform::WindowHandle;

class WaveletTest : public BallStyleTest<WaveletStyle> {
protected:
    static constexpr int kTestSeed = 404;
    static constexpr ColorWord kGround = 0x20FF40;
    static constexpr ColorWord kColor = 0xE03010;

    static void Shrink(WindowHandle dialog, int width, int size, int amplitude) {
        Set(dialog, "Width", width);
        Set(dialog, "Depth", 64);
        Set(dialog, "Size", size);
        Set(dialog, "Amplitude", amplitude);
        Set(dialog, "Seed", kTestSeed);
        Set(dialog, "Frames", 16);
        Set(dialog, "Shade", 25);
        Set(dialog, "Background", static_cast<int>(kGround));
        Set(dialog, "FillColor1", static_cast<int>(kColor));
        EnableColors(dialog, false);
    }

    /// The picture of a grid whose columns have these levels. Colours are drawn row by
    /// row.
    static Bytes Picture(int size, int rows, const std::vector<int>& levels,
                         const std::vector<ColorWord>& colors = {kColor}, int seed = kTestSeed) {
        const int columns = static_cast<int>(levels.size());
        runtime::srand(static_cast<unsigned>(seed));
        int last_color = -1;
        const ImageHandle picture = NewSolidImage({0, 0, columns * size, rows * size}, kGround);
        {
            const LockedImage tile(picture);
            for (int i = 0; i < rows * columns; ++i) {
                const ColorWord color = colors[static_cast<std::size_t>(
                    PickFillColor(static_cast<int>(colors.size()), &last_color))];
                const platform::OwnedBlock sprite(PlainRenderSprite(
                    {PlainShape::SingleBall, size, size, 0, color,
                     PlainChangeValue(color, (1.0 - 25 / 100.0) - 1.0), color, 160}));
                const platform::OwnedBlock faded(
                    ScaleImageAlpha(sprite.Get(), levels[static_cast<std::size_t>(i % columns)]));
                const LockedImage ball(faded.Get());
                WrapBlendImage(tile, ball, i % columns * size, i / columns * size);
            }
        }
        return TakeBytes(picture);
    }
    static raster::Point SizeOfSample(WindowHandle dialog) {
        const platform::OwnedBlock sample(RenderTest(Subject(), dialog));
        const LockedImage image(sample.Get());
        return {image->Width, image->Height};
    }
};

TEST_F(WaveletTest, StartValuesKeepTheTileAndLargeBallsCutIt) {
    InDialog([](WindowHandle dialog) {
        EXPECT_EQ(SizeOfSample(dialog).x, 190);
        EXPECT_EQ(SizeOfSample(dialog).y, 90);
        Set(dialog, "Size", 36);
        EXPECT_EQ(SizeOfSample(dialog).x, 180);
        EXPECT_EQ(SizeOfSample(dialog).y, 72);
    });
}

TEST_F(WaveletTest, SingleColumnPulsesInStep) {
    InDialog([](WindowHandle dialog) {
        Set(dialog, "Scroll", 0);
        Shrink(dialog, 64, 36, 75);
        const std::vector<Bytes> frames = BuildBytes(dialog);
        ASSERT_EQ(frames.size(), 16u);
        EXPECT_EQ(frames[0], Picture(36, 1, {64 + 127}));
        EXPECT_EQ(frames[4], Picture(36, 1, {64 + 223}));
        EXPECT_EQ(frames[12], Picture(36, 1, {64 + 31}));
    });
}

TEST_F(WaveletTest, AmplitudeSetsHowDeepTheWaveCuts) {
    InDialog([](WindowHandle dialog) {
        Set(dialog, "Scroll", 0);
        Shrink(dialog, 64, 36, 50);
        const std::vector<Bytes> weak = BuildBytes(dialog);
        EXPECT_EQ(weak[0], Picture(36, 1, {255}));
        EXPECT_EQ(weak[12], Picture(36, 1, {128 + 63}));
        Shrink(dialog, 64, 36, 100);
        const std::vector<Bytes> strong = BuildBytes(dialog);
        EXPECT_EQ(strong[4], Picture(36, 1, {255}));
        EXPECT_EQ(strong[12], Picture(36, 1, {0}));
    });
}

TEST_F(WaveletTest, InTheTroughOfAFullWaveTheBackgroundIsLeft) {
    InDialog([](WindowHandle dialog) {
        Set(dialog, "Scroll", 0);
        Shrink(dialog, 64, 16, 100);  // four columns at 0, 90, 180 and 270 degrees
        const platform::OwnedBlock sample(RenderTest(Subject(), dialog));
        const LockedImage image(sample.Get());
        for (int y = 0; y < 64; ++y) {
            for (int x = 48; x < 64; ++x)
                // The two parts of a blend are cut apart; at alpha 0 nothing is lost.
                ASSERT_EQ(GetDibPixel(image, x, y), kGround);
        }
    });
}

TEST_F(WaveletTest, OneWaveRunsOverTheColumnsAndAllRowsFadeInStep) {
    InDialog([](WindowHandle dialog) {
        Set(dialog, "Scroll", 0);
        Shrink(dialog, 64, 16, 75);
        EXPECT_EQ(SampleBytes(dialog), Picture(16, 4, {191, 287, 191, 95}));
    });
}

TEST_F(WaveletTest, ReverseWalksTheSameFramesBackwards) {
    InDialog([](WindowHandle dialog) {
        Shrink(dialog, 64, 10, 75);
        Set(dialog, "Scroll", 0);
        const std::vector<Bytes> forward = BuildBytes(dialog);
        Set(dialog, "Scroll", 1);
        const std::vector<Bytes> backward = BuildBytes(dialog);
        EXPECT_EQ(backward[0], forward[15]);  // 337.5 degrees
        EXPECT_EQ(backward[15], forward[0]);
        EXPECT_NE(forward[0], forward[15]);
    });
}

TEST_F(WaveletTest, BallsDoNotMoveAndTheirRimLetsTheBackgroundThrough) {
    InDialog([](WindowHandle dialog) {
        Set(dialog, "Scroll", 0);
        Shrink(dialog, 64, 16, 50);
        const platform::OwnedBlock sample(RenderTest(Subject(), dialog));
        const LockedImage image(sample.Get());
        for (int y = 0; y < 64; y += 16) {
            for (int x = 0; x < 48; x += 16) {
                EXPECT_EQ(GetDibPixel(image, x, y), kGround);
                EXPECT_NE(GetDibPixel(image, x + 8, y + 8), kGround);
            }
        }
    });
}

TEST_F(WaveletTest, OneColorMakesNoDrawAndSeveralAtLeastOneABall) {
    InDialog([](WindowHandle dialog) {
        Shrink(dialog, 64, 16, 75);
        platform::FreeBlock(RenderTest(Subject(), dialog));
        EXPECT_EQ(DrawsSince(kTestSeed, 100), 0);
        Check(dialog, {"FillEnable2", "FillEnable3"}, true);
        platform::FreeBlock(RenderTest(Subject(), dialog));
        EXPECT_GE(DrawsSince(kTestSeed, 1000), 16);
    });
}

TEST_F(WaveletTest, EachOfSeveralColorsIsDrawnRowByRow) {
    InDialog([](WindowHandle dialog) {
        Set(dialog, "Scroll", 0);
        Shrink(dialog, 64, 16, 75);
        SettingDraws draws(31);
        for (int seed = 500; seed < 510; ++seed) {
            const auto colors = SetFillColors(dialog, draws);
            Set(dialog, "Seed", seed);
            EXPECT_EQ(SampleBytes(dialog), Picture(16, 4, {191, 287, 191, 95}, colors, seed))
                << seed;
        }
    });
}

TEST_F(WaveletTest, StartsInReverse) {
    InDialog([](WindowHandle dialog) {
        const Bytes start = SampleBytes(dialog);
        Set(dialog, "Scroll", 1);
        EXPECT_EQ(SampleBytes(dialog), start);
        Set(dialog, "Scroll", 0);
        EXPECT_NE(SampleBytes(dialog), start);
    });
}

TEST_F(WaveletTest, FirstFrameOfABuildIsTheSample) {
    InDialog([](WindowHandle dialog) {
        Set(dialog, "Frames", 16);
        const Bytes sample = SampleBytes(dialog);
        EXPECT_EQ(BuildBytes(dialog)[0], sample);
    });
}

TEST_F(WaveletTest, GlareHasNoVisibleEffect) {
    InDialog([](WindowHandle dialog) {
        Shrink(dialog, 64, 16, 75);
        const Bytes with = SampleBytes(dialog);
        Set(dialog, "Glare", 0);
        EXPECT_EQ(SampleBytes(dialog), with);
    });
}

TEST_F(WaveletTest, EveryFailingAllocationEndsCleanly) {
    InDialog([](WindowHandle dialog) {
        Shrink(dialog, 64, 16, 75);
        EXPECT_GT(FailuresOfASample(Subject(), dialog), 0);
    });
}

}  // namespace

}  // namespace tess::test
