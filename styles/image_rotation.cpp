// Inverse mapping with bilinear weights: each pixel of the result is looked up
// in the source, turned back about the two centres. With (u, v) its distance from
// the result's centre,
//
//   x = u cos - v sin + source width / 2,  y = u sin + v cos + source height / 2
//
// The whole parts choose four neighbours, the fractions weigh them; a pixel of
// the last column or row stands for its missing neighbours. Coordinates between
// -1 and 0 are cut to 0 and count as inside; their fractions are negative, and so
// a channel can leave 0 to 255: its low 8 bits are kept, which is meant.
//
// Below 9 bits the same is done with indexes.
#include "styles/image_rotation.h"

#include <cstddef>
#include <cstdint>
#include <numbers>

#include "platform/block_guards.h"
#include "runtime/mathematics.h"

namespace tess {

namespace {

constexpr std::uint32_t kOutside = 0x808080;

/// Where a pixel of the result comes from. The neighbours are the point itself
/// where there is none to the right or below.
struct SourcePoint {
    int x, y;
    int right, below;
    double weights[4];  // of the point, right of it, below it, and of both
};

class EighthTurn {
public:
    EighthTurn(const PackedDib* source, int width, int height)
        : width_(source->Width),
          height_(source->Height),
          center_x_(source->Width / 2),
          center_y_(source->Height / 2),
          target_x_(width / 2),
          target_y_(height / 2) {
        constexpr double kQuarterPi = std::numbers::pi / 4.0;
        cosine_ = runtime::Cosine(kQuarterPi);
        sine_ = runtime::Sine(kQuarterPi);
    }

    /// Returns false outside the source.
    bool Find(int x, int y, SourcePoint* point) const {
        const int u = x - target_x_;
        const int v = y - target_y_;
        const double source_x = u * cosine_ - v * sine_ + center_x_;
        const double source_y = u * sine_ + v * cosine_ + center_y_;
        point->x = static_cast<int>(source_x);
        point->y = static_cast<int>(source_y);
        if (point->x < 0 || point->x >= width_ || point->y < 0 || point->y >= height_) return false;
        const bool inner = point->x + 1 < width_ && point->y + 1 < height_;
        point->right = inner ? point->x + 1 : point->x;
        point->below = inner ? point->y + 1 : point->y;
        const double across = source_x - point->x;
        const double down = source_y - point->y;
        point->weights[0] = (1.0 - across) * (1.0 - down);
        point->weights[1] = across * (1.0 - down);
        point->weights[2] = (1.0 - across) * down;
        point->weights[3] = across * down;
        return true;
    }

private:
    int width_, height_;
    int center_x_, center_y_;
    int target_x_, target_y_;
    double cosine_, sine_;
};

std::uint8_t Weigh(const SourcePoint& point, int at, int right, int below, int both) {
    const double sum = at * point.weights[0] + right * point.weights[1] + below * point.weights[2] +
                       both * point.weights[3];
    return static_cast<std::uint8_t>(static_cast<int>(sum));
}

void RotateIndexes(const PackedDib* source, PackedDib* target) {
    const EighthTurn turn(source, target->Width, target->Height);
    const auto index = [&](int x, int y) { return static_cast<int>(GetDibPixel(source, x, y)); };
    for (int y = 0; y < target->Height; ++y) {
        for (int x = 0; x < target->Width; ++x) {
            SourcePoint point;
            std::uint32_t value = kOutside;
            if (turn.Find(x, y, &point)) {
                value = Weigh(point, index(point.x, point.y), index(point.right, point.y),
                              index(point.x, point.below), index(point.right, point.below));
            }
            SetDibPixel(target, x, y, value);
        }
    }
}

void RotateColors(const PackedDib* source, PackedDib* target) {
    const EighthTurn turn(source, target->Width, target->Height);
    const int channels = source->BitCount / 8;
    for (int y = 0; y < target->Height; ++y) {
        std::uint8_t* pixel = DibRow(target, y);
        for (int x = 0; x < target->Width; ++x, pixel += channels) {
            SourcePoint point;
            if (!turn.Find(x, y, &point)) {
                for (int channel = 0; channel < channels; ++channel)
                    pixel[channel] = static_cast<std::uint8_t>(kOutside);
                continue;
            }
            const std::uint8_t* row = DibRow(source, point.y);
            const std::uint8_t* row_below = DibRow(source, point.below);
            const std::ptrdiff_t here = std::ptrdiff_t{channels} * point.x;
            const std::ptrdiff_t next = std::ptrdiff_t{channels} * point.right;
            for (int channel = 0; channel < channels; ++channel) {
                pixel[channel] = Weigh(point, row[here + channel], row[next + channel],
                                       row_below[here + channel], row_below[next + channel]);
            }
        }
    }
}

}  // namespace

ImageHandle RotateImage45(ImageHandle image, int width, int height) {
    const LockedImage source(image);
    if (!source) return nullptr;
    std::uint8_t palette[kPaletteBytes];
    ReadColorTable(source, palette);
    platform::OwnedBlock result(NewPackedDib(width, height, palette, source->BitCount));
    const LockedImage target(result.Get());
    if (!target) return nullptr;
    if (source->BitCount < 24) {
        RotateIndexes(source, target);
    } else {
        RotateColors(source, target);
    }
    return result.Release();
}

}  // namespace tess
