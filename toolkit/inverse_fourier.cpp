// Radix-2 passes along the rows, then along the columns. Along each, the numbers
// are put in bit-reversed order; then spans of 2, 4, ... `size` are made of their
// halves, with the factor of the m-th pair turned by m times -2 pi / span:
//
//   product = factor x second;  second = first - product;  first = first + product
//
// The factors come from a recurrence in double precision; the product is taken in
// double and narrowed, the numbers are single. Lines do not meet, so a pass may
// take its rows one after another, or whole rows of columns at once, with the same
// result.
#include "toolkit/inverse_fourier.h"

#include <algorithm>
#include <cstddef>
#include <numbers>
#include <utility>

#include "runtime/mathematics.h"

namespace tess {

namespace {

/// The factors of one span, one after another.
class Factors {
public:
    explicit Factors(int span) {
        const double angle = -2 * std::numbers::pi / span;
        const double half_sine = runtime::Sine(0.5 * angle);
        step_real_ = -2.0 * half_sine * half_sine;
        step_imaginary_ = runtime::Sine(angle);
    }

    void Restart() {
        real_ = 1.0;
        imaginary_ = 0.0;
    }
    void Advance() {
        const double real = real_;
        real_ = real * step_real_ - imaginary_ * step_imaginary_ + real;
        imaginary_ = imaginary_ * step_real_ + real * step_imaginary_ + imaginary_;
    }

    void Combine(ComplexNumber& first, ComplexNumber& second) const {
        const double second_real = second.Real, second_imaginary = second.Imaginary;
        const auto product_real =
            static_cast<float>(real_ * second_real - imaginary_ * second_imaginary);
        const auto product_imaginary =
            static_cast<float>(real_ * second_imaginary + imaginary_ * second_real);
        second = {first.Real - product_real, first.Imaginary - product_imaginary};
        first = {first.Real + product_real, first.Imaginary + product_imaginary};
    }

private:
    double step_real_, step_imaginary_;
    double real_ = 1.0, imaginary_ = 0.0;
};

/// Calls `swap(i, j)` for the pairs below `size` whose bits mirror each other.
template <class Swap>
void ReverseBits(int size, Swap swap) {
    int reversed = 0;
    for (int i = 0; i < size; ++i) {
        if (i < reversed) swap(i, reversed);
        int bit = size >> 1;
        for (; bit >= 1 && reversed >= bit; bit >>= 1)
            reversed -= bit;
        reversed += bit;
    }
}

void TransformRows(ComplexNumber* numbers, std::ptrdiff_t size) {
    const int count = static_cast<int>(size);
    for (std::ptrdiff_t y = 0; y < size; ++y) {
        ComplexNumber* row = numbers + y * size;
        ReverseBits(count, [row](int i, int j) { std::swap(row[i], row[j]); });
    }
    for (int span = 2; span <= count; span *= 2) {
        Factors factors(span);
        const int half = span / 2;
        for (std::ptrdiff_t y = 0; y < size; ++y) {
            ComplexNumber* row = numbers + y * size;
            factors.Restart();
            for (int m = 0; m < half; ++m, factors.Advance()) {
                for (int i = m; i < count; i += span)
                    factors.Combine(row[i], row[i + half]);
            }
        }
    }
}

void TransformColumns(ComplexNumber* numbers, std::ptrdiff_t size) {
    const int count = static_cast<int>(size);
    ReverseBits(count, [numbers, size](int i, int j) {
        std::swap_ranges(numbers + i * size, numbers + (i + 1) * size, numbers + j * size);
    });
    for (int span = 2; span <= count; span *= 2) {
        Factors factors(span);
        const int half = span / 2;
        for (int m = 0; m < half; ++m, factors.Advance()) {
            for (int i = m; i < count; i += span) {
                ComplexNumber* first = numbers + i * size;
                ComplexNumber* second = numbers + (i + half) * size;
                for (std::ptrdiff_t x = 0; x < size; ++x)
                    factors.Combine(first[x], second[x]);
            }
        }
    }
}

}  // namespace

void InverseFourier2D(ComplexNumber* numbers, int size) {
    TransformRows(numbers, size);
    TransformColumns(numbers, size);
}

}  // namespace tess
