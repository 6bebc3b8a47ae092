// What the fuzzers share: bytes as a file that is in memory alone, and ways to use all of
// what a reader has read, so that the sanitizers see it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <string>
#include <sys/mman.h>
#include <unistd.h>

#include "pipeline/image_buffers.h"
#include "platform/memory.h"

namespace tess::fuzz {

/// More than any small input may need. A reader that believes a damaged size comes to it
/// and must fail in order.
inline constexpr std::size_t kMemoryLimit = std::size_t{64} << 20;

/// Ends the program as a finding when something does not hold.
inline void Expect(bool holds, const char* what) {
    if (holds) return;
    std::fprintf(stderr, "not so: %s\n", what);
    std::abort();
}

/// A file without a place on a disk. Its bytes are changed, its path stays.
class InputFile {
public:
    InputFile() : descriptor_(memfd_create("input", 0)) {
        path_ = "/proc/self/fd/" + std::to_string(descriptor_);
    }
    InputFile(const InputFile&) = delete;
    InputFile& operator=(const InputFile&) = delete;
    ~InputFile() { close(descriptor_); }

    void Put(const std::uint8_t* bytes, std::size_t count) const {
        const bool is_put = ftruncate(descriptor_, 0) == 0 &&
                            pwrite(descriptor_, bytes, count, 0) == static_cast<ssize_t>(count);
        Expect(is_put, "the input is in the file");
    }
    [[nodiscard]] const std::string& Path() const { return path_; }

private:
    int descriptor_;
    std::string path_;
};

/// Puts the input into the one file of the program, and limits the memory.
inline const std::string& FileOf(const std::uint8_t* bytes, std::size_t count) {
    static const InputFile file;
    platform::SetMemoryLimit(kMemoryLimit);
    file.Put(bytes, count);
    return file.Path();
}

/// Counts as a use of a number, so that reckoning it is not left out.
inline volatile std::uint32_t kept_number = 0;
inline void Keep(std::uint32_t number) {
    kept_number = number;
}

/// Reads every pixel and the colour table.
inline void ReadAllPixels(const PackedDib* image) {
    std::uint8_t palette[kPaletteBytes];
    ReadColorTable(image, palette);
    std::uint32_t sum = palette[kPaletteBytes - 1];
    for (int y = 0; y < image->Height; ++y) {
        for (int x = 0; x < image->Width; ++x)
            sum += GetDibPixel(image, x, y);
    }
    Keep(sum);
}

/// The same of a picture that may be null; it is freed.
inline void UsePicture(ImageHandle handle) {
    const platform::OwnedBlock owner(handle);
    const LockedImage image(handle);
    if (image) ReadAllPixels(image);
}

/// Called when all of an input's handles must be gone.
inline void ExpectNoBlocks() {
    Expect(platform::CurrentMemoryUse().live_blocks == 0, "no block is left over");
}

}  // namespace tess::fuzz
