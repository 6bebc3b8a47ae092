// Small animations for the tests of the writers, told pixel by pixel.
#pragma once

#include <cstring>
#include <initializer_list>

#include "host/animation.h"

namespace tess::test {

/// Eight colours that tell entries apart: entry i is (10 i, 20 i, 30 i).
inline void FillPalette(std::uint8_t* palette) {
    std::memset(palette, 0, kPaletteBytes);
    for (int i = 0; i < 8; ++i) {
        palette[3 * i] = static_cast<std::uint8_t>(10 * i);
        palette[3 * i + 1] = static_cast<std::uint8_t>(20 * i);
        palette[3 * i + 2] = static_cast<std::uint8_t>(30 * i);
    }
}

/// An empty animation on that palette.
inline void StartAnimation(Animation& animation, int width, int height, int depth) {
    animation.Width = width;
    animation.Height = height;
    animation.Depth = depth;
    FillPalette(animation.Palette);
}

/// Adds a frame of the animation's size, depth and palette with the pixels `values`,
/// row by row from the top.
inline void AddFrame(Animation& animation, std::uint32_t delay, int transparent,
                     std::initializer_list<std::uint32_t> values) {
    platform::OwnedBlock picture(
        NewPackedDib(animation.Width, animation.Height, animation.Palette, animation.Depth));
    {
        const LockedImage image(picture.Get());
        int place = 0;
        for (const std::uint32_t value : values) {
            SetDibPixel(image, place % animation.Width, place / animation.Width, value);
            ++place;
        }
    }
    const FrameRecord record{picture.Get(), nullptr, delay, transparent};
    if (FrameListAdd(&animation.Frames, &record) != 0) static_cast<void>(picture.Release());
}

/// Gives entry `index` of a frame's own table another colour.
inline void SetTableEntry(Animation& animation, int frame, int index, int red, int green,
                          int blue) {
    FrameRecord record{};
    if (GetFrame(animation, frame, &record) == 0) return;
    const LockedImage image(record.Image);
    std::uint8_t* entry = DibColorTable(image) + 4 * index;
    entry[0] = static_cast<std::uint8_t>(blue);
    entry[1] = static_cast<std::uint8_t>(green);
    entry[2] = static_cast<std::uint8_t>(red);
}

}  // namespace tess::test
