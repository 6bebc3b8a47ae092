#include "controls/dialog_background.h"

#include <algorithm>
#include <cstring>

#include "pipeline/palette.h"
#include "platform/resources.h"

namespace tess {

std::uint32_t SolidBackground = 1;

bool IsBackgroundSolid(int screen_bits) {
    constexpr int kPaletteBits = 8;
    return SolidBackground != 0 || screen_bits <= kPaletteBits;
}

ColorWord BackgroundTint(ColorWord face, ColorWord shadow) {
    constexpr int kBright = 200;
    if (Luminance(RedOf(face), GreenOf(face), BlueOf(face)) <= kBright) return face;
    return MakeColor((2 * RedOf(shadow) + RedOf(face)) / 3,
                     (2 * GreenOf(shadow) + GreenOf(face)) / 3,
                     (2 * BlueOf(shadow) + BlueOf(face)) / 3);
}

int TintedChannel(int channel, int tint) {
    return std::clamp(channel + tint - 128, 0, 255);
}

ImageHandle MakeDialogBackground(ColorWord tint) {
    const auto stored = platform::FindData(kBackgroundResource);
    PackedDib header;
    if (stored.size() < sizeof header) return nullptr;
    std::memcpy(&header, stored.data(), sizeof header);
    constexpr int kLargest = 4096;
    if (header.BitCount != 24 || header.Width < 1 || header.Width > kLargest || header.Height < 1 ||
        header.Height > kLargest) {
        return nullptr;
    }
    const auto stride = static_cast<std::size_t>(Stride(header.Width, header.BitCount));
    if (stored.size() < sizeof header + stride * static_cast<std::size_t>(header.Height)) {
        return nullptr;
    }
    platform::OwnedBlock tinted(NewPackedDib(header.Width, header.Height, nullptr, 24));
    {
        const LockedImage image(tinted.Get());
        if (!image) return nullptr;
        const std::byte* row = stored.data() + sizeof header;
        for (int y = header.Height - 1; y >= 0; --y, row += stride) {
            for (int x = 0; x < header.Width; ++x) {
                const auto channel = [&](int i) { return std::to_integer<int>(row[3 * x + i]); };
                SetDibPixel(image, x, y,
                            MakeColor(TintedChannel(channel(2), RedOf(tint)),
                                      TintedChannel(channel(1), GreenOf(tint)),
                                      TintedChannel(channel(0), BlueOf(tint))));
            }
        }
    }
    return tinted.Release();
}

}  // namespace tess
