// The C runtime's generator as Windows has it: one linear congruential sequence
// for the whole program, the same in both builds.
#pragma once

namespace runtime {

/// Starts the sequence of `seed`.
void srand(unsigned seed);

/// Returns the next draw, 0 to 32767.
[[nodiscard]] int rand();

/// Makes a draw whose value has no use but whose place in the sequence has.
inline void SkipDraw() {
    static_cast<void>(rand());
}

}  // namespace runtime
