#include "fills/texture.h"

#include <bit>
#include <cstddef>
#include <cstring>
#include <gtest/gtest.h>
#include <string>

#include "tests/support/allocation_failures.h"
#include "tests/support/image_bytes.h"
#include "tests/support/random_textures.h"

namespace tess::test {

namespace {

template <class Number>
Number NumberAt(const TextureItem& item, std::size_t offset) {
    Number number;
    std::memcpy(&number, reinterpret_cast<const char*>(&item) + offset, sizeof number);
    return number;
}

TEST(TextureItem, FieldsStandWhereAMaterialsFileHasThem) {
    const TextureItem item = DefaultTexture(5, 7, 9);
    EXPECT_EQ(NumberAt<std::int32_t>(item, 0), 5);
    EXPECT_EQ(NumberAt<std::int32_t>(item, 12), 7);
    EXPECT_EQ(NumberAt<std::int32_t>(item, 16), 9);
    EXPECT_EQ(NumberAt<std::int32_t>(item, 40), 1);
    EXPECT_EQ(NumberAt<float>(item, 60), 3.1F);
    EXPECT_EQ(NumberAt<std::int32_t>(item, 72), 64);
    EXPECT_EQ(NumberAt<ColorWord>(item, 76), 0xFFFFFFu);
    EXPECT_EQ(NumberAt<ColorWord>(item, 92), 0xFF6060u);
    EXPECT_EQ(NumberAt<ColorWord>(item, 96), 0xFF0000u);
    EXPECT_EQ(NumberAt<float>(item, 100), 0.75F);
    EXPECT_EQ(NumberAt<std::int32_t>(item, 136), 10004);
    EXPECT_EQ(NumberAt<std::int32_t>(item, 160), 5000);
    EXPECT_EQ(NumberAt<float>(item, 164), 1.5F);
    EXPECT_EQ(NumberAt<std::int32_t>(item, 216), 64);
    EXPECT_EQ(NumberAt<std::int32_t>(item, 220), 4);
    EXPECT_EQ(NumberAt<float>(item, 224), 0.25F);
    EXPECT_EQ(NumberAt<float>(item, 228), 1.0F);
    EXPECT_EQ(NumberAt<std::int32_t>(item, 232), 0);
}

TEST(TextureItem, DefaultsHaveTheirBits) {
    const TextureItem item = DefaultTexture(0, 1, 1);
    EXPECT_EQ(NumberAt<std::uint32_t>(item, 140), 0x4009999Au);  // Dimension
    for (const std::size_t curve : {168u, 184u, 200u}) {
        EXPECT_EQ(NumberAt<std::uint32_t>(item, curve), 0u);
        EXPECT_EQ(NumberAt<std::uint32_t>(item, curve + 4), 0x3EA8F5C3u);
        EXPECT_EQ(NumberAt<std::uint32_t>(item, curve + 8), 0x3F2B851Fu);
        EXPECT_EQ(NumberAt<std::uint32_t>(item, curve + 12), 0x3F800000u);
    }
}

TEST(TextureKindTable, NamesAndLayersAreThoseOfTheKinds) {
    EXPECT_STREQ(TextureKindTable[0].Name, "2-color fractal");
    EXPECT_STREQ(TextureKindTable[3].Name, "5-color fractal");
    EXPECT_STREQ(TextureKindTable[4].Name, "Craters");
    EXPECT_STREQ(TextureKindTable[5].Name, "Perturbation");
    for (int kind = 0; kind < 4; ++kind)
        EXPECT_EQ(TextureKindTable[kind].Layers, kind + 1);
}

TEST(TextureKindTable, NoKindShowsTheFifthLayersControls) {
    for (const TextureKindEntry& kind : TextureKindTable) {
        for (const int id : kind.Controls) {
            EXPECT_TRUE(id != 506 && id != 511 && id != 516 && id != 522) << kind.Name;
            EXPECT_TRUE(id >= 501 && id <= 532) << kind.Name;
        }
    }
}

TEST(RenderTexture, KindThatIsNoneIsRefused) {
    for (const int kind : {-1, 6, 1000, INT32_MIN, INT32_MAX}) {
        EXPECT_EQ(FindTextureKind(kind), nullptr);
        EXPECT_EQ(RenderTexture(DefaultTexture(kind, 8, 8)), nullptr);
    }
}

TEST(RenderTexture, SizeIsThatOfTheTargetRectangle) {
    for (int kind = 0; kind < kTextureKinds; ++kind) {
        TextureItem item = DefaultTexture(kind, 0, 0);
        item.CreaterCount = 10;
        item.Left = -3;
        item.Right = 9;
        item.Top = 100;
        item.Bottom = 107;
        const platform::OwnedBlock picture(RenderTexture(item));
        const LockedImage image(picture.Get());
        ASSERT_TRUE(image);
        EXPECT_EQ(image->Width, 12);
        EXPECT_EQ(image->Height, 7);
        EXPECT_EQ(image->BitCount, 24);
    }
}

TEST(RenderTexture, RectangleThatIsNoneIsRefusedAndAnEmptyOneIsEmpty) {
    for (int kind = 0; kind < kTextureKinds; ++kind) {
        EXPECT_EQ(RenderTexture(DefaultTexture(kind, -1, 8)), nullptr);
        TextureItem item = DefaultTexture(kind, INT32_MAX, 8);
        item.Left = INT32_MIN;
        EXPECT_EQ(RenderTexture(item), nullptr);
        EXPECT_TRUE(Pixels(platform::OwnedBlock(RenderTextureAt(item, 0, 8)).Get()).empty());
        EXPECT_TRUE(Pixels(platform::OwnedBlock(RenderTextureAt(item, 8, 0)).Get()).empty());
    }
}

TEST(RenderTexture, EveryFailingAllocationEndsInNull) {
    for (int kind = 0; kind < kTextureKinds; ++kind) {
        TextureItem item = DefaultTexture(kind, 8, 8);
        item.MatrixSize = 32;
        item.CreaterCount = 10;
        const std::size_t failures = FailEachAllocation([&item] {
            const platform::OwnedBlock image(RenderTexture(item));
            return static_cast<bool>(image);
        });
        EXPECT_GE(failures, 2u) << kind;
    }
}

TEST(RenderTexture, RecordsOfAnyBytesAreHarmless) {
    TextureDraws draws(5);
    for (int i = 0; i < 400; ++i) {
        TextureItem item;
        for (std::size_t byte = 0; byte < sizeof item; ++byte)
            reinterpret_cast<std::uint8_t*>(&item)[byte] =
                static_cast<std::uint8_t>(draws.Between(0, 255));
        // Any bytes at all but for what takes long or much memory.
        item.TextureType = i % kTextureKinds;
        item.MatrixSize = draws.Between(-100, 130);
        item.CreaterCount = draws.Between(-100, 100);
        item.BubbleSize = draws.Between(-5, 100);
        const platform::OwnedBlock image(RenderTextureAt(item, i % 9 + 1, i % 7 + 1));
        EXPECT_TRUE(image);
    }
}

TEST(TextureTiles, FractalsDoOnEvenSquaresPerturbationAlwaysCratersNever) {
    EXPECT_TRUE(TextureTiles(0, 64, 64));
    EXPECT_FALSE(TextureTiles(0, 63, 63));
    EXPECT_FALSE(TextureTiles(3, 64, 32));
    EXPECT_FALSE(TextureTiles(4, 64, 64));
    EXPECT_TRUE(TextureTiles(5, 31, 17));
    EXPECT_FALSE(TextureTiles(6, 64, 64));
}

}  // namespace

}  // namespace tess::test
