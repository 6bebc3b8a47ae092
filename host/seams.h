// How smoothly an animation joins itself: left to right, top to bottom, and from its
// last frame to its first.
//
// Along each of the three a step leads from every column, row or frame to the next,
// and one more from the last to the first: the join. A step's height is the mean
// difference of a channel, 0 to 255, over all that it crosses. A join that is no
// higher than the highest step inside cannot be told from the inside of the picture.
// The steps beside the join do not count as the highest, where there are others: a
// border of the picture's own is no measure of its inside.
//
// Columns and rows are measured in each frame by itself, since the edges of what moves
// are at another place in each; their figures are means over the frames.
#pragma once

#include <cstdint>

#include "pipeline/image_buffers.h"
#include "platform/block_guards.h"

namespace tess {

/// The steps beside the join of columns or rows are none of the inside's, where there are
/// others: a border of the picture's own may be what they cross.
struct JoinFigures {
    double Join;        ///< height of the step at the join
    double InsideMean;  ///< of the steps inside; 0 when there is none
    double InsideMost;  ///< of the highest step inside
};

/// True where the join is half as rough again as the roughest step inside, and more
/// than one level rougher: noise, and motion in whole pixels, make a join that much
/// rougher by chance.
[[nodiscard]] bool HasSeam(const JoinFigures& figures);

struct SeamFigures {
    JoinFigures Columns, Rows, Frames;
};

/// Takes the frames of an animation one by one.
class SeamMeter {
public:
    /// Requires: both at least 1.
    SeamMeter(int width, int height);

    /// False when memory is short.
    explicit operator bool() const;
    /// `pixels`: rows from the top of `width` pixels, three channels of a byte each.
    void AddFrame(const std::uint8_t* pixels);
    /// The same of a picture of the meter's size. Requires: 24 or 32 bit.
    void AddPicture(const PackedDib* image);
    /// The figures of all frames so far. Requires: there was one.
    [[nodiscard]] SeamFigures Figures() const;

private:
    /// Takes what stands in frame_.
    void Add();

    int width_, height_;
    int frames_ = 0;
    platform::WorkArray<std::uint8_t> first_, last_, frame_;
    platform::WorkArray<std::uint64_t> columns_, rows_;  // a frame's differences by step
    JoinFigures column_sums_ = {}, row_sums_ = {};       // of the frames' figures
    double frame_sum_ = 0, frame_most_ = 0;              // of the steps between frames
};

}  // namespace tess
