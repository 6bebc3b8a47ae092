#include "controls/skinned_button.h"

#include "tests/platform/dialog_fixture.h"

namespace tess::test {

namespace {

using platform::WindowHandle;

constexpr int kBuild = 1;
constexpr ButtonBox kBox{0, 0, 75, 23};

class SkinnedButtonTest : public DialogFixture {
protected:
    void TearDown() override {
        SkinButtons = 0;
        DialogFixture::TearDown();
    }
    static void Mouse(WindowHandle dialog, std::uint32_t message) {
        platform::SendToWindow(platform::Control(dialog, kBuild), message, 0, 0x00030003);
    }
};

TEST_F(SkinnedButtonTest, WithoutALookNothingIsSkinned) {
    WithMainDialog([](WindowHandle dialog) { EXPECT_EQ(SkinButton(dialog, kBuild), 0); });
}

TEST_F(SkinnedButtonTest, ControlThatIsNotThereIsNotSkinned) {
    SkinButtons = 3;
    WithMainDialog([](WindowHandle dialog) {
        EXPECT_EQ(SkinButton(dialog, 4711), 0);
        EXPECT_EQ(SkinButton(dialog, kBuild), 1);
    });
}

TEST_F(SkinnedButtonTest, IsPressedWhileTheMouseIsDownAndRepaintsForBoth) {
    SkinButtons = 1;
    WithMainDialog([](WindowHandle dialog) {
        ASSERT_EQ(SkinButton(dialog, kBuild), 1);
        const WindowHandle button = platform::Control(dialog, kBuild);
        EXPECT_FALSE(IsSkinPressed(button));
        Mouse(dialog, platform::kMessageLeftButtonDown);
        EXPECT_TRUE(IsSkinPressed(button));
        EXPECT_EQ(platform::RepaintCount(dialog, kBuild), 1);
        Mouse(dialog, platform::kMessageLeftButtonUp);
        EXPECT_FALSE(IsSkinPressed(button));
        EXPECT_EQ(platform::RepaintCount(dialog, kBuild), 2);
    });
}

TEST(ButtonLook, EveryNumberButTwoAndThreeIsTheRoundedOne) {
    EXPECT_EQ(LookOf(1), ButtonLook::Rounded);
    EXPECT_EQ(LookOf(2), ButtonLook::Bevelled);
    EXPECT_EQ(LookOf(3), ButtonLook::Gradient);
    EXPECT_EQ(LookOf(4), ButtonLook::Rounded);
    EXPECT_EQ(LookOf(0xFFFFFFFF), ButtonLook::Rounded);
}

TEST(ButtonLook, TextBoxIsARowShorterAndMovesWhenPressed) {
    EXPECT_EQ(SkinTextBox(kBox, false), (ButtonBox{0, 0, 75, 22}));
    EXPECT_EQ(SkinTextBox(kBox, true), (ButtonBox{2, 2, 77, 24}));
}

TEST(ButtonLook, UpperGradientTakes55HundredthsOfTheHeight) {
    const GradientBoxes boxes = GradientLookBoxes(kBox, false);
    EXPECT_EQ(boxes.Upper, (ButtonBox{0, 0, 75, 12}));  // 23 x 55 / 100 = 12
    EXPECT_EQ(boxes.Lower, (ButtonBox{0, 12, 75, 23}));
}

TEST(ButtonLook, GradientsMoveWhenPressed) {
    const GradientBoxes boxes = GradientLookBoxes(kBox, true);
    EXPECT_EQ(boxes.Upper, (ButtonBox{2, 2, 77, 14}));
    EXPECT_EQ(boxes.Lower, (ButtonBox{2, 14, 77, 25}));
}

TEST(ButtonLook, MidwayToWhiteHalvesEachChannel) {
    EXPECT_EQ(MidwayToWhite(MakeColor(64, 255, 0)), MakeColor(159, 254, 127));
}

TEST(GradientLines, StartsAtItsColorAndEndsAStepShort) {
    GradientLines lines(MakeColor(0, 100, 255), MakeColor(10, 0, 255), 4);
    EXPECT_EQ(lines.Color(), MakeColor(0, 100, 255));
    lines.Advance();
    EXPECT_EQ(lines.Color(), MakeColor(2, 75, 255));
    lines.Advance();
    EXPECT_EQ(lines.Color(), MakeColor(5, 50, 255));
    lines.Advance();
    EXPECT_EQ(lines.Color(), MakeColor(7, 25, 255));
}

TEST(GradientLines, OneLineIsTheFirstColor) {
    EXPECT_EQ(GradientLines(0x123456, 0xFFFFFF, 1).Color(), 0x123456u);
}

}  // namespace

}  // namespace tess::test
