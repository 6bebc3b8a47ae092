// Settings drawn by tests.
#pragma once

#include <random>

#include "pipeline/image_buffers.h"

namespace tess::test {

/// Numbers that are the same on every machine.
class SettingDraws {
public:
    explicit SettingDraws(unsigned seed) : random_(seed) {}

    int Between(int least, int most) {
        return least + static_cast<int>(random_() % static_cast<unsigned>(most - least + 1));
    }
    ColorWord Color() { return static_cast<ColorWord>(random_() & 0xFFFFFF); }

private:
    std::mt19937 random_;
};

}  // namespace tess::test
