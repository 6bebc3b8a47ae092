// Matrix tiles: a small picture that is repeated to fill a rectangle. The record is
// 321 packed little-endian bytes, the same in memory, in a material and, as
// hexadecimal text, in a document.
#pragma once

#include <cstdint>
#include <string_view>

#include "pipeline/image_buffers.h"
#include "platform/block_guards.h"
#include "platform/screen.h"
#include "raster/drawing_context.h"

namespace tess {

inline constexpr int kMatrixFileBytes = 261;

/// A bit of MatrixTile::Flags.
inline constexpr std::uint32_t kMatrixPressed = 2;  ///< the control is pressed

#pragma pack(push, 1)
struct MatrixTile {
    char File[kMatrixFileBytes];  ///< full path of the group file, zero-terminated
    std::int32_t Element;         ///< index in that file
    ImageHandle Image;            ///< in memory alone: a stored one means nothing
    raster::Rect TargetRect;      ///< what RenderMatrixTile fills
    std::uint32_t Flags;
    std::uint8_t Reserved[28];  ///< zero
};
#pragma pack(pop)
static_assert(sizeof(MatrixTile) == 321);

using LockedMatrixTile = platform::LockedBlock<MatrixTile>;

/// Zeroes the record and gives it a copy of the default tile, which the caller owns
/// through it. Returns nonzero on success.
[[nodiscard]] int InitMatrixTile(MatrixTile* tile);

/// The path of the tile's group; what is not terminated ends with the field.
[[nodiscard]] std::string_view MatrixTilePath(const MatrixTile& tile);
/// Cuts a path that does not fit.
void SetMatrixTilePath(MatrixTile* tile, std::string_view path);

/// The size of the picture that the tile is drawn with: its own, or the default tile's
/// where it has none.
[[nodiscard]] platform::PixelSize MatrixPictureSize(const MatrixTile& tile);

/// Returns a new 24-bit picture of the target rectangle's size, filled with the
/// tile's picture from the top left, or with the default tile where it has none;
/// owned by the caller. Null without memory, for a rectangle that is crossed and for a
/// picture of no size. Requires: the picture is whole (pipeline/picture_check.h).
[[nodiscard]] ImageHandle RenderMatrixTile(const MatrixTile& tile);

}  // namespace tess
