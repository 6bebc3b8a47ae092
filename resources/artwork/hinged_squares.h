// The motif of the program's artwork: a plane of squares that hang together at their
// corners. Neighbours turn in opposite directions; as they turn, the gaps between
// them open, are widest at 45 degrees and are closed again at 90, where the plane is
// as it was at first. The squares' centres stay, so the plane keeps its period of two
// squares, and their size follows the angle: side = spacing / (cos + sin).
#pragma once

#include <cmath>

namespace artwork {

struct Turn {
    double cosine, sine;
};

/// The turn by `step` 36ths of 90 degrees. Made of multiplications alone, so that it is
/// the same number on every machine.
inline Turn TurnOf(int step) {
    constexpr Turn kStep{0.99904822158185780, 0.043619387365336000};  // 2.5 degrees
    Turn turn{1, 0};
    for (int i = 0; i < step; ++i) {
        turn = {turn.cosine * kStep.cosine - turn.sine * kStep.sine,
                turn.sine * kStep.cosine + turn.cosine * kStep.sine};
    }
    return turn;
}

/// What is at a point of the plane: which square, or a gap.
struct SquareHit {
    bool is_gap;
    int column, row;  ///< of the square whose cell the point is in
    double edge;      ///< distance to the nearest side of the square; below 0 in a gap
};

inline SquareHit HitSquare(double x, double y, double spacing, Turn turn) {
    const double column = std::floor(x / spacing), row = std::floor(y / spacing);
    const double half = spacing / (turn.cosine + turn.sine) / 2;
    SquareHit hit{true, static_cast<int>(column), static_cast<int>(row), -spacing};
    // A turned square reaches into the cells beside its own.
    for (int dy = -1; dy <= 1; ++dy) {
        for (int dx = -1; dx <= 1; ++dx) {
            const double from_x = x - (column + dx + 0.5) * spacing;
            const double from_y = y - (row + dy + 0.5) * spacing;
            const int parity = (static_cast<int>(column) + dx + static_cast<int>(row) + dy) & 1;
            const double sine = parity == 0 ? turn.sine : -turn.sine;
            const double u = std::fabs(from_x * turn.cosine + from_y * sine);
            const double v = std::fabs(from_y * turn.cosine - from_x * sine);
            const double edge = half - (u > v ? u : v);
            if (edge > hit.edge) {
                hit = {edge < 0, static_cast<int>(column) + dx, static_cast<int>(row) + dy, edge};
            }
        }
    }
    return hit;
}

}  // namespace artwork
