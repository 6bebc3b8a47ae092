#include <cmath>
#include <gtest/gtest.h>

#include "fills/texture.h"
#include "tests/reference/plain_textures.h"
#include "tests/support/image_bytes.h"
#include "tests/support/random_textures.h"

namespace tess::test {

namespace {

std::vector<std::uint8_t> Render(const TextureItem& item) {
    return TakeImageBytes(RenderFractalTexture(item));
}

/// A grey one-layer cloud: black below, white above.
TextureItem Grey(int width, int height, int mesh) {
    TextureItem item = DefaultTexture(0, width, height);
    item.BackColour = 0;
    item.MatrixSize = mesh;
    return item;
}

std::vector<int> Levels(const TextureItem& item) {
    const platform::OwnedBlock picture(RenderFractalTexture(item));
    std::vector<int> levels;
    for (const std::uint32_t pixel : Pixels(picture.Get()))
        levels.push_back(RedOf(pixel));
    return levels;
}

TEST(FractalTexture, SameBytesAsStepByStep) {
    TextureDraws draws(11);
    for (int i = 0; i < 60; ++i) {
        const TextureItem item = RandomTexture(draws, i % 4, draws.Between(2, 90),
                                               draws.Between(1, 90), i % 10 == 0 ? 300 : 100);
        EXPECT_EQ(Render(item), TakeImageBytes(PlainFractalTexture(item))) << i;
    }
}

TEST(FractalTexture, MatrixSizeIsTheNextPowerOfTwo) {
    const auto with_64 = Render(Grey(40, 40, 64));
    EXPECT_EQ(Render(Grey(40, 40, 33)), with_64);
    EXPECT_EQ(Render(Grey(40, 40, 63)), with_64);
    EXPECT_NE(Render(Grey(40, 40, 32)), with_64);
    EXPECT_NE(Render(Grey(40, 40, 65)), with_64);
}

TEST(FractalTexture, MatrixSizeOf1024IsItself) {
    const TextureItem item = Grey(16, 16, 1024);
    EXPECT_EQ(Render(item), Render(Grey(16, 16, 513)));
    EXPECT_EQ(Render(item), TakeImageBytes(PlainFractalTexture(item)));
}

TEST(FractalTexture, SmallerMatrixReadsNothingBeyondItsField) {
    // 32 samples, of which the field fills 4: with 32 columns a pixel is a sample.
    const auto levels = Levels(Grey(32, 32, 4));
    int lit = 0;
    for (std::size_t i = 0; i < levels.size(); ++i) {
        if (levels[i] == 0) continue;
        ++lit;
        EXPECT_LT(i % 32, 4u);
        EXPECT_LT(i / 32, 4u);
    }
    EXPECT_GT(lit, 0);
}

TEST(FractalTexture, MatrixSizesThatAreNoneAreTwo) {
    const auto with_two = Render(Grey(32, 32, 2));
    for (const int mesh : {0, -1, -1000, INT32_MIN})
        EXPECT_EQ(Render(Grey(32, 32, mesh)), with_two) << mesh;
}

TEST(FractalTexture, MatrixOfOneHasNoHeightsAndIsClear) {
    for (const int level : Levels(Grey(8, 8, 1)))
        EXPECT_EQ(level, 0);
}

// A damaged size once asked for gigabytes, and for minutes to fill them.
TEST(FractalTexture, MatrixBeyond4096IsRefused) {
    for (const int mesh : {4097, 1 << 30, (1 << 30) + 1, INT32_MAX}) {
        EXPECT_EQ(RenderFractalTexture(Grey(8, 8, mesh)), nullptr) << mesh;
    }
}

TEST(FractalTexture, HighestPointIsSolidAndHalfOfTheFieldIsClear) {
    // A pixel a sample, so the field's highest byte, 255, is there.
    const auto levels = Levels(Grey(32, 32, 32));
    EXPECT_EQ(*std::max_element(levels.begin(), levels.end()), 255);
    EXPECT_EQ(*std::min_element(levels.begin(), levels.end()), 0);
}

TEST(FractalTexture, PowerOfZeroMakesEveryPositiveHeightTheSame) {
    TextureItem item = Grey(32, 32, 32);
    item.Power[0] = 0.0F;
    const auto levels = Levels(item);
    EXPECT_GT(std::count(levels.begin(), levels.end(), 255), 200);
    item.Power[0] = 1.0F;
    const auto plain = Levels(item);
    EXPECT_LT(std::count(plain.begin(), plain.end(), 255), 10);
}

TEST(FractalTexture, PowerLeavesNegativeHeightsUntouched) {
    // A pixel a sample. A power above 1 bends the positive half down, so what was at or
    // below the zero of the field keeps its order among itself.
    TextureItem item = Grey(32, 32, 32);
    item.Power[0] = 0.5F;
    EXPECT_NE(Levels(item), Levels(Grey(32, 32, 32)));
    EXPECT_EQ(Render(item), TakeImageBytes(PlainFractalTexture(item)));
}

TEST(FractalTexture, DimensionOfTwentyHasTheHighestFrequencies) {
    TextureItem item = Grey(32, 32, 32);
    const auto roughness = [](const std::vector<int>& levels) {
        int sum = 0;
        for (std::size_t i = 1; i < levels.size(); ++i)
            sum += std::abs(levels[i] - levels[i - 1]);
        return sum;
    };
    item.Dimension[0] = 2.0F;
    const int smooth = roughness(Levels(item));
    item.Dimension[0] = 3.0F;
    const int rough = roughness(Levels(item));
    item.Dimension[0] = 20.0F;
    EXPECT_GT(rough, smooth);
    EXPECT_GT(roughness(Levels(item)), rough);
}

TEST(FractalTexture, AmplitudesBeyondSinglePrecisionLeaveALayerClear) {
    TextureItem item = Grey(16, 16, 512);
    item.Dimension[0] = 20.0F;
    for (const int level : Levels(item))
        EXPECT_EQ(level, 0);
}

TEST(FractalTexture, EvenSquareJoinsItself) {
    // With as many pixels as samples the step across the seam is one of the field's own.
    TextureItem item = Grey(64, 64, 64);
    item.Dimension[0] = 2.0F;
    const auto levels = Levels(item);
    int across_seam = 0, inside = 0;
    for (std::size_t y = 0; y < 64; ++y) {
        across_seam += std::abs(levels[y * 64] - levels[y * 64 + 63]);
        inside += std::abs(levels[y * 64 + 32] - levels[y * 64 + 31]);
    }
    EXPECT_LT(across_seam, 3 * inside + 64);
}

TEST(FractalTexture, ColumnsOfATallPictureRunOnPastItsEdge) {
    // 32 rows and, of 32 columns, the first 10.
    const auto square = Levels(Grey(32, 32, 32)), tall = Levels(Grey(10, 32, 32));
    for (std::size_t y = 0; y < 32; ++y) {
        for (std::size_t x = 0; x < 10; ++x)
            EXPECT_EQ(tall[y * 10 + x], square[y * 32 + x]);
    }
}

TEST(FractalTexture, RowsOfAWidePictureAreStretchedToFit) {
    const auto square = Levels(Grey(32, 32, 32)), wide = Levels(Grey(32, 2, 32));
    for (std::size_t x = 0; x < 32; ++x) {
        EXPECT_EQ(wide[x], square[x]);
        EXPECT_EQ(wide[32 + x], square[31 * 32 + x]);
    }
}

TEST(FractalTexture, OneRowIsTheFieldsFirst) {
    const auto square = Levels(Grey(32, 32, 32)), row = Levels(Grey(32, 1, 32));
    for (std::size_t x = 0; x < 32; ++x)
        EXPECT_EQ(row[x], square[x]);
}

TEST(FractalTexture, OneColumnIsTheFieldsFirst) {
    const auto square = Levels(Grey(32, 32, 32)), column = Levels(Grey(1, 32, 32));
    for (std::size_t y = 0; y < 32; ++y)
        EXPECT_EQ(column[y], square[y * 32]);
    EXPECT_EQ(Levels(Grey(1, 1, 32))[0], square[0]);
}

TEST(FractalTexture, LayersLieOverOneAnother) {
    TextureItem item = DefaultTexture(1, 32, 32);
    item.MatrixSize = 32;
    item.SeedValue[1] = item.SeedValue[0];
    item.ForeColour[0] = 0x0000FF;
    item.ForeColour[1] = 0x00FF00;
    // The same field twice: where it is solid the second colour alone is left.
    const platform::OwnedBlock picture(RenderFractalTexture(item));
    const auto pixels = Pixels(picture.Get());
    EXPECT_GT(std::count(pixels.begin(), pixels.end(), 0x00FF00u), 0);
    EXPECT_EQ(std::count(pixels.begin(), pixels.end(), 0x0000FFu), 0);
}

}  // namespace

}  // namespace tess::test
