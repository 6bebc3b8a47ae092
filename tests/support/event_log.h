// What happened, in order, as lines of text.
#pragma once

#include <string>
#include <vector>

namespace tess::test {

/// The one log of a test; who records in it says so in its header.
[[nodiscard]] inline std::vector<std::string>& Events() {
    static std::vector<std::string> events;
    return events;
}

}  // namespace tess::test
