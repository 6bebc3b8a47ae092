// The resource section and the tables are made from the same scripts by two
// compilers; here each is held against the other.

#include <windows.h>
#include <algorithm>
#include <gtest/gtest.h>
#include <string>

#include "platform/dialog.h"
#include "platform/resource_tables.h"
#include "platform/win32/dialog_run.h"
#include "platform/win32/module.h"

namespace {

using platform::DialogTemplate;
using platform::TemplateControl;

/// The bits of a style that a resource tells; the system sets others as it makes
/// the control.
DWORD ToldStyle(HWND control) {
    return static_cast<DWORD>(GetWindowLongPtrA(control, GWL_STYLE)) & ~DWORD{WS_CLIPSIBLINGS};
}

/// A dialog made by the system, never shown.
class SystemDialog {
public:
    explicit SystemDialog(const DialogTemplate& dialog) {
        platform::RegisterCommonControls();
        const std::string name(dialog.name);
        window_ = CreateDialogParamA(
            platform::Module(), name.empty() ? MAKEINTRESOURCEA(dialog.id) : name.c_str(), nullptr,
            [](HWND, UINT, WPARAM, LPARAM) -> INT_PTR { return FALSE; }, 0);
    }
    SystemDialog(const SystemDialog&) = delete;
    SystemDialog& operator=(const SystemDialog&) = delete;
    ~SystemDialog() { DestroyWindow(window_); }
    [[nodiscard]] HWND Window() const { return window_; }

private:
    HWND window_;
};

void ExpectSame(HWND dialog, HWND control, const TemplateControl& expected) {
    EXPECT_EQ(GetDlgCtrlID(control), expected.id);
    std::string window_class(expected.window_class);
    CharUpperA(window_class.data());
    EXPECT_EQ(platform::ControlClass(platform::HandleOf(control)), window_class) << expected.id;
    EXPECT_EQ(platform::Title(platform::HandleOf(control)), expected.text) << expected.id;
    // What controls do themselves is theirs: a border becomes an edge, a scroll bar
    // moves into the list, a list's height snaps to its lines, and an up-down has a
    // least width.
    constexpr DWORD kIgnored = WS_BORDER | WS_VSCROLL | WS_HSCROLL;
    EXPECT_EQ(ToldStyle(control) & ~kIgnored, expected.style & ~kIgnored) << expected.id;
    if (window_class == "COMBOBOX" || window_class == "LISTBOX") return;
    // A control's place and its size are each rounded to pixels, whatever the font.
    RECT box = {expected.x, expected.y, expected.width, expected.height};
    MapDialogRect(dialog, &box);
    box.right += box.left;
    box.bottom += box.top;
    RECT real;
    GetWindowRect(control, &real);
    MapWindowPoints(nullptr, dialog, reinterpret_cast<POINT*>(&real), 2);
    if (window_class == "MSCTLS_UPDOWN32") box.right = std::max(box.right, real.right);
    EXPECT_TRUE(EqualRect(&box, &real))
        << expected.id << ": " << real.left << "," << real.top << "," << real.right << ","
        << real.bottom << " for " << box.left << "," << box.top << "," << box.right << ","
        << box.bottom;
}

TEST(ResourceSection, DialogsAreThoseOfTheTables) {
    ASSERT_FALSE(platform::kResourceTables.dialogs.empty());
    for (const DialogTemplate& expected : platform::kResourceTables.dialogs) {
        SCOPED_TRACE(std::to_string(expected.id) + std::string(expected.name));
        const SystemDialog dialog(expected);
        ASSERT_NE(dialog.Window(), nullptr);
        EXPECT_EQ(platform::Title(platform::HandleOf(dialog.Window())), expected.caption);
        HWND control = GetWindow(dialog.Window(), GW_CHILD);
        for (const TemplateControl& row : expected.controls) {
            ASSERT_NE(control, nullptr);
            ExpectSame(dialog.Window(), control, row);
            control = GetWindow(control, GW_HWNDNEXT);
        }
        EXPECT_EQ(control, nullptr);
    }
}

TEST(ResourceSection, StringsAreThoseOfTheTables) {
    ASSERT_FALSE(platform::kResourceTables.strings.empty());
    for (const platform::StringResource& expected : platform::kResourceTables.strings) {
        char text[1024] = "";
        LoadStringA(platform::Module(), static_cast<UINT>(expected.id), text, sizeof text);
        EXPECT_EQ(text, expected.text) << expected.id;
    }
}

TEST(ResourceSection, DataAreThoseOfTheTables) {
    for (const platform::DataResource& expected : platform::kResourceTables.data) {
        const std::string name(expected.name);
        const char* key = name.empty() ? MAKEINTRESOURCEA(expected.id) : name.c_str();
        HRSRC resource = FindResourceA(platform::Module(), key, RT_RCDATA);
        if (resource == nullptr) resource = FindResourceA(platform::Module(), key, RT_BITMAP);
        ASSERT_NE(resource, nullptr) << expected.id << name;
        const DWORD size = SizeofResource(platform::Module(), resource);
        const auto* bytes = static_cast<const unsigned char*>(
            LockResource(LoadResource(platform::Module(), resource)));
        EXPECT_TRUE(std::equal(bytes, bytes + size, expected.bytes.begin(), expected.bytes.end()))
            << expected.id << name;
    }
}

}  // namespace
