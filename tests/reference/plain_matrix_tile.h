// The repeating of a tile pixel by pixel, as it is defined.
#pragma once

#include "fills/matrix_tile.h"

namespace tess::reference {

/// The same as RenderMatrixTile for a tile that has a picture.
inline ImageHandle RenderMatrixTile(const MatrixTile& tile) {
    const int width = tile.TargetRect.right - tile.TargetRect.left;
    const int height = tile.TargetRect.bottom - tile.TargetRect.top;
    const ImageHandle result = NewPackedDib(width, height, nullptr, 24);
    const LockedImage target(result);
    const LockedImage source(tile.Image);
    if (!target || !source) return result;
    std::uint8_t palette[kPaletteBytes];
    ReadColorTable(source, palette);
    for (int top = 0; top <= height; top += source->Height) {
        for (int left = 0; left <= width; left += source->Width) {
            for (int y = 0; y < source->Height; ++y) {
                for (int x = 0; x < source->Width; ++x) {
                    std::uint32_t pixel = GetDibPixel(source, x, y);
                    if (source->BitCount < 24) {
                        const std::uint8_t* color = palette + 3 * pixel;
                        pixel = MakeColor(color[0], color[1], color[2]);
                    }
                    SetDibPixel(target, left + x, top + y, pixel);
                }
            }
        }
    }
    return result;
}

}  // namespace tess::reference
