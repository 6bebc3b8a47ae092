// The angles of linear gradients. Wine draws every one at 45 degrees, so that only the
// native build shows them.
#include <gtest/gtest.h>
#include <string>

#include "tests/toolkit/shape_sprites/shape_requests.h"

namespace tess {
namespace {

using test::kBlue;
using test::kRed;

/// The red in the four corners, in hexadecimal digits: top left, top right, bottom left,
/// bottom right.
std::string CornersAt(int degrees) {
    ShapeRequest request = test::GradientOfSize(ShapeGradientKind::Linear, 255, 511, kRed, kBlue);
    request.GradientAngle = degrees;
    const test::ShapePicture picture(request);
    std::string digits;
    for (const auto& [x, y] : {std::pair{0, 0}, {254, 0}, {0, 510}, {254, 510}}) {
        digits += "0123456789ABCDEF"[RedOf(picture.At(x, y)) >> 4];
    }
    return digits;
}

TEST(GradientAngle, ZeroRunsToTheRight) {
    EXPECT_EQ(CornersAt(0), "F0F0");
}

TEST(GradientAngle, NinetyRunsDown) {
    EXPECT_EQ(CornersAt(90), "FF00");
}

TEST(GradientAngle, FortyFiveRunsAlongTheDiagonalOfAnySize) {
    // Top right: (255 / 256 + 1 / 512) / 2 of the way, 127.75 of red; bottom left 127.25.
    EXPECT_EQ(CornersAt(45), "F870");
}

TEST(GradientAngle, NegativeAndLargeAnglesAreTakenModuloATurn) {
    EXPECT_EQ(CornersAt(-90), "00FF");
    EXPECT_EQ(CornersAt(180 + 3600), "0F0F");
    EXPECT_EQ(CornersAt(135), CornersAt(135 - 720));
}

}  // namespace
}  // namespace tess
