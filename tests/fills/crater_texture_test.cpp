#include <gtest/gtest.h>

#include "fills/texture.h"
#include "tests/reference/plain_textures.h"
#include "tests/support/image_bytes.h"
#include "tests/support/random_textures.h"

namespace tess::test {

namespace {

std::vector<std::uint32_t> Render(const TextureItem& item) {
    const platform::OwnedBlock picture(RenderCraterTexture(item));
    return Pixels(picture.Get());
}

TEST(CraterTexture, SameBytesAsStepByStep) {
    TextureDraws draws(12);
    for (int i = 0; i < 40; ++i) {
        const TextureItem item =
            RandomTexture(draws, 4, draws.Between(1, 120), draws.Between(1, 120), 64);
        EXPECT_EQ(TakeImageBytes(RenderCraterTexture(item)),
                  TakeImageBytes(PlainCraterTexture(item)))
            << i;
    }
}

TEST(CraterTexture, LevelGroundIsHalfway) {
    TextureItem item = DefaultTexture(4, 3, 2);
    item.CreaterCount = 0;
    item.BackColour = 0x000000;
    item.ForeColour[0] = 0xFFFFFF;
    // No slope is 128 of 255: 255 x 128 / 255 over 0.
    EXPECT_EQ(Render(item),
              (std::vector<std::uint32_t>{0x808080, 0x808080, 0, 0x808080, 0x808080, 0}));
}

TEST(CraterTexture, LastColumnIsTheBackground) {
    TextureItem item = DefaultTexture(4, 50, 40);
    item.BackColour = 0x123456;
    item.CreaterCount = 300;
    const auto pixels = Render(item);
    for (std::size_t y = 0; y < 40; ++y)
        EXPECT_EQ(pixels[y * 50 + 49], 0x123456u);
}

TEST(CraterTexture, NegativeCountHasNoCraters) {
    TextureItem item = DefaultTexture(4, 20, 20);
    item.CreaterCount = 0;
    const auto level = Render(item);
    item.CreaterCount = -5;
    EXPECT_EQ(Render(item), level);
}

TEST(CraterTexture, CountWhoseTenfoldIsBeyond32BitsWraps) {
    // 429496730 x 10 is 2^32 + 4.
    TextureItem item = DefaultTexture(4, 20, 20);
    item.CreaterCount = 429496730;
    const auto wrapped = Render(item);
    item.CreaterCount = 0;
    EXPECT_NE(wrapped, Render(item));
}

// A damaged count of two thousand million craters once kept the program busy for hours.
TEST(CraterTexture, CountIsHeldAtAMillion) {
    TextureItem item = DefaultTexture(4, 6, 6);
    item.CreaterCount = 214748364;
    const auto held = Render(item);
    item.CreaterCount = 100000;
    EXPECT_EQ(held, Render(item));
}

TEST(CraterTexture, SteepestSlopesAreAlmostClearAndSolid) {
    // Deep craters have walls of more than 52 a cell.
    TextureItem item = DefaultTexture(4, 100, 100);
    item.BackColour = 0x000000;
    item.ForeColour[0] = 0x0000FF;
    item.CreaterCount = 200;
    item.CreaterDepth = 4.0F;
    auto pixels = Render(item);
    for (std::size_t y = 0; y < 100; ++y)
        pixels[y * 100 + 99] = 0x80;
    EXPECT_EQ(*std::min_element(pixels.begin(), pixels.end()), 1u);
    EXPECT_EQ(*std::max_element(pixels.begin(), pixels.end()), 255u);
}

TEST(CraterTexture, DepthsOfAnySizeAreHarmless) {
    for (const float depth : {-1000.0F, 0.0F, 100.0F, 1e30F, HUGE_VALF, std::nanf("")}) {
        TextureItem item = DefaultTexture(4, 60, 60);
        item.CreaterDepth = depth;
        item.CreaterCount = 100;
        EXPECT_EQ(Render(item).size(), 3600u);
    }
}

}  // namespace

}  // namespace tess::test
