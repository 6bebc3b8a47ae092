#include "fills/material_file.h"

#include <cstring>
#include <gtest/gtest.h>

#include "fills/matrix_group_file.h"
#include "platform/files.h"
#include "tests/support/allocation_failures.h"
#include "tests/support/image_bytes.h"
#include "tests/support/scratch_folder.h"

namespace tess::test {

namespace {

using Bytes = std::vector<std::uint8_t>;

constexpr ColorWord kCallersColor = 0x123456;

class MaterialFileTest : public testing::Test {
protected:
    void Write(const Bytes& bytes) const {
        std::FILE* stream = platform::OpenFile(path_, "wb");
        std::fwrite(bytes.data(), 1, bytes.size(), stream);
        std::fclose(stream);
    }
    [[nodiscard]] Bytes Read() const {
        Bytes bytes(3000);
        std::FILE* stream = platform::OpenFile(path_, "rb");
        if (stream == nullptr) return {};
        bytes.resize(std::fread(bytes.data(), 1, bytes.size(), stream));
        std::fclose(stream);
        return bytes;
    }
    /// A record in which every byte that is stored differs from zero.
    [[nodiscard]] static Material Unusual() {
        Material material;
        auto* bytes = reinterpret_cast<std::uint8_t*>(&material);
        for (std::size_t i = 0; i < sizeof material; ++i)
            bytes[i] = static_cast<std::uint8_t>(i % 251 + 1);
        std::memcpy(material.Magic, kMaterialMagic, kMaterialMagicBytes);
        material.Tile.File[0] = 0;
        return material;
    }
    [[nodiscard]] int Save(const Material& material) const {
        const platform::OwnedBlock block(platform::AllocateBlock(sizeof material));
        std::memcpy(LockedMaterial(block.Get()).Get(), &material, sizeof material);
        return SaveMaterial(block.Get(), path_);
    }
    /// What LoadMaterial gives, without its pictures.
    [[nodiscard]] Material Load(int use_file = 1) const {
        const MaterialHandle handle = LoadMaterial(path_, kCallersColor, use_file);
        Material material = *LockedMaterial(handle).Get();
        ForgetMaterialHandles(&material);
        FreeMaterial(handle);
        return material;
    }
    [[nodiscard]] static bool IsDefault(const Material& material) {
        Material plain;
        InitMaterial(&plain, kCallersColor);
        return std::memcmp(&material, &plain, sizeof plain) == 0;
    }
    static std::uint32_t Number(const Bytes& bytes, std::size_t offset) {
        std::uint32_t number;
        std::memcpy(&number, bytes.data() + offset, sizeof number);
        return number;
    }

    ScratchFolder folder_;
    std::string path_ = folder_.File("Material00300.mtrl");
};

TEST_F(MaterialFileTest, FieldsStandWhereTheFormatHasThem) {
    Material material;
    InitMaterial(&material, 0x00ABCDEF);
    material.Mode = MaterialMode::Tile;
    material.Gradient.Rotation = 45;
    material.Texture.TextureType = 3;
    SetMatrixTilePath(&material.Tile, "C:\\x.mtx");
    material.Tile.Element = 6;
    material.Tile.TargetRect = {1, 2, 33, 44};
    material.Tile.Flags = 2;
    material.AverageColor = 0x665544;
    ASSERT_EQ(Save(material), 1);
    const Bytes bytes = Read();
    ASSERT_EQ(bytes.size(), 1270u);
    EXPECT_EQ(std::memcmp(bytes.data(), "QRVNCMAT", 8), 0);
    EXPECT_EQ(Number(bytes, 8), 1282u);
    EXPECT_EQ(Number(bytes, 12), 0x00040000u);
    EXPECT_EQ(Number(bytes, 16), 3u);
    EXPECT_EQ(Number(bytes, 20), 0x00ABCDEFu);
    EXPECT_EQ(Number(bytes, 24), 0u);
    EXPECT_EQ(Number(bytes, 28 + 32), 45u);
    EXPECT_EQ(std::memcmp(bytes.data() + 68, "QRVNFOUN", 8), 0);
    EXPECT_EQ(Number(bytes, 68 + 12), 581u);
    EXPECT_EQ(Number(bytes, 68 + 285), 7u);
    EXPECT_EQ(Number(bytes, 68 + 297), 0x20FF0000u);
    EXPECT_EQ(Number(bytes, 649), 3u);
    EXPECT_STREQ(reinterpret_cast<const char*>(bytes.data() + 917), "C:\\x.mtx");
    EXPECT_EQ(Number(bytes, 1178), 6u);
    EXPECT_EQ(Number(bytes, 1186 + 8), 33u);
    EXPECT_EQ(Number(bytes, 1202), 2u);
    EXPECT_EQ(Number(bytes, 1238), 0x665544u);
}

TEST_F(MaterialFileTest, HandlesAndReservedPlacesAreZero) {
    ASSERT_EQ(Save(Unusual()), 1);
    const Bytes bytes = Read();
    const auto expect_zero = [&bytes](std::size_t offset, std::size_t count) {
        EXPECT_EQ(Bytes(bytes.begin() + static_cast<std::ptrdiff_t>(offset),
                        bytes.begin() + static_cast<std::ptrdiff_t>(offset + count)),
                  Bytes(count, 0))
            << offset;
    };
    expect_zero(68 + 280, 5);   // the end of the fountain's name, and its preview
    expect_zero(68 + 553, 28);  // its control's state
    expect_zero(1182, 4);       // the tile's picture
    expect_zero(1206, 32);      // what is reserved of the tile, and the preview
    expect_zero(1242, 28);
}

TEST_F(MaterialFileTest, WhatIsStoredReadsBack) {
    const Material material = Unusual();
    ASSERT_EQ(Save(material), 1);
    Material expected = material;
    ForgetMaterialHandles(&expected);
    expected.Size = 1282;
    expected.Pressed = 0;
    expected.Gradient.Ramp.Size = 585;
    expected.Gradient.Ramp.NameEnd = 0;
    auto* bytes = reinterpret_cast<std::uint8_t*>(&expected);
    std::memset(bytes + 68 + 557, 0, 28);   // the fountain's state as a control
    std::memset(bytes + 921 + 293, 0, 28);  // reserved
    std::memset(bytes + 1254, 0, 28);
    const Material read = Load();
    EXPECT_EQ(std::memcmp(&read, &expected, sizeof read), 0);
}

TEST_F(MaterialFileTest, FileOf1269BytesIsIgnored) {
    ASSERT_EQ(Save(Unusual()), 1);
    Bytes bytes = Read();
    bytes.pop_back();
    Write(bytes);
    EXPECT_TRUE(IsDefault(Load()));
}

TEST_F(MaterialFileTest, LongerFileIsReadAsFarAsItCounts) {
    Material material;
    InitMaterial(&material, 0xABCDEF);
    ASSERT_EQ(Save(material), 1);
    Bytes bytes = Read();
    bytes.push_back(7);
    Write(bytes);
    EXPECT_EQ(std::uint32_t{Load().SimpleColor}, 0xABCDEFu);
}

TEST_F(MaterialFileTest, WrongMagicIsIgnored) {
    ASSERT_EQ(Save(Unusual()), 1);
    Bytes bytes = Read();
    bytes[7] = 'X';
    Write(bytes);
    EXPECT_TRUE(IsDefault(Load()));
}

TEST_F(MaterialFileTest, VersionIsNotTested) {
    Material material;
    InitMaterial(&material, 0xABCDEF);
    material.Version = 0x12345678;
    ASSERT_EQ(Save(material), 1);
    EXPECT_EQ(std::uint32_t{Load().SimpleColor}, 0xABCDEFu);
    EXPECT_EQ(std::uint32_t{Load().Version}, 0x12345678u);
}

TEST_F(MaterialFileTest, MissingFileAndOneThatIsNotAskedForGiveTheDefaults) {
    EXPECT_TRUE(IsDefault(Load()));
    ASSERT_EQ(Save(Unusual()), 1);
    EXPECT_TRUE(IsDefault(Load(0)));
}

TEST_F(MaterialFileTest, TilesPictureComesFromItsGroup) {
    const std::string group = folder_.File("group.mtx");
    const platform::OwnedBlock first(ImageOf(1, {0x0000FF})), second(ImageOf(1, {0x00FF00}));
    const ImageHandle elements[] = {first.Get(), second.Get()};
    ASSERT_NE(WriteMatrixGroup(group, elements), 0);
    Material material;
    InitMaterial(&material, 0);
    SetMatrixTilePath(&material.Tile, group);
    material.Tile.Element = 1;
    ASSERT_EQ(Save(material), 1);
    const MaterialHandle handle = LoadMaterial(path_, 0, 1);
    EXPECT_EQ(Pixels(LockedMaterial(handle)->Tile.Image), (std::vector<std::uint32_t>{0x00FF00}));
    FreeMaterial(handle);
}

TEST_F(MaterialFileTest, TileWithoutItsGroupHasNoPicture) {
    Material material;
    InitMaterial(&material, 0);
    SetMatrixTilePath(&material.Tile, folder_.File("nosuch.mtx"));
    ASSERT_EQ(Save(material), 1);
    const MaterialHandle handle = LoadMaterial(path_, 0, 1);
    EXPECT_EQ(ImageHandle{LockedMaterial(handle)->Tile.Image}, nullptr);
    FreeMaterial(handle);
}

TEST_F(MaterialFileTest, SavingFailsWhereThereIsNoFolder) {
    path_ = folder_.File("nosuch/Material00300.mtrl");
    EXPECT_EQ(Save(Unusual()), 0);
    EXPECT_EQ(SaveMaterial(nullptr, folder_.File("x")), 0);
}

TEST_F(MaterialFileTest, LoadingFailsWithoutMemory) {
    const std::size_t failures = FailEachAllocation([this] {
        const MaterialHandle handle = LoadMaterial(path_, 0, 1);
        FreeMaterial(handle);
        return handle != nullptr;
    });
    EXPECT_EQ(failures, 1u);
}

TEST(NarrowFountain, CarriesAllButTheControlsState) {
    Fountain fountain{};
    InitFountain(&fountain, FountainPreset::OneGrey);
    fountain.Flags = 3;
    fountain.Name[259] = 'n';
    fountain.Selected = -1;
    fountain.DragY = 9;
    NarrowedFountain narrow;
    NarrowFountain(&narrow, fountain);
    EXPECT_EQ(std::uint32_t{narrow.Size}, 581u);
    EXPECT_EQ(narrow.Name[259], 'n');
    Fountain wide;
    WidenFountain(&wide, narrow);
    fountain.Selected = 0;
    fountain.DragY = 0;
    EXPECT_EQ(std::memcmp(&wide, &fountain, sizeof wide), 0);
}

}  // namespace

}  // namespace tess::test
