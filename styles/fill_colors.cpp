#include "styles/fill_colors.h"

namespace tess {

FillColorList ReadFillColors(platform::WindowHandle dialog, const std::array<int, 5>& colors,
                             const std::array<int, 4>& enables) {
    FillColorList list{};
    for (std::size_t i = 0; i < colors.size(); ++i) {
        if (i > 0 && !platform::IsChecked(dialog, enables[i - 1])) continue;
        list.Colors[list.Count++] = platform::ControlNumber(dialog, colors[i], false);
    }
    return list;
}

}  // namespace tess
