#include "fills/material.h"

#include <algorithm>
#include <cstring>
#include <gtest/gtest.h>

#include "tests/support/allocation_failures.h"
#include "tests/support/image_bytes.h"

namespace tess::test {

namespace {

constexpr ColorWord kRed = 0x0000FF, kGreen = 0x00FF00;

Material MaterialOf(MaterialMode mode) {
    Material material;
    InitMaterial(&material, 0x123456);
    material.Mode = mode;
    return material;
}

std::vector<std::uint32_t> Rendered(Material material, int width, int height) {
    const platform::OwnedBlock picture(RenderMaterial(&material, width, height));
    return Pixels(picture.Get());
}

TEST(InitMaterial, WritesTheDefaults) {
    Material material;
    std::memset(static_cast<void*>(&material), 0xCC, sizeof material);
    InitMaterial(&material, 0x123456);
    EXPECT_TRUE(HasMaterialMagic(material));
    EXPECT_EQ(std::uint32_t{material.Size}, 1282u);
    EXPECT_EQ(std::uint32_t{material.Version}, 0x00040000u);
    EXPECT_EQ(material.Mode, MaterialMode::Simple);
    EXPECT_EQ(std::uint32_t{material.SimpleColor}, 0x123456u);
    EXPECT_EQ(std::uint32_t{material.Pressed}, 0u);
    EXPECT_EQ(std::uint32_t{material.AverageColor}, 0u);
    EXPECT_EQ(ImageHandle{material.Preview}, nullptr);
}

TEST(InitMaterial, WritesTheGradientsDefaults) {
    const Material material = MaterialOf(MaterialMode::Gradient);
    const Gradient& gradient = material.Gradient;
    EXPECT_EQ(gradient.Type, GradientType::Linear);
    EXPECT_EQ(std::uint32_t{gradient.StartColor}, 0x404040u);
    EXPECT_EQ(std::uint32_t{gradient.EndColor}, 0xC0C0C0u);
    EXPECT_EQ(int{gradient.EdgePad}, 0);
    EXPECT_EQ(int{gradient.CenterX}, 0);
    EXPECT_EQ(int{gradient.CenterY}, 0);
    EXPECT_EQ(int{gradient.Midpoint}, 50);
    EXPECT_EQ(int{gradient.Rotation}, 0);
    EXPECT_EQ(int{gradient.TwoColor}, 1);
    EXPECT_EQ(int{gradient.Ramp.Count}, 7);
}

TEST(InitMaterial, WritesTheTexturesDefaultsAndAZeroTile) {
    const Material material = MaterialOf(MaterialMode::Texture);
    TextureItem texture{};
    InitTextureItem(&texture);
    EXPECT_EQ(std::memcmp(&material.Texture, &texture, sizeof texture), 0);
    const auto* tile = reinterpret_cast<const std::uint8_t*>(&material.Tile);
    EXPECT_EQ(std::count(tile, tile + 321, 0), 321);
}

TEST(Material, FieldsStandWhereDocumentsHaveThem) {
    EXPECT_EQ(offsetof(Material, Mode), 16u);
    EXPECT_EQ(offsetof(Material, Gradient), 28u);
    EXPECT_EQ(offsetof(Material, Gradient.Ramp), 68u);
    EXPECT_EQ(offsetof(Material, Texture), 653u);
    EXPECT_EQ(offsetof(Material, Tile), 921u);
    EXPECT_EQ(offsetof(Material, Preview), 1242u);
    EXPECT_EQ(offsetof(Material, AverageColor), 1250u);
}

TEST(RenderMaterial, SimpleIsThePlainColor) {
    EXPECT_EQ(Rendered(MaterialOf(MaterialMode::Simple), 3, 2),
              std::vector<std::uint32_t>(6, 0x123456));
}

TEST(RenderMaterial, GradientIsTheGradientsPicture) {
    const Material material = MaterialOf(MaterialMode::Gradient);
    const platform::OwnedBlock expected(RenderGradient(30, 20, material.Gradient));
    EXPECT_EQ(Rendered(material, 30, 20), Pixels(expected.Get()));
}

TEST(RenderMaterial, TextureOf100By50IsRows25To74OfASquare) {
    Material material = MaterialOf(MaterialMode::Texture);
    const platform::OwnedBlock picture(RenderMaterial(&material, 100, 50));
    EXPECT_EQ(int{material.Texture.Right}, 100);
    EXPECT_EQ(int{material.Texture.Bottom}, 100);
    const platform::OwnedBlock square(RenderTextureAt(material.Texture, 100, 100));
    const auto all = Pixels(square.Get());
    EXPECT_EQ(Pixels(picture.Get()),
              std::vector<std::uint32_t>(all.begin() + 25 * 100, all.begin() + 75 * 100));
}

TEST(RenderMaterial, TallTextureIsCutAtItsSides) {
    Material material = MaterialOf(MaterialMode::Texture);
    const auto pixels = Rendered(material, 20, 65);
    const platform::OwnedBlock square(RenderTextureAt(material.Texture, 65, 65));
    const auto all = Pixels(square.Get());
    for (std::size_t y = 0; y < 65; ++y) {
        for (std::size_t x = 0; x < 20; ++x)
            ASSERT_EQ(pixels[y * 20 + x], all[y * 65 + 22 + x]);  // (65 - 20) / 2 = 22
    }
}

TEST(RenderMaterial, TextureOfNoKindIsNull) {
    for (const int kind : {-1, 6}) {
        Material material = MaterialOf(MaterialMode::Texture);
        material.Texture.TextureType = kind;
        EXPECT_EQ(RenderMaterial(&material, 10, 10), nullptr) << kind;
    }
}

TEST(RenderMaterial, TileRepeatsItsPictureFromTheLeftTop) {
    Material material = MaterialOf(MaterialMode::Tile);
    const platform::OwnedBlock picture(ImageOf(2, {kRed, kGreen}));
    material.Tile.Image = picture.Get();
    EXPECT_EQ(Rendered(material, 3, 2),
              (std::vector<std::uint32_t>{kRed, kGreen, kRed, kRed, kGreen, kRed}));
}

TEST(RenderMaterial, UnknownModeIsBlack) {
    EXPECT_EQ(Rendered(MaterialOf(static_cast<MaterialMode>(9)), 2, 1),
              (std::vector<std::uint32_t>{0, 0}));
}

TEST(RenderMaterial, SizeBelowNothingIsNull) {
    for (const MaterialMode mode : {MaterialMode::Simple, MaterialMode::Gradient,
                                    MaterialMode::Texture, MaterialMode::Tile}) {
        Material material = MaterialOf(mode);
        EXPECT_EQ(RenderMaterial(&material, -1, 10), nullptr);
        EXPECT_EQ(RenderMaterial(&material, 10, -3), nullptr);
    }
}

TEST(RenderMaterial, FailsWithoutMemoryInEveryMode) {
    for (const MaterialMode mode : {MaterialMode::Simple, MaterialMode::Gradient,
                                    MaterialMode::Texture, MaterialMode::Tile}) {
        const std::size_t failures = FailEachAllocation([mode] {
            Material material = MaterialOf(mode);
            const platform::OwnedBlock picture(RenderMaterial(&material, 8, 8));
            return static_cast<bool>(picture);
        });
        EXPECT_GE(failures, mode == MaterialMode::Simple ? 1u : 2u);
    }
}

TEST(AverageImageColour, IsTheMeanOfEachChannelTruncated) {
    // Red (1 + 2) / 2 = 1, green (10 + 20) / 2 = 15, blue (255 + 0) / 2 = 127.
    const platform::OwnedBlock picture(ImageOf(2, {0xFF0A01, 0x001402}));
    EXPECT_EQ(AverageImageColour(picture.Get()), 0x7F0F01u);
}

TEST(AverageImageColour, IsZeroForNoPicture) {
    EXPECT_EQ(AverageImageColour(nullptr), 0u);
}

}  // namespace

}  // namespace tess::test
