#include <algorithm>

#include "styles/color_ring.h"
#include "styles/height_field.h"
#include "tests/reference/plain_carpet.h"
#include "tests/styles/fountain_style_fixture.h"
#include "tests/styles/setting_draws.h"
#include "toolkit/wrap_compositing.h"

namespace tess::test {

namespace {

using platform::WindowHandle;

constexpr int kDrawsOfALayer = 256 * 3 + 256 + 256 * 6 + 255;

class CarpetTest : public FountainStyleTest<CarpetStyle> {
protected:
    static void Shrink(WindowHandle dialog) {
        Set(dialog, "Size", 32);
        Set(dialog, "Seed", 700);
        Set(dialog, "Frames", 2);
    }
    /// Sets every control but the frames' and returns what it set.
    static PlainCarpetSettings SetAtRandom(WindowHandle dialog, SettingDraws& draws) {
        PlainCarpetSettings set;
        set.size = draws.Between(16, 60);
        set.scale = draws.Between(60, 1280);
        set.layers = draws.Between(1, 7);
        set.seed = static_cast<unsigned>(draws.Between(100, 32760));
        Set(dialog, "Size", set.size);
        Set(dialog, "Scale", set.scale);
        Set(dialog, "Layers", set.layers);
        Set(dialog, "Seed", static_cast<int>(set.seed));
        return set;
    }
    static int Highest(const std::vector<int>& heights) {
        return *std::max_element(heights.begin(), heights.end());
    }
};

TEST_F(CarpetTest, FramesAtRandomSettingsAreTheLiteralOnes) {
    InDialog([](WindowHandle dialog) {
        SettingDraws draws(13);
        for (int round = 0; round < 10; ++round) {
            SCOPED_TRACE(round);
            ExpectColorRings(dialog, PlainCarpetHeights(SetAtRandom(dialog, draws)), draws);
        }
    });
}

TEST_F(CarpetTest, EachLayerTakesItsOwnDraws) {
    InDialog([](WindowHandle dialog) {
        Shrink(dialog);
        for (const int layers : {1, 2, 5}) {
            Set(dialog, "Layers", layers);
            platform::FreeBlock(RenderTest(Subject(), dialog));
            EXPECT_EQ(DrawsSince(700, 8 * kDrawsOfALayer), layers * kDrawsOfALayer);
        }
    });
}

TEST_F(CarpetTest, OneLayerIsNotDividedAndTwoGive63AtMostBeforeTheStretch) {
    InDialog([](WindowHandle dialog) {
        Shrink(dialog);
        UseCountingFountain(dialog);
        for (const int layers : {1, 2}) {
            const PlainCarpetSettings settings{32, 60, layers, 700};
            const int highest = Highest(PlainLayeredNoise(settings));
            EXPECT_EQ(highest > 63, layers == 1);
            Set(dialog, "Layers", layers);
            EXPECT_EQ(HeightsOf(dialog), PlainCarpetHeights(settings)) << layers;
        }
    });
}

TEST_F(CarpetTest, FieldIsMirroredAtAQuarterOfTheTile) {
    InDialog([](WindowHandle dialog) {
        Shrink(dialog);
        UseCountingFountain(dialog);
        const auto heights = HeightsOf(dialog);
        // Nearer to the tile's edge the scaler's kernel is cut on one side alone.
        for (std::size_t y = 0; y < 32; ++y) {
            for (std::size_t x = 0; x < 4; ++x) {
                EXPECT_NEAR(heights[y * 32 + 7 - x], heights[y * 32 + 8 + x], 1) << x << " " << y;
                EXPECT_NEAR(heights[(7 - x) * 32 + y], heights[(8 + x) * 32 + y], 1)
                    << x << " " << y;
            }
        }
    });
}

TEST_F(CarpetTest, NeighboursAcrossTheSeamAreAsNearAsOthers) {
    InDialog([](WindowHandle dialog) {
        Set(dialog, "Size", 96);
        UseCountingFountain(dialog);
        const auto heights = HeightsOf(dialog);
        const auto at = [&heights](int x, int y) {
            return heights[static_cast<std::size_t>(y * 96 + x)];
        };
        int seam = 0, inside = 0;
        for (int i = 0; i < 96; ++i) {
            seam += std::abs(at(95, i) - at(0, i)) + std::abs(at(i, 95) - at(i, 0));
            inside += std::abs(at(50, i) - at(51, i)) + std::abs(at(i, 50) - at(i, 51));
        }
        EXPECT_LE(seam, 2 * inside);
    });
}

TEST_F(CarpetTest, SmallestSizeMirrorsAndHalvesTheSame) {
    InDialog([](WindowHandle dialog) {
        Shrink(dialog);
        Set(dialog, "Size", 16);
        const auto pixels = TakePixels(RenderTest(Subject(), dialog));
        ASSERT_EQ(pixels.size(), 256u);
        for (std::size_t y = 0; y < 16; ++y)
            EXPECT_EQ(pixels[y * 16 + 3], pixels[y * 16 + 4]);
    });
}

TEST_F(CarpetTest, FramesBeyond256RepeatAndTwoAreHalfARing) {
    InDialog([](WindowHandle dialog) {
        Shrink(dialog);
        Set(dialog, "Size", 16);
        const auto two = TakeFrames(RenderBuild(Subject(), dialog));
        Set(dialog, "Frames", 512);
        const auto many = TakeFrames(RenderBuild(Subject(), dialog));
        EXPECT_EQ(many[0], two[0]);
        EXPECT_EQ(many[256], two[1]);
        for (std::size_t f = 0; f < 512; f += 2)
            EXPECT_EQ(many[f], many[f + 1]);
        EXPECT_NE(many[0], many[40]);
    });
}

TEST_F(CarpetTest, FrameIsTheHeightsInTheTurnedRing) {
    InDialog([](WindowHandle dialog) {
        Shrink(dialog);
        UseCountingFountain(dialog);
        const auto strip = StripOf(dialog);
        const auto heights = HeightsOf(dialog);
        const auto frames = TakePixels(RenderBuild(Subject(), dialog));
        for (std::size_t i = 0; i < heights.size(); ++i)
            ASSERT_EQ(frames[1][i], strip[static_cast<std::size_t>((heights[i] + 128) % 256)]);
    });
}

TEST_F(CarpetTest, HeightsDoNotDependOnTheFountain) {
    InDialog([](WindowHandle dialog) {
        Shrink(dialog);
        UseCountingFountain(dialog);
        const auto heights = HeightsOf(dialog);
        {
            const LockedFountain fountain = LockFountain(Button(dialog));
            fountain->Start = 0x400000;
            fountain->Markers[0] = MakeMarker(128, 0x40FF00);
        }
        EXPECT_EQ(HeightsOf(dialog), heights);
    });
}

TEST_F(CarpetTest, FlatFieldIsOneColorThatRunsThroughTheFountain) {
    InDialog([](WindowHandle dialog) {
        UseCountingFountain(dialog);
        const auto strip = StripOf(dialog);
        const platform::OwnedBlock field(NewSolidImage({0, 0, 7, 5}, 0x4D4D4D));
        ASSERT_TRUE(NormalizeHeights(field.Get()));
        const ColorRing ring{FountainButtonOf(Subject()), field.Get(), 7, 5};
        for (std::size_t shift = 0; shift < 256; shift += 17) {
            const auto pixels =
                TakePixels(RenderColorRing(dialog, ring, static_cast<double>(shift) / 256.0));
            EXPECT_EQ(pixels, std::vector<ColorWord>(35, strip[shift])) << shift;
        }
    });
}

TEST_F(CarpetTest, ButtonWithoutARecordFails) {
    InDialog([](WindowHandle dialog) {
        TakeRecord(dialog);
        EXPECT_EQ(RenderTest(Subject(), dialog), nullptr);
    });
}

TEST_F(CarpetTest, EveryFailingAllocationEndsCleanly) {
    InDialog([](WindowHandle dialog) {
        Shrink(dialog);
        EXPECT_GT(FailuresOfASample(Subject(), dialog), 5);
    });
}

}  // namespace

}  // namespace tess::test
