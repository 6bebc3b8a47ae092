#include "fills/fountain_editing.h"

#include <algorithm>

#include "controls/color_button.h"
#include "fills/fountain_library.h"
#include "fills/fountain_library_dialog.h"
#include "fills/fountain_markers.h"
#include "fills/marker_position_dialog.h"
#include "platform/popup_menu.h"
#include "shell/control_contract.h"
#include "toolkit/color_space.h"

namespace tess {

namespace {

using platform::WindowHandle;

void Tell(WindowHandle control, const char* text) {
    ShowMessage(platform::ParentDialog(control), text);
}

void PostFountainCommand(WindowHandle control) {
    platform::PostCommand(platform::ParentDialog(control), platform::ControlId(control));
}

void PostIndex(WindowHandle control, std::uint32_t message, int index) {
    platform::PostToWindow(control, message, static_cast<std::uintptr_t>(index), 0);
}

bool IsMarker(const Fountain& fountain, int index) {
    return index >= 0 && index < MarkerCount(fountain);
}

bool HasColor(const Fountain& fountain, int index) {
    return index == kFountainStart || index == kFountainEnd || IsMarker(fountain, index);
}

/// The word that holds a colour in its low 24 bits. Requires: there is such a colour.
std::uint32_t ColorField(const Fountain& fountain, int index) {
    if (index == kFountainStart) return fountain.Start;
    return index == kFountainEnd ? fountain.End : fountain.Markers[index];
}

void SetColor(Fountain* fountain, int index, ColorWord color) {
    const std::uint32_t field = (ColorField(*fountain, index) & ~kColorBits) | (color & kColorBits);
    if (index == kFountainStart) {
        fountain->Start = field;
    } else if (index == kFountainEnd) {
        fountain->End = field;
    } else {
        fountain->Markers[index] = field;
    }
}

/// A fountain without markers of its own that has this one's colours.
Fountain ColorsOf(WindowHandle control) {
    Fountain colors{};
    const LockedFountain fountain = LockFountain(control);
    if (fountain) TakeColors(EntryOf(*fountain.Get()), &colors);
    return colors;
}

void AddToLibrary(WindowHandle control) {
    if (AppendToFountainLibrary(ColorsOf(control)) == 0) {
        Tell(control, "There has been an error adding this library entry.");
    }
}

void ManageLibrary(WindowHandle control) {
    Fountain colors = ColorsOf(control);
    RunFountainLibraryDialog(platform::ParentDialog(control), &colors);
    {
        const LockedFountain fountain = LockFountain(control);
        if (!fountain) return;
        TakeColors(EntryOf(colors), fountain);
    }
    RenewPreview(control);
    platform::RepaintControl(platform::ParentDialog(control), platform::ControlId(control));
}

}  // namespace

void RenewPreview(WindowHandle control) {
    const LockedFountain fountain = LockFountain(control);
    if (!fountain) return;
    const FountainBox strip = StripBox(platform::ClientSize(control));
    platform::FreeBlock(fountain->Preview);
    fountain->Preview =
        RenderFountainImage(*fountain.Get(), strip.Right - strip.Left, strip.Bottom - strip.Top);
}

void ShowFountainChange(WindowHandle control) {
    RenewPreview(control);
    platform::RepaintControl(platform::ParentDialog(control), platform::ControlId(control));
    PostFountainCommand(control);
}

ImageHandle DisabledPreview(ImageHandle preview) {
    platform::OwnedBlock copy(DuplicateImage(preview));
    const LockedImage image(copy.Get());
    if (!image) return nullptr;
    for (int y = 0; y < image->Height; ++y) {
        for (int x = 0; x < image->Width; ++x) {
            HsvColor hsv;
            ColorToHsv(&hsv, GetDibPixel(image, x, y));
            hsv.Hue += 1.0;
            hsv.Saturation *= 0.5;
            SetDibPixel(image, x, y, HsvToColor(&hsv));
        }
    }
    return copy.Release();
}

void ChooseMarkerColor(WindowHandle control, int index) {
    ColorWord color = 0;
    {
        const LockedFountain fountain = LockFountain(control);
        if (!fountain) return;
        if (index == kFountainEnd && (fountain->Flags & kFountainLooped) != 0) return;
        if (!HasColor(*fountain.Get(), index)) return Tell(control, "Internal error");
        color = ColorField(*fountain.Get(), index) & kColorBits;
    }
    if (ChooseColor(platform::ParentDialog(control), &color) == 0) return;
    {
        const LockedFountain fountain = LockFountain(control);
        if (!fountain || !HasColor(*fountain.Get(), index)) return;
        SetColor(fountain, index, color);
    }
    ShowFountainChange(control);
}

void AddMarker(WindowHandle control, int position) {
    constexpr ColorWord kGray = 0x808080;
    position = std::clamp(position, 0, 255);
    {
        const LockedFountain fountain = LockFountain(control);
        if (!fountain) return;
        if (FindFreeMarkerPosition(*fountain.Get(), &position) == 0) {
            return Tell(control, "No more marker space is available. Delete an existing marker.");
        }
    }
    ColorWord color = kGray;
    if (ChooseColor(platform::ParentDialog(control), &color) == 0) return;
    {
        const LockedFountain fountain = LockFountain(control);
        if (!fountain || FindFreeMarkerPosition(*fountain.Get(), &position) == 0) return;
        InsertMarker(fountain, MakeMarker(position, color));
    }
    ShowFountainChange(control);
}

void DeleteMarker(WindowHandle control, int index) {
    {
        const LockedFountain fountain = LockFountain(control);
        if (!fountain) return;
        if (fountain->Count == 0) return Tell(control, "That marker cannot be deleted");
        if (!IsMarker(*fountain.Get(), index)) return Tell(control, "Internal error");
        RemoveMarker(fountain, index);
    }
    ShowFountainChange(control);
}

void AdjustMarker(WindowHandle control, int index) {
    int position = 0;
    {
        const LockedFountain fountain = LockFountain(control);
        if (!fountain || !IsMarker(*fountain.Get(), index)) return;
        position = MarkerPosition(fountain->Markers[index]);
    }
    RunMarkerPositionDialog(platform::ParentDialog(control), &position);
    {
        const LockedFountain fountain = LockFountain(control);
        if (!fountain || !IsMarker(*fountain.Get(), index)) return;
        fountain->Markers[index] = MakeMarker(position, MarkerColor(fountain->Markers[index]));
        SortMarkers(fountain, fountain->Count);
    }
    ShowFountainChange(control);
}

void MoveSelectedMarker(WindowHandle control, int position) {
    int index = -1;
    FountainMarker old_marker = 0;
    {
        const LockedFountain fountain = LockFountain(control);
        if (!fountain || !IsMarker(*fountain.Get(), fountain->Selected)) return;
        index = fountain->Selected;
        old_marker = fountain->Markers[index];
    }
    platform::SendToWindow(control, DeleteFountainMarker, static_cast<std::uintptr_t>(index), 0);
    const LockedFountain fountain = LockFountain(control);
    if (!fountain || MarkerCount(*fountain.Get()) == kFountainMarkers) return;
    // A search that would never end finds no space; the marker is not lost then.
    const bool is_free = FindFreeMarkerPosition(*fountain.Get(), &position) != 0;
    InsertMarker(fountain, is_free ? MakeMarker(position, MarkerColor(old_marker)) : old_marker);
}

void ShowMarkerMenu(WindowHandle control, int index, int x, int y) {
    {
        const LockedFountain fountain = LockFountain(control);
        if (!fountain) return;
        fountain->Selected = index;
    }
    constexpr platform::MenuItem kItems[] = {{kDeleteMarkerCommand, "Delete marker"},
                                             {kChangeColorCommand, "Change color"},
                                             {kAdjustPositionCommand, "Adjust position"}};
    if (index >= 0) platform::ShowPopupMenuAt(control, kItems, x, y);
}

void ShowLibraryMenu(WindowHandle control, int x, int y) {
    constexpr platform::MenuItem kItems[] = {{kAddToLibraryCommand, "Add to library"},
                                             {kManageLibraryCommand, "Manage library"}};
    platform::ShowPopupMenuAt(control, kItems, x, y);
}

bool DoFountainCommand(WindowHandle control, int command) {
    int selected = -1;
    if (const LockedFountain fountain = LockFountain(control); fountain) {
        selected = fountain->Selected;
    }
    switch (command) {
        case kDeleteMarkerCommand:
            PostIndex(control, DeleteFountainMarker, selected);
            break;
        case kChangeColorCommand:
            PostIndex(control, ChooseFountainColor, selected);
            break;
        case kAdjustPositionCommand:
            PostIndex(control, AdjustFountainMarker, selected);
            break;
        case kAddToLibraryCommand:
            AddToLibrary(control);
            break;
        case kManageLibraryCommand:
            ManageLibrary(control);
            break;
        default:
            return false;
    }
    PostFountainCommand(control);
    return true;
}

}  // namespace tess
