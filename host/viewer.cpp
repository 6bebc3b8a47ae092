#include "host/viewer.h"

namespace tess {

int Viewer::Open(const Animation& animation) {
    Close();
    if (animation.Frames.Count < 1) return 0;
    animation_ = &animation;
    picture_.Reset(NewPackedDib(animation.Width, animation.Height, nullptr, 24));
    return Show(0);
}

void Viewer::Close() {
    animation_ = nullptr;
    composition_.reset();
    picture_.Reset();
    frame_ = 0;
    delay_ = 0;
}

int Viewer::ShowNext() {
    return Show(frame_ + 1 < animation_->Frames.Count ? frame_ + 1 : 0);
}

int Viewer::Show(int frame) {
    if (frame == 0) composition_.emplace(*animation_);
    FrameRecord record;
    if (!picture_ || !*composition_ || composition_->ShowFrame(frame) == 0 ||
        GetFrame(*animation_, frame, &record) == 0 || CopyPixels() == 0) {
        Close();
        return 0;
    }
    frame_ = frame;
    delay_ = DelayInMilliseconds(*animation_, record);
    return 1;
}

int Viewer::CopyPixels() {
    const LockedImage image(picture_.Get());
    if (!image) return 0;
    const std::uint8_t* pixel = composition_->Pixels();
    for (int y = 0; y < image->Height; ++y) {
        std::uint8_t* target = DibRow(image, y);
        for (int x = 0; x < image->Width; ++x, target += 3, pixel += composition_->PixelBytes()) {
            const std::uint8_t* color =
                composition_->IsIndexed() ? composition_->Palette() + 3 * *pixel : pixel;
            target[0] = color[2];
            target[1] = color[1];
            target[2] = color[0];
        }
    }
    return 1;
}

}  // namespace tess
