#include "controls/color_button.h"

#include <gtest/gtest.h>

namespace tess::test {

namespace {

constexpr ColorWord kPale = 0xEAE3DB;  // red 219, green 227, blue 234

TEST(ColorButton, TextIsDrawnAsItStandsWithoutAForm) {
    EXPECT_EQ(ColorButtonText("15393755", 0, 0), "15393755");
    EXPECT_EQ(ColorButtonText("", kPale, kButtonWithoutEdge), "");
}

TEST(ColorButton, MainDialogShowsTheChannelsOfTheTextsNumber) {
    EXPECT_EQ(ColorButtonText("15393755", 0, kMainDialogColorButton), "219,227,234");
}

TEST(ColorButton, HexadecimalFormsPutRedFirst) {
    EXPECT_EQ(ColorButtonText("15393755", 0, kButtonTextHex), "DBE3EA");
    EXPECT_EQ(ColorButtonText("15393755", 0, kButtonTextHashHex), "#DBE3EA");
    EXPECT_EQ(ColorButtonText("10", 0, kButtonTextHex), "0A0000");
}

TEST(ColorButton, EmptyTextStandsForTheColorWord) {
    EXPECT_EQ(ColorButtonText("", kPale, kButtonTextChannels), "219,227,234");
}

TEST(ColorButton, TheFirstOfSeveralFormsCounts) {
    EXPECT_EQ(ColorButtonText("255", 0, kButtonTextChannels | kButtonTextHex), "255,0,0");
    EXPECT_EQ(ColorButtonText("255", 0, kButtonTextHex | kButtonTextHashHex), "FF0000");
}

TEST(ColorButton, TextIsWhiteBelowABrightnessOf129) {
    // 128 x 77 / 255 = 38, x 150 = 75, x 28 = 14: 127. 130: 39 + 76 + 14 = 129.
    EXPECT_EQ(ColorButtonTextColor(MakeColor(128, 128, 128)), 0xFFFFFFu);
    EXPECT_EQ(ColorButtonTextColor(MakeColor(130, 130, 130)), 0u);
    EXPECT_EQ(ColorButtonTextColor(MakeColor(0, 0, 255)), 0xFFFFFFu);
    EXPECT_EQ(ColorButtonTextColor(MakeColor(0, 255, 0)), 0u);
}

TEST(ColorButton, DisabledOneHidesItsValue) {
    EXPECT_EQ(ColorButtonFill(kPale, 0xC0C0C0, true), 0xC0C0C0u);
    EXPECT_EQ(ColorButtonFill(kPale, 0xC0C0C0, false), kPale);
    EXPECT_FALSE(ColorButtonHasText(true, kMainDialogColorButton));
    EXPECT_TRUE(ColorButtonHasText(false, kMainDialogColorButton));
    EXPECT_FALSE(ColorButtonHasText(false, kButtonWithoutText));
}

TEST(ColorButton, FocusFrameCanBeLeftOut) {
    EXPECT_TRUE(ColorButtonHasFocusFrame(true, 0));
    EXPECT_FALSE(ColorButtonHasFocusFrame(true, kButtonWithoutFocus));
    EXPECT_FALSE(ColorButtonHasFocusFrame(false, 0));
}

}  // namespace

}  // namespace tess::test
