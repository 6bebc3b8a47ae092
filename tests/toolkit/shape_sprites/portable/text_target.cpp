#include "tests/toolkit/shape_sprites/text_target.h"

#include <cstring>
#include <vector>

#include "platform/cairo/text_surface.h"

namespace tess::test {

struct TextTarget::State {
    std::vector<std::uint8_t> bits;
    platform::TextSurface surface;
    std::size_t stride;
};

platform::LogFont TestFont(int em) {
    platform::LogFont font{};
    font.Height = -em;
    font.Weight = 400;
    std::memcpy(font.FaceName, kTestFamily, sizeof kTestFamily);
    return font;
}

TextTarget::TextTarget(int width, int height, const platform::LogFont& font)
    : state_(std::make_unique<State>()) {
    state_->stride = static_cast<std::size_t>(width * 3 + 3) / 4 * 4;
    state_->bits.assign(state_->stride * static_cast<std::size_t>(height), 0xFF);
    state_->surface = {state_->bits.data(), width, height, font};
}

TextTarget::~TextTarget() = default;

platform::TextTarget* TextTarget::Get() const {
    return platform::AsTextTarget(&state_->surface);
}

std::uint32_t TextTarget::At(int x, int y) const {
    const std::uint8_t* pixel =
        state_->bits.data() +
        static_cast<std::size_t>(state_->surface.Height - 1 - y) * state_->stride +
        static_cast<std::size_t>(x) * 3;
    return static_cast<std::uint32_t>(pixel[2] | pixel[1] << 8 | pixel[0] << 16);
}

}  // namespace tess::test
