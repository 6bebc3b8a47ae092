// A row for each spinner says what it shows and in which range. A spinner that shows a
// percentage stores its hundredth part in single precision, and multiplies in single
// precision as well; some hundredths are shown one less for it, and that changes the
// shown number alone.
#include "fills/texture_controls.h"

#include <algorithm>
#include <cstddef>
#include <cstdio>
#include <string>
#include <string_view>
#include <vector>

#include "controls/color_button.h"
#include "controls/number_edit.h"
#include "controls/spinner.h"
#include "fills/curve_graph.h"
#include "fills/texture_fields.h"

namespace tess {

namespace {

using platform::Notification;
using platform::WindowHandle;

constexpr int kFirstControl = 500, kLastControl = 1000;
constexpr int kLabelOffset = 11000;

enum class Unit { Whole, Percent };
using enum Unit;

struct SpinnerRow {
    int Id;
    int Minimum, Maximum, Start;
    Unit Shows;
    std::size_t Offset;  // of the field in the record
};

// clang-format off
constexpr SpinnerRow kSpinners[] = {
    {507,   0,   150,    75, Percent, PowerAt(0)},
    {508,   0,   150,    75, Percent, PowerAt(1)},
    {509,   0,   150,    75, Percent, PowerAt(2)},
    {510,   0,   150,    75, Percent, PowerAt(3)},
    {511,   0,   150,    75, Percent, PowerAt(4)},
    {512,   1, 32760, 10000, Whole,   SeedAt(0)},
    {513,   1, 32760, 10001, Whole,   SeedAt(1)},
    {514,   1, 32760, 10002, Whole,   SeedAt(2)},
    {515,   1, 32760, 10003, Whole,   SeedAt(3)},
    {516,   1, 32760, 10004, Whole,   SeedAt(4)},
    {517,  32,  1024,    64, Whole,   offsetof(TextureItem, MatrixSize)},
    {518, 200,  2000,   200, Percent, DimensionAt(0)},
    {519, 200,  2000,   200, Percent, DimensionAt(1)},
    {520, 200,  2000,   200, Percent, DimensionAt(2)},
    {521, 200,  2000,   200, Percent, DimensionAt(3)},
    {522, 200,  2000,   200, Percent, DimensionAt(4)},
    {523, 100, 10000,  5000, Whole,   offsetof(TextureItem, CreaterCount)},
    {524,  50,   400,   100, Percent, offsetof(TextureItem, CreaterDepth)},
    {528,   0,   512,    64, Whole,   offsetof(TextureItem, BubbleCount)},
    {529,   1,    64,     4, Whole,   offsetof(TextureItem, BubbleSize)},
    {530,   0,   100,     0, Percent, offsetof(TextureItem, BubblePower)},
    {532,   0,   800,   100, Percent, offsetof(TextureItem, PerturbationPower)},
};
// clang-format on

constexpr int kBackgroundButton = 501, kFirstColorButton = 502;
constexpr int kCurves[] = {525, 526, 527};
constexpr std::string_view kBubbleShapeNames = "Ellipse;Fuzzy;Luminous;Sphere";

/// Set while the controls are made to show an item: what they tell then is no wish.
bool is_filling = false;

int ShownNumber(const SpinnerRow& row, const TextureItem& item) {
    if (row.Shows == Whole) return TextureNumber<std::int32_t>(item, row.Offset);
    const float percent = TextureNumber<float>(item, row.Offset) * 100.0F;
    // A record from a file may hold what no spinner shows.
    constexpr float kMost = 1e9F;
    return percent >= -kMost && percent <= kMost ? static_cast<int>(percent) : 0;
}

void StoreNumber(const SpinnerRow& row, int value, TextureItem* item) {
    if (row.Shows == Whole) {
        SetTextureNumber<std::int32_t>(item, row.Offset, value);
    } else {
        SetTextureNumber(item, row.Offset, static_cast<float>(value) / 100.0F);
    }
}

void OpenSpinner(WindowHandle dialog, const SpinnerRow& row) {
    const int arrows = row.Id + kCompanionOffset;
    char range[64];
    std::snprintf(range, sizeof range, "%d,%d,%d", row.Minimum, row.Maximum, row.Start);
    platform::SetControlText(dialog, arrows, range);
    platform::SetUpDownRange(dialog, arrows, row.Minimum, row.Maximum);
    MakeNumberEdit(dialog, row.Id);
}

/// Adds the texts between the semicolons; several in a row count as one.
void AddItems(WindowHandle dialog, int list, std::string_view texts) {
    while (!texts.empty()) {
        const std::size_t end = std::min(texts.find(';'), texts.size());
        if (end > 0) platform::AddItem(dialog, list, texts.substr(0, end));
        texts.remove_prefix(std::min(end + 1, texts.size()));
    }
}

/// Shows or hides a control with its arrows and its label.
void ShowWithCompanions(WindowHandle dialog, int id, bool visible) {
    for (const int offset : {0, kCompanionOffset, kLabelOffset})
        platform::ShowControl(dialog, id + offset, visible);
}

void SetButtonColor(TextureItem* item, int id, ColorWord color) {
    if (id == kBackgroundButton) {
        item->BackColour = color;
    } else {
        item->ForeColour[id - kFirstColorButton] = color;
    }
}

void ChangeColor(WindowHandle dialog, int id, TextureItem* item) {
    ColorWord color = TextureButtonColor(*item, id).Color;
    if (ChooseColor(dialog, &color) == 0) return;
    SetButtonColor(item, id, color);
    platform::SetControlText(dialog, id, std::to_string(color));
    platform::RepaintControl(dialog, id);
}

void TakeKind(WindowHandle dialog, TextureItem* item) {
    const int kind = platform::Selection(dialog, kTextureKindList);
    if (kind < 0) return;
    item->TextureType = std::min(kind, kTextureKinds - 1);
    ShowTextureControls(dialog, item->TextureType);
}

void TakeShape(WindowHandle dialog, TextureItem* item) {
    const int shape = platform::Selection(dialog, kBubbleShapeList);
    if (shape >= 0) item->BubbleShape = std::min(shape, kBubbleShapes - 1);
}

void TakeSpinner(WindowHandle dialog, const SpinnerRow& row, TextureItem* item) {
    StoreNumber(row, GetSpinnerValue(dialog, row.Id), item);
}

}  // namespace

void OpenTextureControls(WindowHandle dialog, TextureItem* item) {
    InstallCurveGraphs(dialog, kCurves, item);
    for (const SpinnerRow& row : kSpinners)
        OpenSpinner(dialog, row);
    AddItems(dialog, kBubbleShapeList, kBubbleShapeNames);
    for (const TextureKindEntry& kind : TextureKindTable)
        platform::AddItem(dialog, kTextureKindList, kind.Name);
    FillTextureControls(dialog, *item);
}

void FillTextureControls(WindowHandle dialog, const TextureItem& item) {
    is_filling = true;
    for (const SpinnerRow& row : kSpinners) {
        platform::SetControlNumber(dialog, row.Id,
                                   static_cast<std::uint32_t>(ShownNumber(row, item)), true);
    }
    for (int id = kBackgroundButton; id < kFirstColorButton + kTextureLayers; ++id) {
        platform::SetControlText(dialog, id, std::to_string(TextureButtonColor(item, id).Color));
        platform::RepaintControl(dialog, id);
    }
    for (const int curve : kCurves)
        platform::RepaintControl(dialog, curve);
    platform::SetSelection(dialog, kBubbleShapeList, item.BubbleShape);
    ShowTextureControls(dialog, item.TextureType);
    platform::SetSelection(dialog, kTextureKindList, item.TextureType);
    is_filling = false;
}

void ShowTextureControls(WindowHandle dialog, int kind) {
    const TextureKindEntry* row = FindTextureKind(kind);
    const auto is_shown = [row](int id) {
        return row != nullptr &&
               std::find(row->Controls.begin(), row->Controls.end(), id) != row->Controls.end();
    };
    // All that go are hidden before any is shown, since they lie over one another.
    std::vector<int> shown;
    for (const WindowHandle control : platform::Children(dialog)) {
        const int id = platform::ControlId(control);
        if (id < kFirstControl || id > kLastControl) continue;
        if (is_shown(id)) {
            shown.push_back(id);
        } else {
            ShowWithCompanions(dialog, id, false);
        }
    }
    for (const int id : shown)
        ShowWithCompanions(dialog, id, true);
}

bool TakeTextureControl(WindowHandle dialog, int id, Notification notification, TextureItem* item) {
    const bool is_of_item = id == kTextureKindList || (id >= kFirstControl && id <= kLastControl);
    if (!is_of_item) return false;
    if (is_filling || !platform::IsControlVisible(dialog, id)) return true;
    if (notification == Notification::Clicked) {
        if (TextureButtonColor(*item, id).IsColor) ChangeColor(dialog, id, item);
    } else if (notification == Notification::ComboClosed) {
        if (id == kTextureKindList) TakeKind(dialog, item);
        if (id == kBubbleShapeList) TakeShape(dialog, item);
    } else if (notification == Notification::EditChanged) {
        for (const SpinnerRow& row : kSpinners) {
            if (row.Id == id) TakeSpinner(dialog, row, item);
        }
    }
    return true;
}

TextureColor TextureButtonColor(const TextureItem& item, int id) {
    if (id == kBackgroundButton) return {true, item.BackColour};
    const int layer = id - kFirstColorButton;
    if (layer < 0 || layer >= kTextureLayers) return {false, 0};
    return {true, item.ForeColour[layer]};
}

}  // namespace tess
