#include "toolkit/color_space.h"

#include <gtest/gtest.h>
#include <limits>

namespace tess {
namespace {

HsvColor HsvOf(ColorWord color) {
    HsvColor hsv{};
    ColorToHsv(&hsv, color);
    return hsv;
}

ColorWord ColorOf(double hue, double saturation, double value) {
    const HsvColor hsv{hue, saturation, value};
    return HsvToColor(&hsv);
}

TEST(ColorToHsv, BlackHasAHueOfMinusOne) {
    const HsvColor black = HsvOf(0x000000);
    EXPECT_EQ(black.Hue, -1.0);
    EXPECT_EQ(black.Saturation, 0.0);
    EXPECT_EQ(black.Value, 0.0);
    EXPECT_EQ(HsvToColor(&black), 0x000000U);
}

TEST(ColorToHsv, GreyHasNoSaturation) {
    const HsvColor grey = HsvOf(0x333333);
    EXPECT_EQ(grey.Hue, 0.0);
    EXPECT_EQ(grey.Saturation, 0.0);
    EXPECT_EQ(grey.Value, 0.2);
}

TEST(ColorToHsv, TheHuesOfThePureColours) {
    EXPECT_EQ(HsvOf(MakeColor(255, 0, 0)).Hue, 0.0);
    EXPECT_EQ(HsvOf(MakeColor(255, 255, 0)).Hue, 60.0);
    EXPECT_EQ(HsvOf(MakeColor(0, 255, 0)).Hue, 120.0);
    EXPECT_EQ(HsvOf(MakeColor(0, 255, 255)).Hue, 180.0);
    EXPECT_EQ(HsvOf(MakeColor(0, 0, 255)).Hue, 240.0);
    EXPECT_EQ(HsvOf(MakeColor(255, 0, 255)).Hue, 300.0);
}

TEST(ColorToHsv, AHueBelowZeroGoesRound) {
    // (0 - 0.2) / (1 - 0) x 60 = -12.
    EXPECT_DOUBLE_EQ(HsvOf(MakeColor(255, 0, 51)).Hue, 348.0);
}

TEST(ColorToHsv, AlphaHasNoPartInIt) {
    EXPECT_EQ(HsvOf(0xFF000000).Hue, -1.0);
}

TEST(HsvToColor, EachSectorHasItsRow) {
    // Half way through each sector with v = 1, s = 0.6: v 255, p 102, q = t 178.
    EXPECT_EQ(ColorOf(30.0, 0.6, 1.0), MakeColor(255, 178, 102));
    EXPECT_EQ(ColorOf(90.0, 0.6, 1.0), MakeColor(178, 255, 102));
    EXPECT_EQ(ColorOf(150.0, 0.6, 1.0), MakeColor(102, 255, 178));
    EXPECT_EQ(ColorOf(210.0, 0.6, 1.0), MakeColor(102, 178, 255));
    EXPECT_EQ(ColorOf(270.0, 0.6, 1.0), MakeColor(178, 102, 255));
    EXPECT_EQ(ColorOf(330.0, 0.6, 1.0), MakeColor(255, 102, 178));
}

TEST(HsvToColor, AHueOf360FallsInTheLastRow) {
    // i is 6 and f 0: red v, green p, blue q = v.
    EXPECT_EQ(ColorOf(360.0, 1.0, 1.0), MakeColor(255, 0, 255));
}

TEST(HsvToColor, ValueAndSaturationAreCappedAtOne) {
    EXPECT_EQ(ColorOf(0.0, 3.0, 7.0), MakeColor(255, 0, 0));
    EXPECT_EQ(ColorOf(0.0, 0.0, 7.0), MakeColor(255, 255, 255));
}

TEST(HsvToColor, AValueBelowZeroIsBlack) {
    EXPECT_EQ(ColorOf(120.0, 0.5, -0.25), 0x000000U);
    EXPECT_EQ(ColorOf(120.0, 0.0, -0.25), 0x000000U);
}

TEST(HsvToColor, AHueOutsideTheCircleFallsInTheLastRow) {
    // -60 gives i = -1 and f = 0; for an immense one only red is sure.
    EXPECT_EQ(ColorOf(-60.0, 1.0, 1.0), MakeColor(255, 0, 255));
    EXPECT_EQ(RedOf(ColorOf(1e300, 1.0, 1.0)), 255);
}

TEST(HsvToColor, LevelsAreCut) {
    // 0.5 x 255 = 127.5.
    EXPECT_EQ(ColorOf(0.0, 0.0, 0.5), 0x7F7F7FU);
}

TEST(HsvToColor, GoingThereAndBackLosesAtMostOneLevel) {
    for (int red = 0; red < 256; red += 15) {
        for (int green = 0; green < 256; green += 5) {
            for (int blue = 0; blue < 256; blue += 17) {
                const HsvColor hsv = HsvOf(MakeColor(red, green, blue));
                const ColorWord back = HsvToColor(&hsv);
                EXPECT_NEAR(RedOf(back), red, 1);
                EXPECT_NEAR(GreenOf(back), green, 1);
                EXPECT_NEAR(BlueOf(back), blue, 1);
            }
        }
    }
}

}  // namespace
}  // namespace tess
