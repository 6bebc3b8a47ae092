// Any text as a group of textures: all items are read, and the first ones are drawn.
#include <algorithm>
#include <string>

#include "fills/texture_group_file.h"
#include "tests/fuzz/fuzz_input.h"

namespace {

using namespace tess;

// What takes long is bounded: a fractal's mesh, and craters, of which a negative count,
// tenfold, can be a million.
void Draw(TextureItem item) {
    constexpr std::int32_t kLargestMesh = 16, kMostCraters = 4;
    constexpr int kWidth = 12, kHeight = 9;
    item.MatrixSize = std::min(std::int32_t{item.MatrixSize}, kLargestMesh);
    item.CreaterCount = std::clamp(std::int32_t{item.CreaterCount}, 0, kMostCraters);
    fuzz::UsePicture(RenderTextureAt(item, kWidth, kHeight));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t count) {
    constexpr int kMostDrawn = 2;
    {
        TextureGroupReader group(fuzz::FileOf(bytes, count));
        std::string name;
        TextureItem item{};
        for (int number = 0; group && group.Next(&name, &item); ++number) {
            fuzz::Expect(name.size() <= kTextureGroupFileBytes, "a name is cut");
            if (number < kMostDrawn) Draw(item);
        }
    }
    fuzz::ExpectNoBlocks();
    return 0;
}
