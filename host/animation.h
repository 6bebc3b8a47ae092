// An animation as the plug-in handed it over, and how writing it to a file can
// end.
#pragma once

#include <cstdint>
#include <string>

#include "pipeline/image_buffers.h"

namespace tess {

/// What a frame's delay counts.
enum class DelayUnit { Hundredths, Milliseconds };

/// Owns its frames.
struct Animation {
    Animation() = default;
    Animation(const Animation&) = delete;
    Animation& operator=(const Animation&) = delete;
    ~Animation() { FrameListFree(&Frames); }

    int Depth = 0;              ///< bits per pixel, 1 to 8 or 24
    int Width = 0, Height = 0;  ///< the largest of all frames
    std::uint8_t Palette[kPaletteBytes] = {};
    DelayUnit Unit = DelayUnit::Hundredths;
    FrameList Frames = {};  ///< in order; pictures as they were handed over, no masks
    bool HasComment = false;
    std::string Comment;
};

/// Copies frame `index` into `frame`, whose picture stays the animation's.
/// Returns 1, or 0 when the list could not be read. Requires: 0 <= index < Count.
[[nodiscard]] int GetFrame(const Animation& animation, int index, FrameRecord* frame);

/// The delay in hundredths of a second; a remainder is dropped, as in the
/// plug-in's own GIF file.
[[nodiscard]] std::uint32_t DelayInHundredths(const Animation& animation, const FrameRecord& frame);
[[nodiscard]] std::uint32_t DelayInMilliseconds(const Animation& animation,
                                                const FrameRecord& frame);

enum class FileResult {
    Written,
    CannotCreate,
    CannotWrite,
    OutOfMemory,
    TooLarge,        ///< a side is longer than the format can say
    TrueColorInGif,  ///< 24-bit frames, of which a GIF holds none
    ForeignFolder,   ///< the folder to be replaced holds files that are not frames
    FolderInUse,     ///< the program runs in the folder to be replaced
    NotAFolder,      ///< in the folder's place is a file, or a link that leads nowhere
};

/// What went wrong, as the end of a sentence that begins with the path.
[[nodiscard]] const char* Describe(FileResult result);

}  // namespace tess
