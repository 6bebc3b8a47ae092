#include "controls/arrow_strip.h"

namespace tess {

ArrowPicture BlendArrow(const BitmapFile& strip, int index, ColorWord background) {
    ArrowPicture picture;
    std::uint8_t* byte = picture.Bytes;
    for (int y = 0; y < kArrowSize; ++y) {
        for (int x = 0; x < kArrowSize; ++x) {
            const ColorWord color = BlendedPixel(strip, kArrowPitch * index + kArrowInset + x,
                                                 kArrowInset + y, background);
            *byte++ = BlueOf(color);
            *byte++ = GreenOf(color);
            *byte++ = RedOf(color);
            *byte++ = 0;
        }
    }
    return picture;
}

}  // namespace tess
