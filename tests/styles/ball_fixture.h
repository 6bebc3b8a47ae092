// What the tests of the styles with shaded balls and bars share.
#pragma once

#include "tests/reference/plain_shaded_ball.h"
#include "tests/styles/style_fixture.h"

namespace tess::test {

template <const StyleEntry& kStyle>
class BallStyleTest : public StyleTest<kStyle> {
protected:
    using Bytes = std::vector<std::uint8_t>;

    static Bytes SampleBytes(platform::WindowHandle dialog) {
        return SlotTest::TakeBytes(SlotTest::RenderTest(kStyle, dialog));
    }
    static std::vector<Bytes> BuildBytes(platform::WindowHandle dialog) {
        return SlotTest::TakeFrames(SlotTest::RenderBuild(kStyle, dialog));
    }

    /// A sprite at its place, to be composed into an expected picture.
    struct Placed {
        int x, y;
        PlainSprite sprite;
    };
    static Bytes Compose(int width, int height, ColorWord background, const PlainShadow& shadow,
                         const std::vector<Placed>& sprites) {
        const ImageHandle picture = NewSolidImage({0, 0, width, height}, background);
        {
            const LockedImage tile(picture);
            for (const Placed& placed : sprites)
                PlainDrawSprite(tile, placed.x, placed.y, placed.sprite, shadow);
        }
        return SlotTest::TakeBytes(picture);
    }
};

}  // namespace tess::test
