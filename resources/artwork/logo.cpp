// Makes logo.bmp, the animated mark of the program: a tile with rounded corners and a
// rim, cut out of a plane of hinged squares that turn once round their loop in 36
// pictures of 50 by 50 pixels, one below the other. Each pixel's colour is the mean
// over a grid of samples.

#include "resources/artwork/drawn_files.h"
#include "resources/artwork/hinged_squares.h"

namespace {

constexpr int kSide = 50, kPictures = 36;
constexpr int kSamples = 8;  // each way within a pixel

constexpr double kHalfTile = 23.5, kCorner = 8, kRim = 1.75;  // pixels
constexpr double kSpacing = 15.0;

using artwork::Pixel;

constexpr Pixel kRimColor{24, 34, 64, 255};
constexpr Pixel kGapColor{36, 50, 92, 255};
constexpr Pixel kSquareColors[2][2] = {{{242, 178, 62, 255}, {58, 172, 170, 255}},
                                       {{58, 172, 170, 255}, {226, 98, 82, 255}}};

/// How far a point, counted from the middle, is inside the tile; below 0 outside.
double DepthInTile(double x, double y) {
    const double dx = std::fabs(x) - (kHalfTile - kCorner),
                 dy = std::fabs(y) - (kHalfTile - kCorner);
    if (dx > 0 && dy > 0) return kCorner - std::sqrt(dx * dx + dy * dy);
    return kCorner - (dx > dy ? dx : dy);
}

Pixel SampleAt(double x, double y, artwork::Turn turn) {
    const double depth = DepthInTile(x, y);
    if (depth < 0) return {0, 0, 0, 0};
    if (depth < kRim) return kRimColor;
    // A square's middle is the tile's.
    const artwork::SquareHit hit =
        artwork::HitSquare(x + kSpacing / 2, y + kSpacing / 2, kSpacing, turn);
    return hit.is_gap ? kGapColor : kSquareColors[hit.row & 1][hit.column & 1];
}

Pixel PixelAt(int x, int y, artwork::Turn turn) {
    int red = 0, green = 0, blue = 0, cover = 0;
    for (int i = 0; i < kSamples * kSamples; ++i) {
        const Pixel sample = SampleAt(x + (i % kSamples + 0.5) / kSamples - kSide / 2,
                                      y + (i / kSamples + 0.5) / kSamples - kSide / 2, turn);
        if (sample.alpha == 0) continue;
        ++cover;
        red += sample.red;
        green += sample.green;
        blue += sample.blue;
    }
    if (cover == 0) return {0, 0, 0, 0};
    const auto mean = [cover](int sum) { return (sum + cover / 2) / cover; };
    return {mean(red), mean(green), mean(blue), cover * 255 / (kSamples * kSamples)};
}

}  // namespace

int main(int count, char** arguments) {
    artwork::Picture picture{kSide, kSide * kPictures, {}};
    for (int step = 0; step < kPictures; ++step) {
        const artwork::Turn turn = artwork::TurnOf(step);
        for (int i = 0; i < kSide * kSide; ++i)
            picture.pixels.push_back(PixelAt(i % kSide, i / kSide, turn));
    }
    return artwork::Deliver({{"logo.bmp", BitmapFile(picture, 32)}}, count, arguments);
}
