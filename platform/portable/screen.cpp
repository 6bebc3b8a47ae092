#include "platform/screen.h"

namespace platform {

PixelSize ScreenSize() {
    return {1920, 1080};
}

}  // namespace platform
