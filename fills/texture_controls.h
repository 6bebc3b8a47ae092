// The controls of the Texture dialog that show and change one texture.
#pragma once

#include "fills/texture.h"
#include "platform/dialog.h"

namespace tess {

inline constexpr int kTextureKindList = 106;
inline constexpr int kBubbleShapeList = 531;

/// Sets the controls up for a dialog that opens, and lets them show the item.
void OpenTextureControls(platform::WindowHandle dialog, TextureItem* item);

/// Lets all controls show the item, and shows those of its kind. Nothing that they
/// tell the dialog meanwhile changes the item.
void FillTextureControls(platform::WindowHandle dialog, const TextureItem& item);

/// Hides every control of a texture with its companions, then shows those of the kind;
/// none for a kind that is none.
void ShowTextureControls(platform::WindowHandle dialog, int kind);

/// Takes what a control says into the item, if the control is visible. Returns false
/// for a control or notification that has nothing to do with the item.
bool TakeTextureControl(platform::WindowHandle dialog, int id, platform::Notification notification,
                        TextureItem* item);

struct TextureColor {
    bool IsColor;
    ColorWord Color;
};
/// The colour that a button shows; IsColor is false for other controls.
[[nodiscard]] TextureColor TextureButtonColor(const TextureItem& item, int id);

}  // namespace tess
