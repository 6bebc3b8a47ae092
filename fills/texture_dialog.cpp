// The dialog works on a copy of the caller's record and on the list of textures, which
// stands for the current group's file until OK writes it back.
#include "fills/texture_dialog.h"

#include <string>

#include "controls/help.h"
#include "controls/skinned_button.h"
#include "fills/group_choice.h"
#include "fills/name_box.h"
#include "fills/texture_controls.h"
#include "fills/texture_group_file.h"
#include "fills/texture_list.h"
#include "platform/keyboard.h"
#include "platform/list_box.h"
#include "shell/control_contract.h"

namespace tess {

namespace {

using platform::Notification;
using platform::WindowHandle;

constexpr int kGroups = 103, kAdd = 104, kDelete = 105, kDrawButton = 107;

constexpr char kNewTexture[] = "Untitled (double-click to edit)";

constexpr char kNotLoaded[] =
    "There has been an error importing the selected texture file. The file may be damaged.";
constexpr char kNotAdded[] = "There has been an error adding your texture.";
constexpr char kNotWriteable[] =
    "This file cannot be edited or overwritten.\n\nThe default texture set cannot be modified. To "
    "edit this file, save it to a new name. Hold down the Shift key and click on the + button.";
constexpr char kNotDeletable[] = "The primary texture group cannot be deleted.";
constexpr char kDeleteQuestion[] =
    "Do you want to delete the %s texture group?\n\nClick on Yes to delete this file, or No to "
    "abort.";

constexpr GroupChoice kTextureGroups = {
    kGroups,          kTextureNameTemplate,   ".FFT", kDefaultTextureGroup, kDeleteQuestion,
    TextureGroupFile, sizeof TextureGroupFile};

/// The dialog that runs; there is one at a time.
TextureItem* edited = nullptr;
bool is_writeable = false;  // the current group may be changed
bool is_dirty = false;      // the list differs from its file

void RedrawPreview(WindowHandle dialog) {
    platform::RepaintControl(dialog, kTexturePreview);
}

void UpdateButtons(WindowHandle dialog) {
    platform::EnableControl(dialog, kDelete,
                            platform::ItemCount(dialog, kTextureList) > 0 &&
                                platform::Selection(dialog, kTextureList) >= 0);
}

/// Tells the user where the group may not be changed. Returns whether it may.
bool MayChange(WindowHandle dialog, const char* refusal) {
    if (!is_writeable) ShowMessage(dialog, refusal);
    return is_writeable;
}

/// Reads the current group into the list, which is empty when that fails: textures of
/// another group must not stay for OK to write them over this one.
void LoadGroup(WindowHandle dialog) {
    FreeTextures(dialog);
    is_dirty = false;
    if (LoadTextureGroup(dialog, &is_writeable) == 0) ShowMessage(dialog, kNotLoaded);
}

void ChooseGroup(WindowHandle dialog) {
    if (TakeSelectedGroup(dialog, kTextureGroups)) LoadGroup(dialog);
}

/// Saves the list as a new group, and goes on with that.
void AddTextureGroup(WindowHandle dialog) {
    if (!AddGroup(dialog, kTextureGroups, SaveTextureGroup)) return;
    is_writeable = true;
    is_dirty = false;
}

void DeleteTextureGroup(WindowHandle dialog) {
    if (!MayChange(dialog, kNotDeletable) || !DeleteCurrentGroup(dialog, kTextureGroups)) return;
    is_writeable = false;
    LoadGroup(dialog);
}

void AddCurrentTexture(WindowHandle dialog) {
    if (!MayChange(dialog, kNotWriteable)) return;
    const int index = AddTexture(dialog, kNewTexture, *edited);
    if (index < 0) return ShowMessage(dialog, kNotAdded);
    platform::SetSelection(dialog, kTextureList, index);
    is_dirty = true;
}

void DeleteSelectedTexture(WindowHandle dialog) {
    const int index = platform::Selection(dialog, kTextureList);
    if (index < 0 || !MayChange(dialog, kNotWriteable)) return;
    DeleteTexture(dialog, index);
    // Behind the last one there is none to select.
    platform::SetSelection(dialog, kTextureList,
                           index < platform::ItemCount(dialog, kTextureList) ? index : -1);
    is_dirty = true;
}

void RenameSelectedTexture(WindowHandle dialog) {
    const int index = platform::Selection(dialog, kTextureList);
    if (index < 0 || !MayChange(dialog, kNotWriteable)) return;
    std::string name = platform::ItemText(dialog, kTextureList, index);
    if (!AskName(dialog, kTextureNameTemplate, &name)) return;
    const int renamed = RenameTexture(dialog, index, name);
    if (renamed < 0) return ShowMessage(dialog, kNotAdded);
    platform::SetSelection(dialog, kTextureList, renamed);
    is_dirty = true;
}

void TakeSelectedTexture(WindowHandle dialog) {
    const int index = platform::Selection(dialog, kTextureList);
    if (index < 0) return;
    if (!CopyTexture(dialog, index, edited))
        return ShowMessage(dialog, LoadStringText(StringId::MemoryError));
    FillTextureControls(dialog, *edited);
    RedrawPreview(dialog);
}

void Open(WindowHandle dialog) {
    for (const int button : {kOkButton, kCancelButton, kHelpButton, kAdd, kDelete, kDrawButton})
        SkinButton(dialog, button);
    is_writeable = false;
    OpenTextureControls(dialog, edited);
    LoadGroup(dialog);
    ListGroups(dialog, kTextureGroups);
    UpdateButtons(dialog);
    platform::PostCommand(dialog, kDrawButton);
    platform::FocusControl(dialog, kOkButton);
    platform::CenterOnScreen(dialog);
}

void Accept(WindowHandle dialog) {
    if (is_dirty && is_writeable && SaveTextureGroup(dialog) == 0)
        ShowMessage(dialog, LoadStringText(StringId::ErrorWritingFile));
    platform::EndDialog(dialog, 1);
}

void OnClick(WindowHandle dialog, int id) {
    switch (id) {
        case kOkButton:
            return Accept(dialog);
        case kCancelButton:
            return platform::EndDialog(dialog, 0);
        case kHelpButton:
            return ShowHelp(dialog, "TEXTURE");
        case kAdd:
            return platform::IsShiftHeld() ? AddTextureGroup(dialog) : AddCurrentTexture(dialog);
        case kDelete:
            return platform::IsShiftHeld() ? DeleteTextureGroup(dialog)
                                           : DeleteSelectedTexture(dialog);
        case kDrawButton:
            return RedrawPreview(dialog);
        default:
            return;
    }
}

void OnCommand(WindowHandle dialog, int id, Notification notification) {
    if (TakeTextureControl(dialog, id, notification, edited)) return;
    if (id == kTextureList && notification == Notification::ListSelected) {
        TakeSelectedTexture(dialog);
    } else if (id == kTextureList && notification == Notification::ListDoubleClicked) {
        RenameSelectedTexture(dialog);
    } else if (id == kGroups && notification == Notification::ComboClosed) {
        ChooseGroup(dialog);
    } else if (notification == Notification::Clicked) {
        OnClick(dialog, id);
    }
    UpdateButtons(dialog);
}

std::intptr_t TextureBoxProc(WindowHandle dialog, std::uint32_t message, std::uintptr_t w,
                             std::intptr_t l) {
    switch (message) {
        case platform::kMessageOpen:
            edited = reinterpret_cast<TextureItem*>(l);
            Open(dialog);
            return 0;  // the focus has been set
        case platform::kMessageCommand:
            if (edited == nullptr) return 0;
            OnCommand(dialog, platform::CommandId(w), platform::CommandNotification(w));
            return 1;
        case platform::kMessageDestroy:
            FreeTextures(dialog);
            edited = nullptr;
            return 1;
        default:
            return 0;
    }
}

}  // namespace

int EditTexture(WindowHandle owner, TextureItem* item) {
    TextureItem copy = *item;
    if (platform::RunDialog(kTextureTemplate, owner, TextureBoxProc, &copy) != 1) return 0;
    *item = copy;
    return 1;
}

const TextureItem* EditedTexture() {
    return edited;
}

ImageHandle RenderTexturePreview(platform::PixelSize client) {
    if (edited == nullptr) return nullptr;
    TextureItem shown = *edited;
    shown.Left = shown.Top = 1;
    shown.Right = client.Width - 1;
    shown.Bottom = client.Height - 1;
    return RenderTexture(shown);
}

}  // namespace tess
