#include "tests/shell/added_list_box.h"

#include "platform/portable/window_record.h"

namespace tess::test {

void AddListBox(platform::WindowHandle dialog, int id) {
    platform::AddControl(dialog, {"LISTBOX", "", id, 0, 0, 0, 50, 50}, true);
}

}  // namespace tess::test
