// A white surface to measure and draw text on: a device context of the system's on
// Windows, a TextSurface natively.
#pragma once

#include <cstdint>
#include <memory>

#include "platform/vector_drawing.h"

namespace tess::test {

/// A font that both builds find.
inline constexpr char kTestFamily[] = "DejaVu Sans";

/// The font of that family with an em of `em` pixels.
platform::LogFont TestFont(int em);

class TextTarget {
public:
    /// With `font` selected.
    TextTarget(int width, int height, const platform::LogFont& font);
    TextTarget(const TextTarget&) = delete;
    TextTarget& operator=(const TextTarget&) = delete;
    ~TextTarget();

    [[nodiscard]] platform::TextTarget* Get() const;
    /// The colour word at a place inside.
    [[nodiscard]] std::uint32_t At(int x, int y) const;

private:
    struct State;
    std::unique_ptr<State> state_;
};

}  // namespace tess::test
