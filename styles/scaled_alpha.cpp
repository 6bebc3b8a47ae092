#include "styles/scaled_alpha.h"

#include <algorithm>
#include <cstdint>

#include "platform/block_guards.h"

namespace tess {

ImageHandle ScaleImageAlpha(ImageHandle image, int level) {
    {
        const LockedImage source(image);
        if (!source || source->BitCount != 32) return nullptr;
    }
    platform::OwnedBlock result(DuplicateImage(image));
    const LockedImage target(result.Get());
    if (!target) return nullptr;
    for (int y = 0; y < target->Height; ++y) {
        std::uint8_t* alpha = DibRow(target.Get(), y) + 3;
        for (int x = 0; x < target->Width; ++x, alpha += 4) {
            const std::int64_t scaled = std::int64_t{*alpha} * level / 255;
            *alpha = static_cast<std::uint8_t>(std::clamp<std::int64_t>(scaled, 0, 255));
        }
    }
    return result.Release();
}

}  // namespace tess
