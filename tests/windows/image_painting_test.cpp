// PaintDib in windows, held to PaintDib on the program's own drawing layer.

#include "pipeline/image_painting.h"

#include <windows.h>
#include <gtest/gtest.h>

#include "pipeline/palette.h"

namespace tess::test {

namespace {

constexpr int kWidth = 40, kHeight = 30;

/// A surface of the system with 24 bits a pixel, black at first.
class SystemSurface {
public:
    SystemSurface() : device_(CreateCompatibleDC(nullptr)) {
        BITMAPINFO info = {};
        info.bmiHeader.biSize = sizeof info.bmiHeader;
        info.bmiHeader.biWidth = kWidth;
        info.bmiHeader.biHeight = kHeight;
        info.bmiHeader.biPlanes = 1;
        info.bmiHeader.biBitCount = 24;
        void* bits = nullptr;
        bitmap_ = CreateDIBSection(device_, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
        previous_ = SelectObject(device_, bitmap_);
    }
    SystemSurface(const SystemSurface&) = delete;
    SystemSurface& operator=(const SystemSurface&) = delete;
    ~SystemSurface() {
        SelectObject(device_, previous_);
        DeleteObject(bitmap_);
        DeleteDC(device_);
    }
    [[nodiscard]] HDC Device() const { return device_; }
    [[nodiscard]] ColorWord At(int x, int y) const { return GetPixel(device_, x, y); }

private:
    HDC device_;
    HBITMAP bitmap_;
    HGDIOBJ previous_;
};

/// A picture with a different value at every pixel nearby.
ImageHandle MakePicture(int depth) {
    std::uint8_t palette[kPaletteBytes];
    BuildFixedPalette(palette, nullptr, 7);
    const ImageHandle handle = NewPackedDib(17, 11, palette, depth);
    const LockedImage image(handle);
    for (int y = 0; y < 11; ++y) {
        for (int x = 0; x < 17; ++x) {
            const auto value = static_cast<std::uint32_t>(y * 17 + x);
            SetDibPixel(image, x, y, depth > 8 ? value * 0x010307 : value);
        }
    }
    return handle;
}

/// Paints with both and compares every pixel.
void ExpectSamePicture(int depth, int left, int top) {
    const platform::OwnedBlock picture(MakePicture(depth));
    const SystemSurface surface;
    PaintDib(surface.Device(), left, top, picture.Get());
    GdiFlush();
    DibCanvas canvas;
    ASSERT_EQ(DibCanvasOpen(kWidth, kHeight, &canvas), 1);
    PaintDib(canvas.MemoryDC, left, top, picture.Get());
    const platform::OwnedBlock drawn(DibCanvasClose(&canvas, CanvasClose::Keep));
    const LockedImage own(drawn.Get());
    for (int y = 0; y < kHeight; ++y) {
        for (int x = 0; x < kWidth; ++x)
            ASSERT_EQ(surface.At(x, y), GetDibPixel(own, x, y)) << depth << ": " << x << ", " << y;
    }
}

TEST(ImagePainting, PaintsEveryDepthAtItsPlace) {
    for (const int depth : {1, 4, 8, 24, 32})
        ExpectSamePicture(depth, 5, 7);
}

TEST(ImagePainting, PictureBeyondTheEdgesIsCut) {
    for (const int depth : {8, 24}) {
        ExpectSamePicture(depth, -4, -3);
        ExpectSamePicture(depth, kWidth - 6, kHeight - 5);
    }
}

TEST(ImagePainting, NullPictureDrawsNothing) {
    const SystemSurface surface;
    PaintDib(surface.Device(), 0, 0, nullptr);
    EXPECT_EQ(surface.At(0, 0), 0u);
}

}  // namespace

}  // namespace tess::test
