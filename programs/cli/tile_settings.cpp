#include "programs/cli/tile_settings.h"

#include <cstdint>
#include <cstdio>
#include <optional>
#include <vector>

#include "controls/hexadecimal.h"
#include "fills/matrix_control.h"
#include "fills/matrix_group_file.h"
#include "platform/files.h"
#include "programs/cli/group_files.h"
#include "programs/cli/picture_file.h"
#include "programs/cli/values.h"
#include "shell/control_contract.h"
#include "shell/style_table.h"

namespace tess {
namespace {

// Calls `act` with each matrix parameter of the styles.
template <class Act>
void ForEachMatrix(Act act) {
    for (const StyleEntry* style : StyleTable) {
        for (StyleParameter& parameter : style->Parameters) {
            if (parameter.Kind == ParameterKind::Matrix) act(parameter);
        }
    }
}

// Lets a control load the record that it has with another group and element.
void LoadTile(platform::WindowHandle dialog, int id, const std::string& path, int element) {
    MatrixTile tile{};
    if (const LockedMatrixTile own = LockMatrixTile(platform::Control(dialog, id)); own)
        tile = *own.Get();
    tile.Image = nullptr;
    tile.Element = element;
    if (!path.empty()) SetMatrixTilePath(&tile, path);
    LoadControlValue(dialog, id,
                     Hexadecimal({reinterpret_cast<const std::uint8_t*>(&tile), sizeof tile}));
}

// Returns what is wrong with an index, empty when nothing is.
std::string CheckIndex(const std::string& path, std::string_view text) {
    MatrixGroup group;
    switch (ReadMatrixGroup(path, &group)) {
        case GroupReading::Missing:
            return "cannot be looked up: there is no group '" + path + "'";
        case GroupReading::Damaged:
            return "cannot be looked up: the group '" + path + "' is damaged";
        case GroupReading::Whole:
            break;
    }
    const std::string name(platform::FileNameOf(path));
    const std::string holds =
        "; " + name + " holds " + std::to_string(group.Count()) + " tiles, counted from 0";
    const auto index = ParseNumber(text);
    if (!index) return "is no number" + holds;
    return *index < 0 || *index >= group.Count() ? "is out of range" + holds : "";
}

SettingFault TileFault(const std::string& text) {
    return {kWrongUse, "--tile: " + text};
}

SettingFault ApplyPicture(platform::WindowHandle dialog, const std::string& path) {
    std::string error;
    platform::OwnedBlock picture(ReadPicture(path, &error));
    if (!picture) return {kFailed, path + ": " + error};
    ForEachMatrix([&](const StyleParameter& parameter) {
        const LockedMatrixTile tile =
            LockMatrixTile(platform::Control(dialog, parameter.ControlId));
        if (!tile || !picture) return;
        platform::FreeBlock(tile->Image);
        tile->Image = picture.Release();
    });
    return {};
}

}  // namespace

bool IsPictureTile(const Setting& setting) {
    if (setting.Kind != SettingKind::Tile || !setting.Key.empty()) return false;
    for (const char* ending : {".png", ".bmp", ".ppm"}) {
        if (EndsIn(setting.Value, ending)) return true;
    }
    return false;
}

SettingFault FindTile(Setting* setting) {
    if (IsPictureTile(*setting)) return {};
    const std::size_t colon = setting->Value.rfind(':');
    if (colon == std::string::npos || colon == 0)
        return TileFault(ShownText(setting->Value) +
                         " is no tile; it takes GROUP:INDEX or a picture");
    const std::string group = setting->Value.substr(0, colon);
    const std::string path = FindGroupFile(group, kTileGroupExtension);
    if (path.empty()) return TileFault(GroupFault(group, kTileGroupExtension));
    const std::string index = setting->Value.substr(colon + 1);
    if (const std::string error = CheckIndex(path, index); !error.empty())
        return TileFault(ShownText(index) + " " + error);
    setting->Key = PathFromRoot(path);
    if (setting->Key.size() >= kMatrixFileBytes)
        return TileFault(ShownText(setting->Key) + " is too long a path");
    setting->Value = index;
    return {};
}

SettingFault ApplyTile(platform::WindowHandle dialog, const Setting& setting) {
    if (setting.Key.empty()) return ApplyPicture(dialog, setting.Value);
    const auto index = static_cast<int>(ParseNumber(setting.Value).value_or(0));
    ForEachMatrix([&](StyleParameter& parameter) {
        LoadTile(dialog, parameter.ControlId, setting.Key, index);
        parameter.Value = static_cast<std::uint32_t>(index);
    });
    // The group is the current one from now on, as when it is chosen in the dialog.
    std::snprintf(MatrixGroupFile, sizeof MatrixGroupFile, "%s",
                  std::string(platform::FileNameOf(setting.Key)).c_str());
    return {};
}

std::string SetTileIndex(platform::WindowHandle dialog, int id, std::string_view text) {
    std::string path;
    if (const LockedMatrixTile tile = LockMatrixTile(platform::Control(dialog, id)); tile)
        path = MatrixTilePath(*tile.Get());
    if (std::string error = CheckIndex(path, text); !error.empty()) return error;
    const auto index = static_cast<int>(ParseNumber(text).value_or(0));
    LoadTile(dialog, id, path, index);
    ForEachMatrix([&](StyleParameter& parameter) {
        if (parameter.ControlId == id) parameter.Value = static_cast<std::uint32_t>(index);
    });
    return "";
}

void ShowMissingTiles(platform::WindowHandle dialog, const std::string& path) {
    if (path.empty()) return;
    ForEachMatrix([&](const StyleParameter& parameter) {
        std::optional<int> element;
        if (const LockedMatrixTile tile =
                LockMatrixTile(platform::Control(dialog, parameter.ControlId));
            tile && tile->Image == nullptr)
            element = tile->Element;
        if (element) LoadTile(dialog, parameter.ControlId, path, *element);
    });
}

std::string MissingTileText(platform::WindowHandle dialog) {
    for (const StyleParameter& parameter : SelectedStyle(dialog).Parameters) {
        if (parameter.Kind != ParameterKind::Matrix) continue;
        const LockedMatrixTile tile =
            LockMatrixTile(platform::Control(dialog, parameter.ControlId));
        if (!tile || tile->Image != nullptr) continue;
        const std::string group(MatrixTilePath(*tile.Get()));
        return (group.empty() ? "no group of tiles is chosen"
                              : group + ": has no tile " + std::to_string(tile->Element)) +
               "; the default tile stands for it";
    }
    return "";
}

void ShowTilesOfParameters(platform::WindowHandle dialog, const std::string& path) {
    ForEachMatrix([&](const StyleParameter& parameter) {
        LoadTile(dialog, parameter.ControlId, path, static_cast<int>(parameter.Value));
    });
}

}  // namespace tess
