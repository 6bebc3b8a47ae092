#include "tests/support/toy_frames.h"

#include <utility>

namespace tess::test {

ToyFrame RowOf(std::vector<ColorWord> pixels) {
    const int width = static_cast<int>(pixels.size());
    return {width, 1, std::move(pixels)};
}

ImageHandle NewPicture(const ToyFrame& frame) {
    platform::OwnedBlock block(NewPackedDib(frame.width, frame.height, nullptr, 24));
    const LockedImage image(block.Get());
    if (!image) return nullptr;
    std::size_t i = 0;
    for (int y = 0; y < frame.height; ++y) {
        for (int x = 0; x < frame.width; ++x) {
            SetDibPixel(image, x, y, frame.pixels[i++]);
        }
    }
    return block.Release();
}

std::function<int(StyleContext*)> Deliver(std::vector<ToyFrame> frames) {
    return [frames = std::move(frames)](StyleContext* context) {
        for (const ToyFrame& frame : frames) {
            platform::OwnedBlock picture(NewPicture(frame));
            const FrameRecord record{picture.Get(), nullptr, frame.delay, -1};
            if (!picture || FrameListAdd(context->Frames, &record) == 0) return 0;
            static_cast<void>(picture.Release());
        }
        return 1;
    };
}

}  // namespace tess::test
