#include "fills/matrix_tile.h"

#include <algorithm>
#include <cstring>
#include <gtest/gtest.h>
#include <random>

#include "tests/reference/plain_matrix_tile.h"
#include "tests/support/allocation_failures.h"
#include "tests/support/image_bytes.h"
#include "tests/support/random_pictures.h"

namespace tess::test {

namespace {

constexpr ColorWord kRed = 0x0000FF, kGreen = 0x00FF00, kBlue = 0xFF0000;

/// The pixels of a tile's picture over a rectangle of a size.
std::vector<std::uint32_t> Rendered(ImageHandle picture, int width, int height) {
    const platform::OwnedBlock owner(picture);
    MatrixTile tile{};
    tile.Image = picture;
    tile.TargetRect = {0, 0, width, height};
    const platform::OwnedBlock result(RenderMatrixTile(tile));
    return Pixels(result.Get());
}

TEST(InitMatrixTile, GivesTheDefaultTileAndNothingElse) {
    MatrixTile tile;
    std::memset(&tile, 0xCC, sizeof tile);
    ASSERT_NE(InitMatrixTile(&tile), 0);
    const platform::OwnedBlock picture(tile.Image);
    EXPECT_EQ(MatrixPictureSize(tile), (platform::PixelSize{64, 64}));
    tile.Image = nullptr;
    const auto* bytes = reinterpret_cast<const std::uint8_t*>(&tile);
    EXPECT_EQ(std::count(bytes, bytes + sizeof tile, 0), 321);
}

TEST(InitMatrixTile, FailsWithoutMemory) {
    const std::size_t failures = FailEachAllocation([] {
        MatrixTile tile;
        const bool succeeded = InitMatrixTile(&tile) != 0;
        platform::FreeBlock(tile.Image);
        return succeeded;
    });
    EXPECT_EQ(failures, 1u);
}

TEST(DefaultTile, JoinsItselfAsSmoothlyAsItRunsInside) {
    MatrixTile tile;
    ASSERT_NE(InitMatrixTile(&tile), 0);
    const platform::OwnedBlock owner(tile.Image);
    const std::vector<std::uint32_t> pixels = Pixels(tile.Image);
    // The period is 32 pixels, half the picture.
    for (std::size_t y = 0; y < 64; ++y) {
        for (std::size_t x = 0; x < 64; ++x)
            ASSERT_EQ(pixels[y * 64 + x], pixels[(y + 32) % 64 * 64 + (x + 32) % 64]);
    }
}

TEST(MatrixTilePath, IsCutToItsField) {
    MatrixTile tile{};
    SetMatrixTilePath(&tile, std::string(300, 'x'));
    EXPECT_EQ(MatrixTilePath(tile), std::string(260, 'x'));
    SetMatrixTilePath(&tile, "short");
    EXPECT_EQ(MatrixTilePath(tile), "short");
}

TEST(MatrixTilePath, WithoutATerminatorEndsWithItsField) {
    MatrixTile tile{};
    std::memset(tile.File, 'y', sizeof tile.File);
    EXPECT_EQ(MatrixTilePath(tile).size(), 261u);
}

TEST(RenderMatrixTile, RepeatsFromTheTopLeftAndCutsAtTheRightAndBottom) {
    const ImageHandle picture = ImageOf(2, {kRed, kGreen, kBlue, 0});
    const std::vector<std::uint32_t> expected = {kRed,  kGreen, kRed,   kBlue, 0,
                                                 kBlue, kRed,   kGreen, kRed};
    EXPECT_EQ(Rendered(picture, 3, 3), expected);
}

TEST(RenderMatrixTile, OnePixelFillsAll) {
    const std::vector<std::uint32_t> expected(5 * 4, kGreen);
    EXPECT_EQ(Rendered(ImageOf(1, {kGreen}), 5, 4), expected);
}

TEST(RenderMatrixTile, PictureLargerThanTheTargetIsCut) {
    const ImageHandle picture = ImageOf(3, {1, 2, 3, 4, 5, 6, 7, 8, 9});
    EXPECT_EQ(Rendered(picture, 2, 1), (std::vector<std::uint32_t>{1, 2}));
}

TEST(RenderMatrixTile, FewerBitsGiveTheirTablesColors) {
    std::uint8_t palette[kPaletteBytes] = {10, 20, 30, 255, 0, 0};
    for (const int bits : {1, 4, 8}) {
        const ImageHandle picture = ImageOf(2, {0, 1}, bits, palette);
        EXPECT_EQ(Rendered(picture, 2, 1), (std::vector<std::uint32_t>{0x1E140A, kRed})) << bits;
    }
}

TEST(RenderMatrixTile, TargetNeedNotStandAtZero) {
    const platform::OwnedBlock picture(ImageOf(1, {kBlue}));
    MatrixTile tile{};
    tile.Image = picture.Get();
    tile.TargetRect = {-3, 7, 1, 9};
    const platform::OwnedBlock result(RenderMatrixTile(tile));
    EXPECT_EQ(Pixels(result.Get()), std::vector<std::uint32_t>(8, kBlue));
}

TEST(RenderMatrixTile, MissingPictureGivesTheDefaultTile) {
    MatrixTile tile;
    ASSERT_NE(InitMatrixTile(&tile), 0);
    const std::vector<std::uint32_t> expected = Pixels(tile.Image);
    platform::FreeBlock(std::exchange(tile.Image, nullptr));
    tile.TargetRect = {0, 0, 64, 64};
    const platform::OwnedBlock result(RenderMatrixTile(tile));
    EXPECT_EQ(Pixels(result.Get()), expected);
    EXPECT_EQ(MatrixPictureSize(tile), (platform::PixelSize{64, 64}));
}

TEST(RenderMatrixTile, CrossedAndImmenseRectanglesFail) {
    MatrixTile tile{};
    for (const raster::Rect rect : {raster::Rect{5, 0, 4, 9}, raster::Rect{0, 5, 9, 4},
                                    raster::Rect{-2000000000, 0, 2000000000, 1},
                                    raster::Rect{0, 0, 2000000000, 2000000000}}) {
        tile.TargetRect = rect;
        EXPECT_EQ(RenderMatrixTile(tile), nullptr);
    }
}

TEST(RenderMatrixTile, PictureWithoutRowsOrColumnsFails) {
    for (const auto& [width, height] : {std::pair{0, 4}, std::pair{4, 0}}) {
        const platform::OwnedBlock picture(NewPackedDib(width, height, nullptr, 24));
        MatrixTile tile{};
        tile.Image = picture.Get();
        tile.TargetRect = {0, 0, 8, 8};
        EXPECT_EQ(RenderMatrixTile(tile), nullptr);
    }
}

TEST(RenderMatrixTile, IsThePlainVersionByteForByte) {
    std::mt19937 random(7);
    const auto draw = [&random](unsigned below) { return static_cast<int>(random() % below); };
    constexpr int kDepths[] = {1, 4, 8, 24, 32};
    for (int i = 0; i < 500; ++i) {
        const platform::OwnedBlock picture(RandomPicture(
            1 + draw(40), 1 + draw(40), kDepths[draw(5)], static_cast<std::uint32_t>(i)));
        MatrixTile tile{};
        tile.Image = picture.Get();
        const int left = draw(100) - 50, top = draw(100) - 50;
        tile.TargetRect = {left, top, left + draw(120), top + draw(120)};
        const platform::OwnedBlock fast(RenderMatrixTile(tile));
        const platform::OwnedBlock plain(reference::RenderMatrixTile(tile));
        ASSERT_EQ(test::Difference(fast.Get(), plain.Get()), "") << i;
    }
}

}  // namespace

}  // namespace tess::test
