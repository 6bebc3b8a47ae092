#include "programs/cli/material_values.h"

#include <optional>

#include "fills/matrix_group_file.h"
#include "platform/files.h"
#include "programs/cli/file_faults.h"
#include "programs/cli/fountain_text.h"
#include "programs/cli/group_files.h"
#include "programs/cli/values.h"

namespace tess {
namespace {

using Kind = MaterialValueKind;

constexpr const char* kGradientTypeNames[] = {"linear", "conical", "elliptical", "rectangular"};
constexpr int kGradientTypes = 4;
constexpr int kLargestIndex = 0x7FFFFFFF;

std::int32_t Whole(std::int64_t value) {
    return static_cast<std::int32_t>(value);
}

ColorWord Color(std::int64_t value) {
    return static_cast<ColorWord>(value);
}

constexpr MaterialValue kValues[] = {
    {"mode", Kind::Choice, 0, kMaterialModes - 1,
     [](const Material& m) { return static_cast<std::int64_t>(m.Mode); },
     [](Material& m, std::int64_t v) { m.Mode = static_cast<MaterialMode>(v); }},
    {"color", Kind::Color, 0, 0, [](const Material& m) { return std::int64_t{m.SimpleColor}; },
     [](Material& m, std::int64_t v) { m.SimpleColor = Color(v); }},
    {"gradient-type", Kind::Choice, 0, kGradientTypes - 1,
     [](const Material& m) { return static_cast<std::int64_t>(m.Gradient.Type); },
     [](Material& m, std::int64_t v) { m.Gradient.Type = static_cast<GradientType>(v); }},
    {"start-color", Kind::Color, 0, 0,
     [](const Material& m) { return std::int64_t{m.Gradient.StartColor}; },
     [](Material& m, std::int64_t v) { m.Gradient.StartColor = Color(v); }},
    {"end-color", Kind::Color, 0, 0,
     [](const Material& m) { return std::int64_t{m.Gradient.EndColor}; },
     [](Material& m, std::int64_t v) { m.Gradient.EndColor = Color(v); }},
    {"two-color", Kind::Switch, 0, 1,
     [](const Material& m) { return std::int64_t{m.Gradient.TwoColor != 0}; },
     [](Material& m, std::int64_t v) { m.Gradient.TwoColor = Whole(v); }},
    {"midpoint", Kind::Number, 1, 99,
     [](const Material& m) { return std::int64_t{m.Gradient.Midpoint}; },
     [](Material& m, std::int64_t v) { m.Gradient.Midpoint = Whole(v); }},
    {"rotation", Kind::Number, -360, 360,
     [](const Material& m) { return std::int64_t{m.Gradient.Rotation}; },
     [](Material& m, std::int64_t v) { m.Gradient.Rotation = Whole(v); }},
    {"edge-pad", Kind::Number, 0, 45,
     [](const Material& m) { return std::int64_t{m.Gradient.EdgePad}; },
     [](Material& m, std::int64_t v) { m.Gradient.EdgePad = Whole(v); }},
    {"center-x", Kind::Number, -50, 50,
     [](const Material& m) { return std::int64_t{m.Gradient.CenterX}; },
     [](Material& m, std::int64_t v) { m.Gradient.CenterX = Whole(v); }},
    {"center-y", Kind::Number, -50, 50,
     [](const Material& m) { return std::int64_t{m.Gradient.CenterY}; },
     [](Material& m, std::int64_t v) { m.Gradient.CenterY = Whole(v); }},
    {"texture-type", Kind::Choice, 0, kTextureKinds - 1,
     [](const Material& m) { return std::int64_t{m.Texture.TextureType}; },
     [](Material& m, std::int64_t v) { m.Texture.TextureType = Whole(v); }},
    {"tile-element", Kind::Number, 0, kLargestIndex,
     [](const Material& m) { return std::int64_t{m.Tile.Element}; },
     [](Material& m, std::int64_t v) { m.Tile.Element = Whole(v); }},
};

// The name of a choice.
const char* ChoiceName(const MaterialValue& row, int index) {
    const std::string_view name = row.Name;
    if (name == "mode") return kMaterialModeNames[index];
    if (name == "gradient-type") return kGradientTypeNames[index];
    return TextureKindTable[index].Name;
}

std::string ListOfChoices(const MaterialValue& row) {
    std::string list;
    for (int i = row.Least; i <= row.Most; ++i)
        list += (list.empty() ? "" : ", ") + DashedName(ChoiceName(row, i));
    return list;
}

std::optional<std::int64_t> ReadChoice(const MaterialValue& row, std::string_view text) {
    for (int i = row.Least; i <= row.Most; ++i) {
        if (PlainName(text) == PlainName(ChoiceName(row, i))) return i;
    }
    const auto index = ParseNumber(text);
    return index && *index >= row.Least && *index <= row.Most ? index : std::nullopt;
}

// Reads a value for a row; without one `takes` says what the row takes.
std::optional<std::int64_t> ReadFor(const MaterialValue& row, std::string_view text,
                                    std::string* takes) {
    switch (row.Kind) {
        case Kind::Choice:
            *takes = "one of " + ListOfChoices(row);
            return ReadChoice(row, text);
        case Kind::Color:
            *takes = "a color, #RRGGBB or a number";
            if (const auto color = ReadColor(text)) return std::int64_t{*color};
            return std::nullopt;
        case Kind::Switch:
            *takes = "yes or no";
            if (const auto on = ReadSwitch(text)) return *on ? 1 : 0;
            return std::nullopt;
        case Kind::Number:
            *takes = std::to_string(row.Least) + " to " + std::to_string(row.Most);
            if (const auto number = ParseNumber(text);
                number && *number >= row.Least && *number <= row.Most) {
                return number;
            }
            return std::nullopt;
    }
    return std::nullopt;
}

// None, or a group by its name or path.
std::string SetTileGroup(Material* material, std::string_view value) {
    std::string path;
    if (!value.empty()) {
        const std::string name(value);
        path = FindGroupFile(name, kTileGroupExtension);
        if (path.empty())
            return std::string(kTileGroupKey) + ": " + GroupFault(name, kTileGroupExtension);
        path = PathFromRoot(path);
    }
    if (path.size() >= kMatrixFileBytes)
        return std::string(kTileGroupKey) + ": " + ShownText(path) + " is too long a path";
    SetMatrixTilePath(&material->Tile, path);
    return "";
}

std::string SetFountain(Material* material, std::string_view value) {
    // A copy, since the record is packed.
    Fountain fountain = material->Gradient.Ramp;
    const std::string fault = value.find('#') == std::string_view::npos
                                  ? ReadFountainDigits(value, &fountain)
                                  : ReadFountainColors(value, &fountain);
    if (!fault.empty()) return std::string(kFountainKey) + ": " + ShownText(value) + " " + fault;
    material->Gradient.Ramp = fountain;
    return "";
}

}  // namespace

std::span<const MaterialValue> MaterialValues() {
    return kValues;
}

std::string ShownMaterialValue(const MaterialValue& row, const Material& material) {
    const std::int64_t value = row.Get(material);
    const bool is_choice = value >= row.Least && value <= row.Most;
    switch (row.Kind) {
        case Kind::Choice:
            if (is_choice) return DashedName(ChoiceName(row, static_cast<int>(value)));
            break;
        case Kind::Color:
            return ColorText(Color(value));
        case Kind::Switch:
            return value != 0 ? "yes" : "no";
        case Kind::Number:
            break;
    }
    return std::to_string(value);
}

std::string SetMaterialValue(Material* material, std::string_view name, std::string_view value) {
    if (name == kTileGroupKey) return SetTileGroup(material, value);
    if (name == kFountainKey) return SetFountain(material, value);
    for (const MaterialValue& row : kValues) {
        if (name != row.Name) continue;
        std::string takes;
        const auto number = ReadFor(row, value, &takes);
        if (!number) return std::string(name) + ": " + ShownText(value) + " is not " + takes;
        row.Set(*material, *number);
        return "";
    }
    return "unknown key " + ShownText(name) + "; 'tessellomatics material' shows the keys";
}

std::string MaterialTileFault(const Material& material) {
    const std::string group(MatrixTilePath(material.Tile));
    if (group.empty())
        return material.Tile.Element == 0 ? "" : "there is no tile-group to take from";
    MatrixGroup elements;
    switch (ReadMatrixGroup(group, &elements)) {
        case GroupReading::Missing:
            return ReadFault(group);
        case GroupReading::Damaged:
            return group + ": is damaged";
        case GroupReading::Whole:
            break;
    }
    if (material.Tile.Element >= 0 && material.Tile.Element < elements.Count()) return "";
    return ShownText(std::to_string(material.Tile.Element)) + " is out of range; " +
           std::string(platform::FileNameOf(group)) + " holds " + std::to_string(elements.Count()) +
           " tiles, counted from 0";
}

}  // namespace tess
