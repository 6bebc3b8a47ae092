#include "shell/logo.h"

#include "controls/bitmap_file.h"
#include "platform/resources.h"

namespace tess {

int OpenLogo(ColorWord face, Logo* logo) {
    *logo = {};
    BitmapFile bitmap;
    if (!OpenBitmapFile(platform::FindData(kLogoResource), &bitmap)) return 0;
    if (bitmap.Width != kLogoSide || bitmap.Height != kLogoSide * kLogoFrames) return 0;
    platform::OwnedBlock frames(NewPackedDib(bitmap.Width, bitmap.Height, nullptr, 24));
    {
        const LockedImage image(frames.Get());
        if (!image) return 0;
        for (int y = 0; y < bitmap.Height; ++y) {
            for (int x = 0; x < bitmap.Width; ++x)
                SetDibPixel(image, x, y, BlendedPixel(bitmap, x, y, face));
        }
    }
    logo->Frames = frames.Release();
    return 1;
}

void CloseLogo(Logo* logo) {
    platform::FreeBlock(logo->Frames);
    *logo = {};
}

int TakeLogoFrame(Logo* logo) {
    const int frame = logo->Next;
    logo->Next = frame + 1 < kLogoFrames ? frame + 1 : 0;
    return frame;
}

void StepLogo(platform::WindowHandle dialog, int id, std::uintptr_t w) {
    if (w == kLogoTimer) platform::RepaintControl(dialog, id);
}

}  // namespace tess
