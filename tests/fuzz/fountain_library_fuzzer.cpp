// Any bytes as a fountain library: a whole one's entries are drawn, another one has none.
#include <algorithm>

#include "fills/fountain_library.h"
#include "tests/fuzz/fuzz_input.h"

namespace {

using namespace tess;

void Draw(const FountainLibraryEntry& entry) {
    constexpr int kWidth = 67, kHeight = 2;
    Fountain fountain;
    InitFountain(&fountain, FountainPreset::Plain);
    TakeColors(entry, &fountain);
    std::int32_t positions[kFountainMarkers];
    FountainMarkerPixels(fountain, kWidth, positions);
    fuzz::UsePicture(RenderFountainImage(fountain, kWidth, kHeight));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t count) {
    constexpr std::size_t kMostDrawn = 4;
    {
        FountainLibraryEntries entries;
        const LibraryState state = ReadFountainLibrary(fuzz::FileOf(bytes, count), &entries);
        fuzz::Expect(state == LibraryState::Whole || entries.size() == 0,
                     "a damaged library has no entries");
        for (std::size_t i = 0; i < std::min(entries.size(), kMostDrawn); ++i)
            Draw(entries[i]);
    }
    fuzz::ExpectNoBlocks();
    return 0;
}
