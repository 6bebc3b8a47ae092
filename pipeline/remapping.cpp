// Remapping without dithering. Pictures with a table are taken through a table
// from their indexes to the target's; others colour by colour.
#include "pipeline/remapping.h"

#include "pipeline/palette.h"
#include "pipeline/palette_search.h"
#include "pipeline/pixel_rows.h"

namespace tess {

std::uint32_t DitherBrightness = 20;
std::uint32_t DitherContrast = 20;
std::uint32_t FastRemap = 0;

namespace {

constexpr int kBrightHalf = 128;
constexpr ColorWord kBlack = 0x000000;
constexpr ColorWord kWhite = 0xFFFFFF;
constexpr ColorWord kColorBits = 0xFFFFFF;  // without alpha

std::uint8_t BrightBit(const std::uint8_t* color) {
    return Luminance(color[0], color[1], color[2]) >= kBrightHalf ? 1 : 0;
}

struct Target {
    PackedDib* Image;
    const std::uint8_t* Palette;
    int Depth;
    int Colors;
};

SearchPrecision PrecisionInForce() {
    return FastRemap == 0 ? SearchPrecision::Exact : SearchPrecision::FiveBits;
}

/// Writes the target's index for each index of the source.
int FillIndexTable(const PackedDib* source, const Target& target, std::uint8_t* table) {
    if (source->BitCount == 1) {
        // Set is white and clear is black, whatever the source's table says.
        PaletteSearch search(target.Palette, target.Colors, PrecisionInForce());
        if (!search) return 0;
        table[0] = static_cast<std::uint8_t>(search.IndexOf(kBlack));
        table[1] = static_cast<std::uint8_t>(search.IndexOf(kWhite));
        return 1;
    }
    std::uint8_t colors[kPaletteBytes];
    ReadColorTable(source, colors);
    const std::uint8_t* color = colors;
    for (int i = 0; i < 1 << source->BitCount; ++i, color += 3) {
        table[i] = target.Image->BitCount == 1
                       ? BrightBit(color)
                       : static_cast<std::uint8_t>(NearestColor(color[0], color[1], color[2],
                                                                target.Palette, 1 << target.Depth));
    }
    return 1;
}

int RemapIndexes(const PackedDib* source, const Target& target) {
    std::uint8_t table[kPaletteEntries];
    if (FillIndexTable(source, target, table) == 0) return 0;
    platform::WorkArray<std::uint8_t> row(static_cast<std::size_t>(source->Width));
    if (!row) return 0;
    for (int y = 0; y < source->Height; ++y) {
        ReadIndexRow(source, y, row.data());
        for (std::uint8_t& index : row)
            index = table[index];
        WriteIndexRow(target.Image, y, row.data());
    }
    return 1;
}

int RemapToTwo(const PackedDib* source, const Target& target) {
    platform::WorkArray<std::uint8_t> row(static_cast<std::size_t>(source->Width));
    if (!row) return 0;
    const int step = source->BitCount / 8;
    for (int y = 0; y < source->Height; ++y) {
        const std::uint8_t* pixel = DibRow(source, y);
        for (std::uint8_t& bit : row) {
            bit = Luminance(pixel[2], pixel[1], pixel[0]) >= kBrightHalf ? 1 : 0;
            pixel += step;
        }
        WriteIndexRow(target.Image, y, row.data());
    }
    return 1;
}

int RemapColors(const PackedDib* source, const Target& target) {
    PaletteSearch search(target.Palette, target.Colors, PrecisionInForce());
    platform::WorkArray<std::uint8_t> row(static_cast<std::size_t>(source->Width));
    if (!search || !row) return 0;
    const int step = source->BitCount / 8;
    ColorWord last = kBlack;
    int last_index = search.IndexOf(kBlack);
    for (int y = 0; y < source->Height; ++y) {
        const std::uint8_t* pixel = DibRow(source, y);
        for (std::uint8_t& index : row) {
            const ColorWord color = MakeColor(pixel[2], pixel[1], pixel[0]);
            if (color != last) last_index = search.IndexOf(color);
            last = color;
            index = static_cast<std::uint8_t>(last_index);
            pixel += step;
        }
        WriteIndexRow(target.Image, y, row.data());
    }
    return 1;
}

}  // namespace

ImageHandle RemapPlain(ImageHandle source_handle, const std::uint8_t* palette, int depth,
                       int colors) {
    const LockedImage source(source_handle);
    // Only pictures with a table are made; any other depth has no index to store.
    if (!source || depth < 1 || depth > 8) return nullptr;
    platform::OwnedBlock block(NewPackedDib(source->Width, source->Height, palette, depth));
    const LockedImage image(block.Get());
    if (!image) return nullptr;
    const Target target{image.Get(), palette, depth, colors};
    int done = 0;
    if (source->BitCount < 9) {
        done = RemapIndexes(source.Get(), target);
    } else if (image->BitCount == 1) {
        done = RemapToTwo(source.Get(), target);
    } else {
        done = RemapColors(source.Get(), target);
    }
    return done != 0 ? block.Release() : nullptr;
}

ImageHandle ForceColorIndex(ImageHandle image_handle, ImageHandle source_handle, ColorWord color,
                            int index) {
    const LockedImage image(image_handle);
    const LockedImage source(source_handle);
    if (!image || !source || image->BitCount > 8 || source->BitCount != 24 ||
        source->Width != image->Width || source->Height != image->Height) {
        return nullptr;
    }
    std::uint8_t palette[kPaletteBytes];
    ReadColorTable(image.Get(), palette);
    platform::OwnedBlock block(NewPackedDib(image->Width, image->Height, palette, image->BitCount));
    const LockedImage forced(block.Get());
    platform::WorkArray<std::uint8_t> row(static_cast<std::size_t>(image->Width));
    if (!forced || !row) return nullptr;
    for (int y = 0; y < image->Height; ++y) {
        ReadIndexRow(image.Get(), y, row.data());
        const std::uint8_t* pixel = DibRow(source.Get(), y);
        for (std::uint8_t& target : row) {
            if (MakeColor(pixel[2], pixel[1], pixel[0]) == (color & kColorBits)) {
                target = static_cast<std::uint8_t>(index);
            }
            pixel += 3;
        }
        WriteIndexRow(forced.Get(), y, row.data());
    }
    return block.Release();
}

}  // namespace tess
