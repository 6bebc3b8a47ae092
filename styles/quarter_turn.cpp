#include "styles/quarter_turn.h"

#include <cstdint>

namespace tess {

namespace {

/// `place(x, y, target)` is where the source's pixel goes.
template <class Place>
ImageHandle Rotate(ImageHandle image, Place place) {
    const LockedImage source(image);
    if (!source) return nullptr;
    std::uint8_t palette[kPaletteBytes];
    ReadColorTable(source, palette);
    platform::OwnedBlock turned(
        NewPackedDib(source->Height, source->Width, palette, source->BitCount));
    const LockedImage target(turned.Get());
    if (!target) return nullptr;
    for (int y = 0; y < source->Height; ++y) {
        for (int x = 0; x < source->Width; ++x) {
            const raster::Point to = place(x, y, *target.Get());
            SetDibPixel(target, to.x, to.y, GetDibPixel(source, x, y));
        }
    }
    return turned.Release();
}

}  // namespace

ImageHandle RotateImageClockwise(ImageHandle image) {
    return Rotate(image, [](int x, int y, const PackedDib& target) {
        return raster::Point{target.Width - 1 - y, x};
    });
}

ImageHandle RotateImageCounterClockwise(ImageHandle image) {
    return Rotate(image, [](int x, int y, const PackedDib& target) {
        return raster::Point{y, target.Height - 1 - x};
    });
}

}  // namespace tess
