// The dialog works on a copy of the tile's record and on the list of elements, which
// stands for the current group's file until OK writes it back. A selection that the
// user makes, or that the dialog makes for him after a deletion, goes to the record;
// the one that the dialog opens with only marks the first element, so that OK alone
// changes nothing.
#include "fills/matrix_dialog.h"

#include <cstdio>
#include <string>

#include "controls/current_host.h"
#include "controls/help.h"
#include "controls/skinned_button.h"
#include "fills/group_choice.h"
#include "fills/group_list.h"
#include "fills/matrix_element_list.h"
#include "fills/matrix_group_file.h"
#include "pipeline/picture_check.h"
#include "platform/keyboard.h"
#include "platform/list_box.h"
#include "platform/popup_menu.h"
#include "shell/control_contract.h"
#include "shell/host_interface.h"

namespace tess {

namespace {

using platform::Notification;
using platform::OwnedBlock;
using platform::WindowHandle;

constexpr int kAdd = 103, kDelete = 104, kSizeText = 105, kGroups = 108;

constexpr int kNameBox = 9967;

constexpr char kNotLoaded[] = "There has been an error loading the matrix element file.";
constexpr char kNotAdded[] = "There has been an error adding your matrix tile.";
constexpr char kTooLarge[] = "The selected image is too large to be a matrix tile.";
constexpr char kNotWriteable[] =
    "This file cannot be edited or overwritten.\n\nThe default matix set cannot be modified. To "
    "edit this file, save it to a new name. Hold down the Shift key and click on the + button.";
constexpr char kNotDeletable[] = "The primary matrix group cannot be deleted.";
constexpr char kDeleteQuestion[] =
    "Do you want to delete the %s matrix group?\n\nClick on Yes to delete this file, or No to "
    "abort.";

constexpr GroupChoice kMatrixGroups = {kGroups,
                                       kNameBox,
                                       ".MTX",
                                       kDefaultMatrixGroup,
                                       kDeleteQuestion,
                                       MatrixGroupFile,
                                       sizeof MatrixGroupFile};

/// The record of the dialog that runs.
MatrixTile* working_tile = nullptr;

int SelectedElement(WindowHandle dialog) {
    return platform::Selection(dialog, kMatrixElementList);
}

void UpdateDeleteButton(WindowHandle dialog) {
    platform::EnableControl(
        dialog, kDelete,
        platform::ItemCount(dialog, kMatrixElementList) > 0 && SelectedElement(dialog) >= 0);
}

void UpdateSizeText(WindowHandle dialog) {
    const platform::PixelSize size = MatrixPictureSize(*working_tile);
    char text[64];
    std::snprintf(text, sizeof text, "%d x %d", size.Width, size.Height);
    platform::SetControlText(dialog, kSizeText, text);
}

/// Takes the selected element into the record.
void TakeSelection(WindowHandle dialog) {
    const int index = SelectedElement(dialog);
    if (index >= 0) {
        OwnedBlock copy(DuplicateImage(MatrixElementAt(dialog, index)));
        if (!copy) return ShowMessage(dialog, LoadStringText(StringId::MemoryError));
        platform::FreeBlock(working_tile->Image);
        working_tile->Image = copy.Release();
        working_tile->Element = index;
        SetMatrixTilePath(working_tile, GroupPath(MatrixGroupFile));
        platform::RepaintControl(dialog, kMatrixPreview);
        UpdateSizeText(dialog);
    }
    UpdateDeleteButton(dialog);
}

void SelectElement(WindowHandle dialog, int index) {
    platform::SetSelection(dialog, kMatrixElementList, index);
    TakeSelection(dialog);
}

/// Tells the user of a group that is damaged. The list is what the file holds when that
/// was read whole.
GroupReading LoadGroup(WindowHandle dialog) {
    GroupReading reading{};
    {
        const platform::WaitCursor wait;
        reading = LoadMatrixGroup(dialog);
    }
    if (reading == GroupReading::Damaged) ShowMessage(dialog, kNotLoaded);
    if (reading == GroupReading::Whole) CurrentMatrixGroup.IsDirty = false;
    UpdateDeleteButton(dialog);
    return reading;
}

/// A group that cannot be read, or not even opened any more, is refused: the old one stays
/// with its elements, or OK would write those over it.
void ChooseGroup(WindowHandle dialog) {
    const std::string old_group = MatrixGroupFile;
    if (!TakeSelectedGroup(dialog, kMatrixGroups)) return;
    if (LoadGroup(dialog) == GroupReading::Whole) return;
    SetCurrentGroup(kMatrixGroups, old_group);
    SelectCurrentGroup(dialog, kMatrixGroups);
}

/// Saves the elements as a new group, and goes on with that.
void AddMatrixGroup(WindowHandle dialog) {
    if (!AddGroup(dialog, kMatrixGroups, SaveMatrixGroup)) return;
    CurrentMatrixGroup.IsWriteable = true;
    CurrentMatrixGroup.IsDirty = false;
}

void DeleteMatrixGroup(WindowHandle dialog) {
    if (!CurrentMatrixGroup.IsWriteable) return ShowMessage(dialog, kNotDeletable);
    if (!DeleteCurrentGroup(dialog, kMatrixGroups)) return;
    // The elements of the group that is gone must not stay for OK to write them over
    // the one that follows it.
    CurrentMatrixGroup = {};
    FreeMatrixElements(dialog);
    LoadGroup(dialog);
}

/// The picture at 24 bits, a new one owned by the caller, or null.
ImageHandle CopyAt24Bits(ImageHandle image) {
    MatrixTile tile{};
    {
        const LockedImage source(image);
        if (!source) return nullptr;
        tile.TargetRect = {0, 0, source->Width, source->Height};
    }
    tile.Image = image;
    return RenderMatrixTile(tile);
}

/// Asks the host for a picture. Returns a copy, owned by the caller, or null after
/// telling the user of a failure.
ImageHandle ImportPicture(WindowHandle dialog) {
    char path[512] = "";
    const auto owner = static_cast<std::int64_t>(reinterpret_cast<std::intptr_t>(dialog));
    if (CurrentHost == nullptr ||
        CallHost(CurrentHost, nullptr, HostOp::ChooseImageFile, owner, path) == 0)
        return nullptr;
    const std::int64_t answer = CallHost(CurrentHost, nullptr, HostOp::LoadImageFile, 0, path);
    const OwnedBlock loaded(reinterpret_cast<ImageHandle>(static_cast<std::intptr_t>(answer)));
    if (!IsWholePicture(loaded.Get())) {
        ShowMessage(dialog, LoadStringText(StringId::ErrorReadingFile));
        return nullptr;
    }
    bool is_too_large = true;
    if (const LockedImage image(loaded.Get()); image)
        is_too_large = IsTooLargeForTile(*image.Get());
    if (is_too_large) {
        ShowMessage(dialog, kTooLarge);
        return nullptr;
    }
    const ImageHandle copy = CopyAt24Bits(loaded.Get());
    if (copy == nullptr) ShowMessage(dialog, LoadStringText(StringId::MemoryError));
    return copy;
}

void AddElement(WindowHandle dialog) {
    if (!CurrentMatrixGroup.IsWriteable) return ShowMessage(dialog, kNotWriteable);
    OwnedBlock element(ImportPicture(dialog));
    if (!element) return;
    if (AddMatrixElement(dialog, element.Get()) == 0) return ShowMessage(dialog, kNotAdded);
    static_cast<void>(element.Release());  // the list owns it now
    CurrentMatrixGroup.IsDirty = true;
    UpdateDeleteButton(dialog);
}

void DeleteElement(WindowHandle dialog) {
    const int index = SelectedElement(dialog);
    if (index < 0) return;
    if (!CurrentMatrixGroup.IsWriteable) return ShowMessage(dialog, kNotWriteable);
    DeleteMatrixElement(dialog, index);
    CurrentMatrixGroup.IsDirty = true;
    // Behind the last element there is none to select.
    SelectElement(dialog, index < platform::ItemCount(dialog, kMatrixElementList) ? index : -1);
}

void Open(WindowHandle dialog) {
    for (const int button : {kOkButton, kCancelButton, kHelpButton, kAdd, kDelete})
        SkinButton(dialog, button);
    CurrentMatrixGroup = {};
    platform::InstallControl(dialog, kMatrixElementList, "", MatrixListProcedure);
    platform::SetListItemSize(dialog, kMatrixElementList, {kMatrixElementSide, kMatrixElementSide});
    LoadGroup(dialog);
    platform::SetSelection(dialog, kMatrixElementList,
                           platform::ItemCount(dialog, kMatrixElementList) > 0 ? 0 : -1);
    ListGroups(dialog, kMatrixGroups);
    UpdateSizeText(dialog);
    UpdateDeleteButton(dialog);
    platform::CenterOnScreen(dialog);
}

void Accept(WindowHandle dialog) {
    if (CurrentMatrixGroup.IsDirty) {
        int is_saved = 0;
        {
            const platform::WaitCursor wait;
            is_saved = SaveMatrixGroup(dialog);
        }
        if (is_saved == 0) ShowMessage(dialog, LoadStringText(StringId::ErrorWritingFile));
    }
    platform::EndDialog(dialog, 1);
}

void OnCommand(WindowHandle dialog, int id, Notification notification) {
    switch (id) {
        case kOkButton:
            return Accept(dialog);
        case kCancelButton:
            return platform::EndDialog(dialog, 0);
        case kHelpButton:
            return ShowHelp(dialog, "TILE");
        case kAdd:
            return platform::IsShiftHeld() ? AddMatrixGroup(dialog) : AddElement(dialog);
        case kDelete:
            return platform::IsShiftHeld() ? DeleteMatrixGroup(dialog) : DeleteElement(dialog);
        case kMatrixElementList:
            if (notification == Notification::ListSelected) TakeSelection(dialog);
            if (notification == Notification::ListDoubleClicked) Accept(dialog);
            return;
        case kGroups:
            if (notification == Notification::ComboClosed) ChooseGroup(dialog);
            return;
        default:
            return;
    }
}

std::intptr_t MatrixDialogProcedure(WindowHandle dialog, std::uint32_t message, std::uintptr_t w,
                                    std::intptr_t) {
    switch (message) {
        case platform::kMessageOpen:
            Open(dialog);
            return 1;
        case platform::kMessageCommand:
            OnCommand(dialog, platform::CommandId(w), platform::CommandNotification(w));
            return 1;
        case platform::kMessageDestroy:
            FreeMatrixElements(dialog);
            return 1;
        default:
            return 0;
    }
}

}  // namespace

int EditMatrixTile(WindowHandle owner, MatrixTile* tile) {
    MatrixTile copy = *tile;
    if (tile->Image != nullptr) {
        copy.Image = DuplicateImage(tile->Image);
        if (copy.Image == nullptr) {
            ShowMessage(owner, LoadStringText(StringId::MemoryError));
            return 0;
        }
    }
    working_tile = &copy;
    const std::intptr_t result =
        platform::RunDialog(kMatrixDialogTemplate, owner, MatrixDialogProcedure, nullptr);
    working_tile = nullptr;
    if (result != 1) {
        platform::FreeBlock(copy.Image);
        return 0;
    }
    platform::FreeBlock(tile->Image);
    *tile = copy;
    return 1;
}

ImageHandle RenderMatrixPreview(WindowHandle dialog) {
    constexpr int kEdge = 2;
    if (working_tile == nullptr) return nullptr;
    const platform::PixelSize size =
        platform::ClientSize(platform::Control(dialog, kMatrixPreview));
    MatrixTile shown = *working_tile;
    shown.TargetRect = {kEdge, kEdge, size.Width - kEdge, size.Height - kEdge};
    return RenderMatrixTile(shown);
}

std::intptr_t MatrixListProcedure(WindowHandle list, std::uint32_t message, std::uintptr_t w,
                                  std::intptr_t l) {
    return platform::CallOriginal(list, message, w, l);
}

void ShowMatrixElementMenu(WindowHandle dialog, int index) {
    if (index < 0 || index >= platform::ItemCount(dialog, kMatrixElementList)) return;
    SelectElement(dialog, index);
    const platform::MenuItem items[] = {{kDelete, "&Delete"}};
    platform::ShowPopupMenu(dialog, items);
}

}  // namespace tess
