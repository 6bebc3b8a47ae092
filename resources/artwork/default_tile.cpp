// Makes default_tile.bmp, the tile that stands for one which is missing: hinged
// squares with a lit and a shaded side, in two colours that take turns. Two by two
// squares are a period, so the picture joins itself.

#include "resources/artwork/drawn_files.h"
#include "resources/artwork/hinged_squares.h"

namespace {

constexpr int kSide = 64;
constexpr int kSamples = 4;  // each way within a pixel
constexpr double kSpacing = 16.0;
constexpr int kTurn = 9;                             // of 36 steps to 90 degrees
constexpr double kBevelWidth = 1.75, kShadow = 1.5;  // pixels

constexpr artwork::Pixel kGap{46, 52, 74, 255};
constexpr artwork::Pixel kFaces[2] = {{88, 140, 168, 255}, {226, 190, 122, 255}};

artwork::Pixel Shade(const artwork::Pixel& color, int percent) {
    const auto shade = [percent](int level) {
        const int shaded = level * percent / 100;
        return shaded > 255 ? 255 : shaded;
    };
    return {shade(color.red), shade(color.green), shade(color.blue), 255};
}

/// The colour at a point. Light comes from the top left: the rim of a square is lit
/// where the square ends towards the light, and throws a shadow the other way.
artwork::Pixel ColorAt(double x, double y, artwork::Turn turn) {
    const artwork::SquareHit hit = artwork::HitSquare(x, y, kSpacing, turn);
    if (hit.is_gap) {
        const bool in_shadow = !artwork::HitSquare(x - kShadow, y - kShadow, kSpacing, turn).is_gap;
        return Shade(kGap, in_shadow ? 62 : 100);
    }
    const artwork::Pixel& face = kFaces[(hit.column + hit.row) & 1];
    if (hit.edge >= kBevelWidth) return face;
    const bool is_lit =
        artwork::HitSquare(x - kBevelWidth / 2, y - kBevelWidth / 2, kSpacing, turn).edge <
        hit.edge;
    return Shade(face, is_lit ? 125 : 78);
}

artwork::Pixel PixelAt(int x, int y, artwork::Turn turn) {
    constexpr int kAll = kSamples * kSamples;
    int red = kAll / 2, green = kAll / 2, blue = kAll / 2;
    for (int i = 0; i < kAll; ++i) {
        const artwork::Pixel sample =
            ColorAt(x + (i % kSamples + 0.5) / kSamples, y + (i / kSamples + 0.5) / kSamples, turn);
        red += sample.red;
        green += sample.green;
        blue += sample.blue;
    }
    return {red / kAll, green / kAll, blue / kAll, 255};
}

}  // namespace

int main(int count, char** arguments) {
    artwork::Picture picture{kSide, kSide, {}};
    const artwork::Turn turn = artwork::TurnOf(kTurn);
    for (int i = 0; i < kSide * kSide; ++i)
        picture.pixels.push_back(PixelAt(i % kSide, i / kSide, turn));
    return artwork::Deliver({{"default_tile.bmp", BitmapFile(picture, 24)}}, count, arguments);
}
