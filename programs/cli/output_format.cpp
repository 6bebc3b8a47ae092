#include "programs/cli/output_format.h"

#include <filesystem>
#include <system_error>

#include "host/bmp_file.h"
#include "host/frame_folder.h"
#include "host/gif_file.h"
#include "host/png_file.h"
#include "host/webp_file.h"
#include "platform/files.h"
#include "programs/cli/request.h"
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

int Fail(const std::string& path, const std::string& what) {
    TellUser(path + ": " + what);
    return kFailed;
}

// Something that is neither a file nor a folder: a device, a pipe.
bool IsNoFile(const std::string& path) {
    std::error_code error;
    return fs::exists(path, error) && !fs::is_regular_file(path, error);
}

int Tell(const std::string& path, FileResult result) {
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

// The nearest folder above `path` that is there, "" for the one that the program is in.
fs::path FolderThatIsThere(const fs::path& path) {
    std::error_code error;
    fs::path folder = path.parent_path();
    while (!folder.empty() && folder != folder.parent_path() && !fs::exists(folder, error)) {
        folder = folder.parent_path();
    }
    return folder;
}

FileResult WriteAnimation(const Animation& animation, const std::string& path) {
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

}  // namespace

OutputFormat FormatOf(const std::string& path) {
    const std::string ending = EndingOf(path);
    if (IsFolder(path) || ending.empty() || ending == ".bmp") return OutputFormat::Folder;
    if (ending == ".gif") return OutputFormat::Gif;
    if (ending == ".webp") return OutputFormat::WebP;
    if (ending == ".png") return OutputFormat::Png;
    return OutputFormat::Unknown;
}

int CheckOutput(const std::string& path) {
    switch (FormatOf(path)) {
        case OutputFormat::Unknown:
            TellUser(path +
                     ": unknown ending; it takes .gif, .webp, .png, or / for a folder of frames");
            return kWrongUse;
        case OutputFormat::Folder:
            return CheckFolder(path);
        default:
            return TryFile(path);
    }
}

int CheckFolder(const std::string& path) {
    const std::string name = path.ends_with('/') ? path.substr(0, path.size() - 1) : path;
    if (IsFolder(path)) return kDone;
    std::error_code error;
    if (fs::exists(name, error)) return Fail(name, "is there and is no folder");
    // The folders above it are made with it; it is enough that the first of them can be.
    const platform::NewFile probe((FolderThatIsThere(name) / "probe").string(),
                                  platform::FileMode::Binary);
    return probe ? kDone : Tell(name, FileResult::CannotCreate);
}

int CheckPictureOutput(const std::string& path) {
    const std::string ending = EndingOf(path);
    if (ending != ".png" && ending != ".bmp") {
        TellUser(path + ": unknown ending; it takes .png or .bmp");
        return kWrongUse;
    }
    return TryFile(path);
}

int CheckDocumentOutput(const std::string& path) {
    if (EndingOf(path) != ".qv1") {
        TellUser(path + ": unknown ending; it takes .qv1");
        return kWrongUse;
    }
    return TryFile(path);
}

bool IsRecordOutput(const std::string& path) {
    return EndingOf(path) == ".mtrl";
}

int CheckRecordOutput(const std::string& path) {
    const std::string ending = EndingOf(path);
    if (ending != ".png" && ending != ".bmp" && ending != ".mtrl") {
        TellUser(path + ": unknown ending; it takes .png, .bmp or .mtrl");
        return kWrongUse;
    }
    return TryFile(path);
}

int WriteOutputs(const Animation& animation, const std::string& output,
                 const std::string& frames_folder) {
    if (!frames_folder.empty()) {
        const int status = Tell(frames_folder, WriteFrameFolder(animation, frames_folder));
        if (status != kDone) return status;
    }
    return output.empty() ? kDone : Tell(output, WriteAnimation(animation, output));
}

int WritePicture(ImageHandle image, const std::string& path) {
    return Tell(path, EndingOf(path) == ".png" ? WritePng(image, path) : WriteBmpFile(image, path));
}

}  // namespace tess
