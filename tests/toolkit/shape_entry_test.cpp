// The entry of the service, drawn or not. What it draws is in tests/toolkit/shape_sprites/.
#include <gtest/gtest.h>

#include "toolkit/shape_sprites.h"

namespace tess {
namespace {

std::int64_t RunOp(int op) {
    ShapeRequest request{};
    request.Op = static_cast<ShapeOp>(op);
    return RunShapeRequest(&request);
}

TEST(ShapeEntry, StartAndStopReturnOne) {
    ShapeRequest request{};
    request.Op = ShapeOp::Start;
    EXPECT_EQ(RunShapeRequest(&request), 1);
    request.Op = ShapeOp::Stop;
    EXPECT_EQ(RunShapeRequest(&request), 1);
}

TEST(ShapeEntry, AnUnknownOperationReturnsZero) {
    for (const int op : {0, 9, -1, 0x7FFFFFFF}) {
        EXPECT_EQ(RunOp(op), 0) << op;
    }
}

TEST(ShapeEntry, PolygonTextAndGradientWithoutTheirDataReturnZero) {
    for (const int op : {6, 7, 8}) {
        EXPECT_EQ(RunOp(op), 0) << op;
    }
}

}  // namespace
}  // namespace tess
