#include "host/tiling.h"

#include <gtest/gtest.h>

namespace tess {
namespace {

TEST(Tiling, AreaThatIsAMultipleNeedsNoMore) {
    const Tiling tiling = TileArea(30, 20, 10, 10);
    EXPECT_EQ(tiling.Columns, 3);
    EXPECT_EQ(tiling.Rows, 2);
    EXPECT_EQ(tiling.Count(), 6);
}

TEST(Tiling, LastTileMayStandOut) {
    const Tiling tiling = TileArea(31, 9, 10, 10);
    EXPECT_EQ(tiling.Columns, 4);
    EXPECT_EQ(tiling.Rows, 1);
}

TEST(Tiling, TilesStandRowByRowFromTheTopLeft) {
    const Tiling tiling = TileArea(30, 20, 15, 7);
    EXPECT_EQ(tiling.Place(0).X, 0);
    EXPECT_EQ(tiling.Place(1).X, 15);
    EXPECT_EQ(tiling.Place(1).Y, 0);
    EXPECT_EQ(tiling.Place(2).X, 0);
    EXPECT_EQ(tiling.Place(2).Y, 7);
}

TEST(Tiling, EmptyAreaOrTileNeedsNone) {
    EXPECT_EQ(TileArea(0, 20, 10, 10).Count(), 0);
    EXPECT_EQ(TileArea(20, 20, 10, 0).Count(), 0);
    EXPECT_EQ(TileArea(20, -1, 10, 10).Count(), 0);
}

TEST(Tiling, SingleTileStandsInTheMiddle) {
    EXPECT_EQ(CenterTile(100, 50, 20, 30).X, 40);
    EXPECT_EQ(CenterTile(100, 50, 20, 30).Y, 10);
    EXPECT_EQ(CenterTile(10, 10, 30, 30).X, -10);
}

}  // namespace
}  // namespace tess
