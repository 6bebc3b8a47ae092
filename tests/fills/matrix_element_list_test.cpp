#include "fills/matrix_element_list.h"

#include <gtest/gtest.h>

namespace tess::test {

namespace {

TEST(PlaceElement, SmallPictureGrowsToFitInWholePercents) {
    // 40 pixels are there for 16: 250 percent.
    EXPECT_EQ(PlaceElement({0, 0, 48, 48}, 16, 16, false), (ElementBox{4, 4, 40, 40}));
    // 100 * 40 / 48 is 83 percent: 39 pixels, half a pixel off the middle.
    EXPECT_EQ(PlaceElement({100, 50, 48, 48}, 48, 48, false), (ElementBox{104, 54, 39, 39}));
}

TEST(PlaceElement, KeepsProportionsAndTheMiddle) {
    EXPECT_EQ(PlaceElement({0, 0, 48, 48}, 80, 40, false), (ElementBox{4, 14, 40, 20}));
    EXPECT_EQ(PlaceElement({0, 0, 48, 48}, 20, 40, false), (ElementBox{14, 4, 20, 40}));
}

TEST(PlaceElement, SelectedOneLiesAPixelRightAndDown) {
    EXPECT_EQ(PlaceElement({0, 0, 48, 48}, 40, 40, true), (ElementBox{5, 5, 40, 40}));
}

TEST(PlaceElement, PictureBelowOnePercentIsNotSeen) {
    EXPECT_EQ(PlaceElement({0, 0, 48, 48}, 512, 9000, false), (ElementBox{24, 24, 0, 0}));
}

}  // namespace

}  // namespace tess::test
