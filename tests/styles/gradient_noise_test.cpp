#include "styles/gradient_noise.h"

#include <cmath>
#include <gtest/gtest.h>
#include <vector>

#include "runtime/random.h"

namespace tess::test {

namespace {

NoiseTables TablesOf(unsigned seed) {
    runtime::srand(seed);
    NoiseTables tables;
    FillNoiseTables(&tables);
    return tables;
}

TEST(GradientNoise, FillingTakesSixDrawsAnEntryAndAShuffle) {
    TablesOf(9);
    const int next = runtime::rand();
    runtime::srand(9);
    for (int i = 0; i < 256 * 6 + 255; ++i)
        runtime::SkipDraw();
    EXPECT_EQ(runtime::rand(), next);
}

TEST(GradientNoise, FirstGradientIsDrawsFourToSixAtUnitLength) {
    runtime::srand(9);
    for (int i = 0; i < 3; ++i)
        runtime::SkipDraw();
    double length = 0.0, first = 0.0;
    for (int i = 0; i < 3; ++i) {
        const double part = runtime::rand() % 512 - 256;
        if (i == 0) first = part;
        length += part * part;
    }
    const NoiseTables tables = TablesOf(9);
    EXPECT_NEAR(tables.Gradients[0][0], first / std::sqrt(length), 1e-6);
}

TEST(GradientNoise, TablesRepeatAfter256Entries) {
    const NoiseTables tables = TablesOf(4);
    std::vector<bool> seen(256, false);
    for (int i = 0; i < 256; ++i) {
        seen[static_cast<std::size_t>(tables.Permutation[i])] = true;
        EXPECT_EQ(tables.Permutation[256 + i], tables.Permutation[i]);
        EXPECT_EQ(tables.Gradients[256 + i][2], tables.Gradients[i][2]);
    }
    EXPECT_EQ(tables.Permutation[513], tables.Permutation[1]);
    EXPECT_EQ(std::count(seen.begin(), seen.end(), true), 256);
}

TEST(GradientNoise, IsZeroAtWholeCoordinatesAndStaysSmall) {
    const NoiseTables tables = TablesOf(4);
    EXPECT_EQ(PerlinNoise3(tables, 3.0F, 7.0F, 2.0F), 0.0F);
    for (int i = 0; i < 10000; ++i) {
        const float x = static_cast<float>(i % 100) * 0.37F, y = static_cast<float>(i) * 0.0113F;
        EXPECT_LT(std::abs(PerlinNoise3(tables, x, y, 0.125F)), 1.0F);
    }
}

TEST(GradientNoise, NearACornerItIsThatCornersGradient) {
    const NoiseTables tables = TablesOf(4);
    const int* p = tables.Permutation;
    const float(&gradient)[3] = tables.Gradients[p[p[3] + 7] + 2];
    constexpr float kStep = 1.0F / 1024.0F;
    EXPECT_NEAR(PerlinNoise3(tables, 3.0F + kStep, 7.0F, 2.0F), gradient[0] * kStep, 1e-5);
    EXPECT_NEAR(PerlinNoise3(tables, 3.0F, 7.0F + kStep, 2.0F), gradient[1] * kStep, 1e-5);
    EXPECT_NEAR(PerlinNoise3(tables, 3.0F, 7.0F, 2.0F + kStep), gradient[2] * kStep, 1e-5);
}

}  // namespace

}  // namespace tess::test
