#include "pipeline/preview.h"

#include <string>

#include "pipeline/gif_writer.h"
#include "platform/browser.h"

namespace tess {

namespace {

bool AddFrames(const BuildRun& run, std::FILE* stream) {
    for (int i = 0; i < run.Frames.Count(); ++i) {
        FrameRecord frame;
        if (!run.Frames.Read(i, &frame)) return false;
        frame.Delay = GifDelay(frame.Delay, run.Host->HostFlags);
        if (GifAddFrame(stream, &frame) == 0) return false;
    }
    return true;
}

}  // namespace

bool WritePreview(BuildRun& run) {
    std::string page;
    std::FILE* stream = GifOpen(&page, run.MaxWidth, run.MaxHeight, run.Palette, run.Depth);
    if (stream == nullptr) return Fail(run, StringId::ErrorCreatingFile);
    // A file that failed half way gets its trailer, too: viewers show what is there.
    const bool added = AddFrames(run, stream);
    const bool ended = std::fputc(kGifTrailer, stream) != EOF;
    const bool closed = std::fclose(stream) == 0;
    if (!added || !ended || !closed) return Fail(run, StringId::ErrorWritingFile);
    platform::OpenPage(page);
    return true;
}

}  // namespace tess
