#include "platform/graphics_service.h"

#include <windows.h>
#include <propidl.h>
#include <gdiplus.h>

namespace platform {

namespace {

struct FontKind {
    const char* face;
    int height;
};
constexpr FontKind kFonts[RunFonts::kCount] = {{"Arial", 14}, {"MS Sans Serif", 14}, {"Arial", 12}};

}  // namespace

int StartGraphics(std::uint64_t* token) {
    const Gdiplus::GdiplusStartupInput input;  // version 1, all else default
    ULONG_PTR started = 0;
    if (Gdiplus::GdiplusStartup(&started, &input, nullptr) != Gdiplus::Ok) return 0;
    *token = started;
    return 1;
}

void StopGraphics(std::uint64_t token) {
    Gdiplus::GdiplusShutdown(static_cast<ULONG_PTR>(token));
}

RunFonts::RunFonts() {
    for (int i = 0; i < kCount; ++i) {
        fonts_[i] = CreateFontA(kFonts[i].height, 0, 0, 0, FW_DONTCARE, FALSE, FALSE, FALSE,
                                DEFAULT_CHARSET, OUT_DEFAULT_PRECIS, CLIP_DEFAULT_PRECIS,
                                DEFAULT_QUALITY, DEFAULT_PITCH | FF_DONTCARE, kFonts[i].face);
    }
}

RunFonts::~RunFonts() {
    for (int i = kCount - 1; i >= 0; --i) {
        if (fonts_[i] != nullptr) DeleteObject(fonts_[i]);
    }
}

}  // namespace platform
