// A test of one style: its panel in the real dialog, its two slots, its draws.
#pragma once

#include <algorithm>
#include <functional>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "pipeline/image_buffers.h"
#include "runtime/random.h"
#include "shell/control_contract.h"
#include "styles/styles.h"
#include "tests/shell/panel_dialog_fixture.h"
#include "tests/styles/setting_draws.h"
#include "tests/support/image_bytes.h"
#include "tests/support/style_panel.h"

namespace tess::test {

/// Runs slots of styles, and looks at what they leave.
class SlotTest : public PanelDialogTest {
protected:
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
    static FrameList RenderBuild(const StyleEntry& style, platform::WindowHandle dialog,
                                 const HostServices& services = AgreeingHost()) {
        FrameList frames{};
        StyleContext context{};
        context.Dialog = dialog;
        context.Frames = &frames;
        context.Host = &services;
        EXPECT_NE(style.Build(&context), 0);
        return frames;
    }

    /// The frames and counts that the style's Build reports as its progress.
    static std::vector<std::pair<std::int64_t, std::int64_t>> ProgressOfABuild(
        const StyleEntry& style, platform::WindowHandle dialog) {
        static std::vector<std::pair<std::int64_t, std::int64_t>> reports;
        reports.clear();
        HostServices services = AgreeingHost();
        services.HostCall = [](TaskRecord*, std::int64_t op, std::int64_t frame,
                               std::int64_t count) -> std::int64_t {
            EXPECT_EQ(op, static_cast<std::int64_t>(HostOp::Progress));
            reports.emplace_back(frame, count);
            return 1;
        };
        FrameList frames = RenderBuild(style, dialog, services);
        EXPECT_EQ(reports.size(), static_cast<std::size_t>(frames.Count));
        FrameListFree(&frames);
        return reports;
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

    /// The colours of a picture, row by row from the top; the picture is freed.
    static std::vector<ColorWord> TakePixels(ImageHandle picture) {
        const platform::OwnedBlock owner(picture);
        return Pixels(picture);
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
    /// Returns how many of the samples failed: not all do where a style can go on.
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

/// A test of `kStyle`.
template <const StyleEntry& kStyle>
class StyleTest : public SlotTest {
protected:
    static const StyleEntry& Subject() { return kStyle; }

    /// Opens a dialog with the style's panel, and lets `act` work in it.
    void InDialog(const std::function<void(platform::WindowHandle)>& act) {
        const auto* const* place = std::find(StyleTable, StyleTable + kStyleCount, &kStyle);
        InPanelDialog(
            [&act](platform::WindowHandle dialog) {
                Set(dialog, kDelayEdit, 4);
                act(dialog);
            },
            {static_cast<int>(place - StyleTable)});
    }

    /// Sets the control of the style's parameter `key`, as StylePanel does.
    static void Set(platform::WindowHandle dialog, std::string_view key, int value) {
        StylePanel(kStyle, dialog).Set(key, value);
    }
    static void Set(platform::WindowHandle dialog, std::string_view key, std::string_view item) {
        StylePanel(kStyle, dialog).Set(key, item);
    }
    /// Sets a spinner of the main dialog.
    static void Set(platform::WindowHandle dialog, MainControl control, int value) {
        platform::SetControlText(dialog, control, std::to_string(value));
    }
    static int Get(platform::WindowHandle dialog, std::string_view key) {
        return StylePanel(kStyle, dialog).Get(key);
    }
    /// The id of the control of parameter `key`, for what is no number.
    static int ControlOf(std::string_view key) {
        const StyleParameter* parameter = FindParameter(kStyle, key);
        return parameter == nullptr ? 0 : parameter->ControlId;
    }

    static void Check(platform::WindowHandle dialog, std::initializer_list<std::string_view> boxes,
                      bool on) {
        for (const std::string_view box : boxes)
            Set(dialog, box, on);
    }
    /// Checks the boxes of all fill colours but the first, which has none.
    static void EnableColors(platform::WindowHandle dialog, bool on) {
        Check(dialog, {"FillEnable2", "FillEnable3", "FillEnable4", "FillEnable5"}, on);
    }
    /// Draws the panel's five fill colours and which are on. Returns those that take part:
    /// two at least, and a box in the middle of the others may be off.
    static std::vector<ColorWord> SetFillColors(platform::WindowHandle dialog,
                                                SettingDraws& draws) {
        const int last = draws.Between(2, 5);
        const int off = draws.Between(2, 7);
        std::vector<ColorWord> list;
        for (int i = 1; i <= 5; ++i) {
            const ColorWord color = draws.Color();
            const bool is_on = i == 1 || i == last || (i < last && i != off);
            Set(dialog, Numbered("FillColor", i), static_cast<int>(color));
            if (i > 1) Set(dialog, Numbered("FillEnable", i), is_on);
            if (is_on) list.push_back(color);
        }
        return list;
    }
};

}  // namespace tess::test
