// A test of one style: its panel in the real dialog, its two slots, its draws.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "controls/direction_picker.h"
#include "pipeline/image_buffers.h"
#include "runtime/random.h"
#include "shell/control_contract.h"
#include "tests/shell/panel_dialog_fixture.h"
#include "tests/support/image_bytes.h"

namespace tess::test {

class StyleTest : public PanelDialogTest {
protected:
    /// Opens a dialog with the panel of the style that the test case is named after,
    /// or with all panels for another name.
    void InDialog(const std::function<void(platform::WindowHandle)>& act) {
        std::string wanted =
            testing::UnitTest::GetInstance()->current_test_info()->test_suite_name();
        wanted.resize(wanted.size() - std::string_view("Test").size());
        std::vector<int> styles;
        for (int i = 0; i < kStyleCount; ++i) {
            if (PlainLetters(StyleTable[i]->Name) == PlainLetters(wanted)) styles = {i};
        }
        if (styles.empty()) {
            for (int i = 0; i < kStyleCount; ++i)
                styles.push_back(i);
        }
        InPanelDialog(
            [&act](platform::WindowHandle dialog) {
                Set(dialog, kDelayEdit, 4);
                act(dialog);
            },
            styles);
    }

    /// A name's letters alone, small: "Phasers on Stun" as "phasersonstun".
    static std::string PlainLetters(std::string_view name) {
        std::string letters;
        for (const char letter : name) {
            if (letter != ' ') letters += static_cast<char>(letter | 0x20);
        }
        return letters;
    }

    static const StyleEntry& Style(std::string_view name) {
        for (const StyleEntry* style : StyleTable) {
            if (style->Name == name) return *style;
        }
        ADD_FAILURE() << "no style " << name;
        return *StyleTable[0];
    }

    static void Set(platform::WindowHandle dialog, int control, int value) {
        platform::SetControlText(dialog, control, std::to_string(value));
        const platform::WindowHandle window = platform::Control(dialog, control);
        if (FindPickerLayout(platform::ControlTag(window)) != nullptr) {
            platform::SendToWindow(window, ReadControlText, 0, 0);
        }
    }

    /// The style's sample, owned by the caller; null when its Test failed.
    static ImageHandle RenderTest(const StyleEntry& style, platform::WindowHandle dialog) {
        StyleContext context{};
        context.Dialog = dialog;
        const int answer = style.Test(&context);
        EXPECT_EQ(answer != 0, context.Result != nullptr);
        return context.Result;
    }

    /// A host that says yes to all.
    static HostServices AgreeingHost() {
        return {
            sizeof(HostServices),
            kHostVersion,
            0,
            0,
            [](TaskRecord*, std::int64_t, std::int64_t, std::int64_t) -> std::int64_t { return 1; },
            0,
            3,
            0};
    }

    /// The frames of the style's Build, which the caller frees.
    static FrameList RenderBuild(const StyleEntry& style, platform::WindowHandle dialog) {
        const HostServices services = AgreeingHost();
        FrameList frames{};
        StyleContext context{};
        context.Dialog = dialog;
        context.Frames = &frames;
        context.Host = &services;
        EXPECT_NE(style.Build(&context), 0);
        return frames;
    }

    /// All bytes of a picture's block, which is freed.
    static std::vector<std::uint8_t> TakeBytes(ImageHandle image) {
        std::vector<std::uint8_t> bytes;
        {
            const LockedImage locked(image);
            if (locked) {
                const std::uint8_t* first = reinterpret_cast<const std::uint8_t*>(locked.Get());
                const std::uint8_t* last = DibRow(locked.Get(), 0);
                bytes.assign(first, last + Stride(locked->Width, locked->BitCount));
            }
        }
        platform::FreeBlock(image);
        return bytes;
    }

    /// The bytes of every frame; the list is freed.
    static std::vector<std::vector<std::uint8_t>> TakeFrames(FrameList frames) {
        std::vector<std::vector<std::uint8_t>> all;
        {
            const platform::LockedBlock<FrameRecord> records(frames.Records);
            for (int i = 0; i < frames.Count; ++i) {
                all.push_back(TakeBytes(std::exchange(records.Get()[i].Image, nullptr)));
            }
        }
        FrameListFree(&frames);
        return all;
    }

    /// The colours of every frame, row by row from the top; the list is freed.
    static std::vector<std::vector<ColorWord>> TakePixels(FrameList frames) {
        std::vector<std::vector<ColorWord>> all;
        {
            const platform::LockedBlock<FrameRecord> records(frames.Records);
            for (int i = 0; i < frames.Count; ++i)
                all.push_back(Pixels(records.Get()[i].Image));
        }
        FrameListFree(&frames);
        return all;
    }

    /// Lets each allocation of a sample fail in turn, and expects nothing to leak.
    /// Returns how many of the samples failed.
    static int FailuresOfASample(const StyleEntry& style, platform::WindowHandle dialog) {
        const std::size_t blocks = platform::CurrentMemoryUse().live_blocks;
        const std::size_t before = platform::CurrentMemoryUse().allocations;
        platform::FreeBlock(RenderTest(style, dialog));
        const std::size_t needed = platform::CurrentMemoryUse().allocations - before;
        int failures = 0;
        for (std::size_t i = 1; i <= needed; ++i) {
            platform::FailAllocation(i);
            const ImageHandle image = RenderTest(style, dialog);
            platform::FailAllocation(0);
            if (image == nullptr) ++failures;
            platform::FreeBlock(image);
            EXPECT_EQ(platform::CurrentMemoryUse().live_blocks, blocks) << i;
        }
        return failures;
    }

    /// How many draws were made since `seed` was set, at most `most`; -1 beyond.
    static int DrawsSince(unsigned seed, int most) {
        constexpr int kMatch = 4;  // draws that must agree
        int next[kMatch];
        for (int& draw : next)
            draw = runtime::rand();
        runtime::srand(seed);
        std::vector<int> draws;
        for (int i = 0; i < most + kMatch; ++i)
            draws.push_back(runtime::rand());
        for (int made = 0; made <= most; ++made) {
            if (std::equal(next, next + kMatch, draws.begin() + made)) return made;
        }
        return -1;
    }
};

}  // namespace tess::test
