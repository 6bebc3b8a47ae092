#include "fills/fountain_library_dialog.h"

#include <algorithm>

#include "controls/help.h"
#include "controls/skinned_button.h"
#include "fills/fountain_library.h"
#include "platform/list_box.h"
#include "platform/screen.h"
#include "shell/control_contract.h"

namespace tess {

namespace {

using platform::MemoryHandle;
using platform::OwnedBlock;
using platform::WindowHandle;

void FreeEntry(MemoryHandle entry) {
    const OwnedBlock owner(entry);
    if (const LockedFountain fountain(entry); fountain) platform::FreeBlock(fountain->Preview);
}

/// Returns a block with the entry's colours and a preview, or null.
MemoryHandle NewEntry(const FountainLibraryEntry& colors, int width) {
    OwnedBlock block(platform::AllocateBlock(sizeof(Fountain)));
    {
        const LockedFountain fountain(block.Get());
        if (!fountain) return nullptr;
        TakeColors(colors, fountain);
        fountain->Preview = RenderFountainImage(*fountain.Get(), width, kLibraryPreviewHeight);
        if (fountain->Preview == nullptr) return nullptr;
    }
    return block.Release();
}

MemoryHandle EntryAt(WindowHandle dialog, int index) {
    return static_cast<MemoryHandle>(platform::ListItemData(dialog, kLibraryList, index));
}

void FreeAllEntries(WindowHandle dialog) {
    while (platform::ItemCount(dialog, kLibraryList) > 0) {
        FreeEntry(EntryAt(dialog, 0));
        platform::DeleteListItem(dialog, kLibraryList, 0);
    }
}

void EnableDelete(WindowHandle dialog) {
    platform::EnableControl(dialog, kDeleteEntryButton,
                            platform::ItemCount(dialog, kLibraryList) > 0 &&
                                platform::Selection(dialog, kLibraryList) >= 0);
}

void DeleteSelectedEntry(WindowHandle dialog) {
    const int index = platform::Selection(dialog, kLibraryList);
    if (index < 0) return;
    FreeEntry(EntryAt(dialog, index));
    platform::DeleteListItem(dialog, kLibraryList, index);
    platform::SetSelection(dialog, kLibraryList,
                           std::min(index, platform::ItemCount(dialog, kLibraryList) - 1));
    EnableDelete(dialog);
}

/// Puts an entry before the one at `target`, which is another.
void MoveEntry(WindowHandle dialog, int index, int target) {
    const std::string text = platform::ItemText(dialog, kLibraryList, index);
    const MemoryHandle entry = EntryAt(dialog, index);
    if (platform::InsertListItem(dialog, kLibraryList, target, text, entry) < 0) return;
    platform::DeleteListItem(dialog, kLibraryList, target < index ? index + 1 : index);
    platform::SetSelection(dialog, kLibraryList, target);
    EnableDelete(dialog);
}

int DraggedEntry(WindowHandle list) {
    return static_cast<int>(reinterpret_cast<std::intptr_t>(platform::UserData(list))) - 1;
}

void SetDraggedEntry(WindowHandle list, int index) {
    platform::SetUserData(list, reinterpret_cast<void*>(std::intptr_t{index} + 1));
}

bool IsDragging(WindowHandle list) {
    return DraggedEntry(list) >= 0 && platform::HasMouse(list);
}

int ItemUnder(WindowHandle list, std::intptr_t place) {
    return platform::ListItemAt(platform::ParentDialog(list), platform::ControlId(list),
                                platform::MouseX(place), platform::MouseY(place));
}

void ShowDragPointer(WindowHandle list, std::intptr_t place) {
    const platform::PixelSize size = platform::ClientSize(list);
    const int x = platform::MouseX(place), y = platform::MouseY(place);
    const bool is_over = x >= 0 && x < size.Width && y >= 0 && y < size.Height;
    platform::CallOriginal(list, ShowLibraryDragPointer, is_over ? 1 : 0, 0);
}

/// After the list's own handling, which has selected the entry.
void StartDrag(WindowHandle list, std::intptr_t place) {
    const int index = ItemUnder(list, place);
    SetDraggedEntry(list, index);
    if (index >= 0) platform::CaptureMouse(list);
}

void Drop(WindowHandle list, int index, std::intptr_t place) {
    const int target = ItemUnder(list, place);
    if (target >= 0 && target != index) MoveEntry(platform::ParentDialog(list), index, target);
}

void Open(WindowHandle dialog, Fountain* colors) {
    constexpr int kEntryWidth = 170;
    platform::SetUserData(dialog, colors);
    for (const int button : {kOkButton, kCancelButton, kHelpButton, kDeleteEntryButton})
        SkinButton(dialog, button);
    platform::SetListItemSize(dialog, kLibraryList, {kEntryWidth, kLibraryItemHeight});
    platform::CenterOnScreen(dialog);
    if (LoadFountainLibrary(dialog, kEntryWidth - platform::ScrollBarWidth()) == 0) {
        ShowMessage(dialog, "There has been an error loading the fountain library.");
        platform::PostCommand(dialog, kCancelButton);
    }
    platform::SetSelection(dialog, kLibraryList, 0);
    platform::InstallControl(dialog, kLibraryList, "", LibraryListProcedure);
    EnableDelete(dialog);
}

/// Writes what the list holds, in its order. Returns 0 with the old file in its place.
int WriteList(WindowHandle dialog) {
    const auto count = static_cast<std::size_t>(platform::ItemCount(dialog, kLibraryList));
    FountainLibraryEntries entries(count);
    if (!entries && count > 0) return 0;
    for (std::size_t i = 0; i < count; ++i) {
        const LockedFountain fountain(EntryAt(dialog, static_cast<int>(i)));
        if (!fountain) return 0;
        entries[i] = EntryOf(*fountain.Get());
    }
    return WriteFountainLibrary(FountainLibraryPath(), entries.data(), count);
}

void Accept(WindowHandle dialog) {
    if (WriteList(dialog) == 0) {
        ShowMessage(dialog, "There has been an error updating the fountain library.");
    }
    const int index = platform::Selection(dialog, kLibraryList);
    auto* colors = static_cast<Fountain*>(platform::UserData(dialog));
    if (const LockedFountain entry(index < 0 ? nullptr : EntryAt(dialog, index)); entry) {
        TakeColors(EntryOf(*entry.Get()), colors);
    }
    platform::EndDialog(dialog, 1);
}

std::intptr_t Command(WindowHandle dialog, int id, platform::Notification notification) {
    switch (id) {
        case kOkButton:
            Accept(dialog);
            return 1;
        case kCancelButton:
            platform::EndDialog(dialog, 0);
            return 1;
        case kHelpButton:
            ShowHelp(dialog, "FOUNTAIN");
            return 1;
        case kDeleteEntryButton:
            DeleteSelectedEntry(dialog);
            return 1;
        case kLibraryList:
            if (notification == platform::Notification::ListDoubleClicked) {
                Accept(dialog);
            } else if (notification == platform::Notification::ListSelected) {
                EnableDelete(dialog);
            }
            return 1;
        default:
            return 0;
    }
}

std::intptr_t FountainLibraryProcedure(WindowHandle dialog, std::uint32_t message, std::uintptr_t w,
                                       std::intptr_t l) {
    switch (message) {
        case platform::kMessageOpen:
            Open(dialog, reinterpret_cast<Fountain*>(l));
            return 1;
        case platform::kMessageCommand:
            return Command(dialog, platform::CommandId(w), platform::CommandNotification(w));
        case platform::kMessageDestroy:
            FreeAllEntries(dialog);
            return 0;
        default:
            return 0;
    }
}

}  // namespace

int LoadFountainLibrary(WindowHandle dialog, int width) {
    FountainLibraryEntries entries;
    if (ReadFountainLibrary(FountainLibraryPath(), &entries) != LibraryState::Whole) return 0;
    for (const FountainLibraryEntry& colors : entries) {
        const MemoryHandle entry = NewEntry(colors, width);
        if (entry == nullptr || platform::AddListItem(dialog, kLibraryList, "", entry) < 0) {
            if (entry != nullptr) FreeEntry(entry);
            FreeAllEntries(dialog);
            return 0;
        }
    }
    return 1;
}

std::intptr_t LibraryListProcedure(WindowHandle list, std::uint32_t message, std::uintptr_t w,
                                   std::intptr_t l) {
    switch (message) {
        case platform::kMessageLeftButtonDown: {
            const std::intptr_t result = platform::CallOriginal(list, message, w, l);
            StartDrag(list, l);
            return result;
        }
        case platform::kMessageMouseMove:
            // Kept from the list, whose selection would follow the mouse.
            if (!IsDragging(list)) break;
            ShowDragPointer(list, l);
            return 0;
        case platform::kMessageLeftButtonUp: {
            const int index = IsDragging(list) ? DraggedEntry(list) : -1;
            SetDraggedEntry(list, -1);
            const std::intptr_t result = platform::CallOriginal(list, message, w, l);
            if (index < 0) return result;
            platform::ReleaseMouse();
            Drop(list, index, l);
            return result;
        }
        default:
            break;
    }
    return platform::CallOriginal(list, message, w, l);
}

int RunFountainLibraryDialog(WindowHandle owner, Fountain* colors) {
    return platform::RunDialog(kFountainLibraryTemplate, owner, FountainLibraryProcedure, colors) ==
                   1
               ? 1
               : 0;
}

}  // namespace tess
