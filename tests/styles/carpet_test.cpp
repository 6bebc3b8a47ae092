#include <algorithm>
#include <set>

#include "tests/styles/fountain_style_fixture.h"

namespace tess::test {

namespace {

using platform::WindowHandle;

enum Control : int {
    kFrames = 490,
    kSize = 492,
    kSeed = 494,
    kButton = 496,
    kScale = 498,
    kLayers = 500,
};

constexpr int kDrawsOfALayer = 256 * 3 + 256 + 256 * 6 + 255;

class CarpetTest : public FountainStyleTest {
protected:
    static const StyleEntry& Subject() { return Style("Carpet"); }
    static void Shrink(WindowHandle dialog) {
        Set(dialog, kSize, 32);
        Set(dialog, kSeed, 700);
        Set(dialog, kFrames, 2);
    }
    static std::vector<int> HeightsOf(WindowHandle dialog) {
        return FountainStyleTest::HeightsOf(Subject(), dialog, kButton);
    }
};

TEST_F(CarpetTest, EachLayerTakesItsOwnDraws) {
    InDialog([](WindowHandle dialog) {
        Shrink(dialog);
        for (const int layers : {1, 2, 5}) {
            Set(dialog, kLayers, layers);
            platform::FreeBlock(RenderTest(Subject(), dialog));
            EXPECT_EQ(DrawsSince(700, 8 * kDrawsOfALayer), layers * kDrawsOfALayer);
        }
    });
}

TEST_F(CarpetTest, HeightsAreStretchedThoughAnEighthOfFewLayersIsLow) {
    // Two layers give 63 at most before. The mean of neighbours takes the extremes off.
    InDialog([](WindowHandle dialog) {
        Shrink(dialog);
        UseCountingFountain(dialog, kButton);
        for (const int layers : {1, 2, 7}) {
            Set(dialog, kLayers, layers);
            const auto heights = HeightsOf(dialog);
            const auto [low, high] = std::minmax_element(heights.begin(), heights.end());
            EXPECT_LE(*low, 40) << layers;
            EXPECT_GE(*high, 128) << layers;
            EXPECT_LE(*high, 255) << layers;
        }
    });
}

TEST_F(CarpetTest, FieldIsMirroredAtAQuarterOfTheTile) {
    InDialog([](WindowHandle dialog) {
        Shrink(dialog);
        UseCountingFountain(dialog, kButton);
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
        Set(dialog, kSize, 96);
        UseCountingFountain(dialog, kButton);
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
        Set(dialog, kSize, 16);
        const auto pixels = TakePixels(RenderTest(Subject(), dialog));
        ASSERT_EQ(pixels.size(), 256u);
        for (std::size_t y = 0; y < 16; ++y)
            EXPECT_EQ(pixels[y * 16 + 3], pixels[y * 16 + 4]);
    });
}

TEST_F(CarpetTest, FramesBeyond256RepeatAndTwoAreHalfARing) {
    InDialog([](WindowHandle dialog) {
        Shrink(dialog);
        Set(dialog, kSize, 16);
        const auto two = TakeFrames(RenderBuild(Subject(), dialog));
        Set(dialog, kFrames, 512);
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
        UseCountingFountain(dialog, kButton);
        const auto strip = StripOf(dialog, kButton);
        const auto heights = HeightsOf(dialog);
        const auto frames = TakeFramePixels(RenderBuild(Subject(), dialog));
        for (std::size_t i = 0; i < heights.size(); ++i)
            ASSERT_EQ(frames[1][i], strip[static_cast<std::size_t>((heights[i] + 128) % 256)]);
    });
}

TEST_F(CarpetTest, HeightsDoNotDependOnTheFountain) {
    InDialog([](WindowHandle dialog) {
        Shrink(dialog);
        UseCountingFountain(dialog, kButton);
        const auto heights = HeightsOf(dialog);
        {
            const LockedFountain fountain = LockFountain(platform::Control(dialog, kButton));
            fountain->Start = 0x400000;
            fountain->Markers[0] = MakeMarker(128, 0x40FF00);
        }
        EXPECT_EQ(HeightsOf(dialog), heights);
    });
}

TEST_F(CarpetTest, OneColorFountainGivesFlatFrames) {
    // As a field without heights would, for the ring has the same colour everywhere.
    InDialog([](WindowHandle dialog) {
        Shrink(dialog);
        {
            const LockedFountain fountain = LockFountain(platform::Control(dialog, kButton));
            fountain->Count = 0;
            fountain->Start = 0x336699;
        }
        for (const ColorWord pixel : TakePixels(RenderTest(Subject(), dialog)))
            EXPECT_EQ(pixel, 0x336699u);
    });
}

TEST_F(CarpetTest, ButtonWithoutARecordFails) {
    InDialog([](WindowHandle dialog) {
        TakeRecord(dialog, kButton);
        EXPECT_EQ(RenderTest(Subject(), dialog), nullptr);
    });
}

TEST_F(CarpetTest, EveryFailingAllocationEndsCleanly) {
    InDialog([](WindowHandle dialog) {
        Shrink(dialog);
        EXPECT_GT(FailEachAllocationOfASample(Subject(), dialog), 5);
    });
}

}  // namespace

}  // namespace tess::test
