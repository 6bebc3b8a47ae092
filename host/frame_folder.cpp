// The folder is filled beside its place, under another name. An older one is
// moved aside before the new one takes its place, and removed after.
#include "host/frame_folder.h"

#include <cctype>
#include <cstdio>
#include <filesystem>
#include <optional>
#include <string>
#include <system_error>

#include "host/bmp_file.h"
#include "host/json_writer.h"
#include "platform/files.h"
#include "platform/unfinished_path.h"

namespace tess {
namespace {

namespace fs = std::filesystem;

constexpr char kDescriptionName[] = "animation.json";
constexpr int kNameAttempts = 1000;

std::string FrameName(int index) {
    char name[32];
    std::snprintf(name, sizeof name, "frame_%05d.bmp", index);
    return name;
}

bool IsFrameName(const std::string& name) {
    constexpr std::string_view kHead = "frame_", kTail = ".bmp";
    if (name.size() <= kHead.size() + kTail.size() || !name.starts_with(kHead) ||
        !name.ends_with(kTail)) {
        return false;
    }
    for (std::size_t i = kHead.size(); i < name.size() - kTail.size(); ++i) {
        if (std::isdigit(static_cast<unsigned char>(name[i])) == 0) return false;
    }
    return true;
}

bool HoldsFramesAlone(const fs::path& folder) {
    std::error_code error;
    for (const fs::directory_entry& entry : fs::directory_iterator(folder, error)) {
        const std::string name = entry.path().filename().string();
        if (name != kDescriptionName && !IsFrameName(name)) return false;
    }
    return !error;
}

// What stands in the way at `place`, Written for nothing.
FileResult FaultAt(const fs::path& place) {
    std::error_code error;
    if (!fs::exists(fs::symlink_status(place, error))) return FileResult::Written;
    if (!fs::is_directory(place, error)) return FileResult::NotAFolder;
    if (!HoldsFramesAlone(place)) return FileResult::ForeignFolder;
    // It would be gone, and whoever is in it with the program in no folder any more.
    const bool is_own = fs::equivalent(place, fs::current_path(error), error);
    return is_own ? FileResult::FolderInUse : FileResult::Written;
}

// Whether a file can be made in `folder`, "" for the one that the program is in.
bool TakesFiles(const fs::path& folder) {
    const platform::NewFile probe((folder / ".tessellomatics").string(),
                                  platform::FileMode::Binary);
    return static_cast<bool>(probe);
}

// The nearest of the folders above `path` at which something is.
fs::path WhatIsThereAbove(const fs::path& path) {
    std::error_code error;
    fs::path folder = path.parent_path();
    while (!folder.empty() && folder != folder.parent_path() &&
           !fs::exists(fs::symlink_status(folder, error))) {
        folder = folder.parent_path();
    }
    return folder;
}

// A folder of its own beside `place`, removed with all that is in it at the end of
// its scope.
class TemporaryFolder {
public:
    explicit TemporaryFolder(const fs::path& place) {
        // Until it is there it may be another program's, so its name is noted behind that.
        const platform::EndingHeld held;
        std::error_code error;
        for (int i = 0; i < kNameAttempts && path_.empty() && !error; ++i) {
            fs::path candidate = place;
            candidate += ".part" + std::to_string(i);
            if (fs::create_directory(candidate, error)) path_ = candidate;
        }
        unfinished_.emplace(path_.string());
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
    ~TemporaryFolder() {
        std::error_code error;
        if (!path_.empty()) fs::remove_all(path_, error);
    }

    explicit operator bool() const { return !path_.empty(); }
    /// It is not removed.
    void Keep() {
        path_.clear();
        unfinished_.reset();
    }
    [[nodiscard]] const fs::path& Path() const { return path_; }

private:
    fs::path path_;
    std::optional<platform::UnfinishedPath> unfinished_;
};

void DescribePalette(JsonWriter& json, const std::uint8_t* palette) {
    json.BeginArray();
    for (int i = 0; i < kPaletteEntries; ++i) {
        char text[8];
        std::snprintf(text, sizeof text, "#%02X%02X%02X", palette[3 * i], palette[3 * i + 1],
                      palette[3 * i + 2]);
        json.Text(text);
    }
    json.EndArray();
}

FileResult WriteDescription(const Animation& animation, const fs::path& path) {
    platform::NewFile file(path.string(), platform::FileMode::Text);
    if (!file) return FileResult::CannotCreate;
    JsonWriter json(file.Stream());
    json.BeginObject();
    json.Key("width");
    json.Number(animation.Width);
    json.Key("height");
    json.Number(animation.Height);
    json.Key("depth");
    json.Number(animation.Depth);
    json.Key("delay_unit");
    json.Text(animation.Unit == DelayUnit::Hundredths ? "hundredths" : "milliseconds");
    json.Key("comment");
    if (animation.HasComment) {
        json.Text(animation.Comment);
    } else {
        json.Null();
    }
    json.Key("palette");
    DescribePalette(json, animation.Palette);
    json.Key("frames");
    json.BeginArray();
    for (int i = 0; i < animation.Frames.Count; ++i) {
        FrameRecord frame;
        if (GetFrame(animation, i, &frame) == 0) return FileResult::OutOfMemory;
        json.BeginObject();
        json.Key("file");
        json.Text(FrameName(i));
        json.Key("delay");
        json.Number(frame.Delay);
        json.Key("transparent_index");
        json.Number(frame.TransparentIndex);
        json.EndObject();
    }
    json.EndArray();
    json.EndObject();
    return file.Commit() != 0 ? FileResult::Written : FileResult::CannotWrite;
}

FileResult FillFolder(const Animation& animation, const fs::path& folder) {
    for (int i = 0; i < animation.Frames.Count; ++i) {
        FrameRecord frame;
        if (GetFrame(animation, i, &frame) == 0) return FileResult::OutOfMemory;
        const FileResult result = WriteBmpFile(frame.Image, (folder / FrameName(i)).string());
        if (result != FileResult::Written) return result;
    }
    return WriteDescription(animation, folder / kDescriptionName);
}

FileResult PutInPlace(const fs::path& filled, const fs::path& place) {
    // The older folder is not left aside.
    const platform::EndingHeld held;
    std::error_code error;
    if (!fs::exists(place, error)) {
        fs::rename(filled, place, error);
        return error ? FileResult::CannotWrite : FileResult::Written;
    }
    TemporaryFolder aside(place);
    if (!aside) return FileResult::CannotWrite;
    const fs::perms permissions = fs::status(place, error).permissions();
    const fs::path old = aside.Path() / "old";
    fs::rename(place, old, error);
    if (error) return FileResult::CannotWrite;
    fs::rename(filled, place, error);
    if (!error) {
        // Not before: what may not be written to could not be removed either.
        fs::permissions(place, permissions, error);
        return FileResult::Written;
    }
    fs::rename(old, place, error);
    if (error) aside.Keep();  // the older folder is there and nowhere else
    return FileResult::CannotWrite;
}

// Where the folder is written: behind a link, and by a name that others can be made of.
fs::path PlaceOf(std::string_view path) {
    std::error_code error;
    fs::path place = fs::weakly_canonical(path, error);
    if (error) place = path;
    if (!place.has_filename()) place = place.parent_path();  // "frames/" is "frames"
    return place;
}

}  // namespace

FileResult TryFrameFolder(std::string_view path) {
    const fs::path place = PlaceOf(path);
    if (const FileResult fault = FaultAt(place); fault != FileResult::Written) return fault;
    if (!TakesFiles(WhatIsThereAbove(place))) return FileResult::CannotCreate;
    // An older folder is moved, which takes the same right as a file in it.
    std::error_code error;
    return !fs::exists(place, error) || TakesFiles(place) ? FileResult::Written
                                                          : FileResult::CannotWrite;
}

FileResult WriteFrameFolder(const Animation& animation, std::string_view path) {
    const fs::path place = PlaceOf(path);
    if (const FileResult fault = FaultAt(place); fault != FileResult::Written) return fault;
    // What cannot be made is told of as the folder that cannot be created in it.
    std::error_code error;
    if (place.has_parent_path()) fs::create_directories(place.parent_path(), error);
    const TemporaryFolder folder(place);
    if (!folder) return FileResult::CannotCreate;
    const FileResult result = FillFolder(animation, folder.Path());
    return result == FileResult::Written ? PutInPlace(folder.Path(), place) : result;
}

}  // namespace tess
