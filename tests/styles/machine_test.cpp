#include <cmath>

#include "tests/reference/plain_machine.h"
#include "tests/styles/setting_draws.h"
#include "tests/styles/style_fixture.h"

namespace tess::test {

namespace {

using platform::WindowHandle;

using Picture = std::vector<ColorWord>;

class MachineTest : public StyleTest<MachineStyle> {
protected:
    static void Rotate(WindowHandle dialog, int degrees) {
        Set(dialog, "Rotation", std::to_string(degrees));
    }
    static std::vector<Picture> Frames(WindowHandle dialog) {
        return TakePixels(RenderBuild(Subject(), dialog));
    }
    static Picture Sample(WindowHandle dialog) {
        const ImageHandle image = RenderTest(Subject(), dialog);
        Picture picture = Pixels(image);
        platform::FreeBlock(image);
        return picture;
    }
    static void SetColors(WindowHandle dialog, ColorWord start, ColorWord end) {
        Set(dialog, "Start", static_cast<int>(start));
        Set(dialog, "End", static_cast<int>(end));
    }
    /// The middle of the tile shows the cone's centre, whose direction is 90
    /// degrees, unmixed.
    static int CenterLevel(const Picture& picture) {
        const auto side = static_cast<std::size_t>(std::sqrt(picture.size()));
        return RedOf(picture[side / 2 * side + side / 2]);
    }
    /// What the ramp from black to white has there for a cone turned by `angle`.
    static int RampLevel(int angle) {
        int away = ((90 + 360 - angle) % 360 + 360) % 360;
        if (away > 180) away = 360 - away;
        return static_cast<int>(255 * (static_cast<int>(away / 180.0 * 256.0) * 0.00390625));
    }
    /// Sets every control and returns what it set. Rotations are large, for few frames.
    static PlainMachineSettings SetAtRandom(WindowHandle dialog, SettingDraws& draws) {
        constexpr int kRotations[] = {-60, -45, -40, -30, -24, 24, 30, 40, 45, 60};
        PlainMachineSettings set;
        set.size = draws.Between(16, 90);
        set.rotation = kRotations[draws.Between(0, 9)];
        set.offset = draws.Between(0, 359);
        set.inverse = draws.Between(0, 1) == 1;
        set.start = draws.Color();
        set.end = draws.Color();
        Set(dialog, "Size", set.size);
        Rotate(dialog, set.rotation);
        Set(dialog, "Offset", set.offset);
        Set(dialog, "Inverse", set.inverse);
        SetColors(dialog, set.start, set.end);
        return set;
    }
};

TEST_F(MachineTest, FramesAtRandomSettingsAreTheLiteralOnes) {
    InDialog([](WindowHandle dialog) {
        SettingDraws draws(19);
        for (int round = 0; round < 12; ++round) {
            const PlainMachine machine(SetAtRandom(dialog, draws));
            const auto frames = Frames(dialog);
            ASSERT_EQ(static_cast<int>(frames.size()), machine.FrameCount());
            for (int f = 0; f < machine.FrameCount(); ++f) {
                EXPECT_EQ(frames[static_cast<std::size_t>(f)], machine.Frame(f))
                    << "round " << round << " frame " << f;
            }
        }
    });
}

TEST_F(MachineTest, FrameCountIsATurnDividedByTheRotation) {
    InDialog([](WindowHandle dialog) {
        Set(dialog, "Size", 16);
        constexpr struct {
            int rotation;
            std::size_t frames;
        } kCases[] = {{60, 6}, {-60, 6}, {1, 360}, {-1, 360}, {6, 60}, {-45, 8}};
        for (const auto& each : kCases) {
            Rotate(dialog, each.rotation);
            EXPECT_EQ(Frames(dialog).size(), each.frames) << each.rotation;
        }
    });
}

TEST_F(MachineTest, UnreadableRotationIsTen) {
    InDialog([](WindowHandle dialog) {
        Set(dialog, "Size", 16);
        Set(dialog, "Rotation", -1);
        EXPECT_EQ(Frames(dialog).size(), 36u);
    });
}

TEST_F(MachineTest, SizeSixteenMakesATileOfTwentyTwo) {
    InDialog([](WindowHandle dialog) {
        Set(dialog, "Size", 16);
        EXPECT_EQ(Sample(dialog).size(), 22u * 22u);
        Set(dialog, "Size", 48);
        EXPECT_EQ(Sample(dialog).size(), 66u * 66u);
    });
}

TEST_F(MachineTest, FourCornersFillTheTileWithoutAGap) {
    InDialog([](WindowHandle dialog) {
        SetColors(dialog, 0x0000FF, 0x0000FF);
        for (const int size : {16, 17, 48, 61}) {
            Set(dialog, "Size", size);
            const Picture tile = Sample(dialog);
            const auto side = static_cast<std::size_t>(std::sqrt(tile.size()));
            // Red everywhere; along the diamond's edge the grey beyond it may shine
            // through a pixel that both share.
            std::size_t red = 0;
            for (const ColorWord pixel : tile)
                red += RedOf(pixel) >= 253 && GreenOf(pixel) <= 2 ? 1U : 0U;
            EXPECT_GE(red, tile.size() - 4 * side) << size;
            for (const std::size_t corner : {std::size_t{0}, side - 1, side * (side - 1)})
                EXPECT_GE(RedOf(tile[corner]), 253) << size;
        }
    });
}

TEST_F(MachineTest, ConesCenterStandsAtNinetyDegreesInEveryFrame) {
    InDialog([](WindowHandle dialog) {
        SetColors(dialog, 0x000000, 0xFFFFFF);
        Set(dialog, "Size", 16);
        for (const int rotation : {60, -60, 45, -24}) {
            Rotate(dialog, rotation);
            const auto frames = Frames(dialog);
            for (int f = 0; f < static_cast<int>(frames.size()); ++f) {
                EXPECT_EQ(CenterLevel(frames[static_cast<std::size_t>(f)]), RampLevel(f * rotation))
                    << rotation << " frame " << f;
            }
        }
    });
}

TEST_F(MachineTest, SecondConeStartsAtTheOffset) {
    InDialog([](WindowHandle dialog) {
        SetColors(dialog, 0x000000, 0xFFFFFF);
        Set(dialog, "Size", 48);
        for (const bool inverse : {false, true}) {
            Set(dialog, "Inverse", inverse);
            for (const int offset : {0, 90, 180, 270, 359}) {
                Set(dialog, "Offset", offset);
                // Its centre stands at the tile's corner.
                EXPECT_EQ(RedOf(Sample(dialog)[0]), RampLevel(inverse ? -offset : offset))
                    << offset;
            }
        }
    });
}

TEST_F(MachineTest, OffsetOfHalfATurnIsTheConeWithItsColorsExchanged) {
    InDialog([](WindowHandle dialog) {
        SetColors(dialog, 0x000000, 0xFFFFFF);
        Set(dialog, "Offset", 180);
        const Picture ahead = Sample(dialog);
        SetColors(dialog, 0xFFFFFF, 0x000000);
        Set(dialog, "Offset", 0);
        const Picture exchanged = Sample(dialog);
        // The upper left corner is of the second cone alone.
        for (std::size_t y = 0; y < 30; ++y) {
            for (std::size_t x = 0; x + y < 30; ++x) {
                EXPECT_NEAR(RedOf(ahead[66 * y + x]), RedOf(exchanged[66 * y + x]), 2);
            }
        }
    });
}

TEST_F(MachineTest, ConesTurnAgainstEachOtherAndWithInverseTheSameWay) {
    InDialog([](WindowHandle dialog) {
        SetColors(dialog, 0x000000, 0xFFFFFF);
        Set(dialog, "Size", 16);
        Set(dialog, "Offset", 0);
        Rotate(dialog, 30);
        const auto against = Frames(dialog);
        Set(dialog, "Inverse", true);
        const auto along = Frames(dialog);
        for (int f = 0; f < 12; ++f) {
            const auto frame = static_cast<std::size_t>(f);
            EXPECT_EQ(RedOf(against[frame][0]), RampLevel(-30 * f)) << f;
            EXPECT_EQ(RedOf(along[frame][0]), RampLevel(30 * f)) << f;
            EXPECT_EQ(CenterLevel(along[frame]), RampLevel(30 * f)) << f;
        }
    });
}

TEST_F(MachineTest, NothingIsDrawnByChance) {
    InDialog([](WindowHandle dialog) {
        runtime::srand(7);
        platform::FreeBlock(RenderTest(Subject(), dialog));
        EXPECT_EQ(DrawsSince(7, 10), 0);
    });
}

TEST_F(MachineTest, FirstFrameOfABuildIsTheSample) {
    InDialog([](WindowHandle dialog) { EXPECT_EQ(Sample(dialog), Frames(dialog)[0]); });
}

TEST_F(MachineTest, EveryFailingAllocationEndsCleanly) {
    InDialog([](WindowHandle dialog) {
        Set(dialog, "Size", 16);
        EXPECT_GT(FailuresOfASample(Subject(), dialog), 10);
    });
}

}  // namespace

}  // namespace tess::test
