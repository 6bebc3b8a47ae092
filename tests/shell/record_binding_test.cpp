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
    /// 321 bytes of hexadecimal: a path that begins with "AB", element 7, and a handle
    /// that some other run has left.
    static std::string TileDigits() {
        return "4142" + std::string(2 * 259, '0') + "07000000" + "1122334455667788" +
               std::string(2 * (321 - 273), '0');
    }
};

TEST_F(RecordBindingTest, MatrixStartsWithItsParameterAsElement) {
    StyleTable[kMural]->Parameters[1].Value = 5;
    InPanelDialog(
        [&](WindowHandle dialog) {
            EXPECT_STREQ(platform::ControlTag(platform::Control(dialog, kMuralTile)), "MATRIX");
            EXPECT_EQ(Element(dialog), 5);
            const std::string line = Save(dialog, kMuralTile);
            EXPECT_EQ(line, "MATRIX362=" + std::string(2 * 261, '0') + "05000000" +
                                std::string(2 * (321 - 265), '0') + "\n");
        },
        {kMural});
}

TEST_F(RecordBindingTest, LineReadsBackWithoutTheHandleItHolds) {
    InPanelDialog(
        [&](WindowHandle dialog) {
            EXPECT_EQ(Load(dialog, kMuralTile, "matrix362=" + TileDigits()), 1);
            EXPECT_EQ(Element(dialog), 7);
            std::string digits = TileDigits();
            digits.replace(2 * 265, 16, std::string(16, '0'));
            EXPECT_EQ(Save(dialog, kMuralTile), "MATRIX362=" + digits + "\n");
        },
        {kMural});
}

TEST_F(RecordBindingTest, WrongDigitsAndOtherTagsLeaveTheRecord) {
    InPanelDialog(
        [&](WindowHandle dialog) {
            Load(dialog, kMuralTile, "MATRIX362=" + TileDigits());
            EXPECT_EQ(Load(dialog, kMuralTile, "MATRIX362=00GG"), 1);
            EXPECT_EQ(Load(dialog, kMuralTile, "FOUNTB362=00"), 0);
            EXPECT_EQ(Load(dialog, kMuralTile, "MATRIX362"), 0);
            EXPECT_EQ(Element(dialog), 7);
        },
        {kMural});
}

TEST_F(RecordBindingTest, LackOfMemoryLeavesTheRecord) {
    InPanelDialog(
        [&](WindowHandle dialog) {
            Load(dialog, kMuralTile, "MATRIX362=" + TileDigits());
            platform::FailAllocation(1);
            EXPECT_EQ(Load(dialog, kMuralTile, "MATRIX362=00"), 1);
            platform::FailAllocation(0);
            EXPECT_EQ(Element(dialog), 7);
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
