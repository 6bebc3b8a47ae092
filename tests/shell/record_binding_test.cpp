#include "tests/shell/panel_dialog_fixture.h"

namespace tess::test {

namespace {

using platform::WindowHandle;

constexpr int kMural = 10;
constexpr int kMuralTile = 362;

class RecordBindingTest : public PanelDialogTest {
protected:
    static std::intptr_t Load(WindowHandle dialog, int id, const std::string& line) {
        return platform::SendToWindow(platform::Control(dialog, id), LoadControl, 0,
                                      reinterpret_cast<std::intptr_t>(line.c_str()));
    }
    std::string Save(WindowHandle dialog, int id) {
        std::FILE* stream = platform::OpenFile(PathOf("line"), "wb");
        platform::SendToWindow(platform::Control(dialog, id), SaveControl, 0,
                               reinterpret_cast<std::intptr_t>(stream));
        std::fclose(stream);
        return ReadAll(PathOf("line"));
    }
    static std::intptr_t Element(WindowHandle dialog) {
        return platform::SendToWindow(platform::Control(dialog, kMuralTile), ReadControlValue, 0,
                                      0);
    }
};

TEST_F(RecordBindingTest, MatrixStartsWithItsParameterAsElement) {
    StyleTable[kMural]->Parameters[1].Value = 5;
    InPanelDialog(
        [&](WindowHandle dialog) {
            EXPECT_STREQ(platform::ControlTag(platform::Control(dialog, kMuralTile)), "MATRIX");
            EXPECT_EQ(Element(dialog), 5);
        },
        {kMural});
}

TEST_F(RecordBindingTest, WrongDigitsAndOtherTagsLeaveTheRecord) {
    InPanelDialog([&](WindowHandle dialog) {
        BindMaterialControl(dialog, kButton);
        Load(dialog, kButton, "MATLBT25=5152");
        EXPECT_EQ(Load(dialog, kButton, "MATLBT25=00GG"), 1);
        EXPECT_EQ(Load(dialog, kButton, "FOUNTB25=00"), 0);
        EXPECT_EQ(Load(dialog, kButton, "MATLBT25"), 0);
        EXPECT_TRUE(Save(dialog, kButton).starts_with("MATLBT25=5152"));
    });
}

TEST_F(RecordBindingTest, LackOfMemoryLeavesTheRecord) {
    InPanelDialog([&](WindowHandle dialog) {
        BindMaterialControl(dialog, kButton);
        Load(dialog, kButton, "MATLBT25=5152");
        platform::FailAllocation(1);
        EXPECT_EQ(Load(dialog, kButton, "MATLBT25=00"), 1);
        platform::FailAllocation(0);
        EXPECT_TRUE(Save(dialog, kButton).starts_with("MATLBT25=5152"));
    });
}

TEST_F(RecordBindingTest, RecordsGoWithTheirDialog) {
    const std::size_t blocks = platform::CurrentMemoryUse().live_blocks;
    InPanelDialog([](WindowHandle) {}, {kMural});
    EXPECT_EQ(platform::CurrentMemoryUse().live_blocks, blocks);
}

}  // namespace

}  // namespace tess::test
