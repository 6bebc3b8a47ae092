// A picker in its panel, in the program's own dialog.

#include <windows.h>

#include "controls/direction_picker.h"
#include "platform/win32/views.h"
#include "shell/window_views.h"
#include "tests/shell/main_dialog_fixture.h"
#include "tests/windows/window_picture.h"

namespace tess::test {

namespace {

using platform::WindowHandle;

class PanelPickerTest : public MainDialogTest {
protected:
    PanelPickerTest() { InstallWindowViews(); }

    /// Shows a style's panel and returns its picker.
    static HWND ShowPicker(WindowHandle dialog, int style, int id) {
        platform::ChooseItem(dialog, kEffectList, style);
        return platform::WindowOf(platform::Control(dialog, id));
    }
    static int IndexOf(std::string_view name) {
        int index = 0;
        while (index < kStyleCount && name != StyleTable[index]->Name)
            ++index;
        return index;
    }
};

TEST_F(PanelPickerTest, ClickTurnsTheStyleAndRepaintsTheSampleOnce) {
    InDialog([](WindowHandle dialog) {
        HWND picker = ShowPicker(dialog, IndexOf("Hyperspace"), 149);
        const int repaints = platform::RepaintCount(dialog, kSampleBox);
        SendMessageA(picker, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(5, 5));
        SendMessageA(picker, WM_LBUTTONUP, 0, MAKELPARAM(5, 5));
        EXPECT_EQ(SelectedDirection(dialog, 149), 0u);
        EXPECT_EQ(platform::RepaintCount(dialog, kSampleBox), repaints + 1);
    });
    InDialog([](WindowHandle dialog) { EXPECT_EQ(SelectedDirection(dialog, 149), 0u); });
}

TEST_F(PanelPickerTest, EveryPickerIsAsLargeAsItsCellsAndCoversNothing) {
    InDialog([](WindowHandle dialog) {
        for (const StyleEntry* style : StyleTable) {
            const std::vector<int> panel = ControlList(*style);
            for (const StyleParameter& parameter : style->Parameters) {
                const WindowHandle control = platform::Control(dialog, parameter.ControlId);
                const PickerLayout* layout = FindPickerLayout(platform::ControlTag(control));
                if (layout == nullptr) continue;
                RECT box;
                GetWindowRect(platform::WindowOf(control), &box);
                EXPECT_EQ(box.right - box.left, CellsEnd(*layout).Left) << parameter.Key;
                EXPECT_EQ(box.bottom - box.top, CellsEnd(*layout).Top) << parameter.Key;
                for (const int id : panel) {
                    RECT other, both;
                    GetWindowRect(platform::WindowOf(platform::Control(dialog, id)), &other);
                    const bool is_over = IntersectRect(&both, &box, &other) != FALSE;
                    EXPECT_EQ(is_over, id == parameter.ControlId) << parameter.Key << " " << id;
                }
            }
        }
    });
}

TEST_F(PanelPickerTest, PickerLeavesNothingOfThePanelBefore) {
    InDialog([](WindowHandle dialog) {
        ShowPicker(dialog, IndexOf("Wavelet"), 765);
        UpdateWindow(platform::WindowOf(dialog));
        const WindowPicture picture(ShowPicker(dialog, IndexOf("Fountain"), 272));
        picture.Keep("panel_fountain_picker");
        EXPECT_EQ(picture.At(5, 5), GetSysColor(COLOR_BTNFACE));
        WindowPicture(platform::WindowOf(dialog)).Keep("panel_fountain");
    });
}

}  // namespace

}  // namespace tess::test
