// The inverse Fourier transform of a square, in place (J. Cooley and J. Tukey, "An
// Algorithm for the Machine Calculation of Complex Fourier Series", 1965).
#pragma once

namespace tess {

struct ComplexNumber {
    float Real, Imaginary;
};

/// Transforms `size` x `size` numbers, row by row in memory. Nothing is normalised.
/// Requires: `size` is a power of two from 2 on.
void InverseFourier2D(ComplexNumber* numbers, int size);

}  // namespace tess
