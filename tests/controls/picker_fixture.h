// A dialog with one picker, of any kind, on a button of the fountain style's panel.
#pragma once

#include <cstdio>
#include <string>
#include <vector>

#include "controls/direction_picker.h"
#include "shell/control_contract.h"
#include "tests/platform/dialog_fixture.h"
#include "tests/support/scratch_folder.h"

namespace tess::test {

class DirectionPickerTest : public DialogFixture {
protected:
    static constexpr int kPicker = 272;

    /// Opens a dialog with a picker of kind `tag` at `variable`'s value, and does
    /// `action` in it.
    void WithPicker(const char* tag, const Handler& action) {
        WithMainDialog([&](platform::WindowHandle dialog) {
            ASSERT_EQ(platform::ClonePanel(7404, dialog), 1);
            platform::ShowControl(dialog, kPicker, true);
            BindDirectionPicker(dialog, kPicker, tag, &variable);
            log.clear();
            action(dialog);
        });
    }

    static void PressAt(platform::WindowHandle dialog, int x, int y) {
        const platform::WindowHandle control = platform::Control(dialog, kPicker);
        const std::intptr_t place = (x & 0xFFFF) | (y & 0xFFFF) << 16;
        platform::SendToWindow(control, platform::kMessageLeftButtonDown, 1, place);
        platform::SendToWindow(control, platform::kMessageLeftButtonUp, 0, place);
    }
    static std::intptr_t Load(platform::WindowHandle dialog, const char* line) {
        return platform::SendToWindow(platform::Control(dialog, kPicker), LoadControl, 0,
                                      reinterpret_cast<std::intptr_t>(line));
    }
    static std::string Saved(platform::WindowHandle dialog) {
        const std::vector<std::uint8_t> bytes = BytesWritten([dialog](std::FILE* stream) {
            platform::SendToWindow(platform::Control(dialog, kPicker), SaveControl, 0,
                                   reinterpret_cast<std::intptr_t>(stream));
        });
        return {bytes.begin(), bytes.end()};
    }

    std::uint32_t variable = 1;
};

}  // namespace tess::test
