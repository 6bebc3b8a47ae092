#include "fills/texture_picture.h"

#include <limits>

namespace tess {

namespace {

int Extent(std::int32_t first, std::int32_t end) {
    const std::int64_t extent = std::int64_t{end} - first;
    const bool fits = extent >= 0 && extent <= std::numeric_limits<std::int32_t>::max();
    return fits ? static_cast<int>(extent) : -1;
}

}  // namespace

TextureSize TargetSize(const TextureItem& item) {
    return {Extent(item.Left, item.Right), Extent(item.Top, item.Bottom)};
}

ImageHandle NewFilledPicture(const TextureSize& size, ColorWord color) {
    platform::OwnedBlock picture(NewPackedDib(size.Width, size.Height, nullptr, 24));
    const LockedImage image(picture.Get());
    if (!image) return nullptr;
    for (int y = 0; y < size.Height; ++y) {
        std::uint8_t* pixel = DibRow(image, y);
        for (int x = 0; x < size.Width; ++x, pixel += 3) {
            pixel[0] = BlueOf(color);
            pixel[1] = GreenOf(color);
            pixel[2] = RedOf(color);
        }
    }
    return picture.Release();
}

}  // namespace tess
