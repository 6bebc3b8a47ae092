#include "tests/support/sample_pictures.h"

#include <random>

namespace tess {

namespace {

using Random = std::mt19937;

std::uint32_t DrawWord(Random& random) {
    return static_cast<std::uint32_t>(random());
}

int Draw(Random& random, int below) {
    return static_cast<int>(DrawWord(random) % static_cast<std::uint32_t>(below));
}

ColorWord DrawColor(Random& random) {
    return DrawWord(random) & 0xFFFFFF;
}

/// Goes up from 0 to 255 and down again.
int Wave(int phase) {
    const int folded = phase & 511;
    return folded < 256 ? folded : 511 - folded;
}

class Painter {
public:
    Painter(PictureKind kind, std::uint32_t seed) : kind_(kind), random_(seed) {
        color_ = DrawColor(random_);
        for (ColorWord& color : few_)
            color = DrawColor(random_);
        few_count_ = 1 + Draw(random_, 40);
        for (int& speed : speeds_)
            speed = 1 + Draw(random_, 3);
    }

    ColorWord At(int x, int y) {
        switch (kind_) {
            case PictureKind::Noise:
                return DrawColor(random_);
            case PictureKind::Smooth:
                return MakeColor(Wave(x * speeds_[0] / 2 + y), Wave(y * speeds_[1] / 2 + 80),
                                 Wave((x + y) * speeds_[2] / 3));
            case PictureKind::FewColors:
                return few_[Draw(random_, few_count_)];
            case PictureKind::Runs:
                if (Draw(random_, 5) == 0) color_ = DrawColor(random_);
                return color_;
            case PictureKind::NarrowRange:
                return (color_ & 0xF0F0F0) | (DrawColor(random_) & 0x0F0F0F);
            case PictureKind::Flat:
                break;
        }
        return color_;
    }

private:
    PictureKind kind_;
    Random random_;
    ColorWord color_;
    ColorWord few_[40] = {};
    int few_count_;
    int speeds_[3] = {};
};

}  // namespace

ImageHandle MakePicture(PictureKind kind, int width, int height, std::uint32_t seed, int depth) {
    const ImageHandle handle = NewPackedDib(width, height, nullptr, depth);
    const LockedImage image(handle);
    if (!image) return nullptr;
    Painter painter(kind, seed);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            const std::uint32_t alpha = static_cast<std::uint32_t>(x * 7 + y) << 24;
            SetDibPixel(image.Get(), x, y, painter.At(x, y) | alpha);
        }
    }
    return handle;
}

ImageHandle MakeIndexedPicture(int width, int height, int depth, std::uint32_t seed) {
    std::uint8_t palette[kPaletteBytes];
    MakePalette(palette, seed);
    const ImageHandle handle = NewPackedDib(width, height, palette, depth);
    const LockedImage image(handle);
    if (!image) return nullptr;
    Random random(seed);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x)
            SetDibPixel(image.Get(), x, y, DrawWord(random));
    }
    return handle;
}

void MakePalette(std::uint8_t* palette, std::uint32_t seed) {
    Random random(seed);
    const int span = Draw(random, 2) == 0 ? 256 : 24;  // scattered or crowded
    const int base = Draw(random, 257 - span);
    for (int i = 0; i < kPaletteEntries; ++i) {
        const bool repeats = i > 0 && Draw(random, 8) == 0;
        const int twin = repeats ? Draw(random, i) : 0;
        for (int c = 0; c < 3; ++c) {
            palette[3 * i + c] = repeats ? palette[3 * twin + c]
                                         : static_cast<std::uint8_t>(base + Draw(random, span));
        }
    }
}

}  // namespace tess
