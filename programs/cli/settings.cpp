#include "programs/cli/settings.h"

#include <algorithm>
#include <cctype>
#include <cstdint>
#include <cstdio>
#include <string_view>

#include "controls/spinner.h"
#include "programs/cli/style_names.h"
#include "programs/cli/values.h"
#include "shell/configuration.h"
#include "shell/control_contract.h"
#include "shell/main_dialog.h"

namespace tess {
namespace {

// Controls of the main dialog by what they are called here and in the configuration.
struct GeneralSetting {
    const char* Name;
    const char* Key;  // null: has none
    int ControlId;
};
constexpr GeneralSetting kGeneralSettings[] = {
    {"delay", "MainDelay", kDelayEdit},
    {"dither", "MainDither", kDitherBox},
    {"supercompress", "MainSupercompress", kSupercompressBox},
    {"mask-background", "MainMaskBackground", kMaskBackgroundBox},
    {"custom-palette", nullptr, kCustomPaletteBox},
    {"palette", "MainPalette", kPaletteList},
    {"true-color", "Truecolour", kTrueColorBox},
    {"comment", "AddDescriptiveCommentBlock", kCommentBox},
    {"effect", "MainEffect", kEffectList},
};

// Values without a control that are called by a name of their own, too.
struct VariableName {
    const char* Name;
    const char* Key;
};
constexpr VariableName kVariableNames[] = {
    {"dither-brightness", "DitherBrightness"},
    {"dither-contrast", "DitherContrast"},
    {"fast-remap", "FastRemap"},
};

int FindGeneralControl(std::string_view key) {
    for (const GeneralSetting& setting : kGeneralSettings) {
        if (PlainName(key) == PlainName(setting.Name) ||
            (setting.Key != nullptr && key == setting.Key)) {
            return setting.ControlId;
        }
    }
    return 0;
}

const ConfigKey* FindVariable(std::string_view key) {
    for (const VariableName& name : kVariableNames) {
        if (PlainName(key) == PlainName(name.Name)) key = name.Key;
    }
    for (const ConfigKey& row : ConfigurationTable()) {
        if (key == row.Name && (row.Flags & kWriteOnlyKey) == 0) return &row;
    }
    return nullptr;
}

bool IsNumberText(std::string_view text) {
    return !text.empty() && std::all_of(text.begin(), text.end(),
                                        [](unsigned char c) { return std::isdigit(c) != 0; });
}

// The control that `key` means, or 0.
int FindControl(platform::WindowHandle dialog, std::string_view key) {
    if (IsNumberText(key)) {
        const auto id = ReadNumber(key);
        return id && *id <= 0xFFFF ? static_cast<int>(*id) : 0;
    }
    const int style = std::clamp(platform::Selection(dialog, kEffectList), 0, kStyleCount - 1);
    if (const auto place = FindParameter(*StyleTable[style], key); place.Parameter != nullptr) {
        return place.Parameter->ControlId;
    }
    if (const auto place = FindParameterByKey(key); place.Parameter != nullptr) {
        return place.Parameter->ControlId;
    }
    return FindGeneralControl(key);
}

// A value as its control's line holds it, or what is wrong with it.
struct LineValue {
    std::string Value;
    std::string Error;
};

LineValue Wrong(std::string error) {
    return {"", std::move(error)};
}

LineValue NumberBetween(std::string_view text, std::int64_t least, std::int64_t most) {
    const std::string range = std::to_string(least) + " to " + std::to_string(most);
    const auto number = ReadNumber(text);
    if (!number) return Wrong("is no number; it takes " + range);
    if (*number < least || *number > most) return Wrong("is out of range; it takes " + range);
    return {std::to_string(*number), ""};
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

LineValue ChoiceValue(platform::WindowHandle dialog, int id, std::string_view text) {
    const int count = platform::ItemCount(dialog, id);
    if (ReadNumber(text)) return NumberBetween(text, 0, count - 1);
    for (int i = 0; i < count; ++i) {
        if (PlainName(platform::ItemText(dialog, id, i)) == PlainName(text)) {
            return {std::to_string(i), ""};
        }
    }
    return Wrong("is no choice of the list; it takes 0 to " + std::to_string(count - 1) +
                 " or a choice's text");
}

LineValue BlockValue(std::string_view text) {
    const bool is_hexadecimal = std::all_of(text.begin(), text.end(),
                                            [](unsigned char c) { return std::isxdigit(c) != 0; });
    if (text.empty() || text.size() % 2 != 0 || !is_hexadecimal) {
        return Wrong("is no block; it takes two hexadecimal digits for each byte");
    }
    return {std::string(text), ""};
}

// How many directions a picker has, 0 for another control.
int PickerCells(std::string_view tag) {
    if (tag == kShadowDirectionTag) return 8;
    if (tag == kScroll4Tag) return 4;
    return tag == kScroll2Tag || tag == kScrollHvTag ? 2 : 0;
}

LineValue ValueFor(platform::WindowHandle dialog, int id, std::string_view text) {
    const std::string_view tag = platform::ControlTag(platform::Control(dialog, id));
    if (tag == kSpinnerTag) return SpinnerValue(dialog, id, text);
    if (tag == kColorButtonTag) return ColorValue(text);
    if (tag == kCheckBoxTag) return CheckBoxValue(dialog, id, text);
    if (tag == kComboBoxTag) return ChoiceValue(dialog, id, text);
    if (tag == kFountainTag || tag == kMatrixTag || tag == kMaterialTag) return BlockValue(text);
    if (const int cells = PickerCells(tag); cells > 0) return NumberBetween(text, 0, cells - 1);
    return Wrong("cannot be set: the control holds no value");
}

// A picker's line changes what it shows alone: its text and its variable follow
// only a click. So these are set as a click sets them.
void FinishPicker(platform::WindowHandle dialog, int id, const std::string& value) {
    const platform::WindowHandle control = platform::Control(dialog, id);
    if (PickerCells(platform::ControlTag(control)) == 0) return;
    platform::SetControlText(dialog, id, value);
    platform::SendToWindow(control, ReadControlText, 0, 0);
    if (const auto place = FindParameterByControl(id); place.Parameter != nullptr) {
        place.Parameter->Value = static_cast<std::uint32_t>(*ReadNumber(value));
    }
}

std::string SetVariable(const ConfigKey& row, std::string_view text) {
    if ((row.Flags & kTextKey) != 0) {
        if (text.size() >= kBoundTextBytes) return "is too long; it takes up to 259 bytes";
        *std::copy(text.begin(), text.end(), static_cast<char*>(row.Value)) = '\0';
        return "";
    }
    const LineValue value = NumberBetween(text, 0, 0xFFFFFFFF);
    if (value.Error.empty()) {
        *static_cast<std::uint32_t*>(row.Value) =
            static_cast<std::uint32_t>(*ReadNumber(value.Value));
    }
    return value.Error;
}

std::string SetControl(platform::WindowHandle dialog, int id, std::string_view text) {
    const LineValue value = ValueFor(dialog, id, text);
    if (!value.Error.empty()) return value.Error;
    if (!LoadControlValue(dialog, id, value.Value)) return "is not taken by its control";
    FinishPicker(dialog, id, value.Value);
    return "";
}

}  // namespace

bool LoadControlValue(platform::WindowHandle dialog, int id, const std::string& value) {
    const platform::WindowHandle control = platform::Control(dialog, id);
    if (control == nullptr) return false;
    const std::string line = platform::ControlTag(control) + std::to_string(id) + "=" + value;
    return platform::SendToWindow(control, LoadControl, 0,
                                  reinterpret_cast<std::intptr_t>(line.c_str())) != 0;
}

std::string ApplySetting(platform::WindowHandle dialog, const Setting& setting) {
    std::string error;
    const int id = FindControl(dialog, setting.Key);
    if (id != 0 && platform::Control(dialog, id) != nullptr) {
        error = SetControl(dialog, id, setting.Value);
    } else if (const ConfigKey* row = FindVariable(setting.Key)) {
        error = SetVariable(*row, setting.Value);
    } else {
        return "--set: unknown key '" + setting.Key +
               "'; 'tessellomatics params STYLE' lists a style's";
    }
    if (error.empty()) return "";
    return "--set " + setting.Key + ": '" + setting.Value + "' " + error;
}

}  // namespace tess
