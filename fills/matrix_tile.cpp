// The result is the picture, converted to 24 bits once, repeated: the first rows are
// filled by copying what stands to the left, the rows below them by copying the row
// one picture higher. A picture of fewer than 24 bits gives the colours of its table.
#include "fills/matrix_tile.h"

#include <algorithm>
#include <cstring>
#include <limits>

#include "pipeline/picture_check.h"
#include "platform/resources.h"

namespace tess {

namespace {

using platform::OwnedBlock;

constexpr int kDefaultTile = 9908;
constexpr std::size_t kPixelBytes = 3;

/// The default tile where it stands in the resources, or null.
const PackedDib* DefaultTile() {
    const auto stored = platform::FindData(kDefaultTile);
    if (!IsWholePicture(stored.data(), stored.size())) return nullptr;
    return reinterpret_cast<const PackedDib*>(stored.data());
}

/// Writes the first `count` pixels of a row as blue, green, red.
void WriteColors(const PackedDib* source, int y, const std::uint8_t* palette, int count,
                 std::uint8_t* target) {
    if (source->BitCount == 24) {
        std::memcpy(target, DibRow(source, y), kPixelBytes * static_cast<std::size_t>(count));
        return;
    }
    for (int x = 0; x < count; ++x, target += kPixelBytes) {
        const std::uint32_t pixel = GetDibPixel(source, x, y);
        if (source->BitCount > 24) {
            target[0] = BlueOf(pixel);
            target[1] = GreenOf(pixel);
            target[2] = RedOf(pixel);
        } else {
            const std::uint8_t* color = palette + std::size_t{3} * pixel;
            target[0] = color[2];
            target[1] = color[1];
            target[2] = color[0];
        }
    }
}

/// Fills a row of `bytes` bytes whose first `filled` are there.
void RepeatRow(std::uint8_t* row, std::size_t filled, std::size_t bytes) {
    while (filled < bytes) {
        const std::size_t count = std::min(filled, bytes - filled);
        std::memcpy(row + filled, row, count);
        filled += count;
    }
}

void FillWith(PackedDib* target, const PackedDib* source) {
    std::uint8_t palette[kPaletteBytes];
    ReadColorTable(source, palette);
    const int columns = std::min(source->Width, target->Width);
    const std::size_t bytes = kPixelBytes * static_cast<std::size_t>(target->Width);
    for (int y = 0; y < target->Height; ++y) {
        std::uint8_t* row = DibRow(target, y);
        if (y >= source->Height) {
            std::memcpy(row, DibRow(target, y - source->Height), bytes);
            continue;
        }
        WriteColors(source, y, palette, columns, row);
        RepeatRow(row, kPixelBytes * static_cast<std::size_t>(columns), bytes);
    }
}

}  // namespace

int InitMatrixTile(MatrixTile* tile) {
    *tile = {};
    const PackedDib* source = DefaultTile();
    if (source == nullptr) return 0;
    const std::size_t bytes = platform::FindData(kDefaultTile).size();
    OwnedBlock copy(platform::AllocateBlock(bytes));
    {
        const LockedImage image(copy.Get());
        if (!image) return 0;
        std::memcpy(image.Get(), source, bytes);
    }
    tile->Image = copy.Release();
    return 1;
}

std::string_view MatrixTilePath(const MatrixTile& tile) {
    const char* end = std::find(std::begin(tile.File), std::end(tile.File), '\0');
    return {tile.File, static_cast<std::size_t>(end - tile.File)};
}

void SetMatrixTilePath(MatrixTile* tile, std::string_view path) {
    std::memset(tile->File, 0, sizeof tile->File);
    path.copy(tile->File, sizeof tile->File - 1);
}

platform::PixelSize MatrixPictureSize(const MatrixTile& tile) {
    const LockedImage own(tile.Image);
    const PackedDib* source = own ? own.Get() : DefaultTile();
    if (source == nullptr) return {0, 0};
    return {source->Width, source->Height};
}

ImageHandle RenderMatrixTile(const MatrixTile& tile) {
    const std::int64_t width = std::int64_t{tile.TargetRect.right} - tile.TargetRect.left;
    const std::int64_t height = std::int64_t{tile.TargetRect.bottom} - tile.TargetRect.top;
    constexpr std::int64_t kLargest = std::numeric_limits<std::int32_t>::max();
    if (width > kLargest || height > kLargest || width < 0 || height < 0) return nullptr;
    const LockedImage own(tile.Image);
    const PackedDib* source = own ? own.Get() : DefaultTile();
    // Repeating a picture without rows or columns would never end.
    if (source == nullptr || source->Width < 1 || source->Height < 1) return nullptr;
    OwnedBlock result(NewPackedDib(static_cast<int>(width), static_cast<int>(height), nullptr, 24));
    {
        const LockedImage target(result.Get());
        if (!target) return nullptr;
        FillWith(target.Get(), source);
    }
    return result.Release();
}

}  // namespace tess
