// Plays an animation, frame by frame and over again, into one 24-bit picture.
#pragma once

#include <cstdint>
#include <optional>

#include "host/composition.h"

namespace tess {

class Viewer {
public:
    /// Shows the first frame. Returns 1, or 0 when there is none or memory is short;
    /// then nothing is shown. Requires: `animation` outlives the playing and stays as
    /// it is until Close.
    [[nodiscard]] int Open(const Animation& animation);
    void Close();
    [[nodiscard]] bool IsOpen() const { return animation_ != nullptr; }

    /// Shows the next frame, after the last the first. Returns 1, or 0 on failure;
    /// then nothing is shown any more. Requires: IsOpen().
    [[nodiscard]] int ShowNext();

    /// The number of the frame that is shown, from 0.
    [[nodiscard]] int Frame() const { return frame_; }
    /// Milliseconds that it stays.
    [[nodiscard]] std::uint32_t Delay() const { return delay_; }
    /// What is seen; null when nothing is. Owned by this.
    [[nodiscard]] ImageHandle Picture() const { return picture_.Get(); }

private:
    [[nodiscard]] int Show(int frame);
    [[nodiscard]] int CopyPixels();

    const Animation* animation_ = nullptr;
    std::optional<Composition> composition_;
    platform::OwnedBlock picture_;
    int frame_ = 0;
    std::uint32_t delay_ = 0;
};

}  // namespace tess
