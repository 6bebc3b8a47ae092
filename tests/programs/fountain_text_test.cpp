#include "programs/cli/fountain_text.h"

#include <gtest/gtest.h>

namespace tess {
namespace {

std::string Reread(const char* text) {
    Fountain fountain;
    const std::string error = ReadFountainText(text, &fountain);
    return error.empty() ? FountainText(fountain) : error;
}

TEST(FountainText, ColorsReadBackToTheSameText) {
    for (const char* text : {"#000000,#FFFFFF", "#102030,1:#FF0000,255:#00FF00,#0A0B0C"})
        EXPECT_EQ(Reread(text), text);
}

TEST(FountainText, ColorsWithoutPositionsAreSpreadEvenly) {
    EXPECT_EQ(Reread("#000000,#010101,#020202,#FFFFFF"), "#000000,85:#010101,170:#020202,#FFFFFF");
    EXPECT_EQ(Reread("#000000,7:#010101,#020202,#FFFFFF"), "#000000,7:#010101,170:#020202,#FFFFFF");
}

TEST(FountainText, MarkersAreSorted) {
    EXPECT_EQ(Reread("#000000,200:#010101,100:#020202,#FFFFFF"),
              "#000000,100:#020202,200:#010101,#FFFFFF");
}

TEST(FountainText, SixtyFourColorsFitBetweenTheEndsAndNoMore) {
    std::string text = "#000000";
    for (int i = 1; i <= 64; ++i)
        text += "," + std::to_string(i) + ":#123456";
    Fountain fountain;
    EXPECT_EQ(ReadFountainText(text + ",#FFFFFF", &fountain), "");
    EXPECT_EQ(int{fountain.Count}, 64);
    EXPECT_EQ(ReadFountainText(text + ",#123456,#FFFFFF", &fountain),
              "has more than 64 colors between its ends");
}

TEST(FountainText, WrongColorsAreToldForWhatTheyAre) {
    EXPECT_EQ(Reread("#000000"), "has one color; a fountain has two ends");
    EXPECT_EQ(Reread("#000000,#12345,#FFFFFF"), "has the color '#12345'; it takes #RRGGBB");
    EXPECT_EQ(Reread("#000000,,#FFFFFF"), "has the color ''; it takes #RRGGBB");
    EXPECT_EQ(Reread("#000000,0:#123456,#FFFFFF"), "has the position '0'; it takes 1 to 255");
    EXPECT_EQ(Reread("#000000,256:#123456,#FFFFFF"), "has the position '256'; it takes 1 to 255");
    EXPECT_EQ(Reread("5:#000000,#FFFFFF"), "has a position at an end; the ends have none");
}

TEST(FountainText, DigitsAreAWholeRecordWithItsMagic) {
    std::string digits = "5152564E464F554E";  // "QRVNFOUN"
    digits.resize(1170, '0');
    Fountain fountain;
    EXPECT_EQ(ReadFountainText(digits, &fountain), "");
    EXPECT_EQ(FountainText(fountain), "#000000,#000000");
    EXPECT_NE(ReadFountainText(digits + "00", &fountain), "");
    EXPECT_NE(ReadFountainText(digits.substr(2), &fountain), "");
    EXPECT_NE(ReadFountainText("00" + digits.substr(2), &fountain), "");
    EXPECT_NE(ReadFountainText("xx" + digits.substr(2), &fountain), "");
    EXPECT_NE(ReadFountainText("", &fountain), "");
}

}  // namespace
}  // namespace tess
