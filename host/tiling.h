// Where the pictures of a tiled background stand, as on a web page: the first in
// the top left corner, and on from there until the area is covered.
#pragma once

namespace tess {

struct TilePlace {
    int X, Y;
};

/// How many pictures an area needs, in each direction.
struct Tiling {
    int Columns, Rows;
    int TileWidth, TileHeight;

    [[nodiscard]] int Count() const { return Columns * Rows; }
    /// Requires: 0 <= index < Count().
    [[nodiscard]] TilePlace Place(int index) const {
        return {index % Columns * TileWidth, index / Columns * TileHeight};
    }
};

/// The pictures that cover an area; the last of a row or column may stand out of
/// it. None for an empty area or tile.
[[nodiscard]] constexpr Tiling TileArea(int width, int height, int tile_width, int tile_height) {
    if (width <= 0 || height <= 0 || tile_width <= 0 || tile_height <= 0) {
        return {0, 0, tile_width, tile_height};
    }
    return {(width - 1) / tile_width + 1, (height - 1) / tile_height + 1, tile_width, tile_height};
}

/// One picture in the middle of an area. A larger one shows its middle.
[[nodiscard]] constexpr TilePlace CenterTile(int width, int height, int tile_width,
                                             int tile_height) {
    return {(width - tile_width) / 2, (height - tile_height) / 2};
}

}  // namespace tess
