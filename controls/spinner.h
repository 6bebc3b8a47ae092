// Numbers in spinners: an edit `n` with its up-down `n` + 10000, whose caption
// holds minimum, maximum and default.
#pragma once

#include <cstdint>
#include <string_view>

#include "platform/dialog.h"

namespace tess {

inline constexpr int kCompanionOffset = 10000;

struct SpinnerRange {
    int minimum, maximum, start;
};

/// Reads a caption "minimum,maximum,default" over the values already in `range`.
/// Returns how many numbers it read.
int ReadSpinnerRange(std::string_view caption, SpinnerRange* range);

/// The integer in edit `id`, held in its companion's range (0 to 100 without a
/// readable caption). Read as signed only where the minimum is below 0.
[[nodiscard]] int GetSpinnerValue(platform::WindowHandle dialog, int id);

}  // namespace tess
