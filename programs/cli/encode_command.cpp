// encode: the user's pictures in the place of a style's frames. From there on the
// stages of a Build run, without its dialog: a style without a flat background and
// with the settings of the command line.
#include <string>

#include "pipeline/build_run.h"
#include "pipeline/hand_over.h"
#include "pipeline/palette.h"
#include "programs/cli/commands.h"
#include "programs/cli/output_format.h"
#include "programs/cli/picture_file.h"
#include "programs/cli/progress_bar.h"
#include "programs/cli/session.h"
#include "shell/style_table.h"

namespace tess {
namespace {

int Refuse(const std::string& path, const std::string& what) {
    TellUser(path + ": " + what);
    return kFailed;
}

struct Size {
    int width, height;
};

Size SizeOf(ImageHandle handle) {
    const LockedImage image(handle);
    return image ? Size{image->Width, image->Height} : Size{0, 0};
}

std::string SizeText(Size size) {
    return std::to_string(size.width) + " x " + std::to_string(size.height);
}

// Reads all pictures, which must have one size, as the run's frames.
int ReadFrames(const Request& request, BuildRun& run) {
    Size first{0, 0};
    for (const std::string& path : request.Operands) {
        std::string error;
        platform::OwnedBlock picture(ReadPicture(path, &error));
        if (!picture) return Refuse(path, error);
        const Size size = SizeOf(picture.Get());
        if (run.Frames.Count() == 0) first = size;
        if (size.width != first.width || size.height != first.height) {
            return Refuse(
                path, "is " + SizeText(size) + " pixels; the first picture is " + SizeText(first));
        }
        const FrameRecord record{picture.Get(), nullptr, static_cast<std::uint32_t>(request.Delay),
                                 -1};
        if (FrameListAdd(run.Frames.Get(), &record) == 0) return Refuse(path, "memory is short");
        static_cast<void>(picture.Release());  // the list owns it now
    }
    return kDone;
}

void SetUp(const Request& request, BuildRun& run) {
    run.Dither = request.Dither;
    run.Supercompress = request.Supercompress;
    run.CustomPalette = request.Palette < 0;
    run.BackgroundColor = kNoBackground;
    if (request.Colors > 0) run.MostColors = request.Colors;
    BuildFixedPalette(run.Palette, &run.FixedDepth, request.Palette);
}

int CheckRequest(const Request& request) {
    if (request.Palette >= 0 && request.Supercompress) {
        // Unchanged pixels need a slot of their own, which a fixed palette has not.
        TellUser("--supercompress does not go with --palette");
        return kWrongUse;
    }
    return CheckOutputs(request);
}

}  // namespace

int RunEncode(const Request& request) {
    if (const int status = CheckRequest(request); status != kDone) return status;
    ProgressBar bar(request.Quiet);
    CollectingHost host;
    OpenHost(&host, DelayUnit::Hundredths, false);
    host.Reports = bar.Reports();
    std::vector<std::string> messages;
    AnswerMessages(&messages);
    int status = kDone;
    {
        BuildRun run(nullptr, &host.Services, BuildMode::Build);
        SetUp(request, run);
        status = ReadFrames(request, run);
        if (status == kDone && !(FinishFrames(run) && HandOver(run))) status = kFailed;
    }
    bar.Clear();
    CloseHost();
    if (EndMessages() != kDone || status != kDone) return kFailed;
    return WriteOutputs(host.Collected, request);
}

}  // namespace tess
