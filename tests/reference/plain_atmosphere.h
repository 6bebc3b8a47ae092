// Atmosphere's heights step by step, with no tables kept.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <vector>

#include "runtime/mathematics.h"
#include "runtime/random.h"
#include "tests/reference/plain_fourier.h"

namespace tess::test {

struct PlainAtmosphereSettings {
    int size = 192;
    int density = 32;
    int mesh = 8;
    int elevation = 10;
    unsigned seed = 9872;
};

/// The random coefficients of a periodic field, before they are transformed.
class PlainSpectrum {
public:
    PlainSpectrum(int size, double exponent)
        : size_(size),
          exponent_(exponent),
          numbers_(static_cast<std::size_t>(size) * static_cast<std::size_t>(size)) {
        const int half = size / 2;
        for (int i = 0; i <= half; ++i) {
            for (int j = 0; j <= half; ++j)
                DrawPair(i, j, {i, j}, {i == 0 ? 0 : size - i, j == 0 ? 0 : size - j});
        }
        At({half, 0}).Imaginary = 0.0F;
        At({0, half}).Imaginary = 0.0F;
        At({half, half}).Imaginary = 0.0F;
        for (int i = 1; i < half; ++i) {
            for (int j = 1; j < half; ++j)
                DrawPair(i, j, {i, size - j}, {size - i, j});
        }
    }

    /// The real parts of the field.
    [[nodiscard]] std::vector<float> Transform() {
        PlainInverseFourier2D(numbers_.data(), size_);
        std::vector<float> field;
        for (const ComplexNumber& number : numbers_)
            field.push_back(number.Real);
        return field;
    }

private:
    struct Place {
        int row, column;
    };

    ComplexNumber& At(Place place) {
        return numbers_[static_cast<std::size_t>(place.row * size_ + place.column)];
    }

    static double Deviate() {
        const double add = std::sqrt(12.0);
        const double factor = 2 * add / (32767.0 * 4);
        double sum = 0.0;
        for (int i = 0; i < 4; ++i)
            sum += runtime::rand();
        return factor * sum - add;
    }

    /// Draws the coefficient of frequencies `i` and `j`, and its conjugate.
    void DrawPair(int i, int j, Place place, Place mirrored) {
        const double phase = (runtime::rand() & 0x7FFF) * 2 * 3.141592653589793 / 32767.0;
        double amplitude = 0.0;
        if (i != 0 || j != 0) {
            const double fall = runtime::Power(i * i + j * j, -(exponent_ + 1) / 2);
            amplitude = fall * Deviate();
        }
        const double c = amplitude * runtime::Cosine(phase);
        const double s = amplitude * runtime::Sine(phase);
        At(place) = {static_cast<float>(c), static_cast<float>(s)};
        At(mirrored) = {static_cast<float>(c), static_cast<float>(-s)};
    }

    int size_;
    double exponent_;
    std::vector<ComplexNumber> numbers_;
};

/// The field of `n` x `n` points as bytes, the last one twice.
inline std::vector<int> PlainCloudSamples(const PlainAtmosphereSettings& settings, int n) {
    runtime::srand(settings.seed);
    std::vector<float> field = PlainSpectrum(n, 3.0 - settings.density / 10.0).Transform();
    const double power = settings.elevation / 10.0;
    for (float& value : field) {
        if (power != 1.0 && value > 0.0F)
            value = static_cast<float>(runtime::Power(static_cast<double>(value), power));
    }
    const auto least = static_cast<double>(*std::min_element(field.begin(), field.end()));
    const auto most = static_cast<double>(*std::max_element(field.begin(), field.end()));
    std::vector<int> samples;
    for (const float value : field) {
        const auto scaled = static_cast<float>((static_cast<double>(value) - (least + most) * 0.5) /
                                               ((most - least) * 0.5));
        samples.push_back(static_cast<int>((static_cast<double>(scaled) + 1.0) * 255.0 * 0.5));
    }
    samples.push_back(samples.back());
    return samples;
}

/// The heights of the tile, the top row first.
inline std::vector<int> PlainAtmosphereHeights(const PlainAtmosphereSettings& settings) {
    const int n = 1 << settings.mesh;
    const std::vector<int> samples = PlainCloudSamples(settings, n);
    // Beyond the last row there is nothing, and its weight is 0.
    const auto b = [&samples](int i) {
        const auto index = static_cast<std::size_t>(i);
        return index < samples.size() ? static_cast<double>(samples[index]) : 0.0;
    };
    std::vector<int> heights;
    for (int y = 0; y < settings.size; ++y) {
        const double t = static_cast<double>(y) / (settings.size - 1) * (n - 1);
        const int r0 = n * static_cast<int>(std::floor(t));
        const int r1 = r0 + n;
        const double fy = t - std::floor(t);
        for (int x = 0; x < settings.size; ++x) {
            const double s = static_cast<double>(x) / (settings.size - 1) * (n - 1);
            const int x0 = static_cast<int>(std::floor(s));
            const int x1 = x0 + 1;
            const double fx = s - x0;
            heights.push_back(static_cast<int>(b(x0 + r0) * (1 - fx) * (1 - fy) +
                                               b(x0 + r1) * (1 - fx) * fy + b(x1 + r1) * fx * fy +
                                               b(x1 + r0) * fx * (1 - fy)));
        }
    }
    return heights;
}

}  // namespace tess::test
