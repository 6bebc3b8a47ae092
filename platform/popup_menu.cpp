#include "platform/popup_menu.h"

#include "platform/popup_menu_run.h"

namespace platform {

namespace {

MenuAnswer menu_answer = nullptr;
void* menu_answer_context = nullptr;

}  // namespace

void ShowPopupMenu(WindowHandle owner, std::span<const MenuItem> items) {
    const int id = menu_answer != nullptr ? menu_answer(items, menu_answer_context)
                                          : RunPopupMenu(owner, items);
    if (id != 0) PostCommand(owner, id);
}

void SetMenuAnswer(MenuAnswer answer, void* context) {
    menu_answer = answer;
    menu_answer_context = context;
}

}  // namespace platform
