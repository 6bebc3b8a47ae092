#include "platform/browser.h"

#include <string>

#include "platform/page_opener.h"

namespace platform {

namespace {
bool is_suppressed = false;
bool has_failed = false;
std::string last_page;
}  // namespace

void OpenPage(std::string_view path) {
    last_page = path;
    has_failed = !is_suppressed && !ShowPage(last_page.c_str());
}

bool OpeningHasFailed() {
    return has_failed;
}

void SuppressBrowser(bool suppressed) {
    is_suppressed = suppressed;
}

std::string_view LastOpenedPage() {
    return last_page;
}

}  // namespace platform
