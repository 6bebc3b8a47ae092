#include "tests/golden/style_settings.h"

#include <algorithm>
#include <cstdio>
#include <cstring>

#include "controls/direction_picker.h"
#include "controls/hexadecimal.h"
#include "controls/spinner.h"
#include "fills/fountain.h"
#include "fills/matrix_control.h"
#include "platform/files.h"
#include "platform/headless_user.h"
#include "shell/control_contract.h"
#include "shell/main_dialog.h"
#include "tests/support/random_pictures.h"

namespace tess::test {

namespace {

using platform::WindowHandle;

struct DialogWork {
    void (*work)(WindowHandle dialog, void* context);
    void* context;
};

std::int64_t AnswerYes(TaskRecord*, std::int64_t, std::int64_t, std::int64_t) {
    return 1;
}

constexpr HostServices kServices{sizeof(HostServices), kHostVersion, 0, 0, AnswerYes, 0, 3, 0};

std::uint32_t DirectionsOf(WindowHandle dialog, int id) {
    const PickerLayout* layout =
        FindPickerLayout(platform::ControlTag(platform::Control(dialog, id)));
    return layout == nullptr ? 1 : static_cast<std::uint32_t>(layout->Cells.size());
}

}  // namespace

int FindStyle(std::string_view name) {
    for (int i = 0; i < kStyleCount; ++i) {
        if (name == StyleTable[i]->Name) return i;
    }
    return -1;
}

void InMainDialog(void (*work)(WindowHandle dialog, void* context), void* context) {
    DialogWork dialog_work{work, context};
    platform::SetUserFolder("no-such-folder");
    platform::SetHeadlessUser(
        [](WindowHandle dialog, void* user_context) {
            const auto* user = static_cast<const DialogWork*>(user_context);
            user->work(dialog, user->context);
            platform::EndDialog(dialog, 0);
        },
        &dialog_work);
    RunMainDialog(nullptr, &kServices);
}

std::string RandomSettings::SetAll(WindowHandle dialog, const StyleEntry& style) {
    std::string line;
    for (const StyleParameter& parameter : style.Parameters)
        Set(dialog, parameter, &line);
    return line;
}

/// D. Knuth's MMIX constants.
std::uint32_t RandomSettings::Draw(std::uint32_t below) {
    random_ = random_ * 6364136223846793005u + 1442695040888963407u;
    return static_cast<std::uint32_t>((random_ >> 33) % below);
}

/// A value in the spinner's range; what makes pictures large or many is kept near
/// its minimum.
int RandomSettings::DrawNumber(WindowHandle dialog, const StyleParameter& parameter) {
    SpinnerRange range{0, 100, 0};
    ReadSpinnerRange(platform::ControlText(dialog, parameter.ControlId + kCompanionOffset), &range);
    const std::string_view name = std::string_view(parameter.Key).substr(std::strlen("Style000"));
    if (name == "Frames" && makes_long_loops_) return 32;
    if (name == "Mesh" && makes_long_loops_) return 7;
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
    return range.minimum + static_cast<int>(Draw(static_cast<std::uint32_t>(widest) + 1));
}

/// Gives a fountain button random markers in order. Returns how many.
int RandomSettings::LoadFountain(WindowHandle dialog, int id) {
    Fountain fountain;
    InitFountain(&fountain, FountainPreset::Plain);
    fountain.Flags = Draw(4) == 0 && !makes_long_loops_ ? 0 : kFountainLooped;
    fountain.Start = Draw(0x1000000);
    fountain.End = Draw(0x1000000);
    const int most = Draw(4) == 0 ? kFountainMarkers : 8;
    fountain.Count = static_cast<std::int32_t>(Draw(static_cast<std::uint32_t>(most) + 1));
    FountainMarker markers[kFountainMarkers];
    for (FountainMarker& marker : markers) {
        const ColorWord color = Draw(0x1000000);
        marker = MakeMarker(1 + static_cast<int>(Draw(255)), color);
    }
    if (makes_long_loops_) {
        // Far enough from both ends that the colours come round in several frames.
        for (FountainMarker& marker : markers)
            marker = MakeMarker(32 + MarkerPosition(marker) * 3 / 4, MarkerColor(marker));
    }
    std::sort(markers, markers + fountain.Count);
    std::memcpy(fountain.Markers, markers, sizeof markers);

    const std::string line =
        kFountainTag + std::to_string(id) + "=" +
        Hexadecimal({reinterpret_cast<const std::uint8_t*>(&fountain), sizeof fountain});
    platform::SendToWindow(platform::Control(dialog, id), LoadControl, 0,
                           reinterpret_cast<std::intptr_t>(line.c_str()));
    return fountain.Count;
}

/// Gives a matrix tile control a random picture. Returns its seed.
int RandomSettings::LoadTile(WindowHandle dialog, int id) {
    constexpr int kDepths[] = {1, 4, 8, 24, 32};
    constexpr int kSmallest = 5;  // a tenth of it is still a pixel
    const int width = kSmallest + static_cast<int>(Draw(100));
    const int height = kSmallest + static_cast<int>(Draw(100));
    const int bits = kDepths[Draw(5)];
    const std::uint32_t seed = Draw(0x1000000);
    const LockedMatrixTile tile = LockMatrixTile(platform::Control(dialog, id));
    if (!tile) return -1;
    platform::FreeBlock(tile->Image);
    tile->Image = RandomPicture(width, height, bits, seed);
    return static_cast<int>(seed);
}

/// Sets one control to a random value, and adds it to the line that is printed.
void RandomSettings::Set(WindowHandle dialog, const StyleParameter& parameter, std::string* line) {
    const int id = parameter.ControlId;
    int value = 0;
    switch (parameter.Kind) {
        case ParameterKind::Spinner:
            value = DrawNumber(dialog, parameter);
            // Not typed: the panel of a style that is not selected is hidden.
            platform::SetControlText(dialog, id, std::to_string(value));
            break;
        case ParameterKind::ColorButton:
            value = static_cast<int>(Draw(0x1000000));
            platform::SetControlText(dialog, id, std::to_string(value));
            break;
        case ParameterKind::CheckBox:
            value = static_cast<int>(Draw(2));
            platform::SetChecked(dialog, id, value != 0);
            break;
        case ParameterKind::ChoiceList:
            value =
                static_cast<int>(Draw(static_cast<std::uint32_t>(platform::ItemCount(dialog, id))));
            platform::SetSelection(dialog, id, value);
            break;
        case ParameterKind::ShadowDirection:
        case ParameterKind::Scroll4:
        case ParameterKind::Scroll2:
        case ParameterKind::ScrollHv:
            value = static_cast<int>(Draw(DirectionsOf(dialog, id)));
            platform::SetControlText(dialog, id, std::to_string(value));
            platform::SendToWindow(platform::Control(dialog, id), ReadControlText, 0, 0);
            break;
        case ParameterKind::Fountain:
            value = LoadFountain(dialog, id);
            break;
        case ParameterKind::Matrix:
            value = LoadTile(dialog, id);
            break;
    }
    char text[32];
    std::snprintf(text, sizeof text, " %d=%d", id, value);
    *line += text;
}

int BuildFrames(WindowHandle dialog, const StyleEntry& style, FrameList* frames) {
    StyleContext sample{};
    sample.Dialog = dialog;
    const int is_painted = style.Test(&sample);
    platform::FreeBlock(sample.Result);
    if (is_painted == 0) return 0;
    StyleContext context{};
    context.Dialog = dialog;
    context.Frames = frames;
    context.Host = &kServices;
    return style.Build(&context);
}

}  // namespace tess::test
