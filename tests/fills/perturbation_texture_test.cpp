#include <gtest/gtest.h>

#include "fills/texture.h"
#include "tests/reference/plain_textures.h"
#include "tests/support/image_bytes.h"
#include "tests/support/random_textures.h"

namespace tess::test {

namespace {

class PerturbationTexture : public ::testing::Test {
protected:
    void SetUp() override { ForgetLatticeNoise(); }
    void TearDown() override { ForgetLatticeNoise(); }

    static std::vector<std::uint32_t> Render(const TextureItem& item) {
        const platform::OwnedBlock picture(RenderPerturbationTexture(item));
        return Pixels(picture.Get());
    }

    /// An item without noise: the colours are those of the bubbles alone.
    static TextureItem Bubbles(int width, int height, BubbleShape shape) {
        TextureItem item = DefaultTexture(5, width, height);
        item.PerturbationPower = 0.0F;
        item.BubblePower = 0.5F;
        item.BubbleShape = static_cast<std::int32_t>(shape);
        return item;
    }

    /// An item without bubbles.
    static TextureItem Noise(int width, int height, int matrix_size) {
        TextureItem item = DefaultTexture(5, width, height);
        item.BubbleCount = 0;
        item.MatrixSize = matrix_size;
        return item;
    }
};

TEST_F(PerturbationTexture, SameBytesAsStepByStep) {
    TextureDraws draws(13);
    for (int i = 0; i < 60; ++i) {
        const TextureItem item =
            RandomTexture(draws, 5, draws.Between(1, 60), draws.Between(1, 60), 1024);
        ForgetLatticeNoise();
        EXPECT_EQ(TakeImageBytes(RenderPerturbationTexture(item)),
                  TakeImageBytes(PlainPerturbationTexture(item, item.SeedValue[0])))
            << i;
    }
}

TEST_F(PerturbationTexture, NoiseKeepsTheSeedOfTheFirst) {
    TextureItem item = Noise(24, 24, 200);
    item.SeedValue[0] = 77;
    static_cast<void>(Render(item));
    item.SeedValue[0] = 78;
    EXPECT_EQ(TakeImageBytes(RenderPerturbationTexture(item)),
              TakeImageBytes(PlainPerturbationTexture(item, 77)));
}

TEST_F(PerturbationTexture, PowerOfZeroBuildsNoNoise) {
    TextureItem item = Noise(24, 24, 200);
    item.SeedValue[0] = 77;
    item.PerturbationPower = 0.0F;
    static_cast<void>(Render(item));
    item.SeedValue[0] = 78;
    item.PerturbationPower = 1.0F;
    EXPECT_EQ(TakeImageBytes(RenderPerturbationTexture(item)),
              TakeImageBytes(PlainPerturbationTexture(item, 78)));
}

TEST_F(PerturbationTexture, WithoutNoiseAndBubblesItIsTheMiddleOfTheCurves) {
    TextureItem item = Noise(3, 2, 64);
    item.PerturbationPower = 0.0F;
    // trunc(0.5 x 255) is 127, a little below the middle of a nearly straight curve.
    const auto pixels = Render(item);
    for (const std::uint32_t pixel : pixels)
        EXPECT_EQ(pixel, pixels[0]);
    EXPECT_NEAR(RedOf(pixels[0]), 127, 1);
    EXPECT_EQ(RedOf(pixels[0]), BlueOf(pixels[0]));
}

TEST_F(PerturbationTexture, FlatCurvesGiveOneColor) {
    TextureItem item = Noise(10, 10, 300);
    for (int point = 0; point < kCurvePoints; ++point) {
        item.ColorRed[point] = 1.0F;
        item.ColorGreen[point] = 0.5F;
        item.ColorBlue[point] = 0.0F;
    }
    for (const std::uint32_t pixel : Render(item))
        EXPECT_EQ(pixel, 0x007FFFu);  // trunc(0.5 x 255) is 127
}

TEST_F(PerturbationTexture, CurveValuesAreHeldBetween0And1) {
    TextureItem wild = Noise(10, 10, 300), held = wild;
    const float values[] = {-5.0F, 7.0F, 0.25F, std::nanf("")};
    const float expected[] = {0.0F, 1.0F, 0.25F, 0.0F};
    for (int point = 0; point < kCurvePoints; ++point) {
        wild.ColorRed[point] = values[point];
        held.ColorRed[point] = expected[point];
    }
    EXPECT_EQ(Render(wild), Render(held));
}

TEST_F(PerturbationTexture, BubblesWithoutCountOrPowerLeaveTheNoiseAlone) {
    TextureItem item = Noise(20, 20, 300);
    const auto noise = Render(item);
    item.BubbleCount = 64;
    item.BubblePower = 0.0F;
    EXPECT_EQ(Render(item), noise);
    item.BubbleCount = -3;
    item.BubblePower = 0.5F;
    EXPECT_EQ(Render(item), noise);
}

TEST_F(PerturbationTexture, EllipsesAddHalfWhereTheyCover) {
    // One bubble of radius 2: of the 16 offsets from -2 to 1 five are beyond the circle,
    // (-2, -2), (-2, -1), (-2, 1), (-1, -2) and (1, -2).
    TextureItem item = Bubbles(8, 8, BubbleShape::Ellipse);
    item.BubbleCount = 1;
    item.BubbleSize = 2;
    // Outside v is (0 + (0 - 1) + 1) / 2 = 0, inside (0.5 x 2 x 1 - 1 + 1) / 2 = 0.5.
    const auto pixels = Render(item);
    EXPECT_EQ(std::count(pixels.begin(), pixels.end(), 0u), 64 - 11);
}

TEST_F(PerturbationTexture, ABubbleGoesOnAtTheOppositeEdge) {
    // A radius of half the picture: the bubble is as wide and high as the picture, and
    // only a wrapping one covers as much wherever it lies.
    for (int seed = 1; seed < 20; ++seed) {
        TextureItem item = Bubbles(8, 8, BubbleShape::Ellipse);
        item.BubbleCount = 1;
        item.BubbleSize = 100;
        item.SeedValue[0] = seed;
        const auto pixels = Render(item);
        // Of 64 offsets -4 to 3 those with dx^2 + dy^2 above 16: in the row of -4 all but
        // one, in the rows of -3 and 3 those of -4, -3 and 3, in the others that of -4.
        EXPECT_EQ(std::count(pixels.begin(), pixels.end(), 0u), 7 + 2 * 3 + 4) << seed;
    }
}

TEST_F(PerturbationTexture, SphereIsDarkInItsMiddle) {
    // At the centre old + (1 - old) x 0 / r2 is what was there, nothing.
    TextureItem item = Bubbles(16, 16, BubbleShape::Sphere);
    item.BubbleCount = 1;
    item.BubbleSize = 6;
    const auto sphere = Render(item);
    item.BubbleShape = static_cast<std::int32_t>(BubbleShape::Ellipse);
    const auto ellipse = Render(item);
    EXPECT_GT(std::count(sphere.begin(), sphere.end(), 0u),
              std::count(ellipse.begin(), ellipse.end(), 0u));
}

TEST_F(PerturbationTexture, UnknownShapeAddsNothing) {
    TextureItem item = Bubbles(16, 16, static_cast<BubbleShape>(4));
    for (const std::uint32_t pixel : Render(item))
        EXPECT_EQ(pixel, 0u);
}

TEST_F(PerturbationTexture, PictureOfOnePixelHasNoRoomForABubble) {
    for (const std::uint32_t pixel : Render(Bubbles(1, 1, BubbleShape::Ellipse)))
        EXPECT_EQ(pixel, 0u);
}

TEST_F(PerturbationTexture, MatrixSizeOf32IsOneOctave) {
    // On 32 x 32 pixels the first octave is on the lattice or half way.
    TextureItem one = Noise(32, 32, 32);
    const auto pixels = Render(one);
    // A part of the second octave is 0 on all of these pixels: the same picture.
    one.MatrixSize = 100;
    EXPECT_EQ(Render(one), pixels);
    TextureItem fine = Noise(64, 64, 32);
    const auto one_octave = Render(fine);
    fine.MatrixSize = 100;
    EXPECT_NE(Render(fine), one_octave);
}

TEST_F(PerturbationTexture, MatrixSizeOf1024AndAnyBeyondIsEightOctaves) {
    const auto eight = Render(Noise(40, 40, 1024));
    EXPECT_EQ(Render(Noise(40, 40, 5000)), eight);
    EXPECT_EQ(Render(Noise(40, 40, 31)), eight);
    EXPECT_NE(Render(Noise(40, 40, 900)), eight);
}

TEST_F(PerturbationTexture, JoinsItselfAtAnySize) {
    const TextureItem item = Noise(45, 31, 32);
    const auto pixels = Render(item);
    int seam = 0, inside = 0;
    for (std::size_t y = 0; y < 31; ++y) {
        seam = std::max(seam, std::abs(RedOf(pixels[y * 45]) - RedOf(pixels[y * 45 + 44])));
        for (std::size_t x = 1; x < 45; ++x) {
            inside = std::max(inside,
                              std::abs(RedOf(pixels[y * 45 + x]) - RedOf(pixels[y * 45 + x - 1])));
        }
    }
    EXPECT_LE(seam, inside);
}

}  // namespace

}  // namespace tess::test
