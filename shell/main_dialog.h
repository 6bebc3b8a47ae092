// The whole user interface: one modal dialog with the live sample, the output
// settings and commands, and the panels of all styles, of which one is shown.
#pragma once

#include <cstdint>

#include "pipeline/image_buffers.h"
#include "platform/dialog.h"
#include "shell/control_contract.h"
#include "shell/host_interface.h"

namespace tess {

inline constexpr int kMainDialogTemplate = 1000;

/// Commands that are posted, not pressed; those of documents stand in
/// shell/document_commands.h.
enum MainCommand : int {
    kBuildCommand = 41,
    kTestCommand = 42,
    kPreviewCommand = 43,
};

/// Controls with this id or a higher one belong to panels or choose among them:
/// a change of one repaints the sample.
inline constexpr int kFirstSampleControl = 50;

/// Runs the dialog modally. Returns 1 after a Build, 0 after Cancel.
int RunMainDialog(platform::WindowHandle owner, const HostServices* services);

/// Shows the panel of one style and hides all others.
void ShowStyleControls(platform::WindowHandle dialog, int style);

/// What stands in the sample box.
struct Sample {
    ImageHandle Image;     ///< owned by the caller; null when the style gave none
    int OffsetX, OffsetY;  ///< of the picture's top left in the box; negative shows its centre
    ColorWord Margin;      ///< colour of what the picture does not cover
};

/// The background that a style told, or white for one without.
[[nodiscard]] ColorWord MarginColor(ColorWord background);

/// Renders the selected style's sample for a box of `width` by `height` and writes
/// its size to the size line.
[[nodiscard]] Sample RenderSample(platform::WindowHandle dialog, int width, int height);

/// Adds painting and the logo to the dialog. Windows only.
void InstallMainDialogView();

}  // namespace tess
