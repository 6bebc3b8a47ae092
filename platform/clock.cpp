#include "platform/clock.h"

#include <ctime>

namespace platform {

namespace {
constexpr std::size_t kTimeTextLength = 24;  // without the line feed that follows
}

std::string CurrentTimeText() {
    const std::time_t now = std::time(nullptr);
    const char* text = std::ctime(&now);
    return text == nullptr ? std::string(kTimeTextLength, ' ') : std::string(text, kTimeTextLength);
}

}  // namespace platform
