// Fountains: ramps of colours from a start to an end, with up to 64 coloured
// markers between them. The record is 585 packed little-endian bytes, the same in
// memory, in a control's file and, as hexadecimal text, in a document.
#pragma once

#include <cstdint>

#include "pipeline/image_buffers.h"
#include "platform/block_guards.h"

namespace tess {

/// A colour word in bits 0 to 23 and a position in bits 24 to 31: 1 to 255 along
/// the ramp, 0 for an empty slot.
using FountainMarker = std::uint32_t;

inline constexpr int kFountainMarkers = 64;
inline constexpr char kFountainMagic[] = "QRVNFOUN";
inline constexpr int kFountainMagicBytes = 8;
inline constexpr std::uint32_t kFountainVersion = 0x04000001;
inline constexpr ColorWord kColorBits = 0x00FFFFFF;

[[nodiscard]] constexpr ColorWord MarkerColor(FountainMarker marker) {
    return marker & kColorBits;
}
[[nodiscard]] constexpr int MarkerPosition(FountainMarker marker) {
    return static_cast<int>(marker >> 24);
}
/// Keeps the low 8 bits of `position`.
[[nodiscard]] constexpr FountainMarker MakeMarker(int position, ColorWord color) {
    return static_cast<FountainMarker>(position) << 24 | (color & kColorBits);
}

/// Bits of Fountain::Flags.
inline constexpr std::uint32_t kFountainSaved = 1;   ///< kept in the control's own file
inline constexpr std::uint32_t kFountainLooped = 2;  ///< ends in the colour that it starts with

#pragma pack(push, 1)
struct Fountain {
    char Magic[8];  ///< kFountainMagic
    std::uint32_t Version;
    std::uint32_t Size;  ///< 585
    std::uint32_t Flags;
    char Name[260];  ///< zero; nothing reads it, nor what ends it
    char NameEnd;
    ImageHandle Preview;  ///< of a control, in memory alone: a stored one means nothing
    std::int32_t Count;   ///< markers in use, 0 to 64
    ColorWord Start;
    ColorWord End;  ///< not used where looped; the top byte means nothing
    FountainMarker Markers[kFountainMarkers];
    // The state of a control.
    std::int32_t Selected;  ///< the marker that was clicked last, -1 for none
    std::uint32_t OutlineShown;
    std::uint32_t Dragging;
    std::int32_t PressX, PressY;
    std::int32_t DragX, DragY;
};
#pragma pack(pop)
static_assert(sizeof(Fountain) == 585);

using LockedFountain = platform::LockedBlock<Fountain>;

/// What InitFountain writes between black and white.
enum class FountainPreset { Plain, OneGrey, SevenColors };
void InitFountain(Fountain* fountain, FountainPreset preset);

[[nodiscard]] bool HasFountainMagic(const Fountain& fountain);

/// Clears `positions` and sets the column of each marker on a strip of `width`
/// pixels: 0 to `width`.
void FountainMarkerPixels(const Fountain& fountain, int width,
                          std::int32_t (&positions)[kFountainMarkers]);

/// Returns a new 24-bit picture with the colours running along x, owned by the
/// caller, or null.
[[nodiscard]] ImageHandle RenderFountainImage(const Fountain& fountain, int width, int height);

}  // namespace tess
