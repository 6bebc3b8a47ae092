#include <algorithm>
#include <set>

#include "runtime/mathematics.h"
#include "tests/styles/style_fixture.h"

namespace tess::test {

namespace {

using platform::WindowHandle;

constexpr int kTestSeed = 777;

/// One noise value of the running sequence.
int PlainShade() {
    double product = runtime::rand() / 32767.0;
    if (product == 0.0) product = 1.0;
    int count = 0;
    for (; product > runtime::Exponential(-6.4); ++count)
        product *= runtime::rand() / 32767.0;
    return count > 12 ? 255 : count * 20;
}

/// The level that a noise value has in a picture whose noise spans 0 to 191.
int Stretched(int shade) {
    return std::max(shade - 64, 0) * 255 / 64 % 256;
}

class WhiteNoiseTest : public StyleTest<WhiteNoiseStyle> {
protected:
    /// Light white and dark black: a pixel is then the block's shade itself.
    static void Shrink(WindowHandle dialog) {
        Set(dialog, "Width", 48);
        Set(dialog, "Depth", 64);
        Set(dialog, "Frames", 4);
        Set(dialog, "Seed", kTestSeed);
        Set(dialog, "Interference", 0);
        Set(dialog, "Size", 1);
        Set(dialog, "LightFill", 0xFFFFFF);
        Set(dialog, "DarkFill", 0);
        Set(dialog, "RandomDelay", false);
    }

    static const PackedDib* Picture(const std::vector<std::uint8_t>& bytes) {
        return reinterpret_cast<const PackedDib*>(bytes.data());
    }

    /// True when every block of the sample, cut off at the right, is one colour, and
    /// somewhere two neighbours differ.
    static bool IsMadeOfBlocks(const PackedDib* image, int width, int height) {
        bool differs = false;
        for (int y = 0; y < image->Height; ++y) {
            for (int x = 0; x < image->Width; ++x) {
                const int left = x - x % width;
                const std::uint32_t corner = GetDibPixel(image, left, y - y % height);
                if (GetDibPixel(image, x, y) != corner) return false;
                differs |= left > 0 && GetDibPixel(image, left - 1, y) != corner;
            }
        }
        return differs;
    }

    static std::vector<std::uint32_t> Delays(WindowHandle dialog, int delay, bool random) {
        Set(dialog, kDelayEdit, delay);
        Set(dialog, "RandomDelay", random);
        FrameList frames = RenderBuild(Subject(), dialog);
        std::vector<std::uint32_t> delays;
        {
            const platform::LockedBlock<const FrameRecord> records(frames.Records);
            for (int i = 0; i < frames.Count; ++i)
                delays.push_back(records.Get()[i].Delay);
        }
        FrameListFree(&frames);
        return delays;
    }
};

TEST_F(WhiteNoiseTest, BlocksAreOneAndAHalfTimesAsWideAsTall) {
    InDialog([](WindowHandle dialog) {
        Shrink(dialog);
        const int widths[] = {2, 3, 4, 6, 7, 9, 10, 12};
        for (int size = 1; size <= 8; ++size) {
            Set(dialog, "Size", size);
            const auto bytes = TakeBytes(RenderTest(Subject(), dialog));
            EXPECT_TRUE(IsMadeOfBlocks(Picture(bytes), widths[size - 1], size)) << size;
        }
    });
}

TEST_F(WhiteNoiseTest, SidesAreRaisedToMultiplesOfThePixelSize) {
    InDialog([](WindowHandle dialog) {
        Shrink(dialog);
        Set(dialog, "Width", 17);
        Set(dialog, "Depth", 31);
        Set(dialog, "Size", 3);
        const auto bytes = TakeBytes(RenderTest(Subject(), dialog));
        EXPECT_EQ(Picture(bytes)->Width, 18);
        EXPECT_EQ(Picture(bytes)->Height, 33);
        EXPECT_TRUE(IsMadeOfBlocks(Picture(bytes), 4, 3));  // the last is two columns wide
    });
}

TEST_F(WhiteNoiseTest, LevelsAreThoseOfTheOverflowingStretch) {
    InDialog([](WindowHandle dialog) {
        Shrink(dialog);
        Set(dialog, "Width", 128);
        const auto bytes = TakeBytes(RenderTest(Subject(), dialog));
        std::set<int> seen;
        for (int y = 0; y < 64; ++y) {
            for (int x = 0; x < 128; ++x)
                seen.insert(RedOf(GetDibPixel(Picture(bytes), x, y)));
        }
        // (0, 16, 36 .. 176, 191) * 255 / 64, the low byte of each.
        EXPECT_EQ(seen, (std::set<int>{0, 63, 143, 223, 46, 126, 206, 29, 109, 189, 249}));
    });
}

TEST_F(WhiteNoiseTest, NoiseIsDrawnFromTheBottomRowUp) {
    InDialog([](WindowHandle dialog) {
        Shrink(dialog);
        Set(dialog, "Width", 128);
        const auto bytes = TakeBytes(RenderTest(Subject(), dialog));
        runtime::srand(kTestSeed);
        for (int y = 63; y >= 0; --y) {
            for (int x = 0; x < 128; ++x) {
                const int level = Stretched(PlainShade());
                if (x % 2 == 0) {
                    ASSERT_EQ(RedOf(GetDibPixel(Picture(bytes), x, y)), level);
                }
            }
        }
    });
}

TEST_F(WhiteNoiseTest, SampleDrawsItsNoiseAndNoDelay) {
    InDialog([](WindowHandle dialog) {
        Shrink(dialog);
        Set(dialog, "RandomDelay", true);
        platform::FreeBlock(RenderTest(Subject(), dialog));
        const int next = runtime::rand();
        const int after = runtime::rand();
        runtime::srand(kTestSeed);
        for (int i = 0; i < 48 * 64; ++i)
            PlainShade();
        EXPECT_EQ(runtime::rand(), next);
        EXPECT_EQ(runtime::rand(), after);
    });
}

TEST_F(WhiteNoiseTest, ZeroInterferenceLeavesDarkRowsEverywhere) {
    InDialog([](WindowHandle dialog) {
        Shrink(dialog);
        for (const auto& frame : TakeFrames(RenderBuild(Subject(), dialog))) {
            for (int y = 0; y < 64; ++y) {
                int least = 255;
                for (int x = 0; x < 48; ++x)
                    least = std::min<int>(least, RedOf(GetDibPixel(Picture(frame), x, y)));
                EXPECT_LE(least, 63) << y;
            }
        }
    });
}

TEST_F(WhiteNoiseTest, FullInterferenceShowsTheLightFillAtTheHumpsMiddleOfEachFrame) {
    InDialog([](WindowHandle dialog) {
        Shrink(dialog);
        Set(dialog, "Interference", 255);
        Set(dialog, "LightFill", 0x123456);
        Set(dialog, "DarkFill", 0xFEDCBA);
        const auto frames = TakeFrames(RenderBuild(Subject(), dialog));
        for (int f = 0; f < 4; ++f) {
            const int middle = (f * 16 + 32) % 64;  // the band starts at f / 4 of 64 rows
            for (int x = 0; x < 48; ++x) {
                EXPECT_EQ(GetDibPixel(Picture(frames[static_cast<std::size_t>(f)]), x, middle),
                          0x123456u);
            }
        }
    });
}

TEST_F(WhiteNoiseTest, BandAddsAHalfSineToTheNoise) {
    InDialog([](WindowHandle dialog) {
        Shrink(dialog);
        const auto plain = TakeBytes(RenderTest(Subject(), dialog));
        Set(dialog, "Interference", 80);
        const auto banded = TakeBytes(RenderTest(Subject(), dialog));
        // sin(0) is 0; row 16 of 64 is at 45 degrees: trunc(0.7071 * 80) = 56.
        for (int x = 0; x < 48; ++x) {
            EXPECT_EQ(GetDibPixel(Picture(plain), x, 0), GetDibPixel(Picture(banded), x, 0));
            const int level = RedOf(GetDibPixel(Picture(plain), x, 16));
            EXPECT_EQ(RedOf(GetDibPixel(Picture(banded), x, 16)), std::min(level + 56, 255));
        }
    });
}

TEST_F(WhiteNoiseTest, DelayOfOneStaysOneWhenDrawn) {
    InDialog([](WindowHandle dialog) {
        Shrink(dialog);
        EXPECT_EQ(Delays(dialog, 1, true), (std::vector<std::uint32_t>{1, 1, 1, 1}));
    });
}

TEST_F(WhiteNoiseTest, DelayWithoutChanceIsTheMainDialogs) {
    InDialog([](WindowHandle dialog) {
        Shrink(dialog);
        EXPECT_EQ(Delays(dialog, 9, false), (std::vector<std::uint32_t>{9, 9, 9, 9}));
    });
}

TEST_F(WhiteNoiseTest, RandomDelayIsOneOrASecondDrawAfterTheFramesNoise) {
    InDialog([](WindowHandle dialog) {
        Shrink(dialog);
        const std::vector<std::uint32_t> delays = Delays(dialog, 3, true);
        runtime::srand(kTestSeed);
        for (const std::uint32_t delay : delays) {
            for (int i = 0; i < 48 * 64; ++i)
                PlainShade();
            const int first = runtime::rand() % 3;
            EXPECT_EQ(static_cast<int>(delay), first == 0 ? 1 : runtime::rand() % 3);
        }
    });
}

TEST_F(WhiteNoiseTest, DelaysDrawsShiftTheNoiseOfTheNextFrame) {
    InDialog([](WindowHandle dialog) {
        Shrink(dialog);
        const auto steady = TakeFrames(RenderBuild(Subject(), dialog));
        Set(dialog, "RandomDelay", true);
        const auto random = TakeFrames(RenderBuild(Subject(), dialog));
        EXPECT_EQ(steady[0], random[0]);
        EXPECT_NE(steady[1], random[1]);
    });
}

TEST_F(WhiteNoiseTest, BackgroundIsTheDarkFill) {
    InDialog([](WindowHandle dialog) {
        Set(dialog, "DarkFill", 0x010203);
        EXPECT_EQ(BackgroundQuery(Subject(), dialog, 0), 0x010203u);
        EXPECT_EQ(BackgroundQuery(Subject(), dialog, 1), kNoBackground);
    });
}

TEST_F(WhiteNoiseTest, EveryFailingAllocationEndsCleanly) {
    InDialog([](WindowHandle dialog) {
        Shrink(dialog);
        EXPECT_EQ(FailuresOfASample(Subject(), dialog), 3);  // noise, band, frame
    });
}

}  // namespace

}  // namespace tess::test
