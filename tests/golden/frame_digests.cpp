// Prints one line a setting of a style: the SHA-256 of all frames of its Build,
// then the setting. The same program of both builds must print the same.
//
//   frame_digests STYLE COUNT SEED
//
// The first line is for the start values; COUNT more are for random settings
// drawn from SEED, small enough to be quick.
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <string_view>

#include "controls/direction_picker.h"
#include "controls/spinner.h"
#include "fills/fountain.h"
#include "fills/matrix_control.h"
#include "platform/dialog.h"
#include "platform/files.h"
#include "platform/headless_user.h"
#include "shell/control_contract.h"
#include "shell/main_dialog.h"
#include "shell/style_table.h"
#include "tests/support/random_pictures.h"
#include "tests/support/sha256.h"

namespace tess::test {

namespace {

using platform::WindowHandle;

struct Run {
    int style;
    int count;
    std::uint64_t random;
    int failures;
};

/// A generator of this program's own, the same in both builds (D. Knuth's MMIX
/// constants).
std::uint32_t Draw(Run& run, std::uint32_t below) {
    run.random = run.random * 6364136223846793005u + 1442695040888963407u;
    return static_cast<std::uint32_t>((run.random >> 33) % below);
}

std::int64_t AnswerYes(TaskRecord*, std::int64_t, std::int64_t, std::int64_t) {
    return 1;
}

/// A value in the spinner's range; what makes pictures large or many is kept near
/// its minimum.
int DrawNumber(Run& run, WindowHandle dialog, const StyleParameter& parameter) {
    SpinnerRange range{0, 100, 0};
    ReadSpinnerRange(platform::ControlText(dialog, parameter.ControlId + kCompanionOffset), &range);
    const std::string_view name = std::string_view(parameter.Key).substr(std::strlen("Style000"));
    int widest = range.maximum - range.minimum;
    if (name == "Width" || name == "Depth") widest = std::min(widest, 80);
    if (name == "Frames") widest = std::min(widest, 6);
    if (name == "Size" && range.maximum > 64) widest = std::min(widest, 80);
    if (name == "Density") widest = std::min(widest, 48);
    // Skip Intro's frames grow with its wheels and spokes.
    if (parameter.Key == std::string_view("Style014Density")) widest = 3;
    // Neural Network's Width and Depth count balls, and it has a frame for each of them.
    const bool counts_balls = std::string_view(parameter.Key).starts_with("Style018");
    if (counts_balls && (name == "Width" || name == "Depth")) widest = 7;
    return range.minimum + static_cast<int>(Draw(run, static_cast<std::uint32_t>(widest) + 1));
}

std::uint32_t DirectionsOf(WindowHandle dialog, int id) {
    const PickerLayout* layout =
        FindPickerLayout(platform::ControlTag(platform::Control(dialog, id)));
    return layout == nullptr ? 1 : static_cast<std::uint32_t>(layout->Cells.size());
}

/// Gives a fountain button random markers in order. Returns how many.
int LoadRandomFountain(Run& run, WindowHandle dialog, int id) {
    Fountain fountain;
    InitFountain(&fountain, FountainPreset::Plain);
    fountain.Flags = Draw(run, 4) == 0 ? 0 : kFountainLooped;
    fountain.Start = Draw(run, 0x1000000);
    fountain.End = Draw(run, 0x1000000);
    const int most = Draw(run, 4) == 0 ? kFountainMarkers : 8;
    fountain.Count = static_cast<std::int32_t>(Draw(run, static_cast<std::uint32_t>(most) + 1));
    FountainMarker markers[kFountainMarkers];
    for (FountainMarker& marker : markers)
        marker = MakeMarker(1 + static_cast<int>(Draw(run, 255)), Draw(run, 0x1000000));
    std::sort(markers, markers + fountain.Count);
    std::memcpy(fountain.Markers, markers, sizeof markers);

    std::string line = kFountainTag + std::to_string(id) + "=";
    for (std::size_t i = 0; i < sizeof fountain; ++i) {
        char digits[3];
        std::snprintf(digits, sizeof digits, "%02X",
                      unsigned{reinterpret_cast<const std::uint8_t*>(&fountain)[i]});
        line += digits;
    }
    platform::SendToWindow(platform::Control(dialog, id), LoadControl, 0,
                           reinterpret_cast<std::intptr_t>(line.c_str()));
    return fountain.Count;
}

/// Gives a matrix tile control a random picture. Returns its seed.
int LoadRandomTile(Run& run, WindowHandle dialog, int id) {
    constexpr int kDepths[] = {1, 4, 8, 24, 32};
    const int width = 1 + static_cast<int>(Draw(run, 100));
    const int height = 1 + static_cast<int>(Draw(run, 100));
    const int bits = kDepths[Draw(run, 5)];
    const std::uint32_t seed = Draw(run, 0x1000000);
    const LockedMatrixTile tile = LockMatrixTile(platform::Control(dialog, id));
    if (!tile) return -1;
    platform::FreeBlock(tile->Image);
    tile->Image = testing::RandomPicture(width, height, bits, seed);
    return static_cast<int>(seed);
}

/// Sets one control to a random value, and adds it to the line that is printed.
void SetRandomly(Run& run, WindowHandle dialog, const StyleParameter& parameter,
                 std::string* line) {
    const int id = parameter.ControlId;
    int value = 0;
    switch (parameter.Kind) {
        case ParameterKind::Spinner:
            value = DrawNumber(run, dialog, parameter);
            // Not typed: the panel of a style that is not selected is hidden.
            platform::SetControlText(dialog, id, std::to_string(value));
            break;
        case ParameterKind::ColorButton:
            value = static_cast<int>(Draw(run, 0x1000000));
            platform::SetControlText(dialog, id, std::to_string(value));
            break;
        case ParameterKind::CheckBox:
            value = static_cast<int>(Draw(run, 2));
            platform::SetChecked(dialog, id, value != 0);
            break;
        case ParameterKind::ChoiceList:
            value = static_cast<int>(
                Draw(run, static_cast<std::uint32_t>(platform::ItemCount(dialog, id))));
            platform::SetSelection(dialog, id, value);
            break;
        case ParameterKind::ShadowDirection:
        case ParameterKind::Scroll4:
        case ParameterKind::Scroll2:
        case ParameterKind::ScrollHv:
            value = static_cast<int>(Draw(run, DirectionsOf(dialog, id)));
            platform::SetControlText(dialog, id, std::to_string(value));
            platform::SendToWindow(platform::Control(dialog, id), ReadControlText, 0, 0);
            break;
        case ParameterKind::Fountain:
            value = LoadRandomFountain(run, dialog, id);
            break;
        case ParameterKind::Matrix:
            value = LoadRandomTile(run, dialog, id);
            break;
    }
    char text[32];
    std::snprintf(text, sizeof text, " %d=%d", id, value);
    *line += text;
}

void PrintDigest(Run& run, WindowHandle dialog, const std::string& settings) {
    const HostServices services{sizeof(HostServices), kHostVersion, 0, 0, AnswerYes, 0, 3, 0};
    FrameList frames{};
    StyleContext context{};
    context.Dialog = dialog;
    context.Frames = &frames;
    context.Host = &services;
    const StyleEntry& style = *StyleTable[run.style];
    // The dialog has painted a sample before anyone builds, which Mural relies on.
    StyleContext sample{};
    sample.Dialog = dialog;
    const bool tested = style.Test(&sample) != 0;
    platform::FreeBlock(sample.Result);
    const bool built = tested && style.Build(&context) != 0;
    Sha256 digest;
    {
        const platform::LockedBlock<const FrameRecord> records(frames.Records);
        for (int i = 0; built && i < frames.Count; ++i) {
            const LockedImage image(records.Get()[i].Image);
            digest.Add(image.Get(), sizeof(PackedDib));
            digest.Add(DibRow(image.Get(), image->Height - 1), image->ImageSize);
            digest.Add(&records.Get()[i].Delay, sizeof(std::uint32_t));
        }
    }
    if (!built) ++run.failures;
    std::printf("%s %d frames%s\n", built ? digest.Finish().c_str() : "failed", frames.Count,
                settings.c_str());
    FrameListFree(&frames);
}

void RunSettings(WindowHandle dialog, void* context) {
    Run& run = *static_cast<Run*>(context);
    PrintDigest(run, dialog, " start values");
    for (int i = 0; i < run.count; ++i) {
        std::string line;
        for (const StyleParameter& parameter : StyleTable[run.style]->Parameters) {
            SetRandomly(run, dialog, parameter, &line);
        }
        PrintDigest(run, dialog, line);
    }
    platform::EndDialog(dialog, 0);
}

int FindStyle(std::string_view name) {
    for (int i = 0; i < kStyleCount; ++i) {
        if (name == StyleTable[i]->Name) return i;
    }
    return -1;
}

}  // namespace

}  // namespace tess::test

int main(int count, char** arguments) {
    using tess::test::Run;
    if (count != 4) {
        std::fprintf(stderr, "usage: frame_digests STYLE COUNT SEED\n");
        return 2;
    }
    Run run{tess::test::FindStyle(arguments[1]), std::atoi(arguments[2]),
            static_cast<std::uint64_t>(std::atoll(arguments[3])), 0};
    if (run.style < 0) {
        std::fprintf(stderr, "frame_digests: there is no style %s\n", arguments[1]);
        return 2;
    }
    // No configuration of this machine's user, neither read nor written.
    platform::SetUserFolder("no-such-folder");
    platform::SetHeadlessUser(tess::test::RunSettings, &run);
    const tess::HostServices services{
        sizeof(tess::HostServices), tess::kHostVersion, 0, 0, tess::test::AnswerYes, 0, 3, 0};
    tess::RunMainDialog(nullptr, &services);
    return run.failures == 0 ? 0 : 1;
}
