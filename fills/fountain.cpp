// A fountain's picture is made of plain two-colour strips side by side, one from
// each marker to the next. Markers on the same column make a hard step there, and
// the earlier of them has no width.
#include "fills/fountain.h"

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <iterator>

#include "fills/gradient.h"

namespace tess {

namespace {

constexpr FountainMarker kOneGrey[] = {0x80808080};
constexpr FountainMarker kSevenColors[] = {0x20FF0000, 0x40FFFF00, 0x6000FF00, 0x8000FFFF,
                                           0xA00000FF, 0xC0FF00FF, 0xE0CC0099};

int MarkersInUse(const Fountain& fountain) {
    // A copy, since a reference into a packed record may not be aligned.
    return std::clamp(std::int32_t{fountain.Count}, 0, kFountainMarkers);
}

template <std::size_t Count>
void SetMarkers(Fountain* fountain, const FountainMarker (&markers)[Count]) {
    std::memcpy(fountain->Markers, markers, sizeof markers);
    fountain->Count = static_cast<std::int32_t>(Count);
}

/// Copies `strip` into `picture` of the same height, its left at column `x`.
void CopyColumns(const PackedDib* strip, PackedDib* picture, int x) {
    for (int y = 0; y < strip->Height; ++y) {
        std::memcpy(DibRow(picture, y) + std::ptrdiff_t{3} * x, DibRow(strip, y),
                    std::size_t{3} * static_cast<std::size_t>(strip->Width));
    }
}

/// Draws the run from one colour to another on the columns from `first` up to
/// `end`. Returns false without memory.
bool DrawRun(PackedDib* picture, int first, int end, ColorWord from, ColorWord to) {
    constexpr int kAcross = 90;
    if (end <= first) return true;
    const platform::OwnedBlock strip(
        DrawLinearGradient(from, to, end - first, picture->Height, kAcross, nullptr));
    const LockedImage image(strip.Get());
    if (!image) return false;
    CopyColumns(image, picture, first);
    return true;
}

}  // namespace

void InitFountain(Fountain* fountain, FountainPreset preset) {
    *fountain = {};
    std::memcpy(fountain->Magic, kFountainMagic, kFountainMagicBytes);
    fountain->Version = kFountainVersion;
    fountain->Size = sizeof(Fountain);
    fountain->Start = 0;
    fountain->End = 0xFFFFFFFF;
    switch (preset) {
        case FountainPreset::Plain:
            break;
        case FountainPreset::OneGrey:
            SetMarkers(fountain, kOneGrey);
            break;
        case FountainPreset::SevenColors:
            SetMarkers(fountain, kSevenColors);
            break;
    }
}

bool HasFountainMagic(const Fountain& fountain) {
    return std::memcmp(fountain.Magic, kFountainMagic, kFountainMagicBytes) == 0;
}

void FountainMarkerPixels(const Fountain& fountain, int width,
                          std::int32_t (&positions)[kFountainMarkers]) {
    std::fill(std::begin(positions), std::end(positions), 0);
    const int count = MarkersInUse(fountain);
    for (int i = 0; i < count; ++i) {
        positions[i] =
            static_cast<std::int32_t>(MarkerPosition(fountain.Markers[i]) / 255.0 * width);
    }
}

ImageHandle RenderFountainImage(const Fountain& fountain, int width, int height) {
    platform::OwnedBlock block(NewPackedDib(width, height, nullptr, 24));
    const LockedImage picture(block.Get());
    if (!picture) return nullptr;
    std::int32_t positions[kFountainMarkers];
    FountainMarkerPixels(fountain, width, positions);
    ColorWord from = fountain.Start & kColorBits;
    int column = 0;
    const int count = MarkersInUse(fountain);
    for (int i = 0; i < count; ++i) {
        const ColorWord to = MarkerColor(fountain.Markers[i]);
        if (!DrawRun(picture, column, positions[i], from, to)) return nullptr;
        column = positions[i];
        from = to;
    }
    const bool looped = (fountain.Flags & kFountainLooped) != 0;
    const ColorWord end = (looped ? fountain.Start : fountain.End) & kColorBits;
    if (!DrawRun(picture, column, width, from, end)) return nullptr;
    return block.Release();
}

}  // namespace tess
