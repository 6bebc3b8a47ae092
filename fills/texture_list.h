// The items of the current texture group as the list of the Texture dialog: an entry
// each, sorted by name, with a block of the item's record as its data.
#pragma once

#include <string>
#include <string_view>

#include "fills/texture.h"
#include "platform/dialog.h"

namespace tess {

inline constexpr int kTextureList = 102;

/// Puts the items of the file TextureGroupFile into the list, in place of those that
/// are there, and sets the flag where the file says whether it may be changed. Returns
/// 1; or 0 for a file that is no group, and then the list and the flag stay, for one that
/// cannot be opened or read, or when memory is short. After those the flag is false and
/// the list is not a part of the group, so that nothing is written over the whole of it.
[[nodiscard]] int LoadTextureGroup(platform::WindowHandle dialog, bool* writeable_flag);

/// Writes the list to TextureGroupFile as a group that may be changed. Returns 1, or 0
/// on failure.
[[nodiscard]] int SaveTextureGroup(platform::WindowHandle dialog);

/// Adds a copy of the item. Returns its place in the list, or -1 on failure.
int AddTexture(platform::WindowHandle dialog, std::string_view name, const TextureItem& item);
/// Copies the item of an entry. Returns false where there is none.
[[nodiscard]] bool CopyTexture(platform::WindowHandle dialog, int index, TextureItem* item);
/// Gives an entry another name, and so another place, which is returned; -1 on failure,
/// and then the entry stays.
int RenameTexture(platform::WindowHandle dialog, int index, std::string_view name);
void DeleteTexture(platform::WindowHandle dialog, int index);
/// Empties the list.
void FreeTextures(platform::WindowHandle dialog);

}  // namespace tess
