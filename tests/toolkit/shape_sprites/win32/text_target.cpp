#include "tests/toolkit/shape_sprites/text_target.h"

#include <windows.h>
#include <cstring>

namespace tess::test {

struct TextTarget::State {
    HDC context;
    HBITMAP bitmap;
    HFONT font;
};

platform::LogFont TestFont(int em) {
    platform::LogFont font{};
    font.Height = -em;
    font.Weight = 400;
    std::memcpy(font.FaceName, kTestFamily, sizeof kTestFamily);
    return font;
}

TextTarget::TextTarget(int width, int height, const platform::LogFont& font)
    : state_(std::make_unique<State>()) {
    state_->context = CreateCompatibleDC(nullptr);
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = width;
    info.bmiHeader.biHeight = height;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 24;
    void* bits = nullptr;
    state_->bitmap = CreateDIBSection(state_->context, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
    SelectObject(state_->context, state_->bitmap);
    LOGFONTA described;
    std::memcpy(&described, &font, sizeof described);
    state_->font = CreateFontIndirectA(&described);
    SelectObject(state_->context, state_->font);
    PatBlt(state_->context, 0, 0, width, height, WHITENESS);
}

TextTarget::~TextTarget() {
    DeleteDC(state_->context);
    DeleteObject(state_->bitmap);
    DeleteObject(state_->font);
}

platform::TextTarget* TextTarget::Get() const {
    return reinterpret_cast<platform::TextTarget*>(state_->context);
}

std::uint32_t TextTarget::At(int x, int y) const {
    return GetPixel(state_->context, x, y);
}

}  // namespace tess::test
