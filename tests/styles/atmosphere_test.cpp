#include <algorithm>

#include "tests/styles/fountain_style_fixture.h"

namespace tess::test {

namespace {

using platform::WindowHandle;

enum Control : int {
    kFrames = 445,
    kSize = 447,
    kSeed = 449,
    kButton = 451,
    kDensity = 453,
    kMesh = 455,
    kElevation = 457,
};

class AtmosphereTest : public FountainStyleTest {
protected:
    static const StyleEntry& Subject() { return Style("Atmosphere"); }
    static void Shrink(WindowHandle dialog) {
        Set(dialog, kSize, 32);
        Set(dialog, kMesh, 4);
        Set(dialog, kSeed, 700);
        Set(dialog, kFrames, 2);
        UseCountingFountain(dialog, kButton);
    }
    /// The heights of the sample, told by the counting fountain of Shrink.
    static std::vector<int> HeightsOf(WindowHandle dialog) {
        return FountainStyleTest::HeightsOf(Subject(), dialog, kButton);
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
};

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
        Set(dialog, kSize, 16);  // every sample once
        for (const int density : {1, 32, 50}) {
            Set(dialog, kDensity, density);
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
        Set(dialog, kSize, 128);
        Set(dialog, kMesh, 7);
        Set(dialog, kDensity, 1);
        const int smooth = Roughness(HeightsOf(dialog));
        Set(dialog, kDensity, 50);
        EXPECT_GT(Roughness(HeightsOf(dialog)), 4 * smooth);
    });
}

TEST_F(AtmosphereTest, ElevationTenLeavesTheHeightsAndOthersLiftThePositiveOnes) {
    InDialog([](WindowHandle dialog) {
        Shrink(dialog);
        Set(dialog, kSize, 16);
        Set(dialog, kElevation, 10);
        const auto plain = HeightsOf(dialog);
        for (const int elevation : {5, 15}) {
            Set(dialog, kElevation, elevation);
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
        Set(dialog, kSize, 1024);
        Set(dialog, kDensity, 1);
        const auto heights = HeightsOf(dialog);
        int largest = 0;
        for (std::size_t i = 0; i < heights.size(); ++i) {
            if (i % 1024 != 0) largest = std::max(largest, std::abs(heights[i] - heights[i - 1]));
        }
        EXPECT_LE(largest, 4);  // at most 255 in the 68 pixels between two samples
    });
}

TEST_F(AtmosphereTest, SizesAboveAndBelowTheMeshHaveItsCorners) {
    InDialog([](WindowHandle dialog) {
        Shrink(dialog);
        Set(dialog, kMesh, 6);
        Set(dialog, kSize, 64);
        const auto even = HeightsOf(dialog);
        for (const std::size_t size : {std::size_t{16}, std::size_t{200}}) {
            Set(dialog, kSize, static_cast<int>(size));
            const auto heights = HeightsOf(dialog);
            ASSERT_EQ(heights.size(), size * size);
            EXPECT_EQ(heights[0], even[0]);
            EXPECT_EQ(heights[size - 1], even[63]);
            EXPECT_EQ(heights[size * (size - 1)], even[64 * 63]);
            EXPECT_EQ(heights.back(), even.back());
        }
    });
}

TEST_F(AtmosphereTest, NeighboursAcrossTheSeamAreAsNearAsOthers) {
    InDialog([](WindowHandle dialog) {
        Shrink(dialog);
        Set(dialog, kMesh, 6);
        Set(dialog, kSize, 64);
        Set(dialog, kDensity, 10);
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
        Set(dialog, kSize, 16);
        const auto two = TakeFrames(RenderBuild(Subject(), dialog));
        EXPECT_EQ(two[0], SampleBytes(dialog));
        Set(dialog, kFrames, 512);
        const auto many = TakeFrames(RenderBuild(Subject(), dialog));
        EXPECT_EQ(many[256], two[1]);
        for (std::size_t f = 0; f < 512; f += 2)
            EXPECT_EQ(many[f], many[f + 1]);
    });
}

TEST_F(AtmosphereTest, ButtonWithoutARecordFails) {
    InDialog([](WindowHandle dialog) {
        TakeRecord(dialog, kButton);
        EXPECT_EQ(RenderTest(Subject(), dialog), nullptr);
    });
}

TEST_F(AtmosphereTest, EveryFailingAllocationEndsCleanly) {
    InDialog([](WindowHandle dialog) {
        Shrink(dialog);
        EXPECT_GT(FailEachAllocationOfASample(Subject(), dialog), 5);
    });
}

}  // namespace

}  // namespace tess::test
