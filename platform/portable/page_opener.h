// How long the user's opener of pages is waited for.
#pragma once

namespace platform {

/// As ShowPage (platform/page_opener.h). That there is no opener is always found out; one that
/// has begun is taken to show the page when it runs for so many milliseconds, and is waited for
/// to its end if that is negative.
[[nodiscard]] bool ShowPageWithin(const char* path, int milliseconds);

}  // namespace platform
