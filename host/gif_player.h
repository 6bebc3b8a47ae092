// Any GIF as its viewer sees it, frame by frame, read with giflib. Only in the native
// build. (What the project writes is read back in its tests by a reader of their own.)
#pragma once

#include <cstdint>
#include <string>

#include "platform/block_guards.h"

struct GifFileType;

namespace tess {

class GifPlayer {
public:
    /// Reads the whole file.
    explicit GifPlayer(const std::string& path);
    GifPlayer(const GifPlayer&) = delete;
    GifPlayer& operator=(const GifPlayer&) = delete;
    ~GifPlayer();

    /// False when it could not be read; Problem then says why.
    explicit operator bool() const { return problem_.empty(); }
    /// What is wrong, to stand behind the path and a colon.
    [[nodiscard]] const std::string& Problem() const { return problem_; }

    [[nodiscard]] int Width() const;
    [[nodiscard]] int Height() const;
    [[nodiscard]] int FrameCount() const;  ///< at least 1
    /// How long the frame last shown stands, in hundredths of a second.
    [[nodiscard]] int Delay() const { return delay_; }

    /// Shows the next frame. Requires: each is shown once.
    void ShowFrame();
    /// What is shown: rows from the top, red, green, blue; black where nothing was
    /// drawn yet.
    [[nodiscard]] const std::uint8_t* Pixels() const { return shown_.data(); }

private:
    void DisposeOfLast();

    GifFileType* file_;
    std::string problem_;
    int next_ = 0;
    int delay_ = 0;
    int last_disposal_ = 0;
    platform::WorkArray<std::uint8_t> shown_;
    platform::WorkArray<std::uint8_t> kept_;  // what was shown before the last frame
};

}  // namespace tess
