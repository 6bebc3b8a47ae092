#include "tests/reference/plain_neural_network.h"
#include "tests/styles/ball_fixture.h"

namespace tess::test {

namespace {

using platform::WindowHandle;

class NeuralNetworkTest : public BallStyleTest<NeuralNetworkStyle> {
protected:
    /// Puts settings into the panel, of which the first colours are enabled.
    static void SetAll(WindowHandle dialog, const PlainNeuralSettings& settings) {
        Set(dialog, "Width", settings.columns);
        Set(dialog, "Depth", settings.rows);
        Set(dialog, "Padding", settings.margin);
        Set(dialog, "Glare", settings.glare);
        Set(dialog, "Size", settings.size);
        Set(dialog, "Density", settings.density);
        Set(dialog, "Seed", static_cast<int>(settings.seed));
        Set(dialog, "Shade", settings.shading);
        Set(dialog, "ShadowOffset", settings.shadow.offset);
        Set(dialog, "ShadowOpacity", settings.shadow.opacity);
        Set(dialog, "Background", static_cast<int>(settings.background));
        for (int i = 0; i < 5; ++i) {
            const bool used = i < static_cast<int>(settings.colors.size());
            if (used) {
                Set(dialog, Numbered("FillColor", 1 + i),
                    static_cast<int>(settings.colors[static_cast<std::size_t>(i)]));
            }
            if (i > 0) Set(dialog, Numbered("FillEnable", 1 + i), used);
        }
    }
    static PlainNeuralSettings Grid(int columns, int rows) {
        PlainNeuralSettings settings;
        settings.columns = columns;
        settings.rows = rows;
        settings.size = 10;
        settings.seed = 700;
        return settings;
    }
    static PlainNeuralSettings DrawSettings() {
        const auto below = [](int limit) { return runtime::rand() % limit; };
        PlainNeuralSettings settings = Grid(1 + below(4), 1 + below(4));
        settings.margin = below(6);
        settings.glare = below(256);
        settings.size = 10 + below(8);
        settings.density = 1 + below(80);
        settings.seed = 100 + static_cast<unsigned>(below(9999));
        settings.shading = 1 + below(100);
        settings.shadow = {1 + below(99), 1 + below(255)};
        settings.background = static_cast<ColorWord>(below(32768) * 511);
        settings.colors.resize(1 + static_cast<std::size_t>(below(5)));
        for (ColorWord& color : settings.colors)
            color = static_cast<ColorWord>(below(32768) * 509);
        return settings;
    }
    static int DrawsOf(WindowHandle dialog, const PlainNeuralSettings& settings) {
        SetAll(dialog, settings);
        platform::FreeBlock(RenderTest(Subject(), dialog));
        return DrawsSince(settings.seed, 1000);
    }
    static ColorWord PixelOf(ImageHandle handle, int x, int y) {
        const LockedImage image(handle);
        return GetDibPixel(image, x, y);
    }
};

TEST_F(NeuralNetworkTest, HasTheBytesOfFramesForWhichNothingIsKept) {
    InDialog([](WindowHandle dialog) {
        for (unsigned i = 0; i < 12; ++i) {
            runtime::srand(50 + i);
            const PlainNeuralSettings settings = DrawSettings();
            SetAll(dialog, settings);
            const std::vector<Bytes> frames = BuildBytes(dialog);
            const PlainNeuralNetwork plain(settings);
            ASSERT_EQ(frames.size(), static_cast<std::size_t>(plain.FrameCount()));
            for (std::size_t f = 0; f < frames.size(); f += 3) {
                EXPECT_EQ(frames[f], TakeBytes(plain.RenderFrame(static_cast<int>(f)))) << i;
            }
        }
    });
}

TEST_F(NeuralNetworkTest, StartValuesHaveTheBytesOfAFrameForWhichNothingIsKept) {
    InDialog([](WindowHandle dialog) {
        EXPECT_EQ(SampleBytes(dialog), TakeBytes(PlainNeuralNetwork({}).RenderFrame(0)));
    });
}

TEST_F(NeuralNetworkTest, OneBallMakesOneFrameAtFullBrightness) {
    InDialog([](WindowHandle dialog) {
        const PlainNeuralSettings settings = Grid(1, 1);
        SetAll(dialog, settings);
        const std::vector<Bytes> frames = BuildBytes(dialog);
        ASSERT_EQ(frames.size(), 1u);
        const PlainNeuralNetwork plain(settings);
        EXPECT_EQ(frames[0], Compose(10, 10, settings.background, settings.shadow,
                                     {{0, 0, plain.Ball(0, 255)}}));
    });
}

TEST_F(NeuralNetworkTest, OneBallTakesADrawForItsColorAndOneForItsPlace) {
    InDialog([](WindowHandle dialog) {
        PlainNeuralSettings settings = Grid(1, 1);
        EXPECT_EQ(DrawsOf(dialog, settings), 2);
        settings.colors.resize(1);
        EXPECT_EQ(DrawsOf(dialog, settings), 1);
    });
}

TEST_F(NeuralNetworkTest, OneColorLeavesTheDrawsOfTheShuffleAlone) {
    InDialog([](WindowHandle dialog) {
        PlainNeuralSettings settings = Grid(5, 4);
        settings.colors.resize(1);
        EXPECT_EQ(DrawsOf(dialog, settings), 20);
    });
}

TEST_F(NeuralNetworkTest, TileIsPitchTimesCountWithAndWithoutMargin) {
    InDialog([](WindowHandle dialog) {
        for (const int margin : {0, 5}) {
            PlainNeuralSettings settings = Grid(3, 2);
            settings.margin = margin;
            SetAll(dialog, settings);
            const platform::OwnedBlock sample(RenderTest(Subject(), dialog));
            const LockedImage image(sample.Get());
            EXPECT_EQ(image->Width, 3 * (10 + margin));
            EXPECT_EQ(image->Height, 2 * (10 + margin));
            EXPECT_EQ(image->BitCount, 24);
        }
    });
}

TEST_F(NeuralNetworkTest, LastBallsShadowWrapsOverTheFirst) {
    InDialog([](WindowHandle dialog) {
        PlainNeuralSettings settings = Grid(2, 1);
        settings.size = 20;
        settings.shadow = {1, 1};
        settings.colors = {0xFFFFFF};
        SetAll(dialog, settings);
        EXPECT_NE(PixelOf(platform::OwnedBlock(RenderTest(Subject(), dialog)).Get(), 3, 12), 0u);
        settings.shadow = {10, 255};  // 8 pixels right and down of the ball at (20, 0)
        SetAll(dialog, settings);
        EXPECT_EQ(PixelOf(platform::OwnedBlock(RenderTest(Subject(), dialog)).Get(), 3, 12), 0u);
    });
}

TEST_F(NeuralNetworkTest, LongTrailEndsDarkerThanBallsAtRest) {
    InDialog([](WindowHandle dialog) {
        PlainNeuralSettings settings = Grid(25, 15);  // a trail of 300, and steps of 1
        settings.density = 80;
        settings.colors = {0xFFFFFF};
        SetAll(dialog, settings);
        const platform::OwnedBlock sample(RenderTest(Subject(), dialog));
        const PlainNeuralNetwork plain(settings);
        const auto crown = [&](std::size_t place) {
            const int node = plain.FiringOrder()[place];
            return RedOf(PixelOf(sample.Get(), node % 25 * 10 + 5, node / 25 * 10 + 4));
        };
        EXPECT_GT(crown(0), 200);
        EXPECT_GT(crown(1), 30);         // at rest: the trail goes back from 0 to 76
        EXPECT_EQ(crown(375 - 299), 0);  // 255 - 299 = -44
        EXPECT_EQ(TakeBytes(plain.RenderFrame(0)), SampleBytes(dialog));
    });
}

TEST_F(NeuralNetworkTest, TrailOfTwoBallsAtDensityEightyIsOneBall) {
    InDialog([](WindowHandle dialog) {
        PlainNeuralSettings settings = Grid(2, 1);
        settings.density = 80;
        SetAll(dialog, settings);
        const PlainNeuralNetwork plain(settings);
        const int fired = plain.FiringOrder()[0];
        EXPECT_EQ(SampleBytes(dialog), Compose(20, 10, settings.background, settings.shadow,
                                               {{0, 0, plain.Ball(0, fired == 0 ? 255 : 64)},
                                                {10, 0, plain.Ball(1, fired == 1 ? 255 : 64)}}));
    });
}

TEST_F(NeuralNetworkTest, EveryBallFiresOnceInALoop) {
    InDialog([](WindowHandle dialog) {
        PlainNeuralSettings settings = Grid(3, 2);
        settings.density = 1;
        SetAll(dialog, settings);
        const std::vector<Bytes> frames = BuildBytes(dialog);
        ASSERT_EQ(frames.size(), 6u);
        for (std::size_t i = 0; i < 6; ++i) {
            for (std::size_t k = 0; k < i; ++k)
                EXPECT_NE(frames[i], frames[k]) << i << " and " << k;
        }
    });
}

TEST_F(NeuralNetworkTest, FailingAllocationSpoilsOneFrameAtMost) {
    InDialog([](WindowHandle dialog) {
        SetAll(dialog, Grid(2, 2));
        Set(dialog, "ShadowOffset", 10);
        Set(dialog, "ShadowOpacity", 200);
        const std::size_t before = platform::CurrentMemoryUse().allocations;
        const std::vector<Bytes> frames = BuildBytes(dialog);
        const std::size_t needed = platform::CurrentMemoryUse().allocations - before;
        const HostServices services = AgreeingHost();
        int spoilt_builds = 0;
        for (std::size_t i = 1; i <= needed; ++i) {
            FrameList list{};
            StyleContext context{};
            context.Dialog = dialog;
            context.Frames = &list;
            context.Host = &services;
            platform::FailAllocation(i);
            Subject().Build(&context);
            platform::FailAllocation(0);
            const std::vector<Bytes> built = TakeFrames(list);
            int spoilt = 0;
            for (std::size_t f = 0; f < built.size(); ++f)
                spoilt += built[f] != frames[f] ? 1 : 0;
            EXPECT_LE(spoilt, 1) << i;
            spoilt_builds += spoilt;
        }
        EXPECT_GT(spoilt_builds, 10);
    });
}

TEST_F(NeuralNetworkTest, GlareHasNoVisibleEffect) {
    InDialog([](WindowHandle dialog) {
        SetAll(dialog, Grid(2, 2));
        Set(dialog, "Glare", 0);
        const Bytes without = SampleBytes(dialog);
        Set(dialog, "Glare", 255);
        EXPECT_EQ(SampleBytes(dialog), without);
    });
}

TEST_F(NeuralNetworkTest, GridThatCannotFitIntoMemoryFailsBeforeASecondFrame) {
    InDialog([this](WindowHandle dialog) {
        SetAll(dialog, Grid(64, 64));  // 4096 frames of 1.2 million bytes
        const std::size_t blocks = platform::CurrentMemoryUse().live_blocks;
        platform::SetMemoryLimit(platform::CurrentMemoryUse().live_bytes + 1'000'000'000);
        FrameList frames{};
        StyleContext context{};
        context.Dialog = dialog;
        context.Frames = &frames;
        const std::size_t calls = HostCalls().size();
        EXPECT_EQ(Subject().Build(&context), 0);
        platform::SetMemoryLimit(0);
        EXPECT_EQ(frames.Count, 0);
        EXPECT_EQ(HostCalls().size(), calls);
        EXPECT_EQ(platform::CurrentMemoryUse().live_blocks, blocks);
    });
}

TEST_F(NeuralNetworkTest, EveryFailingAllocationEndsCleanly) {
    InDialog([](WindowHandle dialog) {
        SetAll(dialog, Grid(2, 2));
        EXPECT_GT(FailuresOfASample(Subject(), dialog),
                  0);  // without its shadow a sprite is left out
    });
}

}  // namespace

}  // namespace tess::test
