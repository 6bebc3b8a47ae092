// Choosing Mural's tile: what --tile and a matrix parameter mean.
#pragma once

#include <string>

#include "platform/dialog.h"
#include "programs/cli/request.h"
#include "programs/cli/settings.h"

namespace tess {

/// Whether a --tile means a picture and not a group's tile.
[[nodiscard]] bool IsPictureTile(const Setting& setting);

/// Finds the group of a --tile: its path becomes the setting's key, the tile's index its
/// value. A picture stays as it is. Requires: the user's folder is where it is.
[[nodiscard]] SettingFault FindTile(Setting* setting);

/// Shows the tile of a --tile that was found. Requires: `dialog` is the open main dialog.
[[nodiscard]] SettingFault ApplyTile(platform::WindowHandle dialog, const Setting& setting);

/// Lets a matrix control show the tile of its group that `text` is the index of.
/// Returns what is wrong with it, empty when nothing is.
[[nodiscard]] std::string SetTileIndex(platform::WindowHandle dialog, int id,
                                       std::string_view text);

/// Lets every matrix control whose tile is missing show its element of the group at
/// `path`, so that the program shows its tiles before anyone has installed them.
void ShowMissingTiles(platform::WindowHandle dialog, const std::string& path);

/// What is to be said where the selected style shows a tile that was not found, and draws
/// the default tile in its place; empty when it is not so.
[[nodiscard]] std::string MissingTileText(platform::WindowHandle dialog);

/// Lets every matrix control show the element that its parameter holds.
void ShowTilesOfParameters(platform::WindowHandle dialog, const std::string& path);

}  // namespace tess
