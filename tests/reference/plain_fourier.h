// The transform with each line taken out, transformed by itself and put back.
#pragma once

#include "toolkit/inverse_fourier.h"

namespace tess::test {

void PlainInverseFourier2D(ComplexNumber* numbers, int size);

}  // namespace tess::test
