// Holds the joins of a style's animations against their inside:
//
//   seam_figures STYLE COUNT SEED
//
// Builds COUNT random settings drawn from SEED after the start values, prints the
// figures of each and names its seams. Exit status 1 when more have one than come by
// chance, or the start values do.
#include <cstdio>
#include <cstdlib>
#include <string>

#include "host/seams.h"
#include "tests/golden/style_settings.h"

namespace tess::test {

namespace {

using platform::WindowHandle;

/// How many settings there may be for each one with a seam. By chance the edge of
/// something stands at the tile's own for some settings, or a motion in whole pixels
/// makes its longest step at the end; a join that is not made shows in far more.
constexpr int kSettingsForASeam = 50;

/// Its streaks are cut off at the top and the bottom.
constexpr std::string_view kCutAtTopAndBottom = "Hyperspace";

struct Run {
    int style;
    int count;
    std::uint64_t seed;
    int seams;
    int failures;
};

/// Returns 0 when the frames could not be read.
int Measure(const FrameList& frames, SeamFigures* figures) {
    const platform::LockedBlock<const FrameRecord> records(frames.Records);
    if (!records || frames.Count == 0) return 0;
    int width = 0, height = 0;
    {
        const LockedImage first(records.Get()[0].Image);
        if (!first) return 0;
        width = first->Width;
        height = first->Height;
    }
    if (width < 1 || height < 1) return 0;
    SeamMeter meter(width, height);
    if (!meter) return 0;
    for (int i = 0; i < frames.Count; ++i) {
        const LockedImage image(records.Get()[i].Image);
        if (!image || image->Width != width || image->Height != height) return 0;
        meter.AddPicture(image);
    }
    *figures = meter.Figures();
    return 1;
}

/// Prints the figures. Returns 1 for a seam.
int Judge(const char* name, const JoinFigures& figures) {
    const bool has_seam = HasSeam(figures);
    std::printf("  %s %.2f of %.2f%s", name, figures.Join, figures.InsideMost,
                has_seam ? " SEAM" : "");
    return has_seam ? 1 : 0;
}

/// Returns 1 when there is a seam.
int BuildOne(Run& run, WindowHandle dialog, const std::string& settings) {
    FrameList frames{};
    SeamFigures figures{};
    int seams = 0;
    if (BuildFrames(dialog, *StyleTable[run.style], &frames) == 0 ||
        Measure(frames, &figures) == 0) {
        std::printf("failed");
        ++run.failures;
    } else {
        const bool has_rows = StyleTable[run.style]->Name != kCutAtTopAndBottom;
        seams = Judge("columns", figures.Columns) + Judge("frames", figures.Frames);
        if (has_rows) seams += Judge("rows", figures.Rows);
    }
    std::printf(" %s\n", settings.c_str());
    FrameListFree(&frames);
    return seams > 0 ? 1 : 0;
}

void BuildAll(WindowHandle dialog, void* context) {
    Run& run = *static_cast<Run*>(context);
    run.failures += BuildOne(run, dialog, "start values");
    RandomSettings random(run.seed);
    random.MakeLongLoops();
    for (int i = 0; i < run.count; ++i)
        run.seams += BuildOne(run, dialog, random.SetAll(dialog, *StyleTable[run.style]));
}

}  // namespace

}  // namespace tess::test

int main(int count, char** arguments) {
    if (count != 4) {
        std::fprintf(stderr, "usage: seam_figures STYLE COUNT SEED\n");
        return 2;
    }
    tess::test::Run run{tess::test::FindStyle(arguments[1]), std::atoi(arguments[2]),
                        static_cast<std::uint64_t>(std::atoll(arguments[3])), 0, 0};
    if (run.style < 0) {
        std::fprintf(stderr, "seam_figures: there is no style %s\n", arguments[1]);
        return 2;
    }
    tess::test::InMainDialog(tess::test::BuildAll, &run);
    std::printf("%d of %d settings have a seam\n", run.seams, run.count);
    return run.failures == 0 && run.seams <= run.count / tess::test::kSettingsForASeam ? 0 : 1;
}
