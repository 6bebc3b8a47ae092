#include "programs/cli/tile_settings.h"

#include <cstdio>
#include <optional>
#include <vector>

#include "controls/hexadecimal.h"
#include "fills/matrix_control.h"
#include "fills/matrix_group_file.h"
#include "platform/files.h"
#include "programs/cli/picture_file.h"
#include "programs/cli/values.h"
#include "programs/default_groups.h"
#include "shell/style_table.h"

namespace tess {
namespace {

constexpr char kExtension[] = ".mtx";

bool EndsIn(std::string_view text, std::string_view ending) {
    return text.size() > ending.size() &&
           PlainName(text.substr(text.size() - ending.size())) == PlainName(ending);
}

// The file with that name in whatever case, with its folder; empty when there is none.
std::string FindInFolder(const std::string& folder, std::string_view file) {
    for (const std::string& name : platform::FilesIn(folder, kExtension)) {
        if (name.size() == file.size() && EndsIn(" " + name, file)) return folder + name;
    }
    return "";
}

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

std::string FindTileGroup(const std::string& file) {
    // Beside the files that PluginFile names by default: a preview has another folder.
    const std::string folder(platform::FolderOf(platform::UserFile("Tessellomatics 1/x")));
    const std::string own = FindInFolder(folder, file);
    return own.empty() ? FindInFolder(ProvidedGroupFolder(), file) : own;
}

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
    const bool is_path = EndsIn(group, kExtension) && platform::FileExists(group);
    const std::string path =
        is_path ? group : FindTileGroup(EndsIn(group, kExtension) ? group : group + kExtension);
    if (path.empty())
        return TileFault("there is no group " + ShownText(group) +
                         "; 'tessellomatics tiles' lists the groups");
    const std::string index = setting->Value.substr(colon + 1);
    if (const std::string error = CheckIndex(path, index); !error.empty())
        return TileFault(ShownText(index) + " " + error);
    setting->Key = path;
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

void ShowTilesOfParameters(platform::WindowHandle dialog, const std::string& path) {
    ForEachMatrix([&](const StyleParameter& parameter) {
        LoadTile(dialog, parameter.ControlId, path, static_cast<int>(parameter.Value));
    });
}

}  // namespace tess
