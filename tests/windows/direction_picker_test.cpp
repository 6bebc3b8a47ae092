#include "controls/direction_picker.h"

#include "controls/arrow_strip.h"
#include "platform/resources.h"
#include "shell/control_contract.h"
#include "tests/windows/window_test_fixture.h"

namespace tess::test {

namespace {

using platform::WindowHandle;

constexpr int kPicker = 300;

class PickerWindowTest : public WindowTest {
protected:
    void WithPicker(const char* tag, const std::function<void(WindowHandle, HWND)>& action) {
        WithMainDialog([&](WindowHandle dialog) {
            HWND picker = AddButton(dialog, kPicker, 77, 77);
            BindDirectionPicker(dialog, kPicker, tag, &variable);
            log.clear();
            action(dialog, picker);
        });
    }

    /// What is in the cell at (left, top): whether it is drawn as the selected one.
    static bool LooksSelected(const WindowPicture& picture, const PickerCell& cell) {
        return picture.At(cell.Left, cell.Top) == GetSysColor(COLOR_3DDKSHADOW) &&
               picture.At(cell.Left + 1, cell.Top + 1) == GetSysColor(COLOR_BTNSHADOW);
    }

    std::uint32_t variable = 1;
};

TEST_F(PickerWindowTest, ClickInEachCellSetsTextVariableAndLookAndNotifiesTheDialog) {
    for (const char* tag : {kShadowDirectionTag, kScroll4Tag, kScroll2Tag, kScrollHvTag}) {
        const PickerLayout& layout = *FindPickerLayout(tag);
        WithPicker(tag, [&](WindowHandle dialog, HWND picker) {
            for (std::size_t i = 0; i < layout.Cells.size(); ++i) {
                log.clear();
                Click(picker, layout.Cells[i].Left + 12, layout.Cells[i].Top + 12);
                EXPECT_EQ(platform::ControlText(dialog, kPicker), std::to_string(i));
                EXPECT_EQ(variable, i);
                EXPECT_EQ(log, std::vector<std::string>{"300/0"});
                const WindowPicture picture(picker);
                picture.Keep(std::string("picker_") + tag + "_" + std::to_string(i));
                for (std::size_t j = 0; j < layout.Cells.size(); ++j)
                    EXPECT_EQ(LooksSelected(picture, layout.Cells[j]), i == j) << tag << i << j;
                InvalidateRect(picker, nullptr, FALSE);
                EXPECT_EQ(WindowPicture(picker), picture);
            }
        });
    }
}

TEST_F(PickerWindowTest, MouseIsCapturedBetweenDownAndUp) {
    WithPicker(kScroll2Tag, [](WindowHandle, HWND picker) {
        MouseDown(picker, 5, 5);
        EXPECT_EQ(GetCapture(), picker);
        MouseUp(picker, 5, 5);
        EXPECT_EQ(GetCapture(), nullptr);
    });
}

TEST_F(PickerWindowTest, SecondOfTwoQuickPressesPicks) {
    WithPicker(kScroll2Tag, [this](WindowHandle, HWND picker) {
        Click(picker, 5, 5);
        SendMessageA(picker, WM_LBUTTONDBLCLK, MK_LBUTTON, MAKELPARAM(30, 5));
        MouseUp(picker, 30, 5);
        EXPECT_EQ(variable, 1u);
        EXPECT_EQ(log, (std::vector<std::string>{"300/0", "300/0"}));
    });
}

TEST_F(PickerWindowTest, ArrowStandsTwoPixelsInAndOneMoreWhereSelected) {
    WithPicker(kScroll2Tag, [](WindowHandle, HWND picker) {
        BitmapFile strip;
        ASSERT_TRUE(OpenBitmapFile(platform::FindData(7106), &strip));
        const WindowPicture picture(picker);
        for (int y = 0; y < kArrowSize; ++y) {
            for (int x = 0; x < kArrowSize; ++x) {
                ASSERT_EQ(picture.At(2 + x, 2 + y),
                          BlendedPixel(strip, 2 + x, 2 + y, GetSysColor(COLOR_BTNFACE)));
                ASSERT_EQ(picture.At(25 + 3 + x, 3 + y),
                          BlendedPixel(strip, 24 + 2 + x, 2 + y, GetSysColor(COLOR_BTNSHADOW)));
            }
        }
    });
}

TEST_F(PickerWindowTest, PlaceWithoutCellsShowsTheDialogsBackground) {
    WithPicker(kShadowDirectionTag, [](WindowHandle, HWND picker) {
        EXPECT_EQ(WindowPicture(picker).At(37, 37), GetSysColor(COLOR_BTNFACE));
    });
}

TEST_F(PickerWindowTest, LoadedIndexIsShownAtOnce) {
    WithPicker(kScroll4Tag, [](WindowHandle dialog, HWND picker) {
        const WindowPicture before(picker);
        EXPECT_EQ(platform::SendToWindow(platform::Control(dialog, kPicker), LoadControl, 0,
                                         reinterpret_cast<std::intptr_t>("SCRL4D300=3")),
                  1);
        const WindowPicture after(picker);
        EXPECT_TRUE(LooksSelected(before, {50, 25}));
        EXPECT_TRUE(LooksSelected(after, {25, 50}));
        EXPECT_FALSE(LooksSelected(after, {50, 25}));
    });
}

}  // namespace

}  // namespace tess::test
