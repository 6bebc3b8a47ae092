#include "shell/value_controls.h"

#include <algorithm>
#include <cinttypes>
#include <cstdio>
#include <cstring>
#include <string>
#include <string_view>

#include "controls/color_button.h"
#include "controls/control_line.h"
#include "controls/spinner.h"
#include "shell/control_contract.h"

namespace tess {

namespace {

using platform::Notification;
using platform::WindowHandle;

/// A control as its dialog and id, which is how its state is reached.
struct ControlPlace {
    WindowHandle dialog;
    int id;
    void* binding;
};

ControlPlace PlaceOf(WindowHandle control) {
    return {platform::ParentDialog(control), platform::ControlId(control),
            platform::UserData(control)};
}

void StoreNumber(const ControlPlace& place, std::uint32_t value) {
    if (place.binding != nullptr) *static_cast<std::uint32_t*>(place.binding) = value;
}

void StoreText(const ControlPlace& place, std::string_view text) {
    if (place.binding == nullptr) return;
    const std::size_t length = text.copy(static_cast<char*>(place.binding), kBoundTextBytes - 1);
    static_cast<char*>(place.binding)[length] = '\0';
}

/// What a kind of control does: how it updates its variable, writes its value and
/// takes one from a line.
struct ValueKind {
    const char* tag;
    void (*update)(const ControlPlace& place);
    void (*write)(const ControlPlace& place, std::FILE* stream);
    void (*read)(const ControlPlace& place, const char* value);
};

void UpdateColor(const ControlPlace& place) {
    StoreNumber(place, platform::ControlNumber(place.dialog, place.id, false));
}

void UpdateSpinner(const ControlPlace& place) {
    StoreNumber(place, static_cast<std::uint32_t>(GetSpinnerValue(place.dialog, place.id)));
}

void UpdateSignedSpinner(const ControlPlace& place) {
    StoreText(place, std::to_string(GetSpinnerValue(place.dialog, place.id)));
}

void UpdateCheckBox(const ControlPlace& place) {
    StoreNumber(place, platform::IsChecked(place.dialog, place.id) ? 1 : 0);
}

void UpdateChoice(const ControlPlace& place) {
    StoreNumber(place, static_cast<std::uint32_t>(platform::Selection(place.dialog, place.id)));
}

void UpdateFont(const ControlPlace& place) {
    StoreText(place, platform::ControlText(place.dialog, place.id));
}

void WriteColor(const ControlPlace& place, std::FILE* stream) {
    std::fprintf(stream, "%" PRIu32, platform::ControlNumber(place.dialog, place.id, false));
}

void WriteSpinner(const ControlPlace& place, std::FILE* stream) {
    std::fprintf(stream, "%d", GetSpinnerValue(place.dialog, place.id));
}

void WriteCheckBox(const ControlPlace& place, std::FILE* stream) {
    std::fprintf(stream, "%d", platform::IsChecked(place.dialog, place.id) ? 1 : 0);
}

void WriteChoice(const ControlPlace& place, std::FILE* stream) {
    std::fprintf(stream, "%d", platform::Selection(place.dialog, place.id));
}

void WriteFont(const ControlPlace& place, std::FILE* stream) {
    constexpr int kSavedTextBytes = 1024;
    std::fprintf(stream, "%.*s", kSavedTextBytes,
                 platform::ControlText(place.dialog, place.id).c_str());
}

void ReadUnsigned(const ControlPlace& place, const char* value) {
    platform::SetControlNumber(place.dialog, place.id,
                               static_cast<std::uint32_t>(ReadNumber(value)), false);
}

void ReadSigned(const ControlPlace& place, const char* value) {
    platform::SetControlNumber(place.dialog, place.id,
                               static_cast<std::uint32_t>(ReadNumber(value)), true);
}

void ReadCheckBox(const ControlPlace& place, const char* value) {
    platform::SetChecked(place.dialog, place.id, ReadNumber(value) != 0);
}

void ReadChoice(const ControlPlace& place, const char* value) {
    platform::SetSelection(place.dialog, place.id, ReadNumber(value));
}

/// A saved font name is not applied: the box keeps what it shows.
void ReadFont(const ControlPlace&, const char*) {}

constexpr ValueKind kColorButton{kColorButtonTag, UpdateColor, WriteColor, ReadUnsigned};
constexpr ValueKind kSpinner{kSpinnerTag, UpdateSpinner, WriteSpinner, ReadUnsigned};
constexpr ValueKind kSignedSpinner{kSignedSpinnerTag, UpdateSignedSpinner, WriteSpinner,
                                   ReadSigned};
constexpr ValueKind kCheckBox{kCheckBoxTag, UpdateCheckBox, WriteCheckBox, ReadCheckBox};
constexpr ValueKind kChoice{kComboBoxTag, UpdateChoice, WriteChoice, ReadChoice};
constexpr ValueKind kFont{kFontBoxTag, UpdateFont, WriteFont, ReadFont};

template <const ValueKind& Kind>
std::intptr_t ValueProcedure(WindowHandle control, std::uint32_t message, std::uintptr_t w,
                             std::intptr_t l) {
    if (message == SaveControl) {
        const ControlPlace place = PlaceOf(control);
        auto* stream = reinterpret_cast<std::FILE*>(l);
        std::fprintf(stream, "%s%d=", Kind.tag, place.id);
        Kind.write(place, stream);
        std::fputc('\n', stream);
        return 1;
    }
    if (message == LoadControl) {
        const char* value = FindLineValue(reinterpret_cast<const char*>(l), Kind.tag);
        if (value == nullptr) return 0;
        const ControlPlace place = PlaceOf(control);
        Kind.read(place, value);
        Kind.update(place);
        return 1;
    }
    return platform::CallOriginal(control, message, w, l);
}

template <const ValueKind& Kind>
void Install(WindowHandle dialog, int id, void* binding) {
    platform::InstallControl(dialog, id, Kind.tag, ValueProcedure<Kind>);
    platform::SetUserData(platform::Control(dialog, id), binding);
}

std::intptr_t PassThrough(WindowHandle control, std::uint32_t message, std::uintptr_t w,
                          std::intptr_t l) {
    return platform::CallOriginal(control, message, w, l);
}

/// Sets range and position of the up-down from its own caption.
void PrepareUpDown(WindowHandle dialog, int id) {
    constexpr int kUnread = -32767;
    SpinnerRange range{kUnread, -kUnread, kUnread};
    const int read = ReadSpinnerRange(platform::ControlText(dialog, id), &range);
    if (read >= 2) platform::SetUpDownRange(dialog, id, range.minimum, range.maximum);
    if (read >= 3) platform::SetUpDownPosition(dialog, id, range.start);
    platform::InstallControl(dialog, id, "", PassThrough);
}

void FillItems(WindowHandle dialog, int id, std::string_view items) {
    platform::ClearItems(dialog, id);
    while (!items.empty()) {
        const std::size_t end = std::min(items.find(';'), items.size());
        if (end > 0)
            platform::AddItem(dialog, id, items.substr(0, std::min<std::size_t>(end, 260)));
        items.remove_prefix(std::min(end + 1, items.size()));
    }
}

}  // namespace

void BindColorButton(WindowHandle dialog, int id, std::uint32_t* value) {
    Install<kColorButton>(dialog, id, value);
    platform::SetControlNumber(dialog, id, *value, false);
}

void BindSpinner(WindowHandle dialog, int id, std::uint32_t* value) {
    PrepareUpDown(dialog, id + kCompanionOffset);
    platform::SetControlNumber(dialog, id, *value, false);
    Install<kSpinner>(dialog, id, value);
}

void BindSignedSpinner(WindowHandle dialog, int id, char* text) {
    PrepareUpDown(dialog, id + kCompanionOffset);
    platform::SetControlText(dialog, id, text);
    Install<kSignedSpinner>(dialog, id, text);
}

void BindCheckBox(WindowHandle dialog, int id, std::uint32_t* value) {
    platform::SetChecked(dialog, id, *value != 0);
    Install<kCheckBox>(dialog, id, value);
}

void BindChoiceList(WindowHandle dialog, int id, const char* items, std::uint32_t* value) {
    if (items != nullptr) FillItems(dialog, id, items);
    platform::SetSelection(dialog, id, static_cast<int>(*value));
    Install<kChoice>(dialog, id, value);
}

void BindFontBox(WindowHandle dialog, int id, char* text) {
    platform::SetControlText(dialog, id, text);
    Install<kFont>(dialog, id, text);
}

bool UpdateBinding(WindowHandle dialog, int id, Notification notification) {
    const WindowHandle control = platform::Control(dialog, id);
    if (control == nullptr) return false;
    const std::string_view tag = platform::ControlTag(control);
    const ControlPlace place = PlaceOf(control);
    if (tag == kSpinnerTag || tag == kSignedSpinnerTag) {
        if (notification != Notification::EditChanged) return false;
        (tag == kSpinnerTag ? UpdateSpinner : UpdateSignedSpinner)(place);
    } else if (tag == kCheckBoxTag) {
        if (notification != Notification::Clicked) return false;
        UpdateCheckBox(place);
    } else if (tag == kComboBoxTag) {
        // A list box has no list to close: each of its notifications counts.
        const bool is_list = platform::ControlClass(control) == "LISTBOX";
        if (!is_list && notification != Notification::ComboClosed) return false;
        UpdateChoice(place);
    } else if (tag == kFontBoxTag) {
        if (notification != Notification::ComboClosed) return false;
        UpdateFont(place);
    } else if (tag == kColorButtonTag) {
        if (notification != Notification::Clicked) return false;
        auto color = static_cast<ColorWord>(platform::ControlNumber(dialog, id, false));
        if (place.binding != nullptr) color = *static_cast<std::uint32_t*>(place.binding);
        if (ChooseColor(dialog, &color) == 0) return false;
        StoreNumber(place, color);
        platform::SetControlNumber(dialog, id, color, false);
        platform::RepaintControl(dialog, id);
    }
    return true;
}

}  // namespace tess
