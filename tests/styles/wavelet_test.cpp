#include <initializer_list>

#include "styles/scaled_alpha.h"
#include "tests/styles/ball_fixture.h"

namespace tess::test {

namespace {

using platform::WindowHandle;

enum Control : int {
    kBackground = 733,
    kGlare = 737,
    kSize = 739,
    kSeed = 741,
    kWidth = 743,
    kDepth = 745,
    kColor1 = 747,
    kEnable2 = 757,
    kEnable3 = 758,
    kEnable4 = 759,
    kEnable5 = 760,
    kShade = 761,
    kAmplitude = 763,
    kScroll = 765,
    kFrames = 767,
};

class WaveletTest : public BallStyleTest {
protected:
    static constexpr int kTestSeed = 404;
    static constexpr ColorWord kGround = 0x20FF40;
    static constexpr ColorWord kColor = 0xE03010;

    static const StyleEntry& Wavelet() { return Style("Wavelet"); }

    static void Shrink(WindowHandle dialog, int width, int size, int amplitude) {
        Set(dialog, kWidth, width);
        Set(dialog, kDepth, 64);
        Set(dialog, kSize, size);
        Set(dialog, kAmplitude, amplitude);
        Set(dialog, kSeed, kTestSeed);
        Set(dialog, kFrames, 16);
        Set(dialog, kShade, 25);
        Set(dialog, kBackground, static_cast<int>(kGround));
        Set(dialog, kColor1, static_cast<int>(kColor));
        Check(dialog, {kEnable2, kEnable3, kEnable4, kEnable5}, false);
    }

    /// The picture of a grid whose columns have these levels.
    static Bytes Picture(int size, int rows, const std::vector<int>& levels) {
        const int columns = static_cast<int>(levels.size());
        const platform::OwnedBlock sprite(
            PlainRenderSprite({PlainShape::SingleBall, size, size, 0, kColor,
                               PlainChangeValue(kColor, (1.0 - 25 / 100.0) - 1.0), kColor, 160}));
        const ImageHandle picture = NewSolidImage({0, 0, columns * size, rows * size}, kGround);
        {
            const LockedImage tile(picture);
            for (int i = 0; i < rows * columns; ++i) {
                const platform::OwnedBlock faded(
                    ScaleImageAlpha(sprite.Get(), levels[static_cast<std::size_t>(i % columns)]));
                const LockedImage ball(faded.Get());
                WrapBlendImage(tile, ball, i % columns * size, i / columns * size);
            }
        }
        return TakeBytes(picture);
    }
    static raster::Point SizeOfSample(WindowHandle dialog) {
        const platform::OwnedBlock sample(RenderTest(Wavelet(), dialog));
        const LockedImage image(sample.Get());
        return {image->Width, image->Height};
    }
};

TEST_F(WaveletTest, StartValuesKeepTheTileAndLargeBallsCutIt) {
    InDialog([](WindowHandle dialog) {
        EXPECT_EQ(SizeOfSample(dialog).x, 190);
        EXPECT_EQ(SizeOfSample(dialog).y, 90);
        Set(dialog, kSize, 36);
        EXPECT_EQ(SizeOfSample(dialog).x, 180);
        EXPECT_EQ(SizeOfSample(dialog).y, 72);
    });
}

TEST_F(WaveletTest, SingleColumnPulsesInStep) {
    InDialog([](WindowHandle dialog) {
        Set(dialog, kScroll, 0);
        Shrink(dialog, 64, 36, 75);
        const std::vector<Bytes> frames = BuildBytes(Wavelet(), dialog);
        ASSERT_EQ(frames.size(), 16u);
        EXPECT_EQ(frames[0], Picture(36, 1, {64 + 127}));
        EXPECT_EQ(frames[4], Picture(36, 1, {64 + 223}));
        EXPECT_EQ(frames[12], Picture(36, 1, {64 + 31}));
    });
}

TEST_F(WaveletTest, AmplitudeSetsHowDeepTheWaveCuts) {
    InDialog([](WindowHandle dialog) {
        Set(dialog, kScroll, 0);
        Shrink(dialog, 64, 36, 50);
        const std::vector<Bytes> weak = BuildBytes(Wavelet(), dialog);
        EXPECT_EQ(weak[0], Picture(36, 1, {255}));
        EXPECT_EQ(weak[12], Picture(36, 1, {128 + 63}));
        Shrink(dialog, 64, 36, 100);
        const std::vector<Bytes> strong = BuildBytes(Wavelet(), dialog);
        EXPECT_EQ(strong[4], Picture(36, 1, {255}));
        EXPECT_EQ(strong[12], Picture(36, 1, {0}));
    });
}

TEST_F(WaveletTest, InTheTroughOfAFullWaveTheBackgroundIsLeft) {
    InDialog([](WindowHandle dialog) {
        Set(dialog, kScroll, 0);
        Shrink(dialog, 64, 16, 100);  // four columns at 0, 90, 180 and 270 degrees
        const platform::OwnedBlock sample(RenderTest(Wavelet(), dialog));
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
        Set(dialog, kScroll, 0);
        Shrink(dialog, 64, 16, 75);
        EXPECT_EQ(SampleBytes(Wavelet(), dialog), Picture(16, 4, {191, 287, 191, 95}));
    });
}

TEST_F(WaveletTest, ReverseWalksTheSameFramesBackwards) {
    InDialog([](WindowHandle dialog) {
        Shrink(dialog, 64, 10, 75);
        Set(dialog, kScroll, 0);
        const std::vector<Bytes> forward = BuildBytes(Wavelet(), dialog);
        Set(dialog, kScroll, 1);
        const std::vector<Bytes> backward = BuildBytes(Wavelet(), dialog);
        EXPECT_EQ(backward[0], forward[15]);  // 337.5 degrees
        EXPECT_EQ(backward[15], forward[0]);
        EXPECT_NE(forward[0], forward[15]);
    });
}

TEST_F(WaveletTest, BallsDoNotMoveAndTheirRimLetsTheBackgroundThrough) {
    InDialog([](WindowHandle dialog) {
        Set(dialog, kScroll, 0);
        Shrink(dialog, 64, 16, 50);
        const platform::OwnedBlock sample(RenderTest(Wavelet(), dialog));
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
        platform::FreeBlock(RenderTest(Wavelet(), dialog));
        EXPECT_EQ(DrawsSince(kTestSeed, 100), 0);
        Check(dialog, {kEnable2, kEnable3}, true);
        platform::FreeBlock(RenderTest(Wavelet(), dialog));
        EXPECT_GE(DrawsSince(kTestSeed, 1000), 16);
    });
}

TEST_F(WaveletTest, FirstFrameOfABuildIsTheSample) {
    InDialog([](WindowHandle dialog) {
        Set(dialog, kFrames, 16);
        const Bytes sample = SampleBytes(Wavelet(), dialog);
        EXPECT_EQ(BuildBytes(Wavelet(), dialog)[0], sample);
    });
}

TEST_F(WaveletTest, GlareHasNoVisibleEffect) {
    InDialog([](WindowHandle dialog) {
        Shrink(dialog, 64, 16, 75);
        const Bytes with = SampleBytes(Wavelet(), dialog);
        Set(dialog, kGlare, 0);
        EXPECT_EQ(SampleBytes(Wavelet(), dialog), with);
    });
}

TEST_F(WaveletTest, EveryFailingAllocationEndsCleanly) {
    InDialog([](WindowHandle dialog) {
        Shrink(dialog, 64, 16, 75);
        ExpectCleanFailures(Wavelet(), dialog);
    });
}

}  // namespace

}  // namespace tess::test
