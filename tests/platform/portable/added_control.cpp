#include "tests/platform/added_control.h"

#include "platform/portable/window_record.h"

namespace platform::test {

void AddControlTo(WindowHandle dialog, int id, const char* window_class, std::uint32_t style) {
    AddControl(dialog, {window_class, "", id, style, 0, 0, 50, 50}, true);
}

}  // namespace platform::test
