// How well a picture joins itself: the steps from its last column to its first and
// from its last row to its first, beside the steps inside it.
#pragma once

#include "pipeline/image_buffers.h"

namespace tess {

/// Mean differences of a channel between neighbouring lines of pixels, 0 to 255.
struct SeamSteps {
    double Seam;     ///< from the last line to the first
    double Mean;     ///< over all pairs of neighbours inside
    double Largest;  ///< of the pair that differs most, but for those next to the seam: a
                     ///< border of the picture's own is no measure of its inside
};
struct PictureSeams {
    SeamSteps Columns, Rows;
};

/// Requires: a 24-bit picture. Steps of a picture of one line are 0.
[[nodiscard]] PictureSeams MeasureSeams(const PackedDib* image);

/// True where nobody sees the seam: it is no more than a step inside is, or little more
/// than those are in the mean.
[[nodiscard]] bool JoinsItself(const SeamSteps& steps);
[[nodiscard]] bool JoinsItself(const PictureSeams& seams);

}  // namespace tess
