#include "styles/height_field.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>

#include "pipeline/image_scaling.h"

namespace tess {

namespace {

template <class Change>
void ChangeHeights(PackedDib* image, Change change) {
    for (int y = 0; y < image->Height; ++y) {
        std::uint8_t* pixel = DibRow(image, y);
        for (int x = 0; x < image->Width; ++x, pixel += 3) {
            pixel[kLowByte] = static_cast<std::uint8_t>(change(int{pixel[kLowByte]}));
            pixel[0] = pixel[1] = 0;
        }
    }
}

/// The source's row or column that stands at `place` of a field of twice its
/// `size`, with the source in the middle and its mirror images beside it.
int MirroredPlace(int place, int size) {
    const int margin = size / 2;
    if (place < margin) return margin - 1 - place;
    if (place < margin + size) return place - margin;
    return 2 * size - 1 - (place - margin);
}

}  // namespace

bool NormalizeHeights(ImageHandle picture) {
    const LockedImage image(picture);
    if (!image) return false;
    int lowest = 255, highest = 0;
    ChangeHeights(image, [&lowest](int height) {
        lowest = std::min(lowest, height);
        return height;
    });
    ChangeHeights(image, [&highest, lowest](int height) {
        highest = std::max(highest, height - lowest);
        return height - lowest;
    });
    const int factor = 25500 / std::max(highest, 1);
    ChangeHeights(image, [factor](int height) { return height * factor / 100; });
    return true;
}

ImageHandle MirrorTile(ImageHandle tile) {
    platform::OwnedBlock large;
    {
        const LockedImage source(tile);
        if (!source) return nullptr;
        large.Reset(NewPackedDib(2 * source->Width, 2 * source->Height, nullptr, source->BitCount));
        const LockedImage field(large.Get());
        if (!field) return nullptr;
        for (int y = 0; y < field->Height; ++y) {
            const std::uint8_t* row = DibRow(source, MirroredPlace(y, source->Height));
            std::uint8_t* pixel = DibRow(field, y);
            for (int x = 0; x < field->Width; ++x, pixel += 3)
                std::memcpy(pixel, row + std::ptrdiff_t{3} * MirroredPlace(x, source->Width), 3);
        }
    }
    const ImageHandle halved = ScaleImagePercent(large.Get(), 50, 50);
    return halved != nullptr ? halved : large.Release();
}

}  // namespace tess
