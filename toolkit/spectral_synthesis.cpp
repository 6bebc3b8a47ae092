// The spectrum is its own mirrored conjugate, so the field is real but for rounding.
// One half of it is drawn: the quarter of frequencies of one sign first, then that of
// opposite signs.
#include "toolkit/spectral_synthesis.h"

#include "runtime/mathematics.h"
#include "toolkit/gaussian_draws.h"

namespace tess {

namespace {

/// Draws the coefficients of a spectrum.
class CoefficientSource {
public:
    CoefficientSource(double exponent, PhaseOfDraw phase_of)
        : power_(-(exponent + 1) / 2), phase_of_(phase_of) {}

    /// That of frequency (i, j). The mean of the field, at (0, 0), has a phase and no
    /// amplitude to draw.
    [[nodiscard]] ComplexNumber Draw(int i, int j) const {
        const double phase = phase_of_(runtime::rand() & 0x7FFF);
        double amplitude = 0.0;
        if (i != 0 || j != 0) {
            const double deviate = DrawGaussian();
            const auto across = static_cast<double>(i), down = static_cast<double>(j);
            amplitude = runtime::Power(across * across + down * down, power_) * deviate;
        }
        return {static_cast<float>(amplitude * runtime::Cosine(phase)),
                static_cast<float>(amplitude * runtime::Sine(phase))};
    }

private:
    double power_;
    PhaseOfDraw phase_of_;
};

ComplexNumber Conjugate(const ComplexNumber& number) {
    return {number.Real, -number.Imaginary};
}

}  // namespace

Spectrum SpectralSynthesis(int size, double exponent, PhaseOfDraw phase_of) {
    Spectrum spectrum(static_cast<std::size_t>(size) * static_cast<std::size_t>(size));
    if (!spectrum) return spectrum;
    const auto at = [&spectrum, size](int i, int j) -> ComplexNumber& {
        return spectrum[static_cast<std::size_t>(i) * static_cast<std::size_t>(size) +
                        static_cast<std::size_t>(j)];
    };
    const CoefficientSource source(exponent, phase_of);
    const int half = size / 2;
    for (int i = 0; i <= half; ++i) {
        for (int j = 0; j <= half; ++j) {
            const ComplexNumber number = source.Draw(i, j);
            at(i, j) = number;
            at(i == 0 ? 0 : size - i, j == 0 ? 0 : size - j) = Conjugate(number);
        }
    }
    at(half, 0).Imaginary = 0.0F;
    at(0, half).Imaginary = 0.0F;
    at(half, half).Imaginary = 0.0F;
    for (int i = 1; i < half; ++i) {
        for (int j = 1; j < half; ++j) {
            const ComplexNumber number = source.Draw(i, j);
            at(i, size - j) = number;
            at(size - i, j) = Conjugate(number);
        }
    }
    InverseFourier2D(spectrum.data(), size);
    return spectrum;
}

void LiftHeights(Spectrum& field, double power) {
    if (power == 1.0) return;
    for (ComplexNumber& number : field) {
        if (number.Real > 0.0F) {
            number.Real = static_cast<float>(runtime::Power(double{number.Real}, power));
        }
    }
}

void ScaleHeights(Spectrum& field) {
    if (field.size() == 0) return;
    double low = field[0].Real, high = low;
    for (const ComplexNumber& number : field) {
        if (number.Real < low) low = number.Real;
        if (number.Real > high) high = number.Real;
    }
    const double middle = (high + low) / 2, reach = (high - low) / 2;
    for (ComplexNumber& number : field) {
        // A field without any height has nothing to scale by.
        number.Real = reach == 0.0 ? 0.0F : static_cast<float>((number.Real - middle) / reach);
    }
}

}  // namespace tess
