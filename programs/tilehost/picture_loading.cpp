// Pictures are read by GDI+, which knows the usual kinds of file.

#include <windows.h>
#include <objidl.h>
// GDI+ needs the two names that NOMINMAX keeps away.
#include <algorithm>
namespace Gdiplus {
using std::max;
using std::min;
}  // namespace Gdiplus
#include <gdiplus.h>

#include "programs/tilehost/system_dialogs.h"

namespace tess {
namespace {

class GdiPlus {
public:
    GdiPlus() {
        const Gdiplus::GdiplusStartupInput input;
        started_ = Gdiplus::GdiplusStartup(&token_, &input, nullptr) == Gdiplus::Ok;
    }
    GdiPlus(const GdiPlus&) = delete;
    GdiPlus& operator=(const GdiPlus&) = delete;
    ~GdiPlus() {
        if (started_) Gdiplus::GdiplusShutdown(token_);
    }
    explicit operator bool() const { return started_; }

private:
    ULONG_PTR token_ = 0;
    bool started_ = false;
};

std::wstring Wide(const char* text) {
    wchar_t wide[MAX_PATH] = L"";
    MultiByteToWideChar(CP_ACP, 0, text, -1, wide, MAX_PATH);
    return wide;
}

// Lets GDI+ draw into the picture's own rows, from the bottom one up.
bool DrawOnWhite(Gdiplus::Bitmap& source, PackedDib* image) {
    Gdiplus::Bitmap target(image->Width, image->Height, -Stride(image->Width, 24),
                           PixelFormat24bppRGB, DibRow(image, 0));
    Gdiplus::Graphics graphics(&target);
    return graphics.Clear(Gdiplus::Color(255, 255, 255)) == Gdiplus::Ok &&
           graphics.DrawImage(&source, 0, 0, image->Width, image->Height) == Gdiplus::Ok;
}

}  // namespace

ImageHandle LoadPicture(const char* path) {
    const GdiPlus session;
    if (!session) return nullptr;
    Gdiplus::Bitmap source(Wide(path).c_str());
    if (source.GetLastStatus() != Gdiplus::Ok) return nullptr;
    platform::OwnedBlock picture(NewPackedDib(static_cast<int>(source.GetWidth()),
                                              static_cast<int>(source.GetHeight()), nullptr, 24));
    {
        const LockedImage image(picture.Get());
        if (!image || !DrawOnWhite(source, image)) return nullptr;
    }
    return picture.Release();
}

}  // namespace tess
