#include "tests/reference/plain_remapping.h"

#include <vector>

#include "pipeline/remapping.h"
#include "tests/reference/plain_palette.h"

namespace tess::plain {

namespace {

int Brightness(int red, int green, int blue) {
    return static_cast<std::uint8_t>((red * 77) / 255 + (green * 150) / 255 + (blue * 28) / 255);
}

class Chooser {
public:
    Chooser(const std::uint8_t* palette, int colors) : palette_(palette), colors_(colors) {
        if (FastRemap == 0) return;
        for (int k = 0; k < 32768; ++k) {
            FastTable[k] = static_cast<std::uint8_t>(
                NearestColor((k & 31) * 8, (k >> 2) & 248, (k >> 7) & 248, palette, colors));
        }
    }

    int Choose(int red, int green, int blue) const {
        if (FastRemap == 0) return NearestColor(red, green, blue, palette_, colors_);
        const int equal = FindEqual(red, green, blue);
        if (equal >= 0) return equal;
        return FastTable[(red >> 3) + (green >> 3) * 32 + (blue >> 3) * 1024];
    }
    int ChooseBlack() const {
        if (FastRemap == 0) return NearestColor(0, 0, 0, palette_, colors_);
        const int equal = FindEqual(0, 0, 0);
        return equal >= 0 ? equal : FastTable[0];
    }
    int ChooseWhite() const {
        if (FastRemap == 0) return NearestColor(255, 255, 255, palette_, colors_);
        const int equal = FindEqual(255, 255, 255);
        return equal >= 0 ? equal : FastTable[32767];
    }

private:
    int FindEqual(int red, int green, int blue) const {
        for (int i = 0; i < colors_; ++i) {
            const std::uint8_t* entry = palette_ + std::ptrdiff_t{3} * i;
            if (entry[0] == red && entry[1] == green && entry[2] == blue) return i;
        }
        return -1;
    }

    const std::uint8_t* palette_;
    int colors_;
    std::uint8_t FastTable[32768] = {};
};

/// Red, green, blue of a pixel of any depth.
struct Channels {
    int Red, Green, Blue;
};
Channels ColorAt(const PackedDib* image, int x, int y) {
    const ColorWord value = GetDibPixel(image, x, y);
    if (image->BitCount >= 24) return {RedOf(value), GreenOf(value), BlueOf(value)};
    const std::uint8_t* entry = DibColorTable(image) + std::size_t{4} * value;
    return {entry[2], entry[1], entry[0]};
}

int Clamp(int value) {
    return value < 0 ? 0 : value > 255 ? 255 : value;
}

void DitherToColors(const PackedDib* source, PackedDib* image, const std::uint8_t* palette,
                    int colors) {
    const Chooser chooser(palette, colors);
    const int width = source->Width;
    const int height = source->Height;
    std::vector<std::uint8_t> work;
    for (int row = 0; row < height; ++row) {
        for (int x = 0; x < width; ++x) {
            const Channels color = ColorAt(source, x, height - 1 - row);
            work.push_back(static_cast<std::uint8_t>(color.Red));
            work.push_back(static_cast<std::uint8_t>(color.Green));
            work.push_back(static_cast<std::uint8_t>(color.Blue));
        }
    }
    const auto values = static_cast<std::size_t>(3 * width);
    std::vector<std::int16_t> current(values);
    std::vector<std::int16_t> next(values);
    const auto add = [](std::vector<std::int16_t>& line, int x, int channel, int part) {
        std::int16_t& sum = line[static_cast<std::size_t>(3 * x + channel)];
        sum = static_cast<std::int16_t>(sum + part);
    };
    for (int row = 0; row < height; ++row) {
        const bool has_next = row + 1 < height;
        for (std::size_t i = 0; i < values; ++i) {
            current[i] = static_cast<std::int16_t>(
                current[i] + work[static_cast<std::size_t>(row) * values + i]);
        }
        for (int x = 0; x < width; ++x) {
            int value[3];
            for (int c = 0; c < 3; ++c)
                value[c] = Clamp(current[static_cast<std::size_t>(3 * x + c)]);
            const int index = chooser.Choose(value[0], value[1], value[2]);
            SetDibPixel(image, x, height - 1 - row, static_cast<std::uint32_t>(index));
            for (int c = 0; c < 3; ++c) {
                const int e = value[c] - palette[3 * index + c];
                if (x + 1 < width) add(current, x + 1, c, (e * 7) >> 4);
                if (has_next && x >= 2) add(next, x - 1, c, (e * 3) >> 4);
                if (has_next && x + 1 < width) add(next, x + 1, c, e >> 4);
                if (has_next) add(next, x, c, (e * 5) >> 4);
            }
        }
        current = next;
        next.assign(values, 0);
    }
}

void FillCurve(std::uint8_t* curve) {
    const double c = DitherContrast;
    const double b = DitherBrightness;
    const double step = 256.0 / (256.0 - 2 * c);
    double v = b - c;
    for (int i = 0; i < 256; ++i) {
        if (v > 254.0) {
            curve[i] = 254;
        } else if (v < 1.0) {
            curve[i] = 1;
        } else {
            curve[i] = static_cast<std::uint8_t>(v);
        }
        v += step;
    }
}

void DitherToTwo(const PackedDib* source, PackedDib* image) {
    std::uint8_t curve[256];
    FillCurve(curve);
    const int width = source->Width;
    const int height = source->Height;
    std::vector<std::uint8_t> work;
    int low = 255;
    int high = 0;
    for (int row = 0; row < height; ++row) {
        for (int x = 0; x < width; ++x) {
            const Channels color = ColorAt(source, x, height - 1 - row);
            const int brightness = Brightness(color.Red, color.Green, color.Blue);
            work.push_back(static_cast<std::uint8_t>(brightness));
            if (brightness < low) low = brightness;
            if (brightness > high) high = brightness;
        }
    }
    const int middle = (low + high) >> 1;
    const auto add = [&work, width](int row, int x, int part) {
        std::uint8_t& value = work[static_cast<std::size_t>(row * width + x)];
        value = static_cast<std::uint8_t>(Clamp(value + part));
    };
    for (int row = 0; row < height; ++row) {
        const bool has_next = row + 1 < height;
        for (int x = 0; x < width; ++x) {
            const int t = curve[work[static_cast<std::size_t>(row * width + x)]];
            const bool set = t > middle;
            SetDibPixel(image, x, height - 1 - row, set ? 1 : 0);
            const int e = (t - (set ? high : low)) >> 4;
            if (has_next && x + 1 < width) add(row + 1, x + 1, e);
            if (has_next && x != 1) add(row + 1, x - 1, 3 * e);
            if (has_next) add(row + 1, x, 5 * e);
            if (x + 1 < width) add(row, x + 1, 7 * e);
        }
    }
}

/// The target's index for each index of an 8- or 4-bit source.
std::vector<std::uint32_t> IndexTable(const PackedDib* source, const PackedDib* image,
                                      const std::uint8_t* palette, int depth) {
    std::vector<std::uint32_t> table;
    for (int i = 0; i < 1 << source->BitCount; ++i) {
        const std::uint8_t* entry = DibColorTable(source) + std::ptrdiff_t{4} * i;
        if (image->BitCount == 1) {
            table.push_back(Brightness(entry[2], entry[1], entry[0]) >= 128 ? 1 : 0);
        } else {
            table.push_back(static_cast<std::uint32_t>(
                NearestColor(entry[2], entry[1], entry[0], palette, 1 << depth)));
        }
    }
    return table;
}

}  // namespace

ImageHandle RemapPlain(ImageHandle source_handle, const std::uint8_t* palette, int depth,
                       int colors) {
    const LockedImage source(source_handle);
    const ImageHandle target = NewPackedDib(source->Width, source->Height, palette, depth);
    const LockedImage image(target);
    const Chooser chooser(palette, colors);
    std::vector<std::uint32_t> table;
    if (source->BitCount == 1) {
        table = {static_cast<std::uint32_t>(chooser.ChooseBlack()),
                 static_cast<std::uint32_t>(chooser.ChooseWhite())};
    } else if (source->BitCount < 9) {
        table = IndexTable(source.Get(), image.Get(), palette, depth);
    }
    for (int y = source->Height - 1; y >= 0; --y) {
        for (int x = 0; x < source->Width; ++x) {
            const std::uint32_t pixel = GetDibPixel(source.Get(), x, y);
            std::uint32_t index;
            if (!table.empty()) {
                index = table[pixel];
            } else if (image->BitCount == 1) {
                index = Brightness(RedOf(pixel), GreenOf(pixel), BlueOf(pixel)) >= 128 ? 1 : 0;
            } else {
                index = static_cast<std::uint32_t>(
                    chooser.Choose(RedOf(pixel), GreenOf(pixel), BlueOf(pixel)));
            }
            SetDibPixel(image.Get(), x, y, index);
        }
    }
    return target;
}

ImageHandle RemapDither(ImageHandle source_handle, const std::uint8_t* palette, int depth,
                        int colors) {
    const LockedImage source(source_handle);
    if (source->BitCount == 1) return nullptr;
    const ImageHandle target = NewPackedDib(source->Width, source->Height, palette, depth);
    const LockedImage image(target);
    if (image->BitCount == 1) {
        DitherToTwo(source.Get(), image.Get());
    } else {
        DitherToColors(source.Get(), image.Get(), palette, colors);
    }
    return target;
}

ImageHandle ForceColorIndex(ImageHandle image_handle, ImageHandle source_handle, ColorWord color,
                            int index) {
    const LockedImage image(image_handle);
    const LockedImage source(source_handle);
    std::uint8_t palette[kPaletteBytes];
    ReadColorTable(image.Get(), palette);
    const ImageHandle target = NewPackedDib(image->Width, image->Height, palette, image->BitCount);
    const LockedImage forced(target);
    for (int y = 0; y < image->Height; ++y) {
        for (int x = 0; x < image->Width; ++x) {
            SetDibPixel(forced.Get(), x, y, GetDibPixel(image.Get(), x, y));
            if ((GetDibPixel(source.Get(), x, y) & 0xFFFFFF) == (color & 0xFFFFFF)) {
                SetDibPixel(forced.Get(), x, y, static_cast<std::uint32_t>(index));
            }
        }
    }
    return target;
}

}  // namespace tess::plain
