// Edits that take digits and "-" alone, in the dialogs of the fills' editors.
#pragma once

#include <cstdint>

#include "platform/dialog.h"

namespace tess {

/// What a number-only edit does with a character that is typed.
enum class TypedCharacter { Passed, Refused, SelectsAll };

/// Digits, "-" and control characters pass, all other printable ones are refused;
/// Ctrl+A selects all.
[[nodiscard]] TypedCharacter JudgeTypedCharacter(std::uint32_t character);

/// Makes edit `id` take numbers alone. It gets no class tag.
void MakeNumberEdit(platform::WindowHandle dialog, int id);

/// What MakeNumberEdit installs.
std::intptr_t NumberEditProcedure(platform::WindowHandle control, std::uint32_t message,
                                  std::uintptr_t w, std::intptr_t l);

/// Adds the keyboard to all number-only edits. Windows only.
void InstallNumberEditView();

}  // namespace tess
