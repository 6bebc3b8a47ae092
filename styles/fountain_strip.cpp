#include "styles/fountain_strip.h"

#include "fills/fountain_control.h"

namespace tess {

ImageHandle RenderButtonFountain(platform::WindowHandle dialog, int control, int width,
                                 int height) {
    const LockedFountain fountain = LockFountain(platform::Control(dialog, control));
    return fountain ? RenderFountainImage(*fountain.Get(), width, height) : nullptr;
}

}  // namespace tess
