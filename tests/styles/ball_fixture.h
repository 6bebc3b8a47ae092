// What the tests of the styles with shaded balls and bars share.
#pragma once

#include "platform/memory.h"
#include "tests/reference/plain_shaded_ball.h"
#include "tests/styles/style_fixture.h"

namespace tess::test {

class BallStyleTest : public StyleTest {
protected:
    using Bytes = std::vector<std::uint8_t>;

    static void Check(platform::WindowHandle dialog, std::initializer_list<int> boxes, bool on) {
        for (const int box : boxes)
            platform::SetChecked(dialog, box, on);
    }

    static Bytes SampleBytes(const StyleEntry& style, platform::WindowHandle dialog) {
        return TakeBytes(RenderTest(style, dialog));
    }
    static std::vector<Bytes> BuildBytes(const StyleEntry& style, platform::WindowHandle dialog) {
        return TakeFrames(RenderBuild(style, dialog));
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
        return TakeBytes(picture);
    }

    /// Renders the sample with each of its allocations failing once. Where a shadow is
    /// missing a sprite may be left out, so not all of them end in no picture.
    static void ExpectCleanFailures(const StyleEntry& style, platform::WindowHandle dialog) {
        const std::size_t blocks = platform::CurrentMemoryUse().live_blocks;
        const std::size_t before = platform::CurrentMemoryUse().allocations;
        platform::FreeBlock(RenderTest(style, dialog));
        const std::size_t needed = platform::CurrentMemoryUse().allocations - before;
        ASSERT_GT(needed, 5u);
        int failures = 0;
        for (std::size_t i = 1; i <= needed; ++i) {
            platform::FailAllocation(i);
            const ImageHandle image = RenderTest(style, dialog);
            if (image == nullptr) ++failures;
            platform::FreeBlock(image);
            platform::FailAllocation(0);
            EXPECT_EQ(platform::CurrentMemoryUse().live_blocks, blocks) << i;
        }
        EXPECT_GT(failures, 0);
    }
};

}  // namespace tess::test
