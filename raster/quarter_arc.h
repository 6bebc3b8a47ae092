// The pixels of an ellipse, a quarter at a time: what round corners, round pens
// and whole ellipses are made of.
//
// The ellipse fills a box of `width` by `height` pixels. With a = width - 1 and
// b = height - 1 the pixel centres on it obey (x/a)^2 + (y/b)^2 = 1/4 about the
// box's middle. The walk goes through its lower right quarter, from the end of
// the middle row towards the lowest row, and keeps the error of that equation
// (times 4 a^2 b^2) for the pixel diagonally ahead; each step goes left, down, or
// both, by what the error says. The method is Alois Zingl's, "A Rasterizing
// Algorithm for Drawing Curves", 2012, section on ellipses in a rectangle, in the
// form without a correction for narrow ellipses: GDI leaves it out as well, so a
// tall narrow ellipse has no tip.
//
// All is exact in 64 bits for boxes up to kLargestArc in either direction.
#pragma once

#include <cstdint>

namespace raster {

inline constexpr int kLargestArc = 1 << 19;

/// False for ellipses so much taller than wide that the walk gets to the middle
/// column before it has been in every row. Such a one is drawn as its flat twin,
/// with rows and columns exchanged.
constexpr bool WalkReachesLastRow(int width, int height) {
    const std::int64_t a = width - 1;
    return height < 2 * a * a;
}

class QuarterArc {
public:
    /// Requires: both from 2 to kLargestArc.
    QuarterArc(int width, int height) : row_(height / 2), middle_(width / 2) {
        const std::int64_t a = width - 1;
        const std::int64_t b = height - 1;
        const std::int64_t odd = b % 2;
        step_left_ = 4 * b * b * (1 - a);
        step_down_ = 4 * a * a * (1 + odd);
        left_growth_ = 8 * b * b;
        down_growth_ = 8 * a * a;
        error_ = step_left_ + step_down_ + a * a * odd;
    }

    /// Columns between the pixel and the box's last column.
    [[nodiscard]] int Inset() const { return inset_; }
    /// Rows between the pixel and the box's first row; it starts at height / 2.
    [[nodiscard]] int Row() const { return row_; }
    /// True once the pixel is beyond the box's middle column.
    [[nodiscard]] bool IsPastMiddle() const { return inset_ > middle_; }

    /// Goes to the next pixel.
    void Advance() {
        const std::int64_t doubled = 2 * error_;
        if (doubled >= step_left_) {
            ++inset_;
            step_left_ += left_growth_;
            error_ += step_left_;
        }
        if (doubled <= step_down_) {
            ++row_;
            step_down_ += down_growth_;
            error_ += step_down_;
        }
    }

private:
    int inset_ = 0;
    int row_;
    int middle_;
    std::int64_t step_left_, step_down_;      // what the error grows by
    std::int64_t left_growth_, down_growth_;  // what the two above grow by
    std::int64_t error_;
};

}  // namespace raster
