#include "styles/color_ring.h"

#include <cstddef>
#include <cstdint>
#include <cstring>

#include "styles/fountain_strip.h"
#include "toolkit/wrap_compositing.h"

namespace tess {

ImageHandle RenderColorRing(platform::WindowHandle dialog, const ColorRing& ring, double phase) {
    platform::OwnedBlock strip(RenderButtonStrip(dialog, ring.FountainControl));
    if (!strip) return nullptr;
    const int shift = static_cast<int>(phase * double{kStripColors});
    if (shift > 0) strip.Reset(RollImageLeft(strip.Get(), shift));
    platform::OwnedBlock picture(NewPackedDib(ring.Width, ring.Height, nullptr, 24));
    {
        const LockedImage colors(strip.Get());
        const LockedImage heights(ring.HeightField);
        const LockedImage image(picture.Get());
        if (!colors || !heights || !image) return nullptr;
        const std::uint8_t* by_height = DibRow(colors.Get(), 0);
        for (int y = 0; y < ring.Height; ++y) {
            const std::uint8_t* height = DibRow(heights.Get(), y) + kLowByte;
            std::uint8_t* pixel = DibRow(image.Get(), y);
            for (int x = 0; x < ring.Width; ++x, height += 3, pixel += 3)
                std::memcpy(pixel, by_height + std::ptrdiff_t{3} * *height, 3);
        }
    }
    return picture.Release();
}

}  // namespace tess
