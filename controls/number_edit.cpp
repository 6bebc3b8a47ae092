#include "controls/number_edit.h"

namespace tess {

TypedCharacter JudgeTypedCharacter(std::uint32_t character) {
    constexpr std::uint32_t kControlA = 1;
    constexpr std::uint32_t kDelete = 127;  // typed by Ctrl+Backspace
    if (character == kControlA) return TypedCharacter::SelectsAll;
    if (character < ' ' || character == kDelete) return TypedCharacter::Passed;
    const bool is_of_a_number = (character >= '0' && character <= '9') || character == '-';
    return is_of_a_number ? TypedCharacter::Passed : TypedCharacter::Refused;
}

void MakeNumberEdit(platform::WindowHandle dialog, int id) {
    platform::InstallControl(dialog, id, "", NumberEditProcedure);
}

std::intptr_t NumberEditProcedure(platform::WindowHandle control, std::uint32_t message,
                                  std::uintptr_t w, std::intptr_t l) {
    return platform::CallOriginal(control, message, w, l);
}

}  // namespace tess
