#include <windows.h>

#include "pipeline/image_painting.h"

namespace tess {

namespace {

/// The colour table of a picture as a logical palette, selected and realised for a
/// scope. Does nothing for a picture without a table.
class RealizedPalette {
public:
    RealizedPalette(HDC device, const PackedDib* image) : device_(device) {
        const std::size_t count = ColorTableBytes(image->BitCount) / 4;
        if (count == 0) return;
        struct {
            LOGPALETTE head;
            PALETTEENTRY more[kPaletteEntries - 1];
        } colors = {};
        colors.head.palVersion = 0x300;
        colors.head.palNumEntries = static_cast<WORD>(count);
        PALETTEENTRY* entries = colors.head.palPalEntry;
        const std::uint8_t* table = DibColorTable(image);
        for (std::size_t i = 0; i < count; ++i, table += 4)
            entries[i] = {table[2], table[1], table[0], 0};
        palette_ = CreatePalette(&colors.head);
        if (palette_ == nullptr) return;
        previous_ = SelectPalette(device_, palette_, FALSE);
        RealizePalette(device_);
    }
    RealizedPalette(const RealizedPalette&) = delete;
    RealizedPalette& operator=(const RealizedPalette&) = delete;
    ~RealizedPalette() {
        if (palette_ == nullptr) return;
        if (previous_ != nullptr) SelectPalette(device_, previous_, FALSE);
        DeleteObject(palette_);
    }

private:
    HDC device_;
    HPALETTE palette_ = nullptr, previous_ = nullptr;
};

}  // namespace

void PaintDib(HDC device, int x, int y, ImageHandle handle) {
    const LockedImage image(handle);
    if (!image) return;
    const RealizedPalette palette(device, image.Get());
    // The last row stands first in memory.
    SetDIBitsToDevice(device, x, y, static_cast<DWORD>(image->Width),
                      static_cast<DWORD>(image->Height), 0, 0, 0, static_cast<UINT>(image->Height),
                      DibRow(image.Get(), image->Height - 1),
                      reinterpret_cast<const BITMAPINFO*>(image.Get()), DIB_RGB_COLORS);
}

}  // namespace tess
