#include "controls/spinner.h"

#include <algorithm>
#include <cstdio>
#include <string>

namespace tess {

int ReadSpinnerRange(std::string_view caption, SpinnerRange* range) {
    const std::string text(caption);
    const int read =
        std::sscanf(text.c_str(), "%d,%d,%d", &range->minimum, &range->maximum, &range->start);
    return std::max(read, 0);
}

int GetSpinnerValue(platform::WindowHandle dialog, int id) {
    SpinnerRange range{0, 100, 0};
    ReadSpinnerRange(platform::ControlText(dialog, id + kCompanionOffset), &range);
    const bool is_signed = range.minimum < 0;
    const std::uint32_t bits = platform::ControlNumber(dialog, id, is_signed);
    const std::int64_t value =
        is_signed ? std::int64_t{static_cast<std::int32_t>(bits)} : std::int64_t{bits};
    if (value < range.minimum) return range.minimum;
    if (value > range.maximum) return range.maximum;
    return static_cast<int>(value);
}

}  // namespace tess
