#include "host/frame_clock.h"

#include <algorithm>

namespace tess {

void FrameClock::Start(std::uint64_t now, std::uint32_t delay) {
    due_ = now + std::max(delay, kShortestDelay);
}

void FrameClock::Step(std::uint64_t now, std::uint32_t delay) {
    Start(now > due_ + kLongestLag ? now : due_, delay);
}

std::uint32_t FrameClock::Wait(std::uint64_t now) const {
    const std::uint64_t left = due_ > now ? due_ - now : 0;
    return static_cast<std::uint32_t>(std::max<std::uint64_t>(left, kShortestDelay));
}

}  // namespace tess
