// A stamp goes through each sprite row in runs that neither cross the
// destination's edge nor are longer than a strip. For a run the sprite gives, byte
// by byte as the destination's pixels lie, a colour and its weight; then
//
//   new = old x (255 - weight) / 255 + colour x weight / 255
//
// with both divisions cut by themselves. Runs are blended in the order of the
// sprite, so where a sprite larger than the destination comes to a pixel again it
// blends with what it left there.
#include "toolkit/wrap_compositing.h"

#include <algorithm>
#include <cstring>

#include "platform/block_guards.h"
#include "runtime/random.h"

namespace tess {

namespace {

constexpr int kStripPixels = 128;

/// Colours and weights for a run of destination pixels. Pixels are stored in
/// fours of bytes, each overwriting what the one before left too much.
struct Strip {
    std::uint8_t colors[4 * kStripPixels + 4];
    std::uint8_t weights[4 * kStripPixels + 4];
};

/// Bytes of a destination pixel that take part. Below 24 bits the index stands for
/// a level of red.
int ChannelsOf(const PackedDib* destination) {
    return destination->BitCount < 24 ? 1 : destination->BitCount / 8;
}

void StoreFour(std::uint8_t* bytes, std::uint32_t value) {
    std::memcpy(bytes, &value, sizeof value);
}

/// The bytes of a pixel as 24 and 32 bits store them, or the red one alone.
std::uint32_t PixelBytes(ColorWord color, int channels) {
    if (channels == 1) return RedOf(color);
    return BlueOf(color) | std::uint32_t{GreenOf(color)} << 8 | std::uint32_t{RedOf(color)} << 16;
}

/// Blends `count` bytes. All products are at most 65025 and fit 16 bits, and the
/// sum of the quotients at most 255.
void BlendBytes(std::uint8_t* __restrict target, const std::uint8_t* __restrict colors,
                const std::uint8_t* __restrict weights, int count) {
    for (int i = 0; i < count; ++i) {
        const std::uint16_t weight = weights[i];
        const auto kept = static_cast<std::uint16_t>(target[i] * (255 - weight));
        const auto added = static_cast<std::uint16_t>(colors[i] * weight);
        target[i] = static_cast<std::uint8_t>(kept / 255 + added / 255);
    }
}

/// Scales `count` weights by opacity / 255, cut. LoadMask has written them, which the
/// analyzer cannot follow.
void ScaleWeights(std::uint8_t* weights, int count, int opacity) {
    const auto factor = static_cast<std::uint16_t>(opacity);
    for (int i = 0; i < count; ++i) {
        // NOLINTNEXTLINE(clang-analyzer-core.UndefinedBinaryOperatorResult)
        const auto scaled = static_cast<std::uint16_t>(weights[i] * factor);
        weights[i] = static_cast<std::uint8_t>(scaled / 255);
    }
}

/// Blends the strip's first `count` pixels into row `y` from column `x` on. The
/// run lies inside the row.
void BlendRun(PackedDib* destination, int x, int y, int count, const Strip& strip) {
    if (destination->BitCount < 8) {
        for (int i = 0; i < count; ++i) {
            auto level = static_cast<std::uint8_t>(GetDibPixel(destination, x + i, y));
            BlendBytes(&level, &strip.colors[i], &strip.weights[i], 1);
            SetDibPixel(destination, x + i, y, level);
        }
        return;
    }
    const int channels = ChannelsOf(destination);
    std::uint8_t* target = DibRow(destination, y) + std::ptrdiff_t{channels} * x;
    BlendBytes(target, strip.colors, strip.weights, channels * count);
    if (channels == 4) {
        for (int i = 0; i < count; ++i)
            target[4 * i + 3] = 0;
    }
}

/// Calls `load(i, j, count)`, which fills `strip` from sprite pixel (i, j) on, and
/// blends it, for all runs of a sprite that is laid at (x, y).
template <class Load>
void ForEachRun(PackedDib* destination, const PackedDib* sprite, int x, int y, const Strip& strip,
                Load load) {
    const int width = destination->Width;
    const int height = destination->Height;
    // Without pixels there is nothing to wrap into: the remainder would divide by 0.
    if (width < 1 || height < 1) return;
    const int left = Wrap(x, width);
    int row = Wrap(y, height);
    for (int j = 0; j < sprite->Height; ++j) {
        int column = left;
        for (int i = 0; i < sprite->Width;) {
            const int count = std::min({kStripPixels, sprite->Width - i, width - column});
            load(i, j, count);
            BlendRun(destination, column, row, count, strip);
            i += count;
            column = column + count == width ? 0 : column + count;
        }
        row = row + 1 == height ? 0 : row + 1;
    }
}

/// Writes the low bytes of mask pixels, each for all `channels` of its pixel.
template <int kChannels>
void LoadMask(const PackedDib* mask, int i, int j, int count, std::uint8_t* weights) {
    constexpr std::uint32_t kRepeat = kChannels == 1 ? 1 : 0x010101;
    if (mask->BitCount < 24) {
        for (int k = 0; k < count; ++k, weights += kChannels) {
            StoreFour(weights, (GetDibPixel(mask, i + k, j) & 255) * kRepeat);
        }
        return;
    }
    const int step = mask->BitCount / 8;
    const std::uint8_t* red = DibRow(mask, j) + std::ptrdiff_t{step} * i + 2;
    for (int k = 0; k < count; ++k, red += step, weights += kChannels) {
        StoreFour(weights, *red * kRepeat);
    }
}

/// Writes the colours and alphas of 32-bit pixels.
template <int kChannels>
void LoadSprite(const PackedDib* sprite, int i, int j, int count, Strip* strip) {
    const std::uint8_t* pixel = DibRow(sprite, j) + std::ptrdiff_t{4} * i;
    std::uint8_t* colors = strip->colors;
    std::uint8_t* weights = strip->weights;
    for (int k = 0; k < count; ++k, pixel += 4, colors += kChannels, weights += kChannels) {
        if constexpr (kChannels == 1) {
            *colors = pixel[2];
            *weights = pixel[3];
        } else {
            std::memcpy(colors, pixel, 4);
            StoreFour(weights, pixel[3] * 0x010101U);
        }
    }
}

template <int kChannels>
void Stamp(PackedDib* destination, const PackedDib* mask, int x, int y, ColorWord color,
           int opacity) {
    Strip strip;
    const int longest = std::min({kStripPixels, mask->Width, destination->Width});
    for (int i = 0; i < longest; ++i) {
        StoreFour(strip.colors + kChannels * i, PixelBytes(color, kChannels));
    }
    ForEachRun(destination, mask, x, y, strip, [&](int i, int j, int count) {
        LoadMask<kChannels>(mask, i, j, count, strip.weights);
        if (opacity != 255) ScaleWeights(strip.weights, kChannels * count, opacity);
    });
}

template <int kChannels>
void Blend(PackedDib* destination, const PackedDib* sprite, int x, int y) {
    Strip strip = {};
    if (sprite->BitCount != 32) {
        // No other depth has alpha: the destination's pixels are written as they are.
        ForEachRun(destination, sprite, x, y, strip, [](int, int, int) {});
        return;
    }
    ForEachRun(destination, sprite, x, y, strip, [&](int i, int j, int count) {
        LoadSprite<kChannels>(sprite, i, j, count, &strip);
    });
}

/// A new picture whose pixel (x, y) is the old one at (x + right, y + down), on the
/// torus.
ImageHandle Roll(ImageHandle handle, int right, int down) {
    const LockedImage source(handle);
    if (!source) return nullptr;
    const int width = source->Width;
    const int height = source->Height;
    const int bits = source->BitCount;
    std::uint8_t palette[kPaletteBytes];
    ReadColorTable(source, palette);
    platform::OwnedBlock result(NewPackedDib(width, height, palette, bits));
    const LockedImage target(result.Get());
    if (!target) return nullptr;
    if (width < 1 || height < 1) return result.Release();
    const int first = Wrap(right, width);
    int old_row = Wrap(down, height);
    for (int y = 0; y < height; ++y) {
        if (bits < 8) {
            for (int x = 0; x < width; ++x) {
                const int old = x < width - first ? x + first : x - (width - first);
                SetDibPixel(target, x, y, GetDibPixel(source, old, old_row));
            }
        } else {
            const std::uint8_t* from = DibRow(source.Get(), old_row);
            const auto bytes = static_cast<std::size_t>(bits) / 8;
            const std::size_t head = bytes * static_cast<std::size_t>(first);
            const std::size_t tail = bytes * static_cast<std::size_t>(width - first);
            std::memcpy(DibRow(target.Get(), y), from + head, tail);
            std::memcpy(DibRow(target.Get(), y) + tail, from, head);
        }
        old_row = old_row + 1 == height ? 0 : old_row + 1;
    }
    return result.Release();
}

}  // namespace

void WrapStampMask(PackedDib* destination, const PackedDib* mask, int x, int y, ColorWord color,
                   int opacity) {
    switch (ChannelsOf(destination)) {
        case 1:
            return Stamp<1>(destination, mask, x, y, color, opacity);
        case 3:
            return Stamp<3>(destination, mask, x, y, color, opacity);
        default:
            return Stamp<4>(destination, mask, x, y, color, opacity);
    }
}

void WrapBlendImage(PackedDib* destination, const PackedDib* source, int x, int y) {
    switch (ChannelsOf(destination)) {
        case 1:
            return Blend<1>(destination, source, x, y);
        case 3:
            return Blend<3>(destination, source, x, y);
        default:
            return Blend<4>(destination, source, x, y);
    }
}

ImageHandle MergeAlphaImage(ImageHandle image, ImageHandle mask) {
    const LockedImage colors(image);
    const LockedImage alphas(mask);
    if (!colors || !alphas) return nullptr;
    platform::OwnedBlock result(NewPackedDib(colors->Width, colors->Height, nullptr, 32));
    const LockedImage target(result.Get());
    if (!target) return nullptr;
    for (int y = 0; y < colors->Height; ++y) {
        std::uint8_t* pixel = DibRow(target.Get(), y);
        for (int x = 0; x < colors->Width; ++x, pixel += 4) {
            // Beyond a smaller mask its pixels read as all ones, and so does alpha.
            StoreFour(pixel, PixelBytes(GetDibPixel(colors, x, y), 4) | GetDibPixel(alphas, x, y)
                                                                            << 24);
        }
    }
    return result.Release();
}

ImageHandle NewSolidImage(const raster::Rect& rectangle, ColorWord color) {
    const std::int64_t width = std::int64_t{rectangle.right} - rectangle.left;
    const std::int64_t height = std::int64_t{rectangle.bottom} - rectangle.top;
    if (width != static_cast<int>(width) || height != static_cast<int>(height)) return nullptr;
    platform::OwnedBlock result(
        NewPackedDib(static_cast<int>(width), static_cast<int>(height), nullptr, 24));
    const LockedImage image(result.Get());
    if (!image) return nullptr;
    for (int x = 0; x < image->Width; ++x)
        SetDibPixel(image, x, 0, color);
    for (int y = 1; y < image->Height; ++y) {
        std::memcpy(DibRow(image.Get(), y), DibRow(image.Get(), 0),
                    std::size_t{3} * static_cast<std::size_t>(width));
    }
    return result.Release();
}

ImageHandle RollImageDown(ImageHandle image, int distance) {
    return Roll(image, 0, -distance);
}

ImageHandle RollImageUp(ImageHandle image, int distance) {
    return Roll(image, 0, distance);
}

ImageHandle RollImageRight(ImageHandle image, int distance) {
    return Roll(image, -distance, 0);
}

ImageHandle RollImageLeft(ImageHandle image, int distance) {
    return Roll(image, distance, 0);
}

int PickFillColor(int count, int* last_picked) {
    constexpr int kDraws = 16;
    int index = 0;
    if (count > 1) {
        for (int draw = 0; draw < kDraws; ++draw) {
            index = runtime::rand() % count;
            if (index != *last_picked) break;
        }
    }
    *last_picked = index;
    return index;
}

}  // namespace tess
