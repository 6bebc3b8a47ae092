#include "programs/cli/output_format.h"

#include <cstdio>
#include <filesystem>
#include <system_error>
#include <unistd.h>

#include "host/bmp_file.h"
#include "host/frame_folder.h"
#include "host/gif_file.h"
#include "host/png_file.h"
#include "host/webp_file.h"
#include "platform/files.h"
#include "programs/cli/file_faults.h"
#include "programs/cli/session.h"
#include "programs/cli/values.h"

namespace tess {
namespace {

namespace fs = std::filesystem;

// Lower case, with its dot.
std::string EndingOf(const std::string& path) {
    const std::string ending = fs::path(path).extension().string();
    if (ending.empty()) return "";
    std::string plain(".");
    return plain.append(PlainName(ending));
}

bool IsFolder(const std::string& path) {
    std::error_code error;
    return fs::is_directory(path, error);
}

bool IsStandardOutput(const std::string& path) {
    return path == "-";
}

int Fail(const std::string& path, const std::string& what) {
    TellUser((IsStandardOutput(path) ? "standard output" : path) + ": " + what);
    return kFailed;
}

int Refuse(const std::string& text) {
    TellUser(text);
    return kWrongUse;
}

// Bytes on a terminal are of use to nobody, and can upset it.
int CheckStandardOutput() {
    if (isatty(STDOUT_FILENO) == 0) return kDone;
    return Refuse("standard output is a terminal; redirect it to a file or a program");
}

// Something that is neither a file nor a folder: a device, a pipe.
bool IsNoFile(const std::string& path) {
    std::error_code error;
    return fs::exists(path, error) && !fs::is_regular_file(path, error);
}

int Tell(const std::string& path, FileResult result) {
    // Of standard output main tells, for all commands alike.
    if (IsStandardOutput(path) && result == FileResult::CannotWrite) return kFailed;
    return result == FileResult::Written ? kDone : Fail(path, Describe(result));
}

// A file that could take the place of `path` is begun and dropped again.
int TryFile(const std::string& path) {
    if (IsFolder(path)) return Fail(path, "is a folder");
    if (IsNoFile(path)) return Fail(path, "is no file, and a file cannot replace it");
    const platform::NewFile probe(path, platform::FileMode::Binary);
    if (probe) return kDone;
    TellUser(WriteFault(path));
    return kFailed;
}

// What standard output holds back is not written yet, and can still fail.
FileResult Flushed(FileResult result) {
    if (result != FileResult::Written) return result;
    return std::fflush(stdout) == 0 ? FileResult::Written : FileResult::CannotWrite;
}

FileResult WriteAnimation(const Animation& animation, const std::string& path) {
    if (IsStandardOutput(path)) return Flushed(WriteGifStream(animation, stdout));
    switch (FormatOf(path)) {
        case OutputFormat::Gif:
            return WriteGifFile(animation, path);
        case OutputFormat::WebP:
            return WriteWebp(animation, path);
        case OutputFormat::Png:
            return WriteAnimatedPng(animation, path);
        case OutputFormat::Folder:
            return WriteFrameFolder(animation, path);
        case OutputFormat::Unknown:
            break;
    }
    return FileResult::CannotCreate;
}

// Whether a frame's delay is lost in a GIF; a style may ask for none.
bool LosesDelays(const Animation& animation) {
    for (int i = 0; i < animation.Frames.Count; ++i) {
        FrameRecord frame;
        if (GetFrame(animation, i, &frame) == 0 || frame.Delay == 0) continue;
        if (DelayInHundredths(animation, frame) == 0) return true;
    }
    return false;
}

int CheckFolder(const std::string& path) {
    if (IsStandardOutput(path)) return Refuse("standard output cannot be a folder; name one");
    return Tell(path, TryFrameFolder(path));
}

int CheckOutput(const std::string& path) {
    if (IsStandardOutput(path)) return CheckStandardOutput();
    switch (FormatOf(path)) {
        case OutputFormat::Unknown:
            return Refuse(
                path +
                (EndingOf(path).empty() ? ": is there, and has no ending" : ": unknown ending") +
                "; it takes .gif, .webp, .png, / for a folder of frames, or - for a GIF "
                "on standard output");
        case OutputFormat::Folder:
            return CheckFolder(path);
        default:
            return TryFile(path);
    }
}

int NeedOutput() {
    return Refuse("an output is needed: -o FILE");
}

}  // namespace

void TellLostDelay(const Request& request, const std::string& path) {
    if (request.Quiet) return;
    TellUser(path +
             ": a GIF counts hundredths of a second, so a delay below 10 milliseconds is 0 in it, "
             "and each viewer takes that as it likes");
}

OutputFormat FormatOf(const std::string& path) {
    if (IsStandardOutput(path)) return OutputFormat::Gif;
    const std::string ending = EndingOf(path);
    if (IsFolder(path) || ending == ".bmp") return OutputFormat::Folder;
    if (ending.empty()) {
        std::error_code error;
        const bool is_folder = path.ends_with('/') || !fs::exists(path, error);
        return is_folder ? OutputFormat::Folder : OutputFormat::Unknown;
    }
    if (ending == ".gif") return OutputFormat::Gif;
    if (ending == ".webp") return OutputFormat::WebP;
    if (ending == ".png") return OutputFormat::Png;
    return OutputFormat::Unknown;
}

int CheckOutputs(const Request& request) {
    if (request.Output.empty() && request.FramesFolder.empty()) return NeedOutput();
    const int status = request.Output.empty() ? kDone : CheckOutput(request.Output);
    if (status != kDone || request.FramesFolder.empty()) return status;
    return CheckFolder(request.FramesFolder);
}

int CheckPictureOutput(const std::string& path) {
    if (path.empty()) return NeedOutput();
    if (IsStandardOutput(path)) return CheckStandardOutput();
    const std::string ending = EndingOf(path);
    if (ending != ".png" && ending != ".bmp") {
        return Refuse(path +
                      ": unknown ending; it takes .png or .bmp, or - for a PNG on standard output");
    }
    return TryFile(path);
}

int CheckDocumentOutput(const std::string& path) {
    if (IsStandardOutput(path))
        return Refuse("a document cannot go to standard output; name a .qv1 file");
    if (EndingOf(path) != ".qv1") {
        return Refuse(path + ": unknown ending; it takes .qv1");
    }
    return TryFile(path);
}

bool IsRecordOutput(const std::string& path) {
    return EndingOf(path) == ".mtrl";
}

int CheckRecordOutput(const std::string& path) {
    if (IsStandardOutput(path)) return CheckStandardOutput();
    const std::string ending = EndingOf(path);
    if (ending != ".png" && ending != ".bmp" && ending != ".mtrl") {
        return Refuse(path +
                      ": unknown ending; it takes .png, .bmp or .mtrl, or - for a PNG on "
                      "standard output");
    }
    return TryFile(path);
}

int WriteOutputs(const Animation& animation, const Request& request) {
    const std::string& output = request.Output;
    const std::string& frames_folder = request.FramesFolder;
    if (!frames_folder.empty()) {
        const int status = Tell(frames_folder, WriteFrameFolder(animation, frames_folder));
        if (status != kDone) return status;
    }
    if (output.empty()) return kDone;
    const int status = Tell(output, WriteAnimation(animation, output));
    if (status == kDone && FormatOf(output) == OutputFormat::Gif && LosesDelays(animation)) {
        TellLostDelay(request, IsStandardOutput(output) ? "standard output" : output);
    }
    return status;
}

int WritePicture(ImageHandle image, const std::string& path) {
    if (IsStandardOutput(path)) return Tell(path, Flushed(WritePngStream(image, stdout)));
    return Tell(path, EndingOf(path) == ".png" ? WritePng(image, path) : WriteBmpFile(image, path));
}

}  // namespace tess
