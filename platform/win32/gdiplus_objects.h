// Owners of GDI+ objects, and what text is converted to for GDI+.
#pragma once

#include <windows.h>
#include <propidl.h>
#include <gdiplus.h>
#include <string_view>
#include <utility>

#include "platform/vector_drawing.h"

namespace platform {

namespace flat = Gdiplus::DllExports;

/// Owns one object of GDI+ and deletes it with `Delete`. `Out` is where a call that
/// makes one stores it.
template <class T, auto Delete>
class GdiplusObject {
public:
    GdiplusObject() = default;
    GdiplusObject(const GdiplusObject&) = delete;
    GdiplusObject& operator=(const GdiplusObject&) = delete;
    ~GdiplusObject() {
        if (object_ != nullptr) Delete(object_);
    }
    [[nodiscard]] T* Get() const { return object_; }
    [[nodiscard]] T** Out() { return &object_; }
    explicit operator bool() const { return object_ != nullptr; }

private:
    T* object_ = nullptr;
};

using GdiplusGraphics = GdiplusObject<Gdiplus::GpGraphics, flat::GdipDeleteGraphics>;
using GdiplusFont = GdiplusObject<Gdiplus::GpFont, flat::GdipDeleteFont>;
using GdiplusFamily = GdiplusObject<Gdiplus::GpFontFamily, flat::GdipDeleteFontFamily>;
using GdiplusFormat = GdiplusObject<Gdiplus::GpStringFormat, flat::GdipDeleteStringFormat>;
using GdiplusPath = GdiplusObject<Gdiplus::GpPath, flat::GdipDeletePath>;
using GdiplusPen = GdiplusObject<Gdiplus::GpPen, flat::GdipDeletePen>;

/// Brushes and images of every kind are deleted through their common base.
template <class Brush>
using GdiplusBrush = GdiplusObject<Brush, [](Brush* brush) { flat::GdipDeleteBrush(brush); }>;
using GdiplusBitmap = GdiplusObject<Gdiplus::GpBitmap, [](Gdiplus::GpBitmap* bitmap) {
    flat::GdipDisposeImage(bitmap);
}>;

/// A text of at most 260 characters of the ANSI code page, as UTF-16.
class WideText {
public:
    explicit WideText(std::string_view text)
        : length_(text.empty() ? 0
                               : MultiByteToWideChar(CP_ACP, 0, text.data(),
                                                     static_cast<int>(text.size()), text_, kRoom)) {
        text_[length_] = 0;
    }
    [[nodiscard]] const wchar_t* Get() const { return text_; }
    [[nodiscard]] int Length() const { return length_; }

private:
    static constexpr int kRoom = 520;
    wchar_t text_[kRoom + 1];
    int length_;
};

struct TextFont::State {
    GdiplusGraphics graphics;  ///< on the target
    GdiplusFont font;
    GdiplusFormat format;
};

/// Draws `text` with the box's top left at (x, y).
void DrawWithFont(Gdiplus::GpGraphics* graphics, const TextFont::State& font, std::string_view text,
                  int x, int y, Argb color, TextHint hint);

}  // namespace platform
