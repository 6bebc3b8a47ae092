// A native program that asked for no drawing.
#include <gtest/gtest.h>

#include "toolkit/shape_sprites.h"

namespace tess {
namespace {

TEST(UndrawnShapes, EveryOperationThatDrawsReturnsZero) {
    constexpr platform::VectorPoint kPoints[] = {{0, 0}, {9, 0}, {0, 9}};
    ShapeRequest request{};
    request.Right = request.Bottom = request.GradientWidth = request.GradientHeight = 20;
    request.Points = kPoints;
    request.PointCount = 3;
    request.Text = "text";
    for (int op = 3; op <= 8; ++op) {
        request.Op = static_cast<ShapeOp>(op);
        EXPECT_EQ(RunShapeRequest(&request), 0) << op;
    }
}

}  // namespace
}  // namespace tess
