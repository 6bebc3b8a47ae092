// Makes dialog_background.bmp, which dialogs are tiled with: hinged squares, half
// turned, that stand out from a middle gray by a few levels. The program moves all
// levels by the colour that dialogs have.

#include "resources/artwork/drawn_files.h"
#include "resources/artwork/hinged_squares.h"

namespace {

constexpr int kSide = 48;
constexpr int kSamples = 4;  // each way within a pixel
constexpr double kSpacing = 12.0;
constexpr int kTurn = 10;  // of 36 steps to 90 degrees
constexpr int kGap = 124, kSquare = 128, kBevel = 131;
constexpr double kBevelWidth = 1.0;  // pixels

int LevelAt(double x, double y, artwork::Turn turn) {
    const artwork::SquareHit hit = artwork::HitSquare(x, y, kSpacing, turn);
    if (hit.is_gap) return kGap;
    return hit.edge < kBevelWidth ? kBevel : kSquare;
}

artwork::Pixel PixelAt(int x, int y, artwork::Turn turn) {
    int sum = kSamples * kSamples / 2;
    for (int i = 0; i < kSamples * kSamples; ++i) {
        sum +=
            LevelAt(x + (i % kSamples + 0.5) / kSamples, y + (i / kSamples + 0.5) / kSamples, turn);
    }
    const int level = sum / (kSamples * kSamples);
    return {level, level, level, 255};
}

}  // namespace

int main(int count, char** arguments) {
    artwork::Picture picture{kSide, kSide, {}};
    const artwork::Turn turn = artwork::TurnOf(kTurn);
    for (int i = 0; i < kSide * kSide; ++i)
        picture.pixels.push_back(PixelAt(i % kSide, i / kSide, turn));
    return artwork::Deliver({{"dialog_background.bmp", BitmapFile(picture, 24)}}, count, arguments);
}
