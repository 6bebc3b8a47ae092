// What a window shows, as pixels. Windows only.
#pragma once

#include <windows.h>
#include <cstdint>
#include <string>
#include <vector>

namespace tess::test {

/// A copy of a window's client area.
class WindowPicture {
public:
    /// Paints what is due and copies the window's pixels. Requires: the window is shown,
    /// and nothing lies over it.
    explicit WindowPicture(HWND window);

    [[nodiscard]] int Width() const { return width_; }
    [[nodiscard]] int Height() const { return height_; }
    /// The colour word at a place inside.
    [[nodiscard]] std::uint32_t At(int x, int y) const;
    /// How many pixels have the colour.
    [[nodiscard]] int Count(std::uint32_t color) const;
    bool operator==(const WindowPicture&) const = default;

    /// Writes a bitmap file into the folder that the environment variable
    /// TESSELLOMATICS_PICTURES names; nothing without one.
    void Keep(const std::string& name) const;

private:
    int width_ = 0, height_ = 0;
    std::vector<std::uint32_t> pixels_;  ///< from the top, 0x00RRGGBB
};

}  // namespace tess::test
