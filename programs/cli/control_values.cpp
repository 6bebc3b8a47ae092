#include "programs/cli/control_values.h"

#include <algorithm>
#include <cctype>
#include <cstdint>

#include "controls/direction_picker.h"
#include "controls/hexadecimal.h"
#include "controls/spinner.h"
#include "fills/fountain_control.h"
#include "fills/material.h"
#include "fills/matrix_tile.h"
#include "programs/cli/fountain_text.h"
#include "programs/cli/values.h"
#include "shell/control_contract.h"

namespace tess {
namespace {

LineValue Wrong(std::string error) {
    return {"", std::move(error)};
}

LineValue SpinnerValue(platform::WindowHandle dialog, int id, std::string_view text) {
    SpinnerRange range{0, 100, 0};
    ReadSpinnerRange(platform::ControlText(dialog, id + kCompanionOffset), &range);
    return NumberBetween(text, range.minimum, range.maximum);
}

LineValue ColorValue(std::string_view text) {
    const auto color = ReadColor(text);
    if (!color) return Wrong("is no color; it takes #RRGGBB or a number from 0 to 0xFFFFFFFF");
    return {std::to_string(*color), ""};
}

LineValue CheckBoxValue(platform::WindowHandle dialog, int id, std::string_view text) {
    const auto checked = ReadSwitch(text);
    if (!checked) return Wrong("is no state of a check box; it takes yes or no (1 or 0)");
    if (*checked && !platform::IsControlEnabled(dialog, id)) {
        return Wrong("is not open to this host (see --host and --host-true-color)");
    }
    return {*checked ? "1" : "0", ""};
}

// Whether an item of a list is what the user has written. Of a word case and punctuation
// do not count; of a number all counts, since "(5)" is neither 5 nor -5.
bool IsChoice(std::string_view item, std::string_view text) {
    if (item == text) return true;
    const auto number = ParseNumber(item);
    if (number) return ParseNumber(text) == number;
    const std::string name = PlainName(text);
    return !name.empty() && !ParseNumber(text) && PlainName(item) == name;
}

std::string ListOfNumbers(platform::WindowHandle dialog, int id) {
    std::string list;
    for (int i = 0; i < platform::ItemCount(dialog, id); ++i) {
        const std::string item = platform::ItemText(dialog, id, i);
        if (!ParseNumber(item)) return "";
        list += (list.empty() ? "" : ", ") + item;
    }
    return list;
}

// The texts go before the indices, and a list of numbers takes no index at all: it would
// give another number than the user has written.
LineValue ChoiceValue(platform::WindowHandle dialog, int id, std::string_view text) {
    const int count = platform::ItemCount(dialog, id);
    for (int i = 0; i < count; ++i) {
        if (IsChoice(platform::ItemText(dialog, id, i), text)) return {std::to_string(i), ""};
    }
    const std::string numbers = ListOfNumbers(dialog, id);
    if (!numbers.empty()) return Wrong("is no choice of the list; it takes " + numbers);
    if (ParseNumber(text)) return NumberBetween(text, 0, count - 1);
    return Wrong("is no choice of the list; it takes 0 to " + std::to_string(count - 1) +
                 " or a choice's text");
}

// The dialog fills a short block with zeros and passes a long one over.
LineValue BlockValue(std::string_view text, std::size_t bytes) {
    const bool is_hexadecimal = std::all_of(text.begin(), text.end(),
                                            [](unsigned char c) { return std::isxdigit(c) != 0; });
    if (text.size() != 2 * bytes || !is_hexadecimal) {
        return Wrong("is no block of " + std::to_string(bytes) +
                     " bytes; it takes two hexadecimal digits for each");
    }
    return {std::string(text), ""};
}

// Colours are put over the control's own record, which stays looped or not.
LineValue FountainValue(platform::WindowHandle control, std::string_view text) {
    Fountain fountain;
    if (ReadFountainButton(control, &fountain) == 0) {
        InitFountain(&fountain, FountainPreset::Plain);
    }
    const std::string error = text.find('#') == std::string_view::npos
                                  ? ReadFountainDigits(text, &fountain)
                                  : ReadFountainColors(text, &fountain);
    if (!error.empty()) return Wrong(error);
    fountain.Preview = nullptr;
    return {Hexadecimal({reinterpret_cast<const std::uint8_t*>(&fountain), sizeof fountain}), ""};
}

}  // namespace

LineValue NumberBetween(std::string_view text, std::int64_t least, std::int64_t most) {
    const std::string range = std::to_string(least) + " to " + std::to_string(most);
    const auto number = ParseNumber(text);
    if (!number) return Wrong("is no number; it takes " + range);
    if (*number < least || *number > most) return Wrong("is out of range; it takes " + range);
    return {std::to_string(*number), ""};
}

int PickerCells(std::string_view tag) {
    const PickerLayout* layout = FindPickerLayout(tag);
    return layout != nullptr ? static_cast<int>(layout->Cells.size()) : 0;
}

int PickerCells(ParameterKind kind) {
    switch (kind) {
        case ParameterKind::ShadowDirection:
            return PickerCells(kShadowDirectionTag);
        case ParameterKind::Scroll4:
            return PickerCells(kScroll4Tag);
        case ParameterKind::Scroll2:
            return PickerCells(kScroll2Tag);
        case ParameterKind::ScrollHv:
            return PickerCells(kScrollHvTag);
        default:
            return 0;
    }
}

LineValue ValueForControl(platform::WindowHandle dialog, int id, std::string_view text) {
    const std::string_view tag = platform::ControlTag(platform::Control(dialog, id));
    if (tag == kSpinnerTag) return SpinnerValue(dialog, id, text);
    if (tag == kColorButtonTag) return ColorValue(text);
    if (tag == kCheckBoxTag) return CheckBoxValue(dialog, id, text);
    if (tag == kComboBoxTag) return ChoiceValue(dialog, id, text);
    if (tag == kFountainTag) return FountainValue(platform::Control(dialog, id), text);
    if (tag == kMatrixTag) return BlockValue(text, sizeof(MatrixTile));
    if (tag == kMaterialTag) return BlockValue(text, sizeof(Material));
    if (const int cells = PickerCells(tag); cells > 0) return NumberBetween(text, 0, cells - 1);
    return Wrong("cannot be set: the control holds no value");
}

}  // namespace tess
