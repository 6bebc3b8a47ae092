// How each port of platform/browser.h gets at the user's browser.
#pragma once

namespace platform {

/// Asks the system to show the page at `path`, and does not wait for it.
void ShowPage(const char* path);

}  // namespace platform
