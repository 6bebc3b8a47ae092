#include "pipeline/palette.h"

#include <algorithm>
#include <cstring>
#include <iterator>
#include <limits>
#include <utility>

namespace tess {

namespace {

struct FixedPalette {
    int colors;
    int depth;  // bits per pixel
};

/// By the index of the dialog's list; the last row is not in the list.
constexpr FixedPalette kFixedPalettes[] = {{2, 1},   {16, 4},  {32, 5},  {64, 6},  {128, 7},
                                           {216, 8}, {256, 8}, {256, 8}, {256, 8}, {8, 3}};
constexpr int kDefaultPalette = 6;

constexpr std::uint8_t kTwoLevels[] = {0, 255};
constexpr std::uint8_t kFourLevels[] = {0, 85, 170, 255};
constexpr std::uint8_t kSixLevels[] = {0, 51, 102, 153, 204, 255};
constexpr std::uint8_t kEightLevels[] = {0, 36, 72, 108, 144, 180, 216, 255};
// The grid around the gray ramp has levels of its own, rounded to nearest.
constexpr std::uint8_t kGridReds[] = {0, 43, 85, 128, 170, 213, 255};
constexpr std::uint8_t kGridGreens[] = {0, 36, 73, 109, 146, 182, 219, 255};

constexpr int kRampStart = 112;
constexpr int kRampSteps = 32;

constexpr std::uint8_t kBlackAndWhite[][3] = {{0, 0, 0}, {255, 255, 255}};
constexpr std::uint8_t kSixteenColors[][3] = {
    {0, 0, 0},     {128, 0, 0},     {0, 128, 0},     {128, 128, 0},  {0, 0, 128}, {128, 0, 128},
    {0, 128, 128}, {128, 128, 128}, {192, 192, 192}, {255, 0, 0},    {0, 255, 0}, {255, 255, 0},
    {0, 0, 255},   {255, 0, 255},   {0, 255, 255},   {255, 255, 255}};
constexpr std::uint8_t kEightColors[][3] = {{0, 0, 0},     {255, 0, 0},    {0, 255, 0},
                                            {255, 255, 0}, {0, 0, 255},    {255, 0, 255},
                                            {0, 255, 255}, {255, 255, 255}};

void PutEntry(std::uint8_t* palette, int index, int red, int green, int blue) {
    std::uint8_t* entry = palette + std::ptrdiff_t{3} * index;
    entry[0] = static_cast<std::uint8_t>(red);
    entry[1] = static_cast<std::uint8_t>(green);
    entry[2] = static_cast<std::uint8_t>(blue);
}

/// Red varies slowest and blue fastest.
template <std::size_t Reds, std::size_t Greens, std::size_t Blues>
void WriteGrid(std::uint8_t* palette, const std::uint8_t (&reds)[Reds],
               const std::uint8_t (&greens)[Greens], const std::uint8_t (&blues)[Blues]) {
    int index = 0;
    for (const int red : reds) {
        for (const int green : greens) {
            for (const int blue : blues)
                PutEntry(palette, index++, red, green, blue);
        }
    }
}

/// Green varies slowest, then red, then blue.
void WriteSafeColors(std::uint8_t* palette) {
    int index = 0;
    for (const int green : kSixLevels) {
        for (const int red : kSixLevels) {
            for (const int blue : kSixLevels)
                PutEntry(palette, index++, red, green, blue);
        }
    }
}

void WriteGridAroundGrays(std::uint8_t* palette) {
    WriteGrid(palette, kGridReds, kGridGreens, kFourLevels);
    constexpr std::size_t kEntryBytes = 3;
    std::memmove(palette + kEntryBytes * (kRampStart + kRampSteps),
                 palette + kEntryBytes * kRampStart, kEntryBytes * kRampStart);
    for (int k = 0; k < kRampSteps; ++k) {
        // The ends differ from pure black and white, which the grid has already.
        const int gray = std::clamp(k * 255 / (kRampSteps - 1), 1, 254);
        PutEntry(palette, kRampStart + k, gray, gray, gray);
    }
}

void WriteFixedPalette(std::uint8_t* palette, int index) {
    switch (index) {
        case 0:
            std::memcpy(palette, kBlackAndWhite, sizeof kBlackAndWhite);
            break;
        case 1:
            std::memcpy(palette, kSixteenColors, sizeof kSixteenColors);
            break;
        case 2:
            WriteGrid(palette, kFourLevels, kFourLevels, kTwoLevels);
            break;
        case 3:
            WriteGrid(palette, kFourLevels, kFourLevels, kFourLevels);
            break;
        case 4:
            WriteGrid(palette, kFourLevels, kEightLevels, kFourLevels);
            break;
        case 5:
            WriteSafeColors(palette);
            break;
        case 7:
            WriteGridAroundGrays(palette);
            break;
        case 8:
            for (int i = 0; i < kPaletteEntries; ++i)
                PutEntry(palette, i, i, i, i);
            break;
        case 9:
            std::memcpy(palette, kEightColors, sizeof kEightColors);
            break;
        default:
            WriteGrid(palette, kEightLevels, kEightLevels, kFourLevels);
            break;
    }
}

int EntryLuminance(const std::uint8_t* entry) {
    return Luminance(entry[0], entry[1], entry[2]);
}

}  // namespace

int BuildFixedPalette(std::uint8_t* palette, int* depth, int index) {
    if (index < 0 || index >= static_cast<int>(std::size(kFixedPalettes))) index = kDefaultPalette;
    if (palette != nullptr) {
        std::memset(palette, 0, kPaletteBytes);
        WriteFixedPalette(palette, index);
    }
    if (depth != nullptr) *depth = kFixedPalettes[index].depth;
    return kFixedPalettes[index].colors;
}

int NearestColor(int red, int green, int blue, const std::uint8_t* palette, int count) {
    int nearest = 0;
    int least = std::numeric_limits<int>::max();
    for (int i = 0; i < count; ++i, palette += 3) {
        const int dr = red - palette[0];
        const int dg = green - palette[1];
        const int db = blue - palette[2];
        const int distance = 3 * dr * dr + 4 * dg * dg + 2 * db * db;
        if (distance < least) {
            nearest = i;
            least = distance;
            if (distance == 0) break;
        }
    }
    return nearest;
}

void SortPaletteByLuminance(std::uint8_t* palette, int count) {
    bool swapped = true;
    while (swapped) {
        swapped = false;
        for (int i = 1; i < count; ++i) {
            std::uint8_t* entry = palette + std::ptrdiff_t{3} * i;
            if (EntryLuminance(entry) < EntryLuminance(entry - 3)) {
                std::swap_ranges(entry - 3, entry, entry);
                swapped = true;
            }
        }
    }
}

}  // namespace tess
