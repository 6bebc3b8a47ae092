// Pictures as bytes, to be compared.
#pragma once

#include <cstdint>
#include <vector>

#include "pipeline/image_buffers.h"

namespace tess {

/// Header, table and pixels, or nothing for null.
inline std::vector<std::uint8_t> ImageBytes(ImageHandle handle) {
    const LockedImage image(handle);
    if (!image) return {};
    const auto* bytes = reinterpret_cast<const std::uint8_t*>(image.Get());
    return {bytes, bytes + sizeof(PackedDib) + ColorTableBytes(image->BitCount) + image->ImageSize};
}

/// The same of a picture that is freed then.
inline std::vector<std::uint8_t> TakeImageBytes(ImageHandle handle) {
    const platform::OwnedBlock owner(handle);
    return ImageBytes(handle);
}

/// All pixels, the top row first.
inline std::vector<std::uint32_t> Pixels(ImageHandle handle) {
    const LockedImage image(handle);
    std::vector<std::uint32_t> pixels;
    for (int y = 0; image && y < image->Height; ++y) {
        for (int x = 0; x < image->Width; ++x)
            pixels.push_back(GetDibPixel(image.Get(), x, y));
    }
    return pixels;
}

/// A new picture with these pixels, the top row first. The caller owns it.
inline ImageHandle ImageOf(int width, const std::vector<std::uint32_t>& pixels, int depth = 24,
                           const std::uint8_t* palette = nullptr) {
    const int height = static_cast<int>(pixels.size()) / width;
    const ImageHandle handle = NewPackedDib(width, height, palette, depth);
    const LockedImage image(handle);
    for (int i = 0; image && i < width * height; ++i) {
        SetDibPixel(image.Get(), i % width, i / width, pixels[static_cast<std::size_t>(i)]);
    }
    return handle;
}

}  // namespace tess
