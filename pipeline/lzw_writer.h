// The compressed pixels of a GIF frame.
#pragma once

#include <cstdint>
#include <cstdio>

#include "pipeline/image_buffers.h"

namespace tess {

/// The Image Descriptor of GIF89a, without its separator.
struct GifImageDescriptor {
    std::uint16_t Left, Top;
    std::uint16_t Width, Height;
    std::uint8_t Packed;  ///< bits 0 to 2: bits per pixel - 1; bit 6: interlaced; bit 7: own table
};
inline constexpr std::uint8_t kGifInterlaced = 0x40;

/// Slots of the dictionary, which holds fewer than 4096 strings and so is never half full.
inline constexpr std::size_t kLzwSlots = 8192;
inline constexpr std::size_t kLzwBufferBytes = 259;
/// Codes have 12 bits at most, so there are no more of them than this.
inline constexpr int kLzwCodes = 4096;

/// The state of one frame's compression. The two blocks are its maker's.
struct LzwState {
    int CodeBits;   ///< current code size
    int ClearCode;  ///< restarts the dictionary
    int EndCode;
    int BitPosition;  ///< where the next code goes in Buffer
    int ByteIndex, BitIndex;
    int NextLimit;         ///< the code at which CodeBits grows
    int NextCode;          ///< next free code
    std::uint32_t* Codes;  ///< kLzwSlots words: prefix << 20 | suffix << 12 | code; 0 is free
    std::uint8_t* Buffer;  ///< kLzwBufferBytes
};

/// Writes the minimum code size, the sub-blocks and the block terminator.
/// Requires: `descriptor` tells the picture's size and bits per pixel.
/// Returns 1, or 0 when a write failed.
[[nodiscard]] int LzwWriteImage(std::FILE* stream, const PackedDib* image,
                                const GifImageDescriptor* descriptor, LzwState* state);

/// Adds one code of CodeBits bits, writing a sub-block when the buffer is full.
/// Returns 1, or 0 when a write failed.
[[nodiscard]] int LzwPutCode(std::FILE* stream, int code, LzwState* state);

}  // namespace tess
