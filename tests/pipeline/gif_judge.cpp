// gif_judge PROGRAM: lets an independent reader judge the Preview's GIF at every depth
// from 1 to 8. The program must take the file without a complaint and give the same
// pixels back. Exit status 0 for that, 1 if not, 77 if it is not installed.
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <random>
#include <span>
#include <string>
#include <vector>

#include "platform/browser.h"
#include "platform/files.h"
#include "tests/shell_stand_in/shell_stand_in.h"
#include "tests/support/driver_run.h"
#include "tests/support/gif_reader.h"
#include "tests/support/recording_host.h"
#include "tests/support/scratch_folder.h"
#include "tests/support/toy_frames.h"

namespace tess::test {
namespace {

using Bytes = std::vector<std::uint8_t>;

constexpr int kSkipped = 77;
constexpr int kWidth = 157;  // no multiple of 8, and noise enough for several dictionaries
constexpr int kHeight = 131;
constexpr int kFrames = 3;
constexpr std::size_t kFrameBytes = std::size_t{3} * kWidth * kHeight;

/// The colours of an animation of the given depth; white is the last one, and comes
/// into a custom palette once more.
std::vector<ColorWord> ColorsOf(int depth) {
    if (depth == 1) return {MakeColor(0, 0, 0), MakeColor(255, 255, 255)};
    const int count = depth == 8 ? 254 : (1 << depth) - 1;
    std::vector<ColorWord> colors;
    for (int i = 0; i < count - 1; ++i)
        colors.push_back(MakeColor(i, 254 - i, i * 5 & 255));
    colors.push_back(MakeColor(255, 255, 255));
    return colors;
}

/// Frames of flat runs above and noise below.
std::vector<ToyFrame> FramesOf(int depth) {
    std::mt19937 random(static_cast<unsigned>(depth));
    const std::vector<ColorWord> colors = ColorsOf(depth);
    std::vector<ToyFrame> frames(kFrames, {kWidth, kHeight, {}, 40});
    for (ToyFrame& frame : frames) {
        ColorWord color = colors.back();
        for (int i = 0; i < kWidth * kHeight; ++i) {
            const unsigned change = i < kWidth * kHeight / 2 ? 40 : 1;
            if (random() % change == 0) color = colors[random() % colors.size()];
            frame.pixels.push_back(color);
        }
    }
    // So that every colour is there.
    for (std::size_t i = 0; i < colors.size(); ++i)
        frames[0].pixels[i] = colors[i];
    return frames;
}

/// Red, green, blue of all pixels.
Bytes RgbOf(std::span<const ToyFrame> frames) {
    Bytes rgb;
    for (const ToyFrame& frame : frames) {
        for (const ColorWord color : frame.pixels) {
            rgb.insert(rgb.end(), {RedOf(color), GreenOf(color), BlueOf(color)});
        }
    }
    return rgb;
}

Bytes RgbOf(const GifFile& gif) {
    Bytes rgb;
    for (const GifFrame& frame : gif.frames) {
        for (const std::uint8_t index : frame.indexes) {
            const std::uint8_t* entry = gif.palette.data() + std::size_t{3} * index;
            rgb.insert(rgb.end(), entry, entry + 3);
        }
    }
    return rgb;
}

/// Runs a command in `folder`. Returns true when it succeeded without a word on
/// standard error.
bool RunQuietly(const std::string& command, const ScratchFolder& folder) {
    const std::string line = "cd '" + folder.Path() + "' && " + command + " 2>complaints";
    const bool succeeded = std::system(line.c_str()) == 0;
    const Bytes complaints = ReadFileBytes(folder.File("complaints"));
    if (!complaints.empty()) std::fwrite(complaints.data(), 1, complaints.size(), stderr);
    return succeeded && complaints.empty();
}

/// The file that a program has written anew, as our reader reads it.
Bytes RgbOfRewritten(const ScratchFolder& folder) {
    std::string error;
    const auto gif = ReadGif(ReadFileBytes(folder.File("rewritten.gif")), &error, GifVersion::Any);
    if (!gif) std::fprintf(stderr, "the rewritten file: %s\n", error.c_str());
    return gif ? RgbOf(*gif) : Bytes();
}

/// The bare indexes that `giftext -r` prints, each through the file's palette.
Bytes RgbOfIndexes(const ScratchFolder& folder) {
    const Bytes file = ReadFileBytes(folder.File("preview.gif"));
    Bytes rgb;
    for (const std::uint8_t index : ReadFileBytes(folder.File("indexes"))) {
        const auto entry = file.begin() + 13 + std::ptrdiff_t{3} * index;
        rgb.insert(rgb.end(), entry, entry + 3);
    }
    return rgb;
}

struct Judge {
    const char* program;
    const char* command;  ///< reads preview.gif
    std::function<Bytes(const ScratchFolder&)> pixels;
    bool last_frame_only = false;
};

const Judge kJudges[] = {
    {"gifsicle", "gifsicle --info preview.gif >told && gifsicle preview.gif -o rewritten.gif",
     RgbOfRewritten},
    {"giftool", "giftool <preview.gif >rewritten.gif", RgbOfRewritten},
    {"giftext", "giftext -r preview.gif >indexes", RgbOfIndexes},
    {"gif2rgb", "gif2rgb -1 -o last.rgb preview.gif",
     [](const ScratchFolder& folder) { return ReadFileBytes(folder.File("last.rgb")); }, true},
    {"convert", "convert preview.gif -coalesce -depth 8 rgb:all.rgb",
     [](const ScratchFolder& folder) { return ReadFileBytes(folder.File("all.rgb")); }},
};

bool WritePreviewOf(const std::vector<ToyFrame>& frames, int depth, const ScratchFolder& folder) {
    platform::SetPluginFolder(folder.Path());
    platform::SuppressBrowser(true);
    Shell().build = Deliver(frames);
    DialogSettings settings;
    settings.palette = 0;
    settings.custom_palette = depth > 1;
    RecordingHost host;
    return RunDriver(settings, host.Services(), BuildMode::Preview) == 1;
}

bool Passes(const Judge& judge, int depth) {
    const ScratchFolder folder;
    const std::vector<ToyFrame> frames = FramesOf(depth);
    if (!WritePreviewOf(frames, depth, folder)) return false;
    const int written_depth = (ReadFileBytes(folder.File("preview.gif")).at(10) & 7) + 1;
    const bool taken = written_depth == depth && RunQuietly(judge.command, folder);
    const std::span<const ToyFrame> all(frames);
    const Bytes expected = RgbOf(judge.last_frame_only ? all.last(1) : all);
    const bool same = taken && judge.pixels(folder) == expected;
    std::printf("%s, depth %d: %s\n", judge.program, written_depth,
                same    ? "the same pixels"
                : taken ? "OTHER PIXELS"
                        : "NOT TAKEN");
    return same && expected.size() >= kFrameBytes;
}

int Run(const std::string& program) {
    for (const Judge& judge : kJudges) {
        if (program != judge.program) continue;
        if (std::system(("command -v " + program + " >/dev/null").c_str()) != 0) {
            std::printf("SKIPPED: %s is not installed\n", judge.program);
            return kSkipped;
        }
        bool passes = true;
        for (int depth = 1; depth <= 8; ++depth)
            passes = Passes(judge, depth) && passes;
        return passes ? 0 : 1;
    }
    std::fprintf(stderr, "gif_judge: no such judge: %s\n", program.c_str());
    return 1;
}

}  // namespace
}  // namespace tess::test

int main(int count, char** arguments) {
    return count == 2 ? tess::test::Run(arguments[1]) : 1;
}
