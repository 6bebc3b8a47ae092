#include "controls/direction_picker.h"

#include "platform/memory.h"
#include "tests/controls/picker_fixture.h"

namespace tess::test {

namespace {

using platform::WindowHandle;

int CellAt(const char* tag, int x, int y) {
    return tess::CellAt(*FindPickerLayout(tag), x, y);
}

TEST(PickerLayout, ShadowDirectionsGoAroundTheirEmptyMiddle) {
    EXPECT_EQ(CellAt("SDWDIR", 5, 5), 0);
    EXPECT_EQ(CellAt("SDWDIR", 30, 5), 1);
    EXPECT_EQ(CellAt("SDWDIR", 55, 5), 2);
    EXPECT_EQ(CellAt("SDWDIR", 55, 30), 3);
    EXPECT_EQ(CellAt("SDWDIR", 5, 30), 4);
    EXPECT_EQ(CellAt("SDWDIR", 5, 55), 5);
    EXPECT_EQ(CellAt("SDWDIR", 30, 55), 6);
    EXPECT_EQ(CellAt("SDWDIR", 55, 55), 7);
    EXPECT_EQ(CellAt("SDWDIR", 30, 30), -1);
}

TEST(PickerLayout, ScrollDirectionsAreUpRightLeftDown) {
    EXPECT_EQ(CellAt("SCRL4D", 30, 5), 0);
    EXPECT_EQ(CellAt("SCRL4D", 55, 30), 1);
    EXPECT_EQ(CellAt("SCRL4D", 5, 30), 2);
    EXPECT_EQ(CellAt("SCRL4D", 30, 55), 3);
    EXPECT_EQ(CellAt("SCRL4D", 5, 5), -1);
}

TEST(PickerLayout, TwoWaysLieInARowAndAxesAcross) {
    EXPECT_EQ(CellAt("SCRL2D", 5, 5), 0);
    EXPECT_EQ(CellAt("SCRL2D", 30, 5), 1);
    EXPECT_EQ(CellAt("SCRLHV", 5, 30), 0);
    EXPECT_EQ(CellAt("SCRLHV", 30, 5), 1);
    EXPECT_EQ(CellAt("SCRLHV", 5, 5), -1);
}

TEST(PickerLayout, CellEndsBeforeItsRightAndBottomEdge) {
    EXPECT_EQ(CellAt("SCRL2D", 0, 0), 0);
    EXPECT_EQ(CellAt("SCRL2D", 24, 24), 0);
    EXPECT_EQ(CellAt("SCRL2D", 25, 24), 1);
    EXPECT_EQ(CellAt("SCRL2D", 50, 0), -1);
    EXPECT_EQ(CellAt("SCRL2D", 0, 25), -1);
    EXPECT_EQ(CellAt("SCRL2D", -1, 0), -1);
}

TEST(PickerLayout, GridsAreThreeOrTwoCellsWide) {
    const auto end = [](const char* tag) {
        const PickerCell cell = CellsEnd(*FindPickerLayout(tag));
        return std::pair(cell.Left, cell.Top);
    };
    EXPECT_EQ(end("SDWDIR"), std::pair(75, 75));
    EXPECT_EQ(end("SCRL4D"), std::pair(75, 75));
    EXPECT_EQ(end("SCRL2D"), std::pair(50, 25));
    EXPECT_EQ(end("SCRLHV"), std::pair(50, 50));
}

TEST(PickerLayout, OtherTagsHaveNone) {
    EXPECT_EQ(FindPickerLayout("SPNBTN"), nullptr);
    EXPECT_EQ(FindPickerLayout(""), nullptr);
}

TEST_F(DirectionPickerTest, StartsAtItsVariableAndSaysSo) {
    variable = 3;
    WithPicker(kScroll4Tag, [](WindowHandle dialog) {
        EXPECT_EQ(SelectedDirection(dialog, kPicker), 3u);
        EXPECT_EQ(platform::ControlText(dialog, kPicker), "3");
    });
}

TEST_F(DirectionPickerTest, PressSetsIndexTextAndVariableAndRepaints) {
    WithPicker(kShadowDirectionTag, [this](WindowHandle dialog) {
        const int repaints = platform::RepaintCount(dialog, kPicker);
        PressAt(dialog, 55, 55);
        EXPECT_EQ(SelectedDirection(dialog, kPicker), 7u);
        EXPECT_EQ(platform::ControlText(dialog, kPicker), "7");
        EXPECT_EQ(variable, 7u);
        EXPECT_GT(platform::RepaintCount(dialog, kPicker), repaints);
    });
}

TEST_F(DirectionPickerTest, PressBesideTheCellsWritesTheOldIndexAgain) {
    WithPicker(kShadowDirectionTag, [this](WindowHandle dialog) {
        variable = 99;
        platform::SetControlText(dialog, kPicker, "text");
        PressAt(dialog, 30, 30);
        EXPECT_EQ(SelectedDirection(dialog, kPicker), 1u);
        EXPECT_EQ(platform::ControlText(dialog, kPicker), "1");
        EXPECT_EQ(variable, 1u);
    });
}

TEST_F(DirectionPickerTest, PressLeftOfTheControlIsInNoCell) {
    WithPicker(kScroll2Tag, [](WindowHandle dialog) {
        PressAt(dialog, -3, 4);
        EXPECT_EQ(SelectedDirection(dialog, kPicker), 1u);
    });
}

TEST_F(DirectionPickerTest, LoadingSetsTheIndexAloneUntilAPress) {
    WithPicker(kScroll4Tag, [this](WindowHandle dialog) {
        EXPECT_EQ(Load(dialog, "SCRL4D272=2"), 1);
        EXPECT_EQ(SelectedDirection(dialog, kPicker), 2u);
        EXPECT_EQ(platform::ControlText(dialog, kPicker), "1");
        EXPECT_EQ(variable, 1u);
        PressAt(dialog, 30, 55);
        EXPECT_EQ(variable, 3u);
    });
}

TEST_F(DirectionPickerTest, LineOfAnotherTagOrWithoutEqualSignIsRefused) {
    WithPicker(kScroll4Tag, [](WindowHandle dialog) {
        EXPECT_EQ(Load(dialog, "SCRL2D272=0"), 0);
        EXPECT_EQ(Load(dialog, "SCRL4D272"), 0);
        EXPECT_EQ(SelectedDirection(dialog, kPicker), 1u);
    });
}

TEST_F(DirectionPickerTest, SavesItsTagIdAndIndexUnsigned) {
    WithPicker(kScrollHvTag, [](WindowHandle dialog) {
        EXPECT_EQ(Saved(dialog), "SCRLHV272=1\n");
        EXPECT_EQ(Load(dialog, "SCRLHV272= -1"), 1);
        EXPECT_EQ(Saved(dialog), "SCRLHV272=4294967295\n");
    });
}

TEST_F(DirectionPickerTest, TakesItsIndexFromItsTextWhenTold) {
    WithPicker(kScroll4Tag, [this](WindowHandle dialog) {
        platform::SetControlText(dialog, kPicker, "2");
        EXPECT_EQ(SelectedDirection(dialog, kPicker), 1u);
        platform::SendToWindow(platform::Control(dialog, kPicker), ReadControlText, 0, 0);
        EXPECT_EQ(SelectedDirection(dialog, kPicker), 2u);
        EXPECT_EQ(variable, 1u);
    });
}

TEST_F(DirectionPickerTest, FreesItsBlockWithTheDialogHoweverOftenItWasSetUp) {
    const std::size_t blocks = platform::CurrentMemoryUse().live_blocks;
    WithPicker(kScroll4Tag, [this, blocks](WindowHandle dialog) {
        BindDirectionPicker(dialog, kPicker, kScroll4Tag, &variable);
        EXPECT_EQ(platform::CurrentMemoryUse().live_blocks, blocks + 1);
    });
    EXPECT_EQ(platform::CurrentMemoryUse().live_blocks, blocks);
}

TEST_F(DirectionPickerTest, WithoutMemoryItCountsAsZeroAndTakesNoLine) {
    variable = 2;
    on_open = [](WindowHandle) { platform::FailAllocation(1, true); };
    WithPicker(kScroll4Tag, [this](WindowHandle dialog) {
        platform::FailAllocation(0);
        PressAt(dialog, 30, 55);
        EXPECT_EQ(SelectedDirection(dialog, kPicker), 0u);
        EXPECT_EQ(Load(dialog, "SCRL4D272=3"), 0);
        EXPECT_EQ(Saved(dialog), "");
        EXPECT_EQ(variable, 2u);
    });
}

TEST_F(DirectionPickerTest, ControlThatIsNoPickerCountsAsZero) {
    WithPicker(kScroll4Tag, [](WindowHandle dialog) {
        EXPECT_EQ(SelectedDirection(dialog, 1), 0u);
        EXPECT_EQ(SelectedDirection(dialog, 4711), 0u);
    });
}

}  // namespace

}  // namespace tess::test
