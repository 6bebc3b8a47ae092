// DIALOG 9998: one texture, and the groups of textures that the user picks it from.
#pragma once

#include "fills/texture.h"
#include "platform/dialog.h"

namespace tess {

inline constexpr int kTextureTemplate = 9998;
inline constexpr int kTextureNameTemplate = 9999;
inline constexpr int kTexturePreview = 101;

/// Lets the user choose or edit a texture. Returns 1 when OK ended the dialog, and then
/// `item` has changed; else 0.
int EditTexture(platform::WindowHandle owner, TextureItem* item);

// What the dialog's view asks for.

/// The texture that the dialog works on, null while there is none.
[[nodiscard]] const TextureItem* EditedTexture();

/// Renders the texture for a preview of that size, less a pixel on each side. Owned by
/// the caller; may be null.
[[nodiscard]] ImageHandle RenderTexturePreview(platform::PixelSize client);

/// Adds painting to the dialog. Windows only.
void InstallTextureDialogView();

}  // namespace tess
