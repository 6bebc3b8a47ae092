#include "tests/reference/plain_compositing.h"

#include <cstdint>
#include <cstdlib>

#include "raster/shapes.h"

namespace tess::reference {

namespace {

int WrapCoordinate(std::int64_t c, std::int64_t n) {
    if (c >= n) return static_cast<int>(c % n);
    if (c < 0) {
        const std::int64_t rest = std::llabs(c) % n;
        return static_cast<int>(rest == 0 ? 0 : n - rest);
    }
    return static_cast<int>(c);
}

std::uint32_t BlendPixel(std::uint32_t old, std::uint32_t color, std::uint32_t kept) {
    std::uint32_t result = 0;
    for (int shift = 0; shift < 24; shift += 8) {
        const std::uint32_t d = (old >> shift) & 255;
        const std::uint32_t c = (color >> shift) & 255;
        result |= ((d * kept / 255 + c * (255 - kept) / 255) & 255) << shift;
    }
    return result;
}

}  // namespace

void PlainWrapStampMask(PackedDib* destination, const PackedDib* mask, int x, int y,
                        ColorWord color, int opacity) {
    for (int j = 0; j < mask->Height; ++j) {
        for (int i = 0; i < mask->Width; ++i) {
            const int dx = WrapCoordinate(std::int64_t{x} + i, destination->Width);
            const int dy = WrapCoordinate(std::int64_t{y} + j, destination->Height);
            const std::uint32_t m = GetDibPixel(mask, i, j) & 255;
            const std::uint32_t kept =
                opacity == 255 ? 255 - m : 255 - m * static_cast<std::uint32_t>(opacity) / 255;
            SetDibPixel(destination, dx, dy,
                        BlendPixel(GetDibPixel(destination, dx, dy), color, kept));
        }
    }
}

void PlainWrapBlendImage(PackedDib* destination, const PackedDib* source, int x, int y) {
    for (int j = 0; j < source->Height; ++j) {
        for (int i = 0; i < source->Width; ++i) {
            const int dx = WrapCoordinate(std::int64_t{x} + i, destination->Width);
            const int dy = WrapCoordinate(std::int64_t{y} + j, destination->Height);
            const std::uint32_t pixel = GetDibPixel(source, i, j);
            SetDibPixel(destination, dx, dy,
                        BlendPixel(GetDibPixel(destination, dx, dy), pixel, 255 - (pixel >> 24)));
        }
    }
}

ImageHandle PlainMergeAlphaImage(ImageHandle image, ImageHandle mask) {
    const LockedImage colors(image);
    const LockedImage alphas(mask);
    platform::OwnedBlock result(NewPackedDib(colors->Width, colors->Height, nullptr, 32));
    const LockedImage target(result.Get());
    if (!target) return nullptr;
    for (int y = 0; y < target->Height; ++y) {
        for (int x = 0; x < target->Width; ++x) {
            SetDibPixel(target, x, y,
                        (GetDibPixel(colors, x, y) & 0xFFFFFF) | GetDibPixel(alphas, x, y) << 24);
        }
    }
    return result.Release();
}

ImageHandle PlainRollImage(ImageHandle image, int right, int down) {
    const LockedImage source(image);
    std::uint8_t palette[kPaletteBytes];
    ReadColorTable(source, palette);
    platform::OwnedBlock result(
        NewPackedDib(source->Width, source->Height, palette, source->BitCount));
    const LockedImage target(result.Get());
    if (!target) return nullptr;
    for (int y = 0; y < target->Height; ++y) {
        for (int x = 0; x < target->Width; ++x) {
            SetDibPixel(target, x, y,
                        GetDibPixel(source, WrapCoordinate(std::int64_t{x} + right, source->Width),
                                    WrapCoordinate(std::int64_t{y} + down, source->Height)));
        }
    }
    return result.Release();
}

ImageHandle PlainRadialMask(int diameter, int peak, bool inverse) {
    DibCanvas canvas;
    if (DibCanvasOpen(diameter, diameter, &canvas) == 0) return nullptr;
    raster::FillRect(canvas.MemoryDC, canvas.Bounds, raster::SolidBrush(0));
    canvas.MemoryDC.pen = raster::kNullPen;
    const int n = diameter / 2;
    for (int i = 0; i < n; ++i) {
        const int level = static_cast<int>(static_cast<double>(i) / n * peak) & 255;
        const int grey = inverse ? level : 255 - level;
        canvas.MemoryDC.brush = raster::SolidBrush(MakeColor(grey, grey, grey));
        raster::Ellipse(canvas.MemoryDC, i, i, diameter - i, diameter - i);
    }
    return DibCanvasClose(&canvas, CanvasClose::Keep);
}

}  // namespace tess::reference
