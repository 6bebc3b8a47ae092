// Prints one line a setting of a style: the SHA-256 of all frames of its Build,
// then the setting. The same program of every build must print the same.
//
//   frame_digests STYLE COUNT SEED [LINE FOLDER]
//   frame_digests --styles                        the names of all styles
//
// The first line is for the start values; COUNT more are for random settings drawn
// from SEED, small enough to be quick. With LINE, counted from 1, it prints nothing,
// and writes the frames of that line's setting into FOLDER as 000.bmp and on.
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

#include "host/bmp_file.h"
#include "tests/golden/style_settings.h"
#include "tests/support/sha256.h"

namespace tess::test {

namespace {

using platform::WindowHandle;

struct Run {
    int style;
    int count;
    std::uint64_t seed;
    int line;  // to be written, 0 for none
    std::string folder;
    int failures;
};

std::string DigestOf(const FrameList& frames) {
    Sha256 digest;
    const platform::LockedBlock<const FrameRecord> records(frames.Records);
    for (int i = 0; i < frames.Count; ++i) {
        const LockedImage image(records.Get()[i].Image);
        digest.Add(image.Get(), sizeof(PackedDib));
        digest.Add(DibRow(image.Get(), image->Height - 1), image->ImageSize);
        digest.Add(&records.Get()[i].Delay, sizeof(std::uint32_t));
    }
    return digest.Finish();
}

/// Returns how many frames could not be written.
int WriteFrames(const FrameList& frames, const std::string& folder) {
    int failures = 0;
    const platform::LockedBlock<const FrameRecord> records(frames.Records);
    for (int i = 0; i < frames.Count; ++i) {
        char name[16];
        std::snprintf(name, sizeof name, "/%03d.bmp", i);
        if (WriteBmpFile(records.Get()[i].Image, folder + name) != FileResult::Written) ++failures;
    }
    return failures;
}

void BuildOne(Run& run, WindowHandle dialog, int line, const std::string& settings) {
    if (run.line != 0 && run.line != line) return;
    FrameList frames{};
    const bool is_built = BuildFrames(dialog, *StyleTable[run.style], &frames) != 0;
    if (!is_built) ++run.failures;
    if (run.line != 0) {
        run.failures += WriteFrames(frames, run.folder);
    } else {
        std::printf("%s %d frames%s\n", is_built ? DigestOf(frames).c_str() : "failed",
                    frames.Count, settings.c_str());
    }
    FrameListFree(&frames);
}

void BuildAll(WindowHandle dialog, void* context) {
    Run& run = *static_cast<Run*>(context);
    BuildOne(run, dialog, 1, " start values");
    RandomSettings random(run.seed);
    for (int i = 0; i < run.count; ++i)
        BuildOne(run, dialog, i + 2, random.SetAll(dialog, *StyleTable[run.style]));
}

}  // namespace

}  // namespace tess::test

int main(int count, char** arguments) {
    if (count == 2 && std::string_view(arguments[1]) == "--styles") {
        for (const tess::StyleEntry* style : tess::StyleTable)
            std::puts(style->Name);
        return 0;
    }
    if (count != 4 && count != 6) {
        std::fprintf(stderr, "usage: frame_digests STYLE COUNT SEED [LINE FOLDER] | --styles\n");
        return 2;
    }
    tess::test::Run run{tess::test::FindStyle(arguments[1]),
                        std::atoi(arguments[2]),
                        static_cast<std::uint64_t>(std::atoll(arguments[3])),
                        count == 6 ? std::atoi(arguments[4]) : 0,
                        count == 6 ? arguments[5] : "",
                        0};
    if (run.style < 0) {
        std::fprintf(stderr, "frame_digests: there is no style %s\n", arguments[1]);
        return 2;
    }
    tess::test::InMainDialog(tess::test::BuildAll, &run);
    return run.failures == 0 ? 0 : 1;
}
