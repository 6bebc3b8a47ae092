// The bands of a linear gradient without any left out: the literal version of
// DrawLinearGradient.
#pragma once

#include "fills/gradient.h"

namespace tess::test {

[[nodiscard]] ImageHandle PlainLinearGradient(ColorWord first, ColorWord second, int width,
                                              int height, int rotation, const Gradient* gradient);

}  // namespace tess::test
