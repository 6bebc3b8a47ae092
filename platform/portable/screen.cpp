#include "platform/screen.h"

namespace platform {

PixelSize ScreenSize() {
    return {1920, 1080};
}

int ScrollBarWidth() {
    return 17;
}

}  // namespace platform
