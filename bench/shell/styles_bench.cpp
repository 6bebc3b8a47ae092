// The sample and the Build of every style at its start values. A sample is
// rendered at each change of a control, so it has to be quick. For the slowest of
// the styles that keep what repeats, a Build that keeps nothing stands beside it.
#include <benchmark/benchmark.h>
#include <string>

#include "platform/files.h"
#include "platform/headless_user.h"
#include "shell/main_dialog.h"
#include "shell/style_table.h"
#include "styles/styles.h"
#include "tests/reference/plain_phasers.h"

namespace tess {

namespace {

std::int64_t AnswerYes(TaskRecord*, std::int64_t, std::int64_t, std::int64_t) {
    return 1;
}

constexpr HostServices kServices{sizeof(HostServices), kHostVersion, 0, 0, AnswerYes, 0, 3, 0};

/// What one benchmark does in an open dialog.
struct Work {
    benchmark::State* state;
    int style;
    void (*run)(const Work& work, platform::WindowHandle dialog);
    int (*build)(StyleContext* context) = nullptr;  ///< null: the style's own
};

void InDialog(Work work) {
    platform::SetUserFolder("no-such-folder");  // start values, and nothing is written
    platform::SetHeadlessUser(
        [](platform::WindowHandle dialog, void* context) {
            const Work& asked = *static_cast<Work*>(context);
            platform::SetSelection(dialog, kEffectList, asked.style);
            asked.run(asked, dialog);
            platform::EndDialog(dialog, 0);
        },
        &work);
    RunMainDialog(nullptr, &kServices);
    platform::SetHeadlessUser(nullptr, nullptr);
}

void RunSamples(const Work& work, platform::WindowHandle dialog) {
    for ([[maybe_unused]] auto _ : *work.state) {
        const Sample sample = RenderSample(dialog, 246, 228);
        if (sample.Image == nullptr) return work.state->SkipWithError("no sample");
        platform::FreeBlock(sample.Image);
    }
}

void RunBuilds(const Work& work, platform::WindowHandle dialog) {
    // Mural takes the size of its tile from the sample that the dialog has painted.
    platform::FreeBlock(RenderSample(dialog, 246, 228).Image);
    for ([[maybe_unused]] auto _ : *work.state) {
        FrameList frames{};
        StyleContext context{};
        context.Dialog = dialog;
        context.Frames = &frames;
        context.Host = &kServices;
        const auto build = work.build != nullptr ? work.build : StyleTable[work.style]->Build;
        const bool built = build(&context) != 0;
        FrameListFree(&frames);
        if (!built) return work.state->SkipWithError("no frames");
    }
}

const bool registered = [] {
    for (int style = 0; style < kStyleCount; ++style) {
        const std::string name = StyleTable[style]->Name;
        benchmark::RegisterBenchmark(("Sample/" + name).c_str(), [style](benchmark::State& state) {
            InDialog({&state, style, RunSamples});
        })->Unit(benchmark::kMillisecond);
        benchmark::RegisterBenchmark(("Build/" + name).c_str(), [style](benchmark::State& state) {
            InDialog({&state, style, RunBuilds});
        })->Unit(benchmark::kMillisecond);
        if (StyleTable[style] != &PhasersOnStunStyle) continue;
        benchmark::RegisterBenchmark(
            ("BuildWithNothingKept/" + name).c_str(),
            [style](benchmark::State& state) {
                InDialog({&state, style, RunBuilds, reference::PlainPhasersBuild});
            })
            ->Unit(benchmark::kMillisecond);
    }
    return true;
}();

}  // namespace

}  // namespace tess
