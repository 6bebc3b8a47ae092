#include "host/gif_player.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <gif_lib.h>

namespace tess {

namespace {

constexpr std::size_t kChannels = 3;
constexpr char kDamaged[] = "is a damaged GIF, or is cut off";
constexpr char kShortOfMemory[] = "needs more memory than there is";

/// Calls `take` with each pixel of the image that is on the screen: its offset there
/// and its index.
template <class Take>
void ForEachPixel(const GifFileType& file, const SavedImage& image, Take take) {
    const GifImageDesc& box = image.ImageDesc;
    const int right = std::min(box.Left + box.Width, file.SWidth);
    const int bottom = std::min(box.Top + box.Height, file.SHeight);
    for (int y = box.Top; y < bottom; ++y) {
        for (int x = box.Left; x < right; ++x) {
            const auto place = static_cast<std::size_t>(y) * static_cast<std::size_t>(file.SWidth) +
                               static_cast<std::size_t>(x);
            const auto pixel =
                static_cast<std::size_t>(y - box.Top) * static_cast<std::size_t>(box.Width) +
                static_cast<std::size_t>(x - box.Left);
            take(kChannels * place, image.RasterBits[pixel]);
        }
    }
}

/// Why a file could not be opened; `reason` is the system's, 0 where it gave none.
std::string ProblemOf(int error, int reason) {
    if (error == D_GIF_ERR_NOT_ENOUGH_MEM) return kShortOfMemory;
    const bool was_not_read = error == D_GIF_ERR_OPEN_FAILED || error == D_GIF_ERR_READ_FAILED;
    if (was_not_read && reason != 0) return std::string("cannot be read: ") + std::strerror(reason);
    // A file without the six bytes that a GIF begins with counts as not read, too.
    return was_not_read || error == D_GIF_ERR_NOT_GIF_FILE ? "is no GIF" : kDamaged;
}

}  // namespace

GifPlayer::GifPlayer(const std::string& path) {
    int error = 0;
    errno = 0;
    file_ = DGifOpenFileName(path.c_str(), &error);
    if (file_ == nullptr) {
        problem_ = ProblemOf(error, errno);
    } else if (DGifSlurp(file_) == GIF_ERROR) {
        // Where the pixels of a picture find no memory the library names no error.
        const bool is_short = file_->Error == D_GIF_ERR_NOT_ENOUGH_MEM || errno == ENOMEM;
        problem_ = is_short ? kShortOfMemory : kDamaged;
    } else if (file_->ImageCount < 1 || file_->SWidth < 1 || file_->SHeight < 1) {
        problem_ = "holds no picture";
    }
    if (!problem_.empty()) return;
    const std::size_t pixels =
        static_cast<std::size_t>(file_->SWidth) * static_cast<std::size_t>(file_->SHeight);
    shown_ = platform::WorkArray<std::uint8_t>(kChannels * pixels);
    kept_ = platform::WorkArray<std::uint8_t>(kChannels * pixels);
    if (!shown_ || !kept_) problem_ = kShortOfMemory;
}

GifPlayer::~GifPlayer() {
    int error = 0;
    if (file_ != nullptr) DGifCloseFile(file_, &error);
}

int GifPlayer::Width() const {
    return file_->SWidth;
}

int GifPlayer::Height() const {
    return file_->SHeight;
}

int GifPlayer::FrameCount() const {
    return file_->ImageCount;
}

void GifPlayer::ShowFrame() {
    DisposeOfLast();
    const SavedImage& image = file_->SavedImages[next_];
    GraphicsControlBlock control = {DISPOSAL_UNSPECIFIED, false, 0, NO_TRANSPARENT_COLOR};
    DGifSavedExtensionToGCB(file_, next_, &control);
    ++next_;
    delay_ = control.DelayTime;
    last_disposal_ = control.DisposalMode;
    std::memcpy(kept_.data(), shown_.data(), shown_.size());
    const ColorMapObject* colors =
        image.ImageDesc.ColorMap != nullptr ? image.ImageDesc.ColorMap : file_->SColorMap;
    if (colors == nullptr) return;
    ForEachPixel(*file_, image, [&](std::size_t place, int index) {
        if (index == control.TransparentColor || index >= colors->ColorCount) return;
        const GifColorType& color = colors->Colors[index];
        shown_[place] = color.Red;
        shown_[place + 1] = color.Green;
        shown_[place + 2] = color.Blue;
    });
}

void GifPlayer::DisposeOfLast() {
    if (next_ == 0) return;
    if (last_disposal_ == DISPOSE_PREVIOUS) {
        std::memcpy(shown_.data(), kept_.data(), shown_.size());
    } else if (last_disposal_ == DISPOSE_BACKGROUND) {
        ForEachPixel(*file_, file_->SavedImages[next_ - 1], [&](std::size_t place, int) {
            std::memset(shown_.data() + place, 0, kChannels);
        });
    }
}

}  // namespace tess
