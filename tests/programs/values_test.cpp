#include "programs/cli/values.h"

#include <gtest/gtest.h>

namespace tess {
namespace {

TEST(Values, NumbersAreDecimalOrHexadecimal) {
    EXPECT_EQ(ParseNumber("10632"), 10632);
    EXPECT_EQ(ParseNumber("-5"), -5);
    EXPECT_EQ(ParseNumber("0x1F"), 31);
}

TEST(Values, WhatIsNoNumberAsAWholeIsNone) {
    for (const char* text : {"", "-", "abc", "12a", "0x", "1.5", " 1"}) {
        EXPECT_FALSE(ParseNumber(text).has_value()) << text;
    }
}

TEST(Values, NumberBeyond64BitsIsHeldAtTheNearest) {
    EXPECT_EQ(ParseNumber("99999999999999999999"), 0x7FFFFFFFFFFFFFFF);
    EXPECT_EQ(ParseNumber("-0xFFFFFFFFFFFFFFFFF"), -0x7FFFFFFFFFFFFFFF);
    EXPECT_FALSE(ParseNumber("99999999999999999999x").has_value());
}

TEST(Values, ColorWordHasRedInItsLowByte) {
    EXPECT_EQ(ReadColor("#102030"), 0x302010u);
    EXPECT_EQ(ReadColor("0x302010"), 0x302010u);
    EXPECT_EQ(ReadColor("3153936"), 0x302010u);
}

TEST(Values, WhatIsNoColorIsNone) {
    for (const char* text :
         {"#12345", "#1234567", "#GG0000", "red", "-1", "0x100000000", "99999999999999999999"}) {
        EXPECT_FALSE(ReadColor(text).has_value()) << text;
    }
}

TEST(Values, SwitchesHaveFourWords) {
    for (const char* text : {"yes", "ON", "true", "1"})
        EXPECT_EQ(ReadSwitch(text), true);
    for (const char* text : {"no", "Off", "false", "0"})
        EXPECT_EQ(ReadSwitch(text), false);
    EXPECT_FALSE(ReadSwitch("2").has_value());
}

TEST(Values, NamesAreDashedAtEachWordAndNumber) {
    EXPECT_EQ(DashedName("FillColor1"), "fill-color-1");
    EXPECT_EQ(DashedName("Skip Intro"), "skip-intro");
    EXPECT_EQ(DashedName("LineEast2South"), "line-east-2-south");
}

TEST(Values, PlainNamesForgetCaseAndPunctuation) {
    EXPECT_EQ(PlainName("Fill-Color 1"), PlainName("FILLCOLOR1"));
}

TEST(Values, ShownTextIsOneShortLine) {
    EXPECT_EQ(ShownText("a\nb"), "'a?b'");
    EXPECT_EQ(ShownText(std::string(61, 'x')), std::string("'").append(60, 'x').append("...'"));
}

TEST(Values, ColorTextIsReadBack) {
    EXPECT_EQ(ColorText(0x302010), "#102030");
    EXPECT_EQ(ReadColor(ColorText(0xEAE3DB)), 0xEAE3DBu);
}

}  // namespace
}  // namespace tess
