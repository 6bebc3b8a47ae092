#include "runtime/random.h"

#include <cstdint>

namespace runtime {

namespace {
std::uint32_t state = 1;
}

void srand(unsigned seed) {
    state = seed;
}

int rand() {
    state = state * 214013u + 2531011u;
    return static_cast<int>(state >> 16 & 0x7FFF);
}

}  // namespace runtime
