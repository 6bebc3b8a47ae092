#include "raster/quarter_arc.h"

#include <gtest/gtest.h>

namespace raster {
namespace {

TEST(QuarterArc, ReachesTheLastRowOfEveryEllipseThatIsNotFarTooTall) {
    for (int width = 3; width < 120; ++width) {
        const int limit = 2 * (width - 1) * (width - 1);
        for (const int height : {3, width, limit / 2, limit - 1, limit, limit + 1, 2 * limit}) {
            if (height < 3) continue;
            int last_row = 0;
            for (QuarterArc arc(width, height); !arc.IsPastMiddle(); arc.Advance())
                last_row = arc.Row();
            EXPECT_EQ(last_row >= height - 1, WalkReachesLastRow(width, height))
                << width << " x " << height;
        }
    }
}

}  // namespace
}  // namespace raster
