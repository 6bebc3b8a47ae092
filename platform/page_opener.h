// How each port of platform/browser.h gets at the user's browser.
#pragma once

namespace platform {

/// Asks the system to show the page at `path`. Returns false when the system cannot, as far
/// as that is known within a moment; the page may then still be shown later.
[[nodiscard]] bool ShowPage(const char* path);

}  // namespace platform
