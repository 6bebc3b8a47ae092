#include "host/webp_file.h"

#include <climits>
#include <cstdio>
#include <memory>
#include <webp/encode.h>
#include <webp/mux.h>

#include "host/composition.h"
#include "platform/files.h"

namespace tess {
namespace {

constexpr int kEffort = 6;  // of libwebp's 0 to 9, where 9 is much slower and hardly smaller

struct DeleteEncoder {
    void operator()(WebPAnimEncoder* encoder) const { WebPAnimEncoderDelete(encoder); }
};
using Encoder = std::unique_ptr<WebPAnimEncoder, DeleteEncoder>;

class Picture {
public:
    Picture() { usable_ = WebPPictureInit(&picture_) != 0; }
    Picture(const Picture&) = delete;
    Picture& operator=(const Picture&) = delete;
    ~Picture() { WebPPictureFree(&picture_); }

    [[nodiscard]] bool Import(const std::uint8_t* rgb, int width, int height) {
        if (!usable_) return false;
        picture_.width = width;
        picture_.height = height;
        picture_.use_argb = 1;
        return WebPPictureImportRGB(&picture_, rgb, 3 * width) != 0;
    }
    [[nodiscard]] WebPPicture* Get() { return &picture_; }

private:
    WebPPicture picture_;
    bool usable_;
};

class Data {
public:
    Data() { WebPDataInit(&data_); }
    Data(const Data&) = delete;
    Data& operator=(const Data&) = delete;
    ~Data() { WebPDataClear(&data_); }
    [[nodiscard]] WebPData* Get() { return &data_; }

private:
    WebPData data_;
};

// The shown pixels as red, green, blue: those of an indexed composition go through
// its palette into `buffer`.
const std::uint8_t* TrueColorPixels(const Composition& shown, std::size_t count,
                                    platform::WorkArray<std::uint8_t>& buffer) {
    if (!shown.IsIndexed()) return shown.Pixels();
    for (std::size_t i = 0; i < count; ++i) {
        const std::uint8_t* color = shown.Palette() + 3 * shown.Pixels()[i];
        for (std::size_t channel = 0; channel < 3; ++channel) {
            buffer[3 * i + channel] = color[channel];
        }
    }
    return buffer.data();
}

FileResult EncodeFrames(const Animation& animation, WebPAnimEncoder* encoder) {
    WebPConfig config;
    if (WebPConfigInit(&config) == 0 || WebPConfigLosslessPreset(&config, kEffort) == 0) {
        return FileResult::CannotWrite;
    }
    config.exact = 1;
    const std::size_t count =
        static_cast<std::size_t>(animation.Width) * static_cast<std::size_t>(animation.Height);
    Composition shown(animation);
    platform::WorkArray<std::uint8_t> buffer(3 * count);
    if (!shown || !buffer) return FileResult::OutOfMemory;
    std::uint64_t time = 0;
    for (int i = 0; i < animation.Frames.Count; ++i) {
        FrameRecord frame;
        Picture picture;
        if (GetFrame(animation, i, &frame) == 0 || shown.ShowFrame(i) == 0 ||
            !picture.Import(TrueColorPixels(shown, count, buffer), animation.Width,
                            animation.Height)) {
            return FileResult::OutOfMemory;
        }
        if (WebPAnimEncoderAdd(encoder, picture.Get(), static_cast<int>(time), &config) == 0) {
            return FileResult::OutOfMemory;
        }
        time += DelayInMilliseconds(animation, frame);
        if (time > INT_MAX) return FileResult::TooLarge;
    }
    return WebPAnimEncoderAdd(encoder, nullptr, static_cast<int>(time), nullptr) != 0
               ? FileResult::Written
               : FileResult::OutOfMemory;
}

}  // namespace

FileResult WriteWebp(const Animation& animation, std::string_view path) {
    if (animation.Width > WEBP_MAX_DIMENSION || animation.Height > WEBP_MAX_DIMENSION) {
        return FileResult::TooLarge;
    }
    platform::NewFile file(path, platform::FileMode::Binary);
    if (!file) return FileResult::CannotCreate;
    WebPAnimEncoderOptions options;
    if (WebPAnimEncoderOptionsInit(&options) == 0) return FileResult::CannotWrite;
    options.anim_params.loop_count = 0;  // for ever
    const Encoder encoder(WebPAnimEncoderNew(animation.Width, animation.Height, &options));
    if (!encoder) return FileResult::OutOfMemory;
    const FileResult result = EncodeFrames(animation, encoder.get());
    if (result != FileResult::Written) return result;
    Data data;
    if (WebPAnimEncoderAssemble(encoder.get(), data.Get()) == 0) return FileResult::OutOfMemory;
    if (std::fwrite(data.Get()->bytes, data.Get()->size, 1, file.Stream()) != 1 ||
        file.Commit() == 0) {
        return FileResult::CannotWrite;
    }
    return FileResult::Written;
}

}  // namespace tess
