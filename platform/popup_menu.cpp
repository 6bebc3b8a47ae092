#include "platform/popup_menu.h"

#include "platform/popup_menu_run.h"

namespace platform {

namespace {

MenuAnswer menu_answer = nullptr;
void* menu_answer_context = nullptr;

void ShowMenu(WindowHandle owner, std::span<const MenuItem> items, const MenuPlace* place) {
    const int id = menu_answer != nullptr ? menu_answer(items, menu_answer_context)
                                          : RunPopupMenu(owner, items, place);
    if (id != 0) PostCommand(owner, id);
}

}  // namespace

void ShowPopupMenu(WindowHandle owner, std::span<const MenuItem> items) {
    ShowMenu(owner, items, nullptr);
}

void ShowPopupMenuAt(WindowHandle owner, std::span<const MenuItem> items, int x, int y) {
    const MenuPlace place = {x, y};
    ShowMenu(owner, items, &place);
}

void SetMenuAnswer(MenuAnswer answer, void* context) {
    menu_answer = answer;
    menu_answer_context = context;
}

}  // namespace platform
