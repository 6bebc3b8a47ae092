// How much each line of a source counts towards a line of a scaled picture; a
// line is a row or a column.
#pragma once

#include <cstddef>
#include <cstdint>

#include "platform/block_guards.h"

namespace tess {

struct ScalingKernel {
    double (*weight)(double distance);  ///< 0 beyond `support`
    double support;
};
extern const ScalingKernel kLanczosKernel;   ///< three lobes, for shrinking
extern const ScalingKernel kMitchellKernel;  ///< B = C = 1/3, for enlarging

/// Two neighbouring weights in fixed point, the first in the low half of each
/// number, four times over as an instruction takes them.
struct WeightPair {
    std::int32_t lanes[4];
};

/// One axis of a scaling.
struct AxisScaling {
    ScalingKernel kernel;
    double factor;  ///< new size / old size, at least 0.0001
    double blur;
    int source_size;
};

/// The shares of the source lines `start` to `start + count - 1` in one target
/// line.
struct LineWeights {
    int start;
    int count;
    const double* exact;
    /// The same in fixed point with 28 fractional bits: the upper part counts
    /// 2^-14, the lower, signed, 2^-28. An odd count is filled up with 0.
    const WeightPair* upper;
    const WeightPair* lower;
    bool symmetric;  ///< an even count whose weights read the same from both ends
    /// How far a sum in fixed point, taken to single precision, may lie from the
    /// sum of `exact`, for samples of 0 to 255. Infinite where fixed point would
    /// overflow.
    float margin;
};

/// The most weights that a target line can have on an axis of `source_size`.
[[nodiscard]] std::size_t MostWeights(double support, int source_size);

/// The weights of a run of target lines.
class WeightTable {
public:
    /// Room for `lines` target lines of at most `most_weights`. False when the
    /// memory could not be had.
    WeightTable(std::size_t lines, std::size_t most_weights);
    explicit operator bool() const { return lines_ && exact_ && upper_ && lower_; }

    [[nodiscard]] int Capacity() const { return static_cast<int>(lines_.size()); }
    /// Works out the target lines from `first`. Requires: `count` <= Capacity(),
    /// and no line of the axis has more than `most_weights`.
    void Fill(const AxisScaling& axis, int first, int count);
    /// The weights of target line `first + index`. Valid until the next Fill.
    [[nodiscard]] LineWeights Line(int index) const;

private:
    struct Entry {
        int start;
        int count;
        std::size_t slot;
        bool symmetric;
        float margin;
    };

    void FillSlot(const AxisScaling& axis, double center, double scale, Entry* entry);

    std::size_t most_weights_;
    platform::WorkArray<Entry> lines_;
    platform::WorkArray<double> exact_;
    platform::WorkArray<WeightPair> upper_;
    platform::WorkArray<WeightPair> lower_;
};

}  // namespace tess
