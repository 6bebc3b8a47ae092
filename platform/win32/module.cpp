#include "platform/win32/module.h"

namespace platform {

namespace {
HINSTANCE named_module = nullptr;
}

void SetModule(HINSTANCE module) {
    named_module = module;
}

HINSTANCE Module() {
    return named_module != nullptr ? named_module : GetModuleHandleA(nullptr);
}

}  // namespace platform
