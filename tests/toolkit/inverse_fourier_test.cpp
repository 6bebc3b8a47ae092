#include "toolkit/inverse_fourier.h"

#include <cmath>
#include <cstring>
#include <gtest/gtest.h>
#include <random>
#include <vector>

#include "tests/reference/plain_fourier.h"

namespace tess {
namespace {

std::vector<ComplexNumber> RandomNumbers(int size, unsigned seed) {
    std::mt19937 random(seed);
    std::uniform_real_distribution<float> part(-1000.0F, 1000.0F);
    std::vector<ComplexNumber> numbers(static_cast<std::size_t>(size) *
                                       static_cast<std::size_t>(size));
    for (ComplexNumber& number : numbers)
        number = {part(random), part(random)};
    return numbers;
}

TEST(InverseFourier, SameBytesAsOneLineAfterAnother) {
    for (int size = 2; size <= 128; size *= 2) {
        std::vector<ComplexNumber> fast = RandomNumbers(size, static_cast<unsigned>(size));
        std::vector<ComplexNumber> plain = fast;
        InverseFourier2D(fast.data(), size);
        test::PlainInverseFourier2D(plain.data(), size);
        EXPECT_EQ(std::memcmp(fast.data(), plain.data(), fast.size() * sizeof(ComplexNumber)), 0)
            << size;
    }
}

TEST(InverseFourier, IsTheSumOfTurnedNumbers) {
    constexpr int kSize = 8;
    const std::vector<ComplexNumber> source = RandomNumbers(kSize, 3);
    std::vector<ComplexNumber> result = source;
    InverseFourier2D(result.data(), kSize);
    for (int v = 0; v < kSize; ++v) {
        for (int u = 0; u < kSize; ++u) {
            double real = 0.0, imaginary = 0.0;
            for (int i = 0; i < kSize * kSize; ++i) {
                const double turn =
                    -2.0 * 3.141592653589793 * (i / kSize * v + i % kSize * u) / kSize;
                const ComplexNumber number = source[static_cast<std::size_t>(i)];
                real += number.Real * std::cos(turn) - number.Imaginary * std::sin(turn);
                imaginary += number.Real * std::sin(turn) + number.Imaginary * std::cos(turn);
            }
            const ComplexNumber found = result[static_cast<std::size_t>(v * kSize + u)];
            EXPECT_NEAR(found.Real, real, 0.02);
            EXPECT_NEAR(found.Imaginary, imaginary, 0.02);
        }
    }
}

TEST(InverseFourier, OneNumberAtTheOriginSpreadsEvenly) {
    std::vector<ComplexNumber> numbers(16, ComplexNumber{0.0F, 0.0F});
    numbers[0] = {3.0F, 0.0F};
    InverseFourier2D(numbers.data(), 4);
    for (const ComplexNumber& number : numbers)
        EXPECT_EQ(number.Real, 3.0F);
}

}  // namespace
}  // namespace tess
