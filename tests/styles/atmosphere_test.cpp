#include <algorithm>

#include "tests/reference/plain_atmosphere.h"
#include "tests/styles/fountain_style_fixture.h"
#include "tests/styles/setting_draws.h"

namespace tess::test {

namespace {

using platform::WindowHandle;

class AtmosphereTest : public FountainStyleTest<AtmosphereStyle> {
protected:
    static void Shrink(WindowHandle dialog) {
        Set(dialog, "Size", 32);
        Set(dialog, "Mesh", 4);
        Set(dialog, "Seed", 700);
        Set(dialog, "Frames", 2);
        UseCountingFountain(dialog);
    }
    /// The sum of the steps between neighbours in a row.
    static int Roughness(const std::vector<int>& heights) {
        int sum = 0;
        for (std::size_t i = 1; i < heights.size(); ++i)
            sum += std::abs(heights[i] - heights[i - 1]);
        return sum;
    }
    static std::vector<std::uint8_t> SampleBytes(WindowHandle dialog) {
        return TakeBytes(RenderTest(Subject(), dialog));
    }
    /// Sets every control but the frames' and returns what it set.
    static PlainAtmosphereSettings SetAtRandom(WindowHandle dialog, SettingDraws& draws) {
        PlainAtmosphereSettings set;
        set.size = draws.Between(16, 100);
        set.density = draws.Between(1, 50);
        set.mesh = draws.Between(4, 7);
        set.elevation = draws.Between(5, 15);
        set.seed = static_cast<unsigned>(draws.Between(100, 32760));
        Set(dialog, "Size", set.size);
        Set(dialog, "Density", set.density);
        Set(dialog, "Mesh", set.mesh);
        Set(dialog, "Elevation", set.elevation);
        Set(dialog, "Seed", static_cast<int>(set.seed));
        return set;
    }
};

TEST_F(AtmosphereTest, FramesAtRandomSettingsAreTheLiteralOnes) {
    InDialog([](WindowHandle dialog) {
        SettingDraws draws(17);
        for (int round = 0; round < 16; ++round) {
            SCOPED_TRACE(round);
            ExpectColorRings(dialog, PlainAtmosphereHeights(SetAtRandom(dialog, draws)), draws);
        }
    });
}

TEST_F(AtmosphereTest, DrawsAPhaseAndADeviateACoefficient) {
    // A quarter of 9 x 9 with its edges and one of 7 x 7 without; the mean has no
    // deviate of four draws.
    InDialog([](WindowHandle dialog) {
        Shrink(dialog);
        platform::FreeBlock(RenderTest(Subject(), dialog));
        EXPECT_EQ(DrawsSince(700, 1000), (81 + 49) * 5 - 4);
    });
}

TEST_F(AtmosphereTest, HeightsReachFromZeroTo255) {
    InDialog([](WindowHandle dialog) {
        Shrink(dialog);
        Set(dialog, "Size", 16);  // every sample once
        for (const int density : {1, 32, 50}) {
            Set(dialog, "Density", density);
            const auto heights = HeightsOf(dialog);
            const auto [low, high] = std::minmax_element(heights.begin(), heights.end());
            EXPECT_EQ(*low, 0) << density;
            EXPECT_GE(*high, 254) << density;
        }
    });
}

TEST_F(AtmosphereTest, DensityMakesTheFieldRough) {
    InDialog([](WindowHandle dialog) {
        Shrink(dialog);
        Set(dialog, "Size", 128);
        Set(dialog, "Mesh", 7);
        Set(dialog, "Density", 1);
        const int smooth = Roughness(HeightsOf(dialog));
        Set(dialog, "Density", 50);
        EXPECT_GT(Roughness(HeightsOf(dialog)), 4 * smooth);
    });
}

TEST_F(AtmosphereTest, ElevationTenLeavesTheHeightsAndOthersLiftThePositiveOnes) {
    InDialog([](WindowHandle dialog) {
        Shrink(dialog);
        Set(dialog, "Size", 16);
        Set(dialog, "Elevation", 10);
        const auto plain = HeightsOf(dialog);
        for (const int elevation : {5, 15}) {
            Set(dialog, "Elevation", elevation);
            const auto lifted = HeightsOf(dialog);
            EXPECT_NE(lifted, plain);
            // A power keeps the order of heights.
            for (std::size_t i = 1; i < plain.size(); ++i) {
                EXPECT_TRUE(plain[i] <= plain[0] + 1 || lifted[i] >= lifted[0]) << i;
            }
        }
    });
}

TEST_F(AtmosphereTest, SmallMeshOnALargeTileIsBlurredNotBlocky) {
    InDialog([](WindowHandle dialog) {
        Shrink(dialog);
        Set(dialog, "Size", 1024);
        Set(dialog, "Density", 1);
        const auto heights = HeightsOf(dialog);
        int largest = 0;
        for (std::size_t i = 0; i < heights.size(); ++i) {
            if (i % 1024 != 0) largest = std::max(largest, std::abs(heights[i] - heights[i - 1]));
        }
        EXPECT_LE(largest, 4);  // at most 255 in the 68 pixels between two samples
    });
}

TEST_F(AtmosphereTest, SizesAboveAndBelowTheMeshAreResampledTheSameWay) {
    InDialog([](WindowHandle dialog) {
        Shrink(dialog);
        Set(dialog, "Mesh", 6);
        Set(dialog, "Density", 32);
        Set(dialog, "Elevation", 10);
        for (const int size : {16, 64, 200}) {
            Set(dialog, "Size", size);
            EXPECT_EQ(HeightsOf(dialog), PlainAtmosphereHeights({size, 32, 6, 10, 700})) << size;
        }
    });
}

TEST_F(AtmosphereTest, NeighboursAcrossTheSeamAreAsNearAsOthers) {
    InDialog([](WindowHandle dialog) {
        Shrink(dialog);
        Set(dialog, "Mesh", 6);
        Set(dialog, "Size", 64);
        Set(dialog, "Density", 10);
        const auto heights = HeightsOf(dialog);
        const auto at = [&heights](int x, int y) {
            return heights[static_cast<std::size_t>(y * 64 + x)];
        };
        int seam = 0, inside = 0;
        for (int i = 0; i < 64; ++i) {
            seam += std::abs(at(63, i) - at(0, i)) + std::abs(at(i, 63) - at(i, 0));
            inside += std::abs(at(30, i) - at(31, i)) + std::abs(at(i, 30) - at(i, 31));
        }
        EXPECT_LE(seam, 2 * inside);
    });
}

TEST_F(AtmosphereTest, FramesBeyond256RepeatAndTwoAreHalfARing) {
    InDialog([](WindowHandle dialog) {
        Shrink(dialog);
        Set(dialog, "Size", 16);
        const auto two = TakeFrames(RenderBuild(Subject(), dialog));
        EXPECT_EQ(two[0], SampleBytes(dialog));
        Set(dialog, "Frames", 512);
        const auto many = TakeFrames(RenderBuild(Subject(), dialog));
        EXPECT_EQ(many[256], two[1]);
        for (std::size_t f = 0; f < 512; f += 2)
            EXPECT_EQ(many[f], many[f + 1]);
    });
}

TEST_F(AtmosphereTest, ButtonWithoutARecordFails) {
    InDialog([](WindowHandle dialog) {
        TakeRecord(dialog);
        EXPECT_EQ(RenderTest(Subject(), dialog), nullptr);
    });
}

TEST_F(AtmosphereTest, EveryFailingAllocationEndsCleanly) {
    InDialog([](WindowHandle dialog) {
        Shrink(dialog);
        EXPECT_GT(FailuresOfASample(Subject(), dialog), 5);
    });
}

}  // namespace

}  // namespace tess::test
