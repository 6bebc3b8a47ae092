#include "programs/cli/settings.h"

#include <algorithm>
#include <cctype>
#include <cstdint>
#include <cstdio>
#include <string_view>
#include <vector>

#include "fills/fountain_control.h"
#include "platform/files.h"
#include "platform/text_lines.h"
#include "programs/cli/control_values.h"
#include "programs/cli/file_faults.h"
#include "programs/cli/style_names.h"
#include "programs/cli/tile_settings.h"
#include "programs/cli/values.h"
#include "shell/configuration.h"
#include "shell/control_contract.h"
#include "shell/document.h"

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
        if (key == row.Name) return &row;
    }
    return nullptr;
}

bool IsNumberText(std::string_view text) {
    return !text.empty() && std::all_of(text.begin(), text.end(),
                                        [](unsigned char c) { return std::isdigit(c) != 0; });
}

// The control that shows the value of a configuration key, or 0. A matrix tile's
// control shows a whole tile, of which the key is one field: it has none.
int ControlOfKey(std::string_view key) {
    const auto place = FindParameterByKey(key);
    if (place.Parameter == nullptr) return FindGeneralControl(key);
    return place.Parameter->Kind == ParameterKind::Matrix ? 0 : place.Parameter->ControlId;
}

// The control that `key` means, or 0.
int FindControl(platform::WindowHandle dialog, std::string_view key) {
    if (IsNumberText(key)) {
        const auto id = ParseNumber(key);
        return id && *id <= 0xFFFF ? static_cast<int>(*id) : 0;
    }
    const StyleEntry& style = SelectedStyle(dialog);
    if (const auto place = FindParameter(style, key); place.Parameter != nullptr) {
        return place.Parameter->ControlId;
    }
    return ControlOfKey(key);
}

// A picker's line changes what it shows alone: its text and its variable follow
// only a click. So these are set as a click sets them.
void FinishPicker(platform::WindowHandle dialog, int id, const std::string& value) {
    const platform::WindowHandle control = platform::Control(dialog, id);
    if (PickerCells(platform::ControlTag(control)) == 0) return;
    platform::SetControlText(dialog, id, value);
    platform::SendToWindow(control, ReadControlText, 0, 0);
    if (const auto place = FindParameterByControl(id); place.Parameter != nullptr) {
        place.Parameter->Value = static_cast<std::uint32_t>(*ParseNumber(value));
    }
}

std::string SetVariable(const ConfigKey& row, std::string_view text) {
    if (row.IsText()) {
        if (text.size() >= kBoundTextBytes) return "is too long; it takes up to 259 bytes";
        const bool is_one_line =
            std::none_of(text.begin(), text.end(), [](unsigned char c) { return c < ' '; });
        if (!is_one_line) return "is no text of one line";
        *std::copy(text.begin(), text.end(), static_cast<char*>(row.Value)) = '\0';
        return "";
    }
    const LineValue value = NumberBetween(text, 0, 0xFFFFFFFF);
    if (value.Error.empty()) {
        *static_cast<std::uint32_t*>(row.Value) =
            static_cast<std::uint32_t>(*ParseNumber(value.Value));
    }
    return value.Error;
}

std::string SetControl(platform::WindowHandle dialog, int id, std::string_view text) {
    const LineValue value = ValueForControl(dialog, id, text);
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

namespace {

// The matrix control that a key of its parameter means, 0 for none. Its number means the
// control, and takes the whole record.
int FindMatrixControl(platform::WindowHandle dialog, std::string_view key) {
    if (IsNumberText(key)) return 0;
    const StyleEntry& style = SelectedStyle(dialog);
    for (const auto& place : {FindParameter(style, key), FindParameterByKey(key)}) {
        if (place.Parameter != nullptr && place.Parameter->Kind == ParameterKind::Matrix)
            return place.Parameter->ControlId;
    }
    return 0;
}

// The names of up to three styles that have a parameter of that name.
std::string StylesWith(std::string_view key) {
    constexpr int kMost = 3;
    std::string names;
    int count = 0;
    for (const StyleEntry* style : StyleTable) {
        if (FindParameter(*style, key).Parameter == nullptr || ++count > kMost) continue;
        names += (names.empty() ? "" : ", ") + StyleName(*style);
    }
    return count > kMost ? names + " and others" : names;
}

// Mostly the style is not the one that the user has in mind: he has named none, or has set
// the effect behind this.
std::string UnknownKeyText(platform::WindowHandle dialog, const std::string& key) {
    const std::string style = StyleName(SelectedStyle(dialog));
    std::string text = "--set: unknown key " + ShownText(key) + "; the style here is " + style +
                       ", and 'tessellomatics params " + style + "' lists its keys";
    const std::string others = StylesWith(key);
    if (others.empty()) return text;
    return text + "; it is one of " + others + ": name the style, or set effect, before it";
}

SettingFault ApplyValue(platform::WindowHandle dialog, const Setting& setting) {
    std::string error;
    if (const int matrix = FindMatrixControl(dialog, setting.Key); matrix != 0) {
        error = SetTileIndex(dialog, matrix, setting.Value);
    } else if (const int id = FindSettingControl(dialog, setting); id != 0) {
        error = SetControl(dialog, id, setting.Value);
    } else if (const ConfigKey* row = FindVariable(setting.Key)) {
        error = SetVariable(*row, setting.Value);
    } else {
        return {kWrongUse, UnknownKeyText(dialog, setting.Key)};
    }
    if (error.empty()) return {};
    return {kWrongUse, "--set " + setting.Key + ": " + ShownText(setting.Value) + " " + error};
}

SettingFault ApplyFountainFile(platform::WindowHandle dialog, const Setting& setting) {
    const platform::WindowHandle control =
        platform::Control(dialog, FindSettingControl(dialog, setting));
    if (std::string_view(platform::ControlTag(control)) != kFountainTag) {
        return {kWrongUse, "--fountain: " + ShownText(setting.Key) +
                               " is no fountain; 'tessellomatics params STYLE' lists a style's"};
    }
    if (LoadFountainFile(control, setting.Value) != 0) return {};
    if (!IsReadable(setting.Value)) return {kFailed, ReadFault(setting.Value)};
    return {kFailed, setting.Value + ": is no fountain's file, or a damaged one"};
}

// Shows a variable's value in its control as the opening of the dialog does: the
// variable keeps what the control holds in its range.
void ShowVariable(platform::WindowHandle dialog, const ConfigKey& row) {
    const int id = ControlOfKey(row.Name);
    if (id == 0) return;
    auto* variable = static_cast<std::uint32_t*>(row.Value);
    const std::uint32_t value = *variable;
    // A check box that the host does not allow stays as it is.
    if (!platform::IsControlEnabled(dialog, id) && id != kPaletteList) return;
    LoadControlValue(dialog, id, std::to_string(value));
    FinishPicker(dialog, id, std::to_string(value));
    *variable = value;
}

bool IsConfigurationLine(std::string_view line) {
    const std::string_view name = line.substr(0, line.find_first_of(" ="));
    if (name.empty() || line.find('=') == std::string_view::npos) return false;
    const auto table = ConfigurationTable();
    // A line may cut a key short.
    return std::any_of(table.begin(), table.end(), [name](const ConfigKey& row) {
        return std::string_view(row.Name).starts_with(name);
    });
}

// Whether any line is one: other files are read without a complaint, too.
bool HoldsConfiguration(const std::string& path) {
    std::FILE* stream = platform::OpenFile(path, "rb");
    if (stream == nullptr) return false;
    platform::TextLines lines(stream);
    char line[512];
    bool is_found = false;
    while (!is_found && lines.Next(line))
        is_found = IsConfigurationLine(line);
    std::fclose(stream);
    return is_found;
}

SettingFault ApplyConfiguration(platform::WindowHandle dialog, const std::string& path) {
    std::vector<std::uint32_t> before;
    for (const ConfigKey& row : ConfigurationTable()) {
        before.push_back(row.IsNumber() ? *static_cast<std::uint32_t*>(row.Value) : 0);
    }
    if (ReadConfigurationFile(path.c_str()) == 0) return {kFailed, ReadFault(path)};
    if (!platform::IsControlEnabled(dialog, kTrueColorBox)) Truecolour = 0;
    std::size_t i = 0;
    for (const ConfigKey& row : ConfigurationTable()) {
        const std::uint32_t old_value = before[i++];
        if (row.IsNumber() && *static_cast<std::uint32_t*>(row.Value) != old_value) {
            ShowVariable(dialog, row);
        }
    }
    if (HoldsConfiguration(path)) return {};
    return {kDone, path + ": holds no line of a configuration"};
}

}  // namespace

const StyleEntry& SelectedStyle(platform::WindowHandle dialog) {
    const int style = platform::Selection(dialog, kEffectList);
    return *StyleTable[std::clamp(style, 0, kStyleCount - 1)];
}

int FindSettingControl(platform::WindowHandle dialog, const Setting& setting) {
    const int id = FindControl(dialog, setting.Key);
    return id != 0 && platform::Control(dialog, id) != nullptr ? id : 0;
}

SettingFault ApplySetting(platform::WindowHandle dialog, const Setting& setting) {
    switch (setting.Kind) {
        case SettingKind::Value:
            return ApplyValue(dialog, setting);
        case SettingKind::Configuration:
            return ApplyConfiguration(dialog, setting.Value);
        case SettingKind::FountainFile:
            return ApplyFountainFile(dialog, setting);
        case SettingKind::Document:
            if (ReadDocument(dialog, setting.Value.c_str()) == 0) return {kFailed, setting.Value};
            return {};
        case SettingKind::Tile:
            return ApplyTile(dialog, setting);
    }
    return {};
}

const char* GeneralSettingName(int id) {
    for (const GeneralSetting& setting : kGeneralSettings) {
        if (setting.ControlId == id) return setting.Name;
    }
    return nullptr;
}

const char* GeneralSettingKey(int id) {
    for (const GeneralSetting& setting : kGeneralSettings) {
        if (setting.ControlId == id) return setting.Key;
    }
    return nullptr;
}

}  // namespace tess
