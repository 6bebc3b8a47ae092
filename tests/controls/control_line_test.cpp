#include "controls/control_line.h"

#include <gtest/gtest.h>

namespace tess::test {

namespace {

TEST(ControlLine, ValueFollowsEqualSignsAndBlanks) {
    EXPECT_STREQ(FindLineValue("SPNBTN114=128", "SPNBTN"), "128");
    EXPECT_STREQ(FindLineValue("spnbtn114== = 128", "SPNBTN"), "128");
}

TEST(ControlLine, OtherTagShortLineOrNoEqualSignHasNoValue) {
    EXPECT_EQ(FindLineValue("CHKBOX114=1", "SPNBTN"), nullptr);
    EXPECT_EQ(FindLineValue("SPN", "SPNBTN"), nullptr);
    EXPECT_EQ(FindLineValue("SPNBTN114", "SPNBTN"), nullptr);
}

TEST(ControlLine, IdIsTheNumberFromTheSeventhCharacterOn) {
    EXPECT_EQ(FindLineId("SPNBTN114=128"), 114);
    EXPECT_EQ(FindLineId("SPNBTN"), 0);
    EXPECT_EQ(FindLineId("SPN"), 0);
    EXPECT_EQ(FindLineId("rubbish"), 0);
}

TEST(ControlLine, NumbersThatDoNotFitAreHeldIn32Bits) {
    EXPECT_EQ(ReadNumber("99999999999999999999"), 2147483647);
    EXPECT_EQ(ReadNumber("-3000000000"), -2147483647 - 1);
    EXPECT_EQ(ReadNumber(" 12abc"), 12);
}

TEST(ControlLine, UnsignedNumberKeepsItsBits) {
    EXPECT_EQ(ReadNumber("4294967295"), -1);
    EXPECT_EQ(ReadNumber("2147483648"), -2147483647 - 1);
    EXPECT_EQ(ReadNumber("4294967296"), 2147483647);
}

}  // namespace

}  // namespace tess::test
