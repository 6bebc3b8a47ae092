// Supercompress's comparison through the two pixel functions, one pixel at a time.
#pragma once

#include "pipeline/image_buffers.h"

namespace tess::test {

inline void PlainMarkUnchangedPixels(PackedDib* last, const PackedDib* frame, PackedDib* mask) {
    for (int y = 0; y < frame->Height; ++y) {
        for (int x = 0; x < frame->Width; ++x) {
            const std::uint32_t current = GetDibPixel(frame, x, y);
            if (GetDibPixel(last, x, y) != current) {
                SetDibPixel(last, x, y, current);
                SetDibPixel(mask, x, y, 0);
            } else {
                SetDibPixel(mask, x, y, 1);
            }
        }
    }
}

}  // namespace tess::test
