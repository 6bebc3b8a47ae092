#include "platform/graphics_service.h"

namespace platform {

int StartGraphics(std::uint64_t* token) {
    *token = 0;
    return 1;
}

void StopGraphics(std::uint64_t) {}

RunFonts::RunFonts() = default;
RunFonts::~RunFonts() = default;

}  // namespace platform
