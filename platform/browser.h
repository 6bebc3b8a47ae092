// Opening a page with the user's browser.
#pragma once

#include <string_view>

namespace platform {

/// Opens the page at `path`, maximised where the system offers that. Failure fails
/// nothing: the page is there, and the user can open it.
void OpenPage(std::string_view path);
/// Whether the last page that was to be opened could not be.
[[nodiscard]] bool OpeningHasFailed();
/// Keeps OpenPage from opening anything (the last path can still be asked for).
void SuppressBrowser(bool suppressed);
[[nodiscard]] std::string_view LastOpenedPage();

}  // namespace platform
