#include "tests/shell/panel_dialog_fixture.h"

namespace tess::test {

namespace {

using platform::WindowHandle;

constexpr int kMural = 10;
constexpr int kMuralTile = 362;

class RecordBindingTest : public PanelDialogTest {
protected:
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

TEST_F(RecordBindingTest, RecordsGoWithTheirDialog) {
    const std::size_t blocks = platform::CurrentMemoryUse().live_blocks;
    InPanelDialog([](WindowHandle) {}, {kMural});
    EXPECT_EQ(platform::CurrentMemoryUse().live_blocks, blocks);
}

}  // namespace

}  // namespace tess::test
