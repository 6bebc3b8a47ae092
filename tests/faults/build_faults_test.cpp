// Builds of all styles, and previews, in which memory and files fail.
#include <algorithm>
#include <string>

#include "controls/spinner.h"
#include "fills/matrix_group_file.h"
#include "pipeline/build_driver.h"
#include "platform/block_guards.h"
#include "shell/style_table.h"
#include "tests/faults/fault_run.h"
#include "tests/support/random_pictures.h"
#include "tests/support/recording_host.h"
#include "tests/support/sha256.h"

namespace tess::test {

namespace {

using platform::WindowHandle;

/// A spinner's value that makes few and small pictures; -1 where it has nothing to do with
/// that.
int SmallValue(std::string_view key) {
    // Neural Network's Width and Depth count balls.
    if (key == "Style018Width" || key == "Style018Depth") return 2;
    // Skip Intro has a frame for each spoke of each of its wheels.
    if (key == "Style014Density") return 1;
    if (key.ends_with("Width") || key.ends_with("Depth")) return 24;
    if (key.ends_with("Size")) return 16;
    if (key.ends_with("Frames")) return 3;
    if (key.ends_with("Density")) return 6;
    return -1;
}

void MakeSmall(WindowHandle dialog, const StyleEntry& style) {
    for (const StyleParameter& parameter : style.Parameters) {
        if (parameter.Kind != ParameterKind::Spinner || parameter.Key == nullptr) continue;
        const int value = SmallValue(parameter.Key);
        if (value >= 0)
            platform::SetControlText(dialog, parameter.ControlId, std::to_string(value));
    }
    // Machine's frames are a turn's steps, of which the last choice has the fewest; Skip
    // Intro's first choice is the fewest spokes.
    constexpr int kRotation = 475, kSpokes = 536;
    platform::SetSelection(dialog, kRotation, platform::ItemCount(dialog, kRotation) - 1);
    platform::SetSelection(dialog, kSpokes, 0);
}

/// A setting in which a Build goes through all of its stages.
void SetOutput(WindowHandle dialog) {
    platform::SetChecked(dialog, kTrueColorBox, false);
    platform::SetChecked(dialog, kCustomPaletteBox, true);
    platform::SetChecked(dialog, kDitherBox, true);
    platform::SetChecked(dialog, kSupercompressBox, true);
    platform::SetChecked(dialog, kCommentBox, true);
}

std::string DigestOf(const RecordingHost& host) {
    Sha256 digest;
    for (const HandedFrame& frame : host.frames)
        digest.Add(frame.picture.data(), frame.picture.size());
    return digest.Finish();
}

class SmallBuilds : public FaultTest {
protected:
    RecordingHost host;

    SmallBuilds() {
        const platform::OwnedBlock tile(RandomPicture(16, 16, 24, 1));
        const ImageHandle elements[] = {tile.Get()};
        EXPECT_NE(WriteMatrixGroup(File(kDefaultMatrixGroup), elements), 0);
    }

    /// Opens the main dialog on a style with small settings.
    void InSmallDialog(int style, const std::function<void(WindowHandle)>& act) {
        InMainDialog([&](WindowHandle dialog) {
            platform::SetSelection(dialog, kEffectList, style);
            MakeSmall(dialog, *StyleTable[style]);
            SetOutput(dialog);
            // Mural's frames have the size of its sample.
            platform::FreeBlock(RenderSample(dialog, 100, 100).Image);
            act(dialog);
        });
    }
    bool Build(WindowHandle dialog, BuildMode mode) {
        host.frames.clear();
        return BuildAnimation(dialog, host.Services(), mode) == 1;
    }
};

class Builds : public SmallBuilds, public ::testing::WithParamInterface<int> {};
class PreviewBuilds : public SmallBuilds {};

TEST_P(Builds, EndInTheMessageAndTheNextOneIsTheSame) {
    InSmallDialog(GetParam(), [&](WindowHandle dialog) {
        ASSERT_TRUE(Build(dialog, BuildMode::Build)) << ::testing::PrintToString(Messages());
        const std::string digest = DigestOf(host);
        FailEverything({.kind = std::string("build ") + StyleTable[GetParam()]->Name,
                        .prepare = nullptr,
                        .run = [&] { return Build(dialog, BuildMode::Build); },
                        .told = {"Memory error"},
                        .writes = {},
                        .is_whole = nullptr});
        ASSERT_TRUE(Build(dialog, BuildMode::Build));
        EXPECT_EQ(DigestOf(host), digest);
    });
}

TEST_P(Builds, OfSamplesLeaveNothing) {
    InSmallDialog(GetParam(), [&](WindowHandle dialog) {
        FailEverything({.kind = std::string("sample ") + StyleTable[GetParam()]->Name,
                        .prepare = nullptr,
                        .run =
                            [&] {
                                const Sample sample = RenderSample(dialog, 100, 100);
                                const bool is_done = sample.Image != nullptr;
                                platform::FreeBlock(sample.Image);
                                return is_done;
                            },
                        .told = {},
                        .writes = {},
                        .is_whole = nullptr});
    });
}

INSTANTIATE_TEST_SUITE_P(Styles, Builds, ::testing::Range(0, kStyleCount), [](const auto& style) {
    std::string name = StyleTable[style.param]->Name;
    std::erase(name, ' ');
    return name;
});

TEST_F(PreviewBuilds, TellWhatFailed) {
    constexpr int kBubbles = 1;
    InSmallDialog(kBubbles, [&](WindowHandle dialog) {
        FailEverything({.kind = "preview",
                        .prepare = nullptr,
                        .run = [&] { return Build(dialog, BuildMode::Preview); },
                        // The tables of the writer are memory, too.
                        .told = {"Memory error", "Error writing file"},
                        .writes = {},
                        // A preview that fails stays half written, for a viewer to show.
                        .is_whole = [](const std::string&, const std::string&) { return true; },
                        .told_of_files = {"Error creating file", "Error writing file"}});
    });
}

}  // namespace

}  // namespace tess::test
