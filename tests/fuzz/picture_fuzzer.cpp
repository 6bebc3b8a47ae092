// Any bytes as the block of a picture that somebody else hands in: what is held to be
// whole bears everything that is done with pictures.
#include <algorithm>
#include <cstring>

#include "fills/material.h"
#include "pipeline/image_scaling.h"
#include "pipeline/picture_check.h"
#include "tests/fuzz/fuzz_input.h"

namespace {

using namespace tess;

void Use(ImageHandle picture) {
    MatrixTile tile{};
    tile.Image = picture;
    tile.TargetRect = {0, 0, 9, 11};
    fuzz::UsePicture(RenderMatrixTile(tile));
    fuzz::UsePicture(ScaleImage(picture, 5, 7, 1.0));
    fuzz::UsePicture(ScaleImagePercent(picture, 130, 70));
    fuzz::UsePicture(DuplicateImage(picture));
    fuzz::Keep(AverageImageColour(picture));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t count) {
    platform::SetMemoryLimit(fuzz::kMemoryLimit);
    if (!IsWholePicture(bytes, count)) return 0;
    {
        const platform::OwnedBlock block(platform::AllocateBlock(count));
        {
            const LockedImage image(block.Get());
            fuzz::Expect(image, "the block can be had");
            std::memcpy(static_cast<void*>(image.Get()), bytes, count);
        }
        fuzz::Expect(IsWholePicture(block.Get()), "a block is judged as its bytes are");
        Use(block.Get());
    }
    fuzz::ExpectNoBlocks();
    return 0;
}
