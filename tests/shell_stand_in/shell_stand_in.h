// Stands in for shell/ in test programs of the folders below it: the symbols of the
// contract headers, with a style of the test's own in every row of StyleTable.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "shell/style_table.h"

namespace tess::test {

/// The row without a Build slot.
inline constexpr int kRowWithoutBuild = 7;

struct ShellStandIn {
    /// What every row's Build does; without one it fails. Recorded as "Build ROW".
    std::function<int(StyleContext*)> build;
    /// What BackgroundQuery answers to mode 0. Recorded as "BackgroundQuery ROW MODE".
    ColorWord background = kNoBackground;
    /// LoadStringText finds no entry.
    bool damaged_strings = false;
    /// What AskYesNo answers; recorded as "Question TEXT".
    bool says_yes = false;
    /// What ShowMessage and AskYesNo were given; recorded as "Message TEXT".
    std::vector<std::string> messages;
};

/// The state of the stand-in, as a test sets and reads it.
[[nodiscard]] ShellStandIn& Shell();

}  // namespace tess::test
