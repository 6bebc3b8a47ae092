#include "pipeline/image_buffers.h"

#include <algorithm>
#include <cstring>
#include <limits>

namespace tess {

namespace {

constexpr std::size_t kHeaderBytes = sizeof(PackedDib);

/// The context that every canvas starts from: no surface, the default objects.
constexpr raster::DrawingContext kScreenContext{};

constexpr int BitsForDepth(int depth) {
    if (depth == 1) return 1;
    if (depth >= 2 && depth <= 4) return 4;
    if (depth >= 5 && depth <= 8) return 8;
    if (depth >= 9 && depth <= 24) return 24;
    return 32;
}

bool IsInside(const PackedDib* image, int x, int y) {
    return x >= 0 && y >= 0 && x < image->Width && y < image->Height;
}

}  // namespace

std::uint8_t* DibColorTable(PackedDib* image) {
    return reinterpret_cast<std::uint8_t*>(image) + kHeaderBytes;
}

const std::uint8_t* DibColorTable(const PackedDib* image) {
    return reinterpret_cast<const std::uint8_t*>(image) + kHeaderBytes;
}

const std::uint8_t* DibRow(const PackedDib* image, int y) {
    const auto stride = static_cast<std::size_t>(Stride(image->Width, image->BitCount));
    return DibColorTable(image) + ColorTableBytes(image->BitCount) +
           stride * static_cast<std::size_t>(image->Height - 1 - y);
}

std::uint8_t* DibRow(PackedDib* image, int y) {
    return const_cast<std::uint8_t*>(DibRow(static_cast<const PackedDib*>(image), y));
}

void ReadColorTable(const PackedDib* image, std::uint8_t* palette) {
    std::memset(palette, 0, kPaletteBytes);
    const std::uint8_t* entry = DibColorTable(image);
    const std::size_t entries = ColorTableBytes(image->BitCount) / 4;
    for (std::size_t i = 0; i < entries; ++i, entry += 4, palette += 3) {
        palette[0] = entry[2];
        palette[1] = entry[1];
        palette[2] = entry[0];
    }
}

ImageHandle NewPackedDib(int width, int height, const std::uint8_t* palette, int depth) {
    const int bits = BitsForDepth(depth);
    if (width < 0 || height < 0) return nullptr;
    const std::int64_t stride = ((std::int64_t{width} * bits + 31) >> 5) << 2;
    // The header holds the size in 32 bits, and the scaler counts pixels in them.
    if (height > 0 && stride > std::numeric_limits<std::int32_t>::max() / height) return nullptr;
    const std::int64_t image_size = stride * height;
    const std::size_t table = ColorTableBytes(bits);
    platform::OwnedBlock block(
        platform::AllocateBlock(kHeaderBytes + table + static_cast<std::size_t>(image_size)));
    const LockedImage image(block.Get());
    if (!image) return nullptr;
    const auto colors = static_cast<std::uint32_t>(table / 4);
    *image.Get() = {static_cast<std::uint32_t>(kHeaderBytes),
                    width,
                    height,
                    1,
                    static_cast<std::uint16_t>(bits),
                    0,
                    static_cast<std::uint32_t>(image_size),
                    0,
                    0,
                    colors,
                    colors};
    if (palette != nullptr) {
        std::uint8_t* entry = DibColorTable(image.Get());
        for (std::uint32_t i = 0; i < colors; ++i, entry += 4, palette += 3) {
            entry[0] = palette[2];
            entry[1] = palette[1];
            entry[2] = palette[0];
        }
    }
    return block.Release();
}

platform::MemoryHandle DuplicateImage(platform::MemoryHandle handle) {
    const std::size_t size = platform::BlockSize(handle);
    if (size < 1) return nullptr;
    const platform::LockedBlock<const std::uint8_t> source(handle);
    platform::OwnedBlock copy(platform::AllocateBlock(size));
    const platform::LockedBlock<std::uint8_t> target(copy.Get());
    if (!source || !target) return nullptr;
    std::memcpy(target.Get(), source.Get(), size);
    return copy.Release();
}

std::uint32_t GetDibPixel(const PackedDib* image, int x, int y) {
    if (!IsInside(image, x, y)) return kNoPixel;
    const std::uint8_t* row = DibRow(image, y);
    switch (image->BitCount) {
        case 24: {
            const std::uint8_t* pixel = row + std::ptrdiff_t{3} * x;
            return MakeColor(pixel[2], pixel[1], pixel[0]);
        }
        case 32: {
            const std::uint8_t* pixel = row + std::ptrdiff_t{4} * x;
            return MakeColor(pixel[2], pixel[1], pixel[0]) | std::uint32_t{pixel[3]} << 24;
        }
        case 8:
            return row[x];
        case 4:
            return (x & 1) == 0 ? row[x >> 1] >> 4 : row[x >> 1] & 15;
        case 1:
            return (row[x >> 3] >> (7 - (x & 7))) & 1;
        default:
            return kNoPixel;
    }
}

void SetDibPixel(PackedDib* image, int x, int y, std::uint32_t value) {
    if (!IsInside(image, x, y)) return;
    std::uint8_t* row = DibRow(image, y);
    switch (image->BitCount) {
        case 24: {
            std::uint8_t* pixel = row + std::ptrdiff_t{3} * x;
            pixel[0] = BlueOf(value);
            pixel[1] = GreenOf(value);
            pixel[2] = RedOf(value);
            break;
        }
        case 32: {
            std::uint8_t* pixel = row + std::ptrdiff_t{4} * x;
            pixel[0] = BlueOf(value);
            pixel[1] = GreenOf(value);
            pixel[2] = RedOf(value);
            pixel[3] = AlphaOf(value);
            break;
        }
        case 8:
            row[x] = static_cast<std::uint8_t>(value);
            break;
        case 4: {
            std::uint8_t& pair = row[x >> 1];
            const std::uint32_t index = value & 15;
            pair = static_cast<std::uint8_t>((x & 1) == 0 ? (pair & 0x0F) | index << 4
                                                          : (pair & 0xF0) | index);
            break;
        }
        case 1: {
            const int bit = 0x80 >> (x & 7);
            std::uint8_t& eight = row[x >> 3];
            eight = static_cast<std::uint8_t>((value & 1) != 0 ? eight | bit : eight & ~bit);
            break;
        }
        default:
            break;
    }
}

int DibCanvasOpen(int width, int height, DibCanvas* canvas) {
    *canvas = {};
    canvas->ScreenDC = &kScreenContext;
    canvas->MemoryDC = *canvas->ScreenDC;
    canvas->Block = NewPackedDib(width, height, nullptr, 24);
    canvas->Header = static_cast<PackedDib*>(platform::LockBlock(canvas->Block));
    if (canvas->Header != nullptr) {
        canvas->Section = platform::AllocateBlock(canvas->Header->ImageSize);
        canvas->Bits = static_cast<std::uint8_t*>(platform::LockBlock(canvas->Section));
    }
    if (canvas->Bits == nullptr) {
        DibCanvasClose(canvas, CanvasClose::Discard);
        return 0;
    }
    canvas->PreviousObject = canvas->MemoryDC.surface;
    canvas->MemoryDC.surface = {canvas->Bits, width, height, Stride(width, 24)};
    canvas->Bounds = {0, 0, width, height};
    return 1;
}

ImageHandle DibCanvasClose(DibCanvas* canvas, CanvasClose flags) {
    const bool keep = flags == CanvasClose::Keep && !canvas->MemoryDC.failed;
    if (canvas->Bits != nullptr) {
        std::memcpy(DibRow(canvas->Header, canvas->Header->Height - 1), canvas->Bits,
                    canvas->Header->ImageSize);
        canvas->MemoryDC.surface = canvas->PreviousObject;
        platform::UnlockBlock(canvas->Section);
    }
    platform::FreeBlock(canvas->Section);
    if (canvas->Header != nullptr) platform::UnlockBlock(canvas->Block);
    if (!keep) {
        platform::FreeBlock(canvas->Block);
        canvas->Block = nullptr;
    }
    const ImageHandle block = canvas->Block;
    *canvas = {};
    canvas->Block = block;
    return block;
}

void PaintDib(raster::DrawingContext& context, int x, int y, ImageHandle handle) {
    const LockedImage image(handle);
    if (!image) return;
    const raster::Surface& surface = context.surface;
    const int left = std::max(x, 0);
    const int right =
        static_cast<int>(std::min<std::int64_t>(std::int64_t{x} + image->Width, surface.width));
    const int top = std::max(y, 0);
    const int bottom =
        static_cast<int>(std::min<std::int64_t>(std::int64_t{y} + image->Height, surface.height));
    std::uint8_t palette[kPaletteBytes];
    if (image->BitCount < 9) ReadColorTable(image.Get(), palette);
    for (int row = top; row < bottom; ++row) {
        std::uint8_t* target =
            surface.bits +
            static_cast<std::ptrdiff_t>(surface.stride) * (surface.height - 1 - row) +
            std::ptrdiff_t{3} * left;
        if (image->BitCount == 24 && left < right) {
            std::memcpy(target, DibRow(image.Get(), row - y) + std::ptrdiff_t{3} * (left - x),
                        std::size_t{3} * static_cast<std::size_t>(right - left));
            continue;
        }
        for (int column = left; column < right; ++column, target += 3) {
            ColorWord color = GetDibPixel(image.Get(), column - x, row - y);
            if (image->BitCount < 9) {
                const std::uint8_t* entry = palette + std::size_t{3} * color;
                color = MakeColor(entry[0], entry[1], entry[2]);
            }
            target[0] = BlueOf(color);
            target[1] = GreenOf(color);
            target[2] = RedOf(color);
        }
    }
}

int FrameListAdd(FrameList* list, const FrameRecord* record) {
    const std::size_t bytes = sizeof(FrameRecord) * (static_cast<std::size_t>(list->Count) + 1);
    const platform::MemoryHandle grown = list->Records == nullptr
                                             ? platform::AllocateBlock(bytes)
                                             : platform::ResizeBlock(list->Records, bytes);
    if (grown == nullptr) return 0;
    list->Records = grown;
    const platform::LockedBlock<FrameRecord> records(grown);
    if (!records) return 0;
    records.Get()[list->Count++] = *record;
    return 1;
}

int FrameListFree(FrameList* list) {
    {
        const platform::LockedBlock<FrameRecord> records(list->Records);
        if (records) {
            for (std::int32_t i = 0; i < list->Count; ++i) {
                platform::FreeBlock(records.Get()[i].Image);
                platform::FreeBlock(records.Get()[i].Mask);
            }
        }
    }
    platform::FreeBlock(list->Records);
    *list = {};
    return 1;
}

}  // namespace tess
