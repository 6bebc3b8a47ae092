// Any bytes as a group of tiles: all of it and single elements are read and laid out.
#include "fills/matrix_group_file.h"
#include "fills/matrix_tile.h"
#include "tests/fuzz/fuzz_input.h"

namespace {

using namespace tess;

void LayOut(ImageHandle picture) {
    constexpr int kWidth = 19, kHeight = 13;
    MatrixTile tile{};
    tile.Image = picture;
    tile.TargetRect = {0, 0, kWidth, kHeight};
    fuzz::UsePicture(RenderMatrixTile(tile));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t count) {
    const std::string& path = fuzz::FileOf(bytes, count);
    {
        MatrixGroup group;
        const GroupReading reading = ReadMatrixGroup(path, &group);
        fuzz::Expect(reading != GroupReading::Missing, "the file is there");
        for (int i = 0; i < group.Count(); ++i)
            LayOut(group.Element(i));
    }
    for (const int index : {-1, 0, 1, 2}) {
        const platform::OwnedBlock element(LoadMatrixElement(path, index));
        if (element) LayOut(element.Get());
    }
    fuzz::ExpectNoBlocks();
    return 0;
}
