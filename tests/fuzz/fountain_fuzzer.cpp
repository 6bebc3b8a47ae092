// Any bytes as a fountain control's own file, and as the fountain of a document's line:
// what is taken is drawn, and its markers are placed.
#include "fills/fountain_control.h"
#include "tests/fuzz/fuzz_input.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t count) {
    using namespace tess;
    constexpr int kStripWidth = 181, kWidth = 24, kHeight = 2;
    Fountain fountain;
    if (ReadFountainFile(fuzz::FileOf(bytes, count), &fountain) == 0) return 0;
    std::int32_t positions[kFountainMarkers];
    FountainMarkerPixels(fountain, kStripWidth, positions);
    fuzz::UsePicture(RenderFountainImage(fountain, kWidth, kHeight));
    fuzz::UsePicture(RenderFountainImage(fountain, 1, 1));
    fuzz::ExpectNoBlocks();
    return 0;
}
