#include "host/animation.h"

namespace tess {

int GetFrame(const Animation& animation, int index, FrameRecord* frame) {
    const platform::LockedBlock<const FrameRecord> records(animation.Frames.Records);
    if (!records) return 0;
    *frame = records.Get()[index];
    return 1;
}

std::uint32_t DelayInHundredths(const Animation& animation, const FrameRecord& frame) {
    return animation.Unit == DelayUnit::Hundredths ? frame.Delay : frame.Delay / 10;
}

std::uint32_t DelayInMilliseconds(const Animation& animation, const FrameRecord& frame) {
    return animation.Unit == DelayUnit::Hundredths ? frame.Delay * 10 : frame.Delay;
}

const char* Describe(FileResult result) {
    switch (result) {
        case FileResult::Written:
            return "is written";
        case FileResult::CannotCreate:
            return "cannot be created";
        case FileResult::CannotWrite:
            return "cannot be written";
        case FileResult::OutOfMemory:
            return "cannot be written: memory is short";
        case FileResult::TooLarge:
            return "cannot be written: the picture is too large for the format";
        case FileResult::TrueColorInGif:
            return "cannot be written: a GIF holds no 24-bit frames (turn True color off, or write "
                   ".webp or .png)";
        case FileResult::ForeignFolder:
            return "is a folder that holds other files; it is left as it is";
        case FileResult::FolderInUse:
            return "is the folder that the program runs in; it is left as it is";
        case FileResult::NotAFolder:
            return "is there and is no folder";
    }
    return "cannot be written";
}

}  // namespace tess
