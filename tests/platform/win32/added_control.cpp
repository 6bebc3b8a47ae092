#include "tests/platform/added_control.h"

#include "platform/win32/dialog_run.h"

namespace platform::test {

void AddControlTo(WindowHandle dialog, int id, const char* window_class, std::uint32_t style) {
    RegisterCommonControls();
    CreateWindowExA(0, window_class, "", WS_CHILD | WS_VISIBLE | style, 0, 0, 50, 50,
                    WindowOf(dialog), reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), nullptr,
                    nullptr);
}

}  // namespace platform::test
