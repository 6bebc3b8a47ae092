// Pictures and the list of frames. Every picture is one moveable block laid out
// as a device-independent bitmap, since the host reads it as such:
//
//   offset 0   the 40 bytes of PackedDib
//   offset 40  below 9 bits: 1 << bits entries of blue, green, red, 0
//   then       rows of `Stride` bytes, the bottom row first
//
// All coordinates of operations count from the top left.
#pragma once

#include <cstddef>
#include <cstdint>

#include "platform/block_guards.h"
#include "platform/memory.h"
#include "raster/drawing_context.h"

namespace tess {

/// 0x00BBGGRR, red in the low byte; alpha in bits 24 to 31 of a 32-bit image.
using ColorWord = std::uint32_t;

constexpr std::uint8_t RedOf(ColorWord color) {
    return static_cast<std::uint8_t>(color);
}
constexpr std::uint8_t GreenOf(ColorWord color) {
    return static_cast<std::uint8_t>(color >> 8);
}
constexpr std::uint8_t BlueOf(ColorWord color) {
    return static_cast<std::uint8_t>(color >> 16);
}
constexpr std::uint8_t AlphaOf(ColorWord color) {
    return static_cast<std::uint8_t>(color >> 24);
}
constexpr ColorWord MakeColor(int red, int green, int blue) {
    return static_cast<ColorWord>((red & 255) | ((green & 255) << 8) | ((blue & 255) << 16));
}

inline constexpr int kPaletteEntries = 256;
inline constexpr int kPaletteBytes = 768;  ///< 256 entries of red, green, blue

/// The handle of a picture belongs to whoever holds it.
using ImageHandle = platform::MemoryHandle;

/// The head of a picture's block. All numbers little-endian.
struct PackedDib {
    std::uint32_t HeaderSize;  ///< 40
    std::int32_t Width;
    std::int32_t Height;                     ///< always positive
    std::uint16_t Planes;                    ///< 1
    std::uint16_t BitCount;                  ///< 1, 4, 8, 24 or 32
    std::uint32_t Compression;               ///< 0
    std::uint32_t ImageSize;                 ///< stride x height
    std::uint32_t ResolutionX, ResolutionY;  ///< 0
    std::uint32_t ColorsUsed;                ///< 2, 16 or 256; 0 for 24 and 32 bits
    std::uint32_t ColorsImportant;           ///< the same
};
static_assert(sizeof(PackedDib) == 40);

using LockedImage = platform::LockedBlock<PackedDib>;

constexpr int Stride(int width, int bits) {
    return static_cast<int>(((static_cast<std::int64_t>(width) * bits + 31) >> 5) << 2);
}
/// Bytes of the colour table, reckoned from the bit count alone.
constexpr std::size_t ColorTableBytes(int bits) {
    return bits < 9 ? std::size_t{4} << bits : 0;
}

/// Where a pixel of 24 bits, stored blue, green, red, has its colour's low byte.
inline constexpr std::ptrdiff_t kLowByte = 2;

/// The row view: the bytes of row `y` counted from the top. Requires: y is inside.
[[nodiscard]] std::uint8_t* DibRow(PackedDib* image, int y);
[[nodiscard]] const std::uint8_t* DibRow(const PackedDib* image, int y);
/// The colour table, 4 bytes an entry: blue, green, red, 0.
[[nodiscard]] std::uint8_t* DibColorTable(PackedDib* image);
[[nodiscard]] const std::uint8_t* DibColorTable(const PackedDib* image);
/// Copies the colour table into `palette` (768 bytes, cleared first).
void ReadColorTable(const PackedDib* image, std::uint8_t* palette);

/// Returns a new picture of zero pixels, or null. `depth` 1 gives 1 bit, 0 gives
/// 32, 2 to 4 give 4, 5 to 8 give 8, 9 to 24 give 24, above that 32 bits. A table
/// is filled from `palette` (red, green, blue; as many entries as the layout
/// has) unless that is null. The caller owns it.
[[nodiscard]] ImageHandle NewPackedDib(int width, int height, const std::uint8_t* palette,
                                       int depth);

/// Returns a copy of any block, of its reported size, or null.
[[nodiscard]] platform::MemoryHandle DuplicateImage(platform::MemoryHandle handle);

/// What GetDibPixel answers for a place outside the picture.
inline constexpr std::uint32_t kNoPixel = 0xFFFFFFFF;

/// The pixel at (x, y), y from the top: a colour word for 24 bits, with alpha for
/// 32, an index for 8, 4 and 1. kNoPixel outside and for other bit counts.
[[nodiscard]] std::uint32_t GetDibPixel(const PackedDib* image, int x, int y);
/// The mirror of GetDibPixel; ignores a place outside.
void SetDibPixel(PackedDib* image, int x, int y, std::uint32_t value);

/// A 24-bit picture opened for drawing. Pixels reach the picture in
/// DibCanvasClose.
struct DibCanvas {
    ImageHandle Block;
    PackedDib* Header;                       ///< the locked block
    platform::MemoryHandle Section;          ///< the private copy that is drawn on
    raster::Surface PreviousObject;          ///< what the context drew on before the section
    std::uint8_t* Bits;                      ///< the section's pixels, locked
    raster::DrawingContext MemoryDC;         ///< draws on Bits
    const raster::DrawingContext* ScreenDC;  ///< the context that MemoryDC was made from
    raster::Rect Bounds;                     ///< 0, 0, width, height
};

enum class CanvasClose : unsigned { Discard = 0, Keep = 1 };

/// Opens a black canvas. Returns 1, or 0 with nothing left to close.
[[nodiscard]] int DibCanvasOpen(int width, int height, DibCanvas* canvas);
/// Copies the drawing into the block. Keep leaves the picture in `Block`, for the
/// caller to own; Discard, or a drawing call that failed, frees it and nulls
/// `Block`. Harmless after a failed open and when closed already. Returns `Block`.
ImageHandle DibCanvasClose(DibCanvas* canvas, CanvasClose flags);

/// Draws the picture at its own size with its top left at (x, y), clipped.
/// Does nothing for a null handle.
void PaintDib(raster::DrawingContext& context, int x, int y, ImageHandle image);

/// One frame of an animation.
struct FrameRecord {
    ImageHandle Image;
    ImageHandle Mask;     ///< may be null; 1 bit, set where nothing changed since the frame before
    std::uint32_t Delay;  ///< in the host's unit
    std::int32_t TransparentIndex;  ///< -1 for none
};

/// Owns the pictures and masks of its records.
struct FrameList {
    platform::MemoryHandle Records;  ///< an array of FrameRecord; null when empty
    std::int32_t Count;
};

/// Appends a copy of `record`. Returns 1, or 0 with the list unchanged and the
/// record's handles still the caller's.
[[nodiscard]] int FrameListAdd(FrameList* list, const FrameRecord* record);
/// Frees all pictures, masks and the array. Returns 1.
int FrameListFree(FrameList* list);

}  // namespace tess
