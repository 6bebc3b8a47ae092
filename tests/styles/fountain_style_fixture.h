// A test of a style that draws in the colours of a fountain button.
#pragma once

#include <algorithm>

#include "fills/fountain_control.h"
#include "shell/control_contract.h"
#include "tests/styles/style_fixture.h"

namespace tess::test {

class FountainStyleTest : public StyleTest {
protected:
    /// Chooses a direction as a click does.
    static void SetDirection(platform::WindowHandle dialog, int control, int direction) {
        Set(dialog, control, direction);
        platform::SendToWindow(platform::Control(dialog, control), ReadControlText, 0, 0);
    }

    static Fountain FountainOf(platform::WindowHandle dialog, int control) {
        Fountain fountain{};
        EXPECT_EQ(ReadFountainButton(platform::Control(dialog, control), &fountain), 1);
        return fountain;
    }

    /// Gives the button a run from `start` to `end` with one marker in its middle.
    static void SetFountain(platform::WindowHandle dialog, int control, ColorWord start,
                            ColorWord middle, ColorWord end) {
        const LockedFountain fountain = LockFountain(platform::Control(dialog, control));
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
    static void UseCountingFountain(platform::WindowHandle dialog, int control) {
        SetFountain(dialog, control, 0x000000, 0x00FF00, 0x0000FF);
    }
    /// The heights of the style's sample, top row first, told by the counting fountain.
    static std::vector<int> HeightsOf(const StyleEntry& style, platform::WindowHandle dialog,
                                      int control) {
        const auto strip = StripOf(dialog, control);
        std::vector<int> heights;
        for (const ColorWord pixel : TakePixels(RenderTest(style, dialog)))
            heights.push_back(
                static_cast<int>(std::find(strip.begin(), strip.end(), pixel) - strip.begin()));
        return heights;
    }

    /// The pixels of the button's strip of 256 colours.
    static std::vector<ColorWord> StripOf(platform::WindowHandle dialog, int control) {
        const platform::OwnedBlock strip(RenderFountainImage(FountainOf(dialog, control), 256, 1));
        const LockedImage image(strip.Get());
        std::vector<ColorWord> colors;
        for (int x = 0; x < 256; ++x)
            colors.push_back(GetDibPixel(image, x, 0));
        return colors;
    }

    /// The pixels of a picture, the top row first; the picture is freed.
    static std::vector<ColorWord> TakePixels(ImageHandle handle) {
        const platform::OwnedBlock owner(handle);
        const LockedImage image(handle);
        std::vector<ColorWord> pixels;
        for (int y = 0; image && y < image->Height; ++y) {
            for (int x = 0; x < image->Width; ++x)
                pixels.push_back(GetDibPixel(image, x, y));
        }
        return pixels;
    }

    /// The pixels of every frame; the list is freed.
    static std::vector<std::vector<ColorWord>> TakeFramePixels(FrameList frames) {
        std::vector<std::vector<ColorWord>> all;
        {
            const platform::LockedBlock<FrameRecord> records(frames.Records);
            for (int i = 0; i < frames.Count; ++i)
                all.push_back(TakePixels(std::exchange(records.Get()[i].Image, nullptr)));
        }
        FrameListFree(&frames);
        return all;
    }

    /// Takes the record from a button, which then has none.
    static void TakeRecord(platform::WindowHandle dialog, int control) {
        const platform::WindowHandle button = platform::Control(dialog, control);
        {
            const LockedFountain fountain = LockFountain(button);
            fountain->Flags = 0;  // not to be saved
        }
        platform::SendToWindow(button, platform::kMessageDestroy, 0, 0);
        ASSERT_FALSE(static_cast<bool>(LockFountain(button)));
    }

    /// Lets each allocation of the style's sample fail in turn. Returns how many of
    /// these runs failed.
    static int FailEachAllocationOfASample(const StyleEntry& style, platform::WindowHandle dialog) {
        const std::size_t blocks = platform::CurrentMemoryUse().live_blocks;
        const std::size_t before = platform::CurrentMemoryUse().allocations;
        platform::FreeBlock(RenderTest(style, dialog));
        const std::size_t needed = platform::CurrentMemoryUse().allocations - before;
        int failures = 0;
        for (std::size_t i = 1; i <= needed; ++i) {
            platform::FailAllocation(i);
            const ImageHandle image = RenderTest(style, dialog);
            if (image == nullptr) ++failures;
            platform::FreeBlock(image);
            platform::FailAllocation(0);
            EXPECT_EQ(platform::CurrentMemoryUse().live_blocks, blocks) << i;
        }
        return failures;
    }
};

}  // namespace tess::test
