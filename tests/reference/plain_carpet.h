// Carpet's heights step by step: the noise with all of its tables, the sums of all layers,
// the three passes of the stretch, and the field among its mirror images.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <vector>

#include "pipeline/image_buffers.h"
#include "platform/block_guards.h"
#include "runtime/random.h"
#include "tests/reference/plain_scaling.h"

namespace tess::test {

struct PlainCarpetSettings {
    int size = 128;
    int scale = 60;
    int layers = 2;
    unsigned seed = 10356;
};

/// Gradient noise after K. Perlin's program for "An Image Synthesizer" (1985).
class PlainNoise {
public:
    PlainNoise() {
        constexpr std::size_t kSize = 256;
        for (std::size_t i = 0; i < kSize; ++i) {
            order_[i] = static_cast<int>(i);
            for (int unread = 0; unread < 3; ++unread)  // the gradients of fewer dimensions
                runtime::SkipDraw();
            float square = 0.0F;
            for (float& part : gradients_[i]) {
                part = static_cast<float>((runtime::rand() % 512 - 256) * 0.00390625);
                square += part * part;
            }
            const float length = std::sqrt(square);
            for (float& part : gradients_[i])
                part = part / length;
        }
        for (std::size_t i = kSize - 1; i >= 1; --i) {
            const auto j = static_cast<std::size_t>(runtime::rand() % 256);
            std::swap(order_[i], order_[j]);
        }
        for (std::size_t i = 0; i < kSize + 2; ++i) {
            order_[kSize + i] = order_[i];
            std::copy(gradients_[i], gradients_[i] + 3, gradients_[kSize + i]);
        }
    }

    [[nodiscard]] float At(float x, float y, float z) const {
        const Axis axes[3] = {Axis(x), Axis(y), Axis(z)};
        // The eight corners, the first axis varying fastest, then mixed axis by axis.
        float values[8];
        for (int corner = 0; corner < 8; ++corner) {
            int entry = 0;
            const float* from[3];
            for (int a = 0; a < 3; ++a) {
                const int side = corner >> a & 1;
                entry += axes[a].cell[side];
                if (a < 2) entry = order_[entry];
                from[a] = &axes[a].from[side];
            }
            const float(&gradient)[3] = gradients_[entry];
            values[corner] =
                *from[0] * gradient[0] + *from[1] * gradient[1] + *from[2] * gradient[2];
        }
        int left = 4;
        for (const Axis& axis : axes) {
            for (int i = 0; i < left; ++i) {
                const float low = values[2 * i];
                values[i] = low + axis.weight * (values[2 * i + 1] - low);
            }
            left /= 2;
        }
        return values[0];
    }

private:
    struct Axis {
        int cell[2];
        float from[2];
        float weight;

        explicit Axis(float place) {
            const float t = place + 4096.0F;
            cell[0] = static_cast<int>(t) & 255;
            cell[1] = (cell[0] + 1) & 255;
            from[0] = t - static_cast<float>(static_cast<int>(t));
            from[1] = from[0] - 1.0F;
            weight = from[0] * from[0] * (3.0F - 2.0F * from[0]);
        }
    };

    int order_[256 + 258];
    float gradients_[256 + 258][3];
};

inline std::vector<int> PlainNoiseLayer(const PlainCarpetSettings& settings, int multiplier) {
    for (int i = 0; i < 256 * 3 + 256; ++i)
        runtime::SkipDraw();
    const PlainNoise noise;
    const auto side = static_cast<float>(settings.size);
    const auto k = static_cast<float>(multiplier * (settings.scale / 10.0));
    std::vector<int> heights;
    for (int y = 0; y < settings.size; ++y) {
        for (int x = 0; x < settings.size; ++x) {
            const float value = noise.At(static_cast<float>(x) / side * k,
                                         static_cast<float>(y) / side * k, 1.0F / 8.0F);
            heights.push_back(
                std::clamp(static_cast<int>(static_cast<double>(value) * 255.0), 0, 255));
        }
    }
    return heights;
}

/// The heights before they are stretched.
inline std::vector<int> PlainLayeredNoise(const PlainCarpetSettings& settings) {
    runtime::srand(settings.seed);
    std::vector<int> sums = PlainNoiseLayer(settings, 1);
    if (settings.layers == 1) return sums;
    for (int i = 1; i < settings.layers; ++i) {
        const std::vector<int> layer = PlainNoiseLayer(settings, 1 << i);
        for (std::size_t n = 0; n < sums.size(); ++n)
            sums[n] += layer[n];
    }
    for (int& sum : sums)
        sum = std::min(sum / 8, 255);
    return sums;
}

inline void PlainStretch(std::vector<int>& heights) {
    int least = 255;
    for (const int height : heights)
        least = std::min(least, height);
    int most = 0;
    for (int& height : heights) {
        height -= least;
        most = std::max(most, height);
    }
    const int k = 25500 / (most == 0 ? 1 : most);
    for (int& height : heights)
        height = height * k / 100;
}

inline std::vector<int> PlainMirror(const std::vector<int>& heights, int size) {
    const platform::OwnedBlock large(NewPackedDib(2 * size, 2 * size, nullptr, 24));
    {
        const LockedImage field(large.Get());
        const int a = size / 2;
        const auto reflected = [=](int n) { return n < a ? a - 1 - n : 2 * size - 1 - (n - a); };
        for (int i = 0; i < size * size; ++i) {
            const int x = i % size;
            const int y = i / size;
            const auto height = static_cast<std::uint32_t>(heights[static_cast<std::size_t>(i)]);
            SetDibPixel(field, a + x, a + y, height);
            SetDibPixel(field, reflected(x), a + y, height);
            SetDibPixel(field, a + x, reflected(y), height);
            SetDibPixel(field, reflected(x), reflected(y), height);
        }
    }
    const platform::OwnedBlock half(reference::PlainScaleImagePercent(large.Get(), 50, 50));
    const LockedImage field(half.Get());
    std::vector<int> mirrored;
    for (int i = 0; field && i < size * size; ++i)
        mirrored.push_back(RedOf(GetDibPixel(field, i % size, i / size)));
    return mirrored;
}

/// The heights of the tile, the top row first.
inline std::vector<int> PlainCarpetHeights(const PlainCarpetSettings& settings) {
    std::vector<int> heights = PlainLayeredNoise(settings);
    PlainStretch(heights);
    return PlainMirror(heights, settings.size);
}

}  // namespace tess::test
