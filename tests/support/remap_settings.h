// The remapping settings for the time of a test.
#pragma once

#include <cstdint>

#include "pipeline/remapping.h"

namespace tess {

class RemapSettings {
public:
    RemapSettings(std::uint32_t fast_remap, std::uint32_t brightness, std::uint32_t contrast) {
        FastRemap = fast_remap;
        DitherBrightness = brightness;
        DitherContrast = contrast;
    }
    explicit RemapSettings(std::uint32_t fast_remap) : RemapSettings(fast_remap, 20, 20) {}
    RemapSettings(const RemapSettings&) = delete;
    RemapSettings& operator=(const RemapSettings&) = delete;
    ~RemapSettings() {
        FastRemap = fast_remap_;
        DitherBrightness = brightness_;
        DitherContrast = contrast_;
    }

private:
    std::uint32_t fast_remap_ = FastRemap;
    std::uint32_t brightness_ = DitherBrightness;
    std::uint32_t contrast_ = DitherContrast;
};

}  // namespace tess
