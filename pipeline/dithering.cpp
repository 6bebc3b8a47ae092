// Remapping with error diffusion: R. W. Floyd and L. Steinberg, "An Adaptive
// Algorithm for Spatial Greyscale", 1976, always from the left, from the bottom
// row up, with roundings of its own.
//
// In colour, a pixel's error e goes in sixteenths, rounded down, to
//
//                 x    e * 7
//         e * 3  e * 5   e
//
// except that the pixel at x = 1 gives nothing to its lower left: that gap is
// part of the look. Two line buffers hold the sums of the row at work and of the
// next.
//
// To two colours, the brightness of the pixels goes through a tone curve and is
// compared with the middle between the picture's darkest and brightest. Errors
// are against those two, cut to sixteenths first and multiplied then, and each
// sum is clamped to a byte. Here the gap at x = 1 is there as well, and the pixel
// at x = 0 has a lower left neighbour: the last pixel of its own row, since the
// brightnesses of the rows lie one behind the other.
#include <algorithm>
#include <limits>
#include <utility>

#include "pipeline/palette.h"
#include "pipeline/palette_search.h"
#include "pipeline/pixel_rows.h"
#include "pipeline/remapping.h"

namespace tess {

namespace {

struct Error {
    int Red, Green, Blue;
};

int ClampToByte(int value) {
    return std::clamp(value, 0, 255);
}

/// What the row at work hands to the next one; `Next` is for the pixel in hand.
void SpreadDown(std::int16_t* next, const Error& error, int x, int width) {
    const auto add = [](std::int16_t& sum, int part) {
        sum = static_cast<std::int16_t>(sum + part);
    };
    if (x >= 2) {
        add(next[-3], (error.Red * 3) >> 4);
        add(next[-2], (error.Green * 3) >> 4);
        add(next[-1], (error.Blue * 3) >> 4);
    }
    if (x + 1 < width) {
        add(next[3], error.Red >> 4);
        add(next[4], error.Green >> 4);
        add(next[5], error.Blue >> 4);
    }
    add(next[0], (error.Red * 5) >> 4);
    add(next[1], (error.Green * 5) >> 4);
    add(next[2], (error.Blue * 5) >> 4);
}

/// One row, `Width` pixels of three channels each.
struct DitheredRow {
    const std::uint8_t* Colors;
    const std::int16_t* Current;  ///< what the row below left for this one
    std::int16_t* Next;           ///< gets what is left for the one above
    std::uint8_t* Indexes;        ///< gets a palette index a pixel
    int Width;
};

void DitherRow(PaletteSearch& search, const std::uint8_t* palette, const DitheredRow& row) {
    const std::uint8_t* colors = row.Colors;
    const std::int16_t* current = row.Current;
    std::int16_t* next = row.Next;
    Error carried{0, 0, 0};  // the left neighbour's share, in whole steps
    for (int x = 0; x < row.Width; ++x, colors += 3, current += 3, next += 3) {
        const int red = ClampToByte(current[0] + colors[0] + carried.Red);
        const int green = ClampToByte(current[1] + colors[1] + carried.Green);
        const int blue = ClampToByte(current[2] + colors[2] + carried.Blue);
        const int index = search.IndexOf(MakeColor(red, green, blue));
        row.Indexes[x] = static_cast<std::uint8_t>(index);
        const std::uint8_t* entry = palette + std::ptrdiff_t{3} * index;
        const Error error{red - entry[0], green - entry[1], blue - entry[2]};
        carried = {(error.Red * 7) >> 4, (error.Green * 7) >> 4, (error.Blue * 7) >> 4};
        SpreadDown(next, error, x, row.Width);
    }
}

int DitherToColors(const PackedDib* source, PackedDib* image, const std::uint8_t* palette,
                   int colors) {
    PaletteSearch search(palette, colors,
                         FastRemap == 0 ? SearchPrecision::Exact : SearchPrecision::FiveBits);
    const auto width = static_cast<std::size_t>(source->Width);
    platform::WorkArray<std::uint8_t> row(3 * width);
    platform::WorkArray<std::uint8_t> indexes(width);
    platform::WorkArray<std::int16_t> current(3 * width);
    platform::WorkArray<std::int16_t> next(3 * width);
    if (!search || !row || !indexes || !current || !next) return 0;
    std::uint8_t source_palette[kPaletteBytes];
    ReadColorTable(source, source_palette);
    for (int y = source->Height - 1; y >= 0; --y) {
        ReadColorRow(source, y, source_palette, row.data());
        DitherRow(search, palette,
                  {row.data(), current.data(), next.data(), indexes.data(), source->Width});
        WriteIndexRow(image, y, indexes.data());
        std::swap(current, next);
        std::fill(next.begin(), next.end(), std::int16_t{0});
    }
    return 1;
}

/// A contrast of 128 asks for a division by zero: the slope is endless then, and
/// all entries behind the first are the brightest.
void FillToneCurve(std::uint8_t* curve) {
    constexpr double kDarkest = 1.0;
    constexpr double kBrightest = 254.0;
    const double contrast = DitherContrast;
    const double divisor = 256.0 - 2 * contrast;
    const double step = divisor != 0 ? 256.0 / divisor : std::numeric_limits<double>::infinity();
    double value = DitherBrightness - contrast;
    for (int i = 0; i < kPaletteEntries; ++i) {
        if (value > kBrightest) {
            curve[i] = static_cast<std::uint8_t>(kBrightest);
        } else if (value < kDarkest) {
            curve[i] = static_cast<std::uint8_t>(kDarkest);
        } else {
            curve[i] = static_cast<std::uint8_t>(value);
        }
        value += step;
    }
}

struct ToneRange {
    int Low, High;
};

class TwoColorDither {
public:
    TwoColorDither(const PackedDib* source, PackedDib* image)
        : source_(source),
          image_(image),
          width_(static_cast<std::size_t>(source->Width)),
          colors_(3 * width_),
          bits_(width_),
          tones_(2 * width_) {}
    explicit operator bool() const { return colors_ && bits_ && tones_; }

    void Run() {
        FillToneCurve(curve_);
        ReadColorTable(source_, palette_);
        FindRange();
        if (source_->Height > 0) ReadTones(source_->Height - 1, Next());
        for (int y = source_->Height - 1; y >= 0; --y) {
            std::copy_n(Next(), width_, tones_.data());
            if (y > 0) ReadTones(y - 1, Next());
            for (int x = 0; x < source_->Width; ++x)
                DitherPixel(x, y > 0);
            WriteIndexRow(image_, y, bits_.data());
        }
    }

private:
    /// The tones of the row after the one at work, which lie right behind it.
    std::uint8_t* Next() { return tones_.data() + width_; }

    void ReadTones(int y, std::uint8_t* tones) {
        ReadColorRow(source_, y, palette_, colors_.data());
        const std::uint8_t* color = colors_.data();
        for (std::size_t x = 0; x < width_; ++x, color += 3) {
            tones[x] = static_cast<std::uint8_t>(Luminance(color[0], color[1], color[2]));
        }
    }

    void FindRange() {
        range_ = {255, 0};
        for (int y = 0; y < source_->Height; ++y) {
            ReadTones(y, tones_.data());
            for (std::size_t x = 0; x < width_; ++x) {
                range_.Low = std::min<int>(range_.Low, tones_[x]);
                range_.High = std::max<int>(range_.High, tones_[x]);
            }
        }
    }

    void DitherPixel(int x, bool has_next) {
        std::uint8_t* tone = tones_.data() + x;
        std::uint8_t* below = tone + width_;
        const int value = curve_[*tone];
        const bool set = value > (range_.Low + range_.High) >> 1;
        bits_[static_cast<std::size_t>(x)] = set ? 1 : 0;
        const int error = (value - (set ? range_.High : range_.Low)) >> 4;
        const bool has_right = x + 1 < source_->Width;
        if (has_next && has_right) Add(below[1], error);
        // At x = 0 this is the last pixel of the row at work, and is meant to be.
        if (has_next && x != 1) Add(below[-1], 3 * error);
        if (has_next) Add(below[0], 5 * error);
        if (has_right) Add(tone[1], 7 * error);
    }

    static void Add(std::uint8_t& tone, int part) {
        tone = static_cast<std::uint8_t>(ClampToByte(tone + part));
    }

    const PackedDib* source_;
    PackedDib* image_;
    std::size_t width_;
    platform::WorkArray<std::uint8_t> colors_;
    platform::WorkArray<std::uint8_t> bits_;
    platform::WorkArray<std::uint8_t> tones_;  // of the row at work and the next
    std::uint8_t palette_[kPaletteBytes] = {};
    std::uint8_t curve_[kPaletteEntries] = {};
    ToneRange range_{};
};

}  // namespace

ImageHandle RemapDither(ImageHandle source_handle, const std::uint8_t* palette, int depth,
                        int colors) {
    const LockedImage source(source_handle);
    if (!source || source->BitCount == 1 || depth < 1 || depth > 8) return nullptr;
    platform::OwnedBlock block(NewPackedDib(source->Width, source->Height, palette, depth));
    const LockedImage image(block.Get());
    if (!image) return nullptr;
    if (image->BitCount == 1) {
        TwoColorDither dither(source.Get(), image.Get());
        if (!dither) return nullptr;
        dither.Run();
    } else if (DitherToColors(source.Get(), image.Get(), palette, colors) == 0) {
        return nullptr;
    }
    return block.Release();
}

}  // namespace tess
