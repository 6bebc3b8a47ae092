#include "tests/shell/added_list_box.h"

#include "platform/win32/views.h"

namespace tess::test {

void AddListBox(platform::WindowHandle dialog, int id) {
    CreateWindowExA(0, "LISTBOX", "", WS_CHILD | WS_VISIBLE, 0, 0, 50, 50,
                    platform::WindowOf(dialog), reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)),
                    nullptr, nullptr);
}

}  // namespace tess::test
