// Any bytes as a picture that the user brings, .png, .bmp or .ppm: it is read, or there
// is a word on what is wrong.
#include <string>

#include "pipeline/picture_check.h"
#include "programs/cli/picture_file.h"
#include "tests/fuzz/fuzz_input.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t count) {
    using namespace tess;
    {
        std::string error;
        const platform::OwnedBlock picture(ReadPicture(fuzz::FileOf(bytes, count), &error));
        fuzz::Expect(static_cast<bool>(picture) == error.empty(), "a picture, or an error");
        if (picture) fuzz::Expect(IsWholePicture(picture.Get()), "it is a whole picture");
    }
    fuzz::ExpectNoBlocks();
    return 0;
}
