// A test of a style that draws in the colours of a fountain button.
#pragma once

#include <algorithm>

#include "fills/fountain_control.h"
#include "tests/reference/plain_color_ring.h"
#include "tests/styles/style_fixture.h"

namespace tess::test {

template <const StyleEntry& kStyle>
class FountainStyleTest : public StyleTest<kStyle> {
protected:
    static platform::WindowHandle Button(platform::WindowHandle dialog) {
        return platform::Control(dialog, FountainButtonOf(kStyle));
    }
    static Fountain FountainOf(platform::WindowHandle dialog) {
        Fountain fountain{};
        EXPECT_EQ(ReadFountainButton(Button(dialog), &fountain), 1);
        return fountain;
    }

    /// Gives the button a run from `start` to `end` with one marker in its middle.
    static void SetFountain(platform::WindowHandle dialog, ColorWord start, ColorWord middle,
                            ColorWord end) {
        const LockedFountain fountain = LockFountain(Button(dialog));
        const ImageHandle preview = fountain->Preview;  // the button's own, still to be freed
        InitFountain(fountain, FountainPreset::Plain);
        fountain->Preview = preview;
        fountain->Start = start;
        fountain->End = end;
        fountain->Count = 1;
        fountain->Markers[0] = MakeMarker(128, middle);
    }
    /// Makes the button's strip count: 256 colours, all different, so that a pixel tells
    /// its height.
    static void UseCountingFountain(platform::WindowHandle dialog) {
        SetFountain(dialog, 0x000000, 0x00FF00, 0x0000FF);
    }
    /// The heights of the style's sample, top row first, told by the counting fountain.
    static std::vector<int> HeightsOf(platform::WindowHandle dialog) {
        const auto strip = StripOf(dialog);
        std::vector<int> heights;
        for (const ColorWord pixel : SlotTest::TakePixels(SlotTest::RenderTest(kStyle, dialog)))
            heights.push_back(
                static_cast<int>(std::find(strip.begin(), strip.end(), pixel) - strip.begin()));
        return heights;
    }

    /// The pixels of the button's strip of 256 colours.
    static std::vector<ColorWord> StripOf(platform::WindowHandle dialog) {
        const platform::OwnedBlock strip(RenderFountainImage(FountainOf(dialog), 256, 1));
        const LockedImage image(strip.Get());
        std::vector<ColorWord> colors;
        for (int x = 0; x < 256; ++x)
            colors.push_back(GetDibPixel(image, x, 0));
        return colors;
    }

    /// Expects of a Build, with a fountain and a count of frames out of `draws`, that it
    /// turns the fountain's ring over these heights.
    static void ExpectColorRings(platform::WindowHandle dialog, const std::vector<int>& heights,
                                 SettingDraws& draws) {
        const int count = draws.Between(2, 9);
        StyleTest<kStyle>::Set(dialog, "Frames", count);
        const ColorWord first = draws.Color(), second = draws.Color(), third = draws.Color();
        SetFountain(dialog, first, second, third);
        const auto ring = StripOf(dialog);
        const auto frames = SlotTest::TakePixels(SlotTest::RenderBuild(kStyle, dialog));
        ASSERT_EQ(static_cast<int>(frames.size()), count);
        for (int f = 0; f < count; ++f) {
            EXPECT_EQ(frames[static_cast<std::size_t>(f)], PlainColorRing(heights, ring, f, count))
                << "frame " << f;
        }
    }

    /// Takes the record from a button, which then has none.
    static void TakeRecord(platform::WindowHandle dialog) {
        const platform::WindowHandle button = Button(dialog);
        {
            const LockedFountain fountain = LockFountain(button);
            fountain->Flags = 0;  // not to be saved
        }
        platform::SendToWindow(button, platform::kMessageDestroy, 0, 0);
        ASSERT_FALSE(static_cast<bool>(LockFountain(button)));
    }
};

}  // namespace tess::test
