// Periodic random fields by spectral synthesis (D. Saupe, in "The Science of Fractal
// Images", 1988): random Fourier coefficients, falling off with a power of the
// frequency, and their inverse transform.
#pragma once

#include <cstddef>

#include "platform/block_guards.h"
#include "toolkit/inverse_fourier.h"

namespace tess {

/// size x size numbers, row by row, of which the real parts count.
using Spectrum = platform::WorkArray<ComplexNumber>;

/// Turns a draw, 0 to 32767, into a phase of 0 to a whole turn. The field's makers
/// round it in ways of their own.
using PhaseOfDraw = double (*)(int draw);

/// Returns a field whose amplitudes fall with `exponent`; false without memory. It
/// goes on with the generator's present sequence. Requires: `size` is a power of two.
[[nodiscard]] Spectrum SpectralSynthesis(int size, double exponent, PhaseOfDraw phase_of);

/// Lifts the real parts above 0 to a power; 1 leaves them as they are.
void LiftHeights(Spectrum& field, double power);

/// Scales the real parts to -1 to 1. A field without any height becomes 0.
void ScaleHeights(Spectrum& field);

}  // namespace tess
