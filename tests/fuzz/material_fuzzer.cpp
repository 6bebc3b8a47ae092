// Any bytes as a material file: what is taken is drawn, and written as it was read.
#include <algorithm>

#include "fills/material_file.h"
#include "tests/fuzz/fuzz_input.h"

namespace {

using namespace tess;

// What takes long is bounded: a fractal's mesh, and craters, of which a negative count,
// tenfold, can be a million.
void BoundTexture(TextureItem* item) {
    constexpr std::int32_t kLargestMesh = 16, kMostCraters = 4;
    item->MatrixSize = std::min(std::int32_t{item->MatrixSize}, kLargestMesh);
    item->CreaterCount = std::clamp(std::int32_t{item->CreaterCount}, 0, kMostCraters);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t count) {
    constexpr int kWidth = 12, kHeight = 9;
    const platform::MemoryHandle handle = LoadMaterial(fuzz::FileOf(bytes, count), 0x123456, 1);
    {
        const LockedMaterial material(handle);
        fuzz::Expect(material && HasMaterialMagic(*material.Get()), "there is a material");
        BoundTexture(&material->Texture);
        const platform::OwnedBlock picture(RenderMaterial(material, kWidth, kHeight));
        fuzz::Keep(AverageImageColour(picture.Get()));
    }
    FreeMaterial(handle);
    fuzz::ExpectNoBlocks();
    return 0;
}
