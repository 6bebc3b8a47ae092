// Makes vorbelx1.mtx, the group of tiles that comes with the program and is not
// changed: every design, painted point by point, 16 points a pixel.
//
//   tile_painter FOLDER            makes it there
//   tile_painter --check FOLDER    compares the file that is there with what it makes

#include <string>
#include <vector>

#include "fills/matrix_group_format.h"
#include "resources/artwork/drawn_files.h"
#include "resources/artwork/tiles/tile_painting.h"

namespace {

constexpr int kSamples = 4;  // each way within a pixel
constexpr std::size_t kBitmapFileHead = 14;

int Level(double sum) {
    const double level = sum / (kSamples * kSamples) + 0.5;
    return level < 0 ? 0 : level > 255 ? 255 : static_cast<int>(level);
}

artwork::Pixel PixelAt(const artwork::TileDesign& design, int x, int y) {
    artwork::Color sum;
    for (int i = 0; i < kSamples * kSamples; ++i) {
        const artwork::Color point =
            design.paint(x + (i % kSamples + 0.5) / kSamples, y + (i / kSamples + 0.5) / kSamples);
        // A point that is brighter than can be shown counts as white alone.
        sum.red += artwork::Clamp(point.red, 0, 255);
        sum.green += artwork::Clamp(point.green, 0, 255);
        sum.blue += artwork::Clamp(point.blue, 0, 255);
    }
    return {Level(sum.red), Level(sum.green), Level(sum.blue), 255};
}

/// The design's picture as the block that a group holds: a bitmap file without the
/// head of the file.
std::string BlockOf(const artwork::TileDesign& design) {
    artwork::Picture picture{design.width, design.height, {}};
    for (int i = 0; i < design.width * design.height; ++i)
        picture.pixels.push_back(PixelAt(design, i % design.width, i / design.width));
    return artwork::BitmapFile(picture, 24).substr(kBitmapFileHead);
}

template <class Record>
void Add(std::string* bytes, const Record& record) {
    bytes->append(reinterpret_cast<const char*>(&record), sizeof record);
}

std::string GroupFile() {
    constexpr std::uint32_t kNoTime = 0;  // the same file at every build
    std::string elements;
    int count = 0;
    for (const auto designs : {artwork::GeometricTiles(), artwork::NaturalTiles(),
                               artwork::WovenTiles(), artwork::BuiltTiles()}) {
        for (const artwork::TileDesign& design : designs) {
            const std::string block = BlockOf(design);
            Add(&elements, tess::MakeMatrixElementHead(static_cast<std::uint32_t>(block.size())));
            elements += block;
            ++count;
        }
    }
    std::string file;
    Add(&file, tess::MakeMatrixGroupHead(kNoTime, count, false));
    return file + elements;
}

}  // namespace

int main(int count, char** arguments) {
    return artwork::Deliver({{"vorbelx1.mtx", GroupFile()}}, count, arguments);
}
