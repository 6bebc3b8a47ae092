#include "tests/reference/plain_fourier.h"

#include <cstddef>
#include <vector>

#include "runtime/mathematics.h"

namespace tess::test {

namespace {

std::vector<ComplexNumber> BitReversed(const std::vector<ComplexNumber>& line) {
    std::vector<ComplexNumber> result(line.size());
    for (std::size_t i = 0; i < line.size(); ++i) {
        std::size_t mirrored = 0;
        for (std::size_t bit = 1, from = i; bit < line.size(); bit *= 2, from /= 2)
            mirrored = mirrored * 2 + from % 2;
        result[mirrored] = line[i];
    }
    return result;
}

std::vector<ComplexNumber> TransformLine(const std::vector<ComplexNumber>& line) {
    std::vector<ComplexNumber> numbers = BitReversed(line);
    for (std::size_t span = 2; span <= numbers.size(); span *= 2) {
        const double angle = -2 * 3.141592653589793 / static_cast<double>(span);
        const double sine = runtime::Sine(0.5 * angle);
        const double step_real = -2.0 * sine * sine, step_imaginary = runtime::Sine(angle);
        double real = 1.0, imaginary = 0.0;
        for (std::size_t m = 0; m < span / 2; ++m) {
            for (std::size_t i = m; i < numbers.size(); i += span) {
                ComplexNumber& first = numbers[i];
                ComplexNumber& second = numbers[i + span / 2];
                const auto product_real = static_cast<float>(real * double{second.Real} -
                                                             imaginary * double{second.Imaginary});
                const auto product_imaginary = static_cast<float>(real * double{second.Imaginary} +
                                                                  imaginary * double{second.Real});
                second.Real = first.Real - product_real;
                second.Imaginary = first.Imaginary - product_imaginary;
                first.Real += product_real;
                first.Imaginary += product_imaginary;
            }
            const double before = real;
            real = before * step_real - imaginary * step_imaginary + before;
            imaginary = imaginary * step_real + before * step_imaginary + imaginary;
        }
    }
    return numbers;
}

void TransformLines(ComplexNumber* numbers, std::size_t size, std::size_t along,
                    std::size_t across) {
    for (std::size_t line = 0; line < size; ++line) {
        std::vector<ComplexNumber> taken(size);
        for (std::size_t i = 0; i < size; ++i)
            taken[i] = numbers[line * across + i * along];
        taken = TransformLine(taken);
        for (std::size_t i = 0; i < size; ++i)
            numbers[line * across + i * along] = taken[i];
    }
}

}  // namespace

void PlainInverseFourier2D(ComplexNumber* numbers, int size) {
    const auto count = static_cast<std::size_t>(size);
    TransformLines(numbers, count, 1, count);
    TransformLines(numbers, count, count, 1);
}

}  // namespace tess::test
