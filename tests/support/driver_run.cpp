#include "tests/support/driver_run.h"

#include "platform/dialog.h"
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

/// Does it all while the dialog opens, so that it never has to be shown.
std::intptr_t DialogProcedure(platform::WindowHandle dialog, std::uint32_t message, std::uintptr_t,
                              std::intptr_t l) {
    if (message != platform::kMessageOpen) return 0;
    Run& run = *reinterpret_cast<Run*>(l);
    SetDialog(dialog, *run.settings);
    platform::FailAllocation(run.settings->failing_allocation, run.settings->later_ones_fail_too);
    run.result = BuildAnimation(dialog, run.services, run.mode);
    platform::FailAllocation(0);
    platform::EndDialog(dialog, 0);
    return 1;
}

}  // namespace

int RunDriver(const DialogSettings& settings, const HostServices* services, BuildMode mode) {
    Run run{&settings, services, mode};
    platform::RunDialog(1000, nullptr, DialogProcedure, &run);
    return run.result;
}

}  // namespace tess::test
