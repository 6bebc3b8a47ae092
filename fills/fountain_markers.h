// What a fountain button shows where, what of it lies under the mouse, and where its
// markers may stand. All places are in pixels from the control's left top corner.
#pragma once

#include "fills/fountain.h"
#include "platform/screen.h"

namespace tess {

inline constexpr platform::PixelSize kFountainButtonSize = {197, 50};

/// A box without its right column and bottom row.
struct FountainBox {
    int Left, Top, Right, Bottom;
    bool operator==(const FountainBox&) const = default;
};

/// A triangle that stands on its tip, as a marker and as the outline of one.
struct FountainTriangle {
    int X[3], Y[3];
    bool operator==(const FountainTriangle&) const = default;
};

/// The strip of the colours.
[[nodiscard]] FountainBox StripBox(platform::PixelSize client);
/// The track above the strip, in which the markers stand.
[[nodiscard]] FountainBox TrackBox(platform::PixelSize client);
[[nodiscard]] FountainBox LeftHandleBox(platform::PixelSize client);
[[nodiscard]] FountainBox RightHandleBox(platform::PixelSize client);
[[nodiscard]] FountainTriangle MarkerTriangle(int x);
[[nodiscard]] FountainBox MarkerBox(int x);

/// How many markers the record has, held to what it can have.
[[nodiscard]] int MarkerCount(const Fountain& fountain);
/// Sets `columns` to the x of each marker.
void MarkerColumns(const Fountain& fountain, platform::PixelSize client,
                   std::int32_t (&columns)[kFountainMarkers]);

enum class FountainPart { None, StartHandle, EndHandle, Marker, Track, Strip };

struct FountainHit {
    FountainPart Part = FountainPart::None;
    int Marker = -1;
};

/// The first marker, by index, whose box holds the place, -1 for none.
[[nodiscard]] int MarkerAt(const Fountain& fountain, platform::PixelSize client, int x, int y);
/// The handles lie over the markers, those over the track; a looped fountain has no
/// end handle.
[[nodiscard]] FountainHit HitFountain(const Fountain& fountain, platform::PixelSize client, int x,
                                      int y);

/// The position that a place in the track means: 0 to 255 along the strip.
[[nodiscard]] int TrackPosition(platform::PixelSize client, int x);
/// The position at which a dragged marker is let go: 1 to 255.
[[nodiscard]] int DropPosition(platform::PixelSize client, int x);
/// Where the outline of a dragged marker stands: held to the strip.
[[nodiscard]] int OutlineColumn(platform::PixelSize client, int x);

/// Below 0 where `a` stands before `b`, above 0 where behind. An empty slot stands behind
/// all others.
[[nodiscard]] int CompareMarkers(FountainMarker a, FountainMarker b);
/// Sorts the first `count` markers; equals keep their order.
void SortMarkers(Fountain* fountain, int count);

/// Looks for a position that no marker holds, from `position` on. Returns 1 with it in
/// `position`, or 0 when there is no more space.
[[nodiscard]] int FindFreeMarkerPosition(const Fountain& fountain, int* position);

/// Adds a marker in its place. Requires: fewer than 64 of them.
void InsertMarker(Fountain* fountain, FountainMarker marker);
/// Takes a marker out. Requires: there is one at `index`.
void RemoveMarker(Fountain* fountain, int index);

}  // namespace tess
