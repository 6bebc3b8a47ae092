#include "fills/fountain_markers.h"

#include <algorithm>

namespace tess {

namespace {

using platform::PixelSize;

constexpr int kStripMargin = 8, kStripTop = 16, kStripBottomMargin = 4;
constexpr int kTrackTop = 3, kTrackBottom = 11;
constexpr int kMarkerReach = 5;  // to the left and right of its column
constexpr int kMarkerTop = 4, kMarkerBottom = 10, kMarkerTip = 9;
constexpr int kLastPosition = 255;

int StripWidth(PixelSize client) {
    const FountainBox strip = StripBox(client);
    return strip.Right - strip.Left;
}

bool Holds(const FountainBox& box, int x, int y) {
    return x >= box.Left && x < box.Right && y >= box.Top && y < box.Bottom;
}

/// trunc(offset / width * 255) of a place on the strip.
int PositionAt(PixelSize client, int x) {
    const int width = StripWidth(client);
    if (width <= 0) return 0;
    return static_cast<int>(static_cast<double>(x - StripBox(client).Left) / width * 255.0);
}

bool IsTaken(const Fountain& fountain, int position) {
    for (int i = 0; i < MarkerCount(fountain); ++i) {
        if (MarkerPosition(fountain.Markers[i]) == position) return true;
    }
    return false;
}

}  // namespace

FountainBox StripBox(PixelSize client) {
    return {kStripMargin, kStripTop, client.Width - kStripMargin,
            client.Height - kStripBottomMargin};
}

FountainBox TrackBox(PixelSize client) {
    return {kStripMargin, kTrackTop, client.Width - kStripMargin, kTrackBottom};
}

FountainBox LeftHandleBox(PixelSize client) {
    return MarkerBox(StripBox(client).Left);
}

FountainBox RightHandleBox(PixelSize client) {
    return MarkerBox(StripBox(client).Right);
}

FountainTriangle MarkerTriangle(int x) {
    return {{x - kMarkerReach, x + kMarkerReach, x}, {kMarkerTop, kMarkerTop, kMarkerTip}};
}

FountainBox MarkerBox(int x) {
    return {x - kMarkerReach, kMarkerTop, x + kMarkerReach, kMarkerBottom};
}

int MarkerCount(const Fountain& fountain) {
    return std::clamp(int{fountain.Count}, 0, kFountainMarkers);
}

void MarkerColumns(const Fountain& fountain, PixelSize client,
                   std::int32_t (&columns)[kFountainMarkers]) {
    FountainMarkerPixels(fountain, StripWidth(client), columns);
    for (std::int32_t& column : columns)
        column += StripBox(client).Left;
}

int MarkerAt(const Fountain& fountain, PixelSize client, int x, int y) {
    std::int32_t columns[kFountainMarkers];
    MarkerColumns(fountain, client, columns);
    for (int i = 0; i < MarkerCount(fountain); ++i) {
        if (Holds(MarkerBox(columns[i]), x, y)) return i;
    }
    return -1;
}

FountainHit HitFountain(const Fountain& fountain, PixelSize client, int x, int y) {
    if (Holds(StripBox(client), x, y)) return {FountainPart::Strip};
    if (Holds(LeftHandleBox(client), x, y)) return {FountainPart::StartHandle};
    const bool is_looped = (fountain.Flags & kFountainLooped) != 0;
    if (!is_looped && Holds(RightHandleBox(client), x, y)) return {FountainPart::EndHandle};
    const int marker = MarkerAt(fountain, client, x, y);
    if (marker >= 0) return {FountainPart::Marker, marker};
    if (Holds(TrackBox(client), x, y)) return {FountainPart::Track};
    return {};
}

int TrackPosition(PixelSize client, int x) {
    return std::clamp(PositionAt(client, x), 0, kLastPosition);
}

int DropPosition(PixelSize client, int x) {
    return std::clamp(PositionAt(client, x), 1, kLastPosition);
}

int OutlineColumn(PixelSize client, int x) {
    const int left = StripBox(client).Left;
    return left + std::clamp(x - left, 1, std::max(StripWidth(client), 1));
}

int CompareMarkers(FountainMarker a, FountainMarker b) {
    const int first = MarkerPosition(a), second = MarkerPosition(b);
    if (first != 0 && second != 0) return first - second;
    if (first != second) return first == 0 ? 1 : -1;
    // A marker can stand at position 0 and is no empty slot; the slot stands last.
    return (a == 0 ? 1 : 0) - (b == 0 ? 1 : 0);
}

void SortMarkers(Fountain* fountain, int count) {
    // An insertion keeps the order of equals, which the C library's sort leaves open:
    // so every build sorts alike.
    for (int i = 1; i < std::min(count, kFountainMarkers); ++i) {
        const FountainMarker marker = fountain->Markers[i];
        int place = i;
        for (; place > 0 && CompareMarkers(fountain->Markers[place - 1], marker) > 0; --place)
            fountain->Markers[place] = fountain->Markers[place - 1];
        fountain->Markers[place] = marker;
    }
}

int FindFreeMarkerPosition(const Fountain& fountain, int* position) {
    if (fountain.Count < 0 || fountain.Count >= kFountainMarkers) return 0;
    // From this position on the search goes down one by one. Below it steps to and fro:
    // between two taken positions it would do so without end. A walk of more steps than
    // there are states of it repeats itself, and there is no more space for it.
    constexpr int kHighEnd = 63;
    constexpr int kStates = (kLastPosition + 1) * 2 * 4;  // position, direction, ends seen
    int step = -1;
    bool has_seen_low_end = false, has_seen_high_end = false;
    int candidate = *position;
    for (int i = 0; i < kStates; ++i) {
        if (has_seen_low_end && has_seen_high_end) return 0;
        if (!IsTaken(fountain, candidate)) {
            *position = candidate;
            return 1;
        }
        if (candidate == 0) {
            has_seen_low_end = true;
            candidate = 1;
            step = -1;
            continue;
        }
        if (candidate >= kHighEnd) {
            has_seen_high_end = true;
            step = -1;
        }
        candidate += step;
        step = -step;
    }
    return 0;
}

void InsertMarker(Fountain* fountain, FountainMarker marker) {
    fountain->Markers[fountain->Count] = marker;
    ++fountain->Count;
    SortMarkers(fountain, fountain->Count);
}

void RemoveMarker(Fountain* fountain, int index) {
    fountain->Markers[index] = 0;
    SortMarkers(fountain, fountain->Count);
    --fountain->Count;
}

}  // namespace tess
