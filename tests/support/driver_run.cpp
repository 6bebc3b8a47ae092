#include "tests/support/driver_run.h"

#include "platform/headless_user.h"
#include "shell/style_table.h"

namespace tess::test {

namespace {

constexpr int kFixedPalettes = 9;
constexpr int kStyleRows = kStyleCount + 5;  // more than there are, to select beyond them

struct Run {
    const DialogSettings* settings;
    const HostServices* services;
    BuildMode mode;
    int result = -1;
};

std::intptr_t PassiveDialog(platform::WindowHandle, std::uint32_t, std::uintptr_t, std::intptr_t) {
    return 0;
}

void SelectRow(platform::WindowHandle dialog, int id, int rows, int row) {
    platform::ClearItems(dialog, id);
    for (int i = 0; i < rows; ++i) {
        platform::AddItem(dialog, id, "row");
    }
    platform::SetSelection(dialog, id, row);
}

void SetDialog(platform::WindowHandle dialog, const DialogSettings& settings) {
    SelectRow(dialog, 58, kStyleRows, settings.style);
    SelectRow(dialog, 13, kFixedPalettes, settings.palette);
    platform::SetChecked(dialog, 10, settings.true_color);
    platform::SetChecked(dialog, 14, settings.custom_palette);
    platform::SetChecked(dialog, 15, settings.dither);
    platform::SetChecked(dialog, 19, settings.supercompress);
    platform::SetChecked(dialog, 20, settings.comment);
    platform::SetChecked(dialog, 21, settings.mask_background);
}

void PressOnce(platform::WindowHandle dialog, void* context) {
    Run& run = *static_cast<Run*>(context);
    SetDialog(dialog, *run.settings);
    platform::FailAllocation(run.settings->failing_allocation, run.settings->later_ones_fail_too);
    run.result = BuildAnimation(dialog, run.services, run.mode);
    platform::FailAllocation(0);
    platform::EndDialog(dialog, 0);
}

}  // namespace

int RunDriver(const DialogSettings& settings, const HostServices* services, BuildMode mode) {
    Run run{&settings, services, mode};
    platform::SetHeadlessUser(PressOnce, &run);
    platform::RunDialog(1000, nullptr, PassiveDialog, nullptr);
    platform::SetHeadlessUser(nullptr, nullptr);
    return run.result;
}

}  // namespace tess::test
