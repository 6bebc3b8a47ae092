// When the next frame of an animation is to be shown. Times are milliseconds of any
// clock that does not go back.
#pragma once

#include <cstdint>

namespace tess {

/// The shortest time that a frame stays: a system's timer is not finer, and a delay
/// of 0 would leave no time for anything else.
inline constexpr std::uint32_t kShortestDelay = 10;
/// A clock that is later than this does not catch up, but goes on from now: its
/// program was busy with other work.
inline constexpr std::uint32_t kLongestLag = 250;

class FrameClock {
public:
    /// A frame is shown at `now` and is to stay for `delay`.
    void Start(std::uint64_t now, std::uint32_t delay);
    [[nodiscard]] bool IsDue(std::uint64_t now) const { return now >= due_; }
    /// The next frame is shown at `now` and is to stay for `delay`. Frames that come
    /// a little late do not make the whole animation slower.
    void Step(std::uint64_t now, std::uint32_t delay);
    /// How long to wait from `now` on, at least kShortestDelay.
    [[nodiscard]] std::uint32_t Wait(std::uint64_t now) const;

private:
    std::uint64_t due_ = 0;
};

}  // namespace tess
