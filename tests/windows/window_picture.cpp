#include "tests/windows/window_picture.h"

#include <algorithm>
#include <cstdlib>
#include <fstream>

namespace tess::test {

namespace {

BITMAPINFOHEADER HeaderOf(int width, int height) {
    BITMAPINFOHEADER header = {};
    header.biSize = sizeof header;
    header.biWidth = width;
    header.biHeight = -height;  // from the top
    header.biPlanes = 1;
    header.biBitCount = 32;
    return header;
}

}  // namespace

WindowPicture::WindowPicture(HWND window) {
    RedrawWindow(window, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
    // A window of another thread may have begun to paint by itself: this waits for it.
    SendMessageA(window, WM_NULL, 0, 0);
    GdiFlush();
    RECT box;
    GetClientRect(window, &box);
    width_ = box.right;
    height_ = box.bottom;
    pixels_.resize(static_cast<std::size_t>(width_) * static_cast<std::size_t>(height_));
    HDC source = GetDC(window);
    HDC target = CreateCompatibleDC(source);
    HBITMAP bitmap = CreateCompatibleBitmap(source, width_, height_);
    const HGDIOBJ previous = SelectObject(target, bitmap);
    BitBlt(target, 0, 0, width_, height_, source, 0, 0, SRCCOPY);
    SelectObject(target, previous);
    BITMAPINFO info = {};
    info.bmiHeader = HeaderOf(width_, height_);
    GetDIBits(target, bitmap, 0, static_cast<UINT>(height_), pixels_.data(), &info, DIB_RGB_COLORS);
    DeleteObject(bitmap);
    DeleteDC(target);
    ReleaseDC(window, source);
    for (std::uint32_t& pixel : pixels_)
        pixel &= 0xFFFFFF;
}

std::uint32_t WindowPicture::At(int x, int y) const {
    const std::uint32_t pixel = pixels_[static_cast<std::size_t>(y * width_ + x)];
    return (pixel >> 16) | (pixel & 0xFF00) | (pixel & 0xFF) << 16;
}

int WindowPicture::Count(std::uint32_t color) const {
    int count = 0;
    for (int y = 0; y < height_; ++y) {
        for (int x = 0; x < width_; ++x)
            count += At(x, y) == color ? 1 : 0;
    }
    return count;
}

void WindowPicture::Keep(const std::string& name) const {
    const char* folder = std::getenv("TESSELLOMATICS_PICTURES");
    if (folder == nullptr) return;
    const BITMAPINFOHEADER header = HeaderOf(width_, height_);
    const auto pixel_bytes = static_cast<DWORD>(pixels_.size() * sizeof pixels_[0]);
    BITMAPFILEHEADER file = {};
    file.bfType = 0x4D42;
    file.bfOffBits = sizeof file + sizeof header;
    file.bfSize = file.bfOffBits + pixel_bytes;
    std::ofstream stream(std::string(folder) + "/" + name + ".bmp", std::ios::binary);
    stream.write(reinterpret_cast<const char*>(&file), sizeof file);
    stream.write(reinterpret_cast<const char*>(&header), sizeof header);
    stream.write(reinterpret_cast<const char*>(pixels_.data()), pixel_bytes);
}

}  // namespace tess::test
